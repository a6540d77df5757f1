#include "app/VersionPlaces.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <limits>

namespace tabulon {
namespace {

constexpr std::string_view kSuffix = ".place";
constexpr std::size_t kDigits = 16;
constexpr double kMilliseconds = 1000;

// FNV-1a with 64 bits. It only has to spread.
std::uint64_t hashOf(std::string_view text) {
    std::uint64_t hash = 0xcbf29ce484222325u;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3u;
    return hash;
}

template <class Number>
bool takeNumber(std::string_view& line, Number& number) {
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), number);
    line.remove_prefix(static_cast<std::size_t>(end - line.data()));
    return error == std::errc();
}

} // namespace

std::string VersionPlaces::fileOf(const std::string& identifier) const {
    return folder_ + "/" + identifier + std::string(kSuffix);
}

std::optional<VersionPlaces::Place> VersionPlaces::readPlace(const std::string& name) const {
    const Result<std::string> content = files_.readFile(folder_ + "/" + name);
    if (!content)
        return std::nullopt;
    std::string_view line = *content;
    FileIdentity identity;
    if (!takeNumber(line, identity.device) || !takeNumber(line, identity.inode) ||
        !takeNumber(line, identity.size) || !takeNumber(line, identity.modified))
        return std::nullopt;
    Place place{.identifier = name.substr(0, name.size() - kSuffix.size())};
    if (line.starts_with(' ')) {
        place.copyOf = line.substr(1, kDigits);
        line.remove_prefix(std::min(line.size(), kDigits + 1));
        if (place.copyOf.size() != kDigits || !takeNumber(line, place.copied))
            return std::nullopt;
    }
    if (!line.starts_with('\n'))
        return std::nullopt;
    place.path = line.substr(1);
    if (identity.inode != 0)
        place.identity = identity;
    return place;
}

Result<void> VersionPlaces::writePlace(const Place& place) {
    const FileIdentity now = place.identity.value_or(FileIdentity{});
    const std::string copy = place.copyOf.empty() ? "" : fmt::format(" {} {}", place.copyOf, place.copied);
    const std::string content =
        fmt::format("{} {} {} {}{}\n{}", now.device, now.inode, now.size, now.modified, copy, place.path);
    const std::string file = fileOf(place.identifier);
    if (const Result<std::string> before = files_.readFile(file); before && *before == content)
        return {};
    if (Result<void> made = files_.makeFolder(folder_); !made)
        return made;
    return files_.writeFileAtomically(file, content);
}

std::vector<VersionPlaces::Place> VersionPlaces::places() const {
    std::vector<Place> found;
    for (const std::string& name : files_.namesInFolder(folder_))
        if (name.ends_with(kSuffix))
            if (std::optional<Place> place = readPlace(name))
                found.push_back(std::move(*place));
    return found;
}

std::vector<VersionPlaces::Source> VersionPlaces::sourcesOf(const std::string& path) const {
    const std::optional<FileIdentity> identity = files_.identityOf(path);
    const std::vector<Place> all = places();
    std::vector<Source> sources;
    const auto add = [&](const std::string& identifier, double until) {
        const bool isKnown =
            std::ranges::any_of(sources, [&](const Source& known) { return known.identifier == identifier; });
        if (!isKnown)
            sources.push_back({identifier, until});
    };
    const auto addAll = [&](const auto& rule) {
        for (const Place& place : all)
            if (rule(place))
                add(place.identifier, std::numeric_limits<double>::infinity());
    };
    addAll([&](const Place& place) { return identity && place.identity == identity && place.path == path; });
    addAll([&](const Place& place) { return identity && place.identity == identity; });
    addAll([&](const Place& place) { return place.path == path; });
    if (sources.empty() && identity)
        addAll([&](const Place& place) { return files_.identityOf(place.path) == identity; });
    for (std::size_t index = 0; index < sources.size(); ++index) {
        const Source source = sources[index];
        const auto place = std::ranges::find(all, source.identifier, &Place::identifier);
        if (place != all.end() && !place->copyOf.empty())
            add(place->copyOf, std::min(source.until, static_cast<double>(place->copied) / kMilliseconds));
    }
    return sources;
}

std::string VersionPlaces::identifierFor(const std::string& path) const {
    const std::vector<Source> sources = sourcesOf(path);
    if (!sources.empty())
        return sources.front().identifier;
    std::uint64_t hash = hashOf(path);
    while (files_.fileExists(fileOf(fmt::format("{:016x}", hash))))
        ++hash;
    return fmt::format("{:016x}", hash);
}

Result<void> VersionPlaces::note(const std::string& identifier, const std::string& path) {
    Place place = readPlace(identifier + std::string(kSuffix)).value_or(Place{.identifier = identifier});
    place.path = path;
    place.identity = files_.identityOf(path);
    return writePlace(place);
}

Result<void> VersionPlaces::noteNew(const std::string& identifier, const std::string& path) {
    return files_.fileExists(fileOf(identifier)) ? Result<void>() : note(identifier, path);
}

Result<void> VersionPlaces::noteCopy(const std::string& path, const std::string& source, double now) {
    const std::string copyOf = identifierFor(source);
    const std::string identifier = identifierFor(path);
    if (identifier == copyOf)
        return note(identifier, path);
    Place place{.identifier = identifier,
                .identity = files_.identityOf(path),
                .path = path,
                .copyOf = copyOf,
                .copied = static_cast<std::uint64_t>(now * kMilliseconds)};
    return writePlace(place);
}

} // namespace tabulon
