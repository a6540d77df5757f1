#include "app/VersionThinning.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <set>
#include <tuple>

namespace tabulon {
namespace {

constexpr double kHour = 3600;
constexpr double kDay = 24 * kHour;
constexpr double kWeek = 7 * kDay;
constexpr double kMonth = 30 * kDay;

// Returns the period in seconds of which one version stays at this age; 0 if all stay.
double periodAt(double age) {
    if (age < kHour)
        return 0;
    if (age < kDay)
        return kHour;
    return age < kMonth ? kDay : kWeek;
}

// The versions of one document, oldest first.
class History {
public:
    void add(std::size_t index, const KeptVersion& version) {
        entries_.push_back({index, version.kept, version.size});
        size_ += version.size;
    }
    void sort() { std::ranges::sort(entries_, {}, &Entry::kept); }

    std::size_t count() const { return entries_.size(); }
    std::uint64_t size() const { return size_; }
    double newest() const { return entries_.back().kept; }

    // Returns the place of the version whose removal leaves the shortest gap; of equal ones, and of two
    // versions, the older one.
    std::size_t leastMissed() const {
        std::size_t best = 0;
        double smallest = std::numeric_limits<double>::infinity();
        for (std::size_t place = 1; place + 1 < entries_.size(); ++place) {
            const double gap = entries_[place + 1].kept - entries_[place - 1].kept;
            if (gap < smallest) {
                smallest = gap;
                best = place;
            }
        }
        return best;
    }

    std::size_t remove(std::size_t place) {
        const Entry entry = entries_[place];
        size_ -= entry.size;
        entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(place));
        return entry.index;
    }

private:
    struct Entry {
        std::size_t index;
        double kept;
        std::uint64_t size;
    };

    std::vector<Entry> entries_;
    std::uint64_t size_ = 0;
};

// Returns the document to remove a version from: the largest of those with several versions, else the one
// whose version is oldest.
History& sourceOf(std::vector<History>& histories) {
    const auto rank = [](const History& history) {
        const bool hasSeveral = history.count() > 1;
        return std::tuple(hasSeveral, hasSeveral ? static_cast<double>(history.size()) : -history.newest());
    };
    return *std::ranges::max_element(histories, {}, rank);
}

} // namespace

std::vector<std::size_t> versionsTooClose(std::span<const KeptVersion> versions, double now) {
    std::vector<std::size_t> order(versions.size());
    for (std::size_t index = 0; index < order.size(); ++index)
        order[index] = index;
    std::ranges::sort(order,
                      [&](std::size_t a, std::size_t b) { return versions[a].kept > versions[b].kept; });
    std::set<std::tuple<std::string, double, double>> taken;
    std::vector<std::size_t> result;
    for (const std::size_t index : order) {
        const KeptVersion& version = versions[index];
        const double period = periodAt(now - version.kept);
        if (period > 0 && !taken.emplace(version.document, period, std::floor(version.kept / period)).second)
            result.push_back(index);
    }
    std::ranges::sort(result);
    return result;
}

std::vector<std::size_t> versionsOverLimit(std::span<const KeptVersion> versions, std::uint64_t limit) {
    std::map<std::string, History> byDocument;
    std::uint64_t total = 0;
    for (std::size_t index = 0; index < versions.size(); ++index) {
        byDocument[versions[index].document].add(index, versions[index]);
        total += versions[index].size;
    }
    std::vector<History> histories;
    for (auto& [document, history] : byDocument) {
        history.sort();
        histories.push_back(std::move(history));
    }
    std::vector<std::size_t> result;
    while (total > limit && !histories.empty()) {
        History& source = sourceOf(histories);
        const std::uint64_t before = source.size();
        result.push_back(source.remove(source.leastMissed()));
        total -= before - source.size();
        if (source.count() == 0)
            histories.erase(histories.begin() + (&source - histories.data()));
    }
    std::ranges::sort(result);
    return result;
}

} // namespace tabulon
