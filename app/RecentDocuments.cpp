// The list is stored as one text: paths separated by spaces, percent-encoded except for printable ASCII
// characters other than "%".
#include "app/RecentDocuments.h"

#include "text/PercentCoding.h"

#include <algorithm>
#include <sstream>

namespace tabulon {
namespace {

constexpr std::string_view kKey = "RecentDocuments";

bool isPlain(char c) {
    return c > 0x20 && c < 0x7F && c != '%';
}

} // namespace

std::vector<std::string> RecentDocuments::paths() const {
    state_.refresh();
    std::vector<std::string> paths;
    std::istringstream list(state_.stringForKey(kKey).value_or(""));
    for (std::string word; paths.size() < kMaximum && list >> word;)
        paths.push_back(percent::decode(word));
    return paths;
}

void RecentDocuments::note(const std::string& path) {
    std::vector<std::string> list = paths();
    std::erase(list, path);
    list.insert(list.begin(), path);
    list.resize(std::min(list.size(), kMaximum));
    store(list);
}

void RecentDocuments::forget(const std::string& path) {
    std::vector<std::string> list = paths();
    if (std::erase(list, path) > 0)
        store(list);
}

void RecentDocuments::clear() {
    state_.removeKey(kKey);
}

void RecentDocuments::store(const std::vector<std::string>& paths) {
    std::string text;
    for (const std::string& path : paths)
        text += (text.empty() ? "" : " ") + percent::encode(path, isPlain);
    state_.setStringForKey(kKey, text);
}

} // namespace tabulon
