// The list is stored as one text: paths separated by spaces, with every byte that is not a plain character
// written as a percent sign and two hexadecimal digits.
#include "app/RecentDocuments.h"

#include <algorithm>
#include <charconv>
#include <sstream>

namespace tabulon {
namespace {

constexpr std::string_view kKey = "RecentDocuments";

std::string encode(const std::string& path) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string text;
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte > 0x20 && byte < 0x7F && c != '%') {
            text += c;
        } else {
            text += '%';
            text += kDigits[byte >> 4];
            text += kDigits[byte & 15];
        }
    }
    return text;
}

std::string decode(std::string_view text) {
    std::string path;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned byte = 0;
        const char* digits = text.data() + i + 1;
        if (text[i] == '%' && i + 2 < text.size() &&
            std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
            path += static_cast<char>(byte);
            i += 2;
        } else {
            path += text[i];
        }
    }
    return path;
}

} // namespace

std::vector<std::string> RecentDocuments::paths() const {
    state_.refresh();
    std::vector<std::string> paths;
    std::istringstream list(state_.stringForKey(kKey).value_or(""));
    for (std::string word; paths.size() < kMaximum && list >> word;)
        paths.push_back(decode(word));
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
        text += (text.empty() ? "" : " ") + encode(path);
    state_.setStringForKey(kKey, text);
}

} // namespace tabulon
