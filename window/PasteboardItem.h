// The model of a pasteboard that the outline's commands work on: a list of items, each a set of typed values.
// How the desktop carries them is in MimeItems.h, what they become in BookmarkPasteboard.h.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tabulon {

// The types of values. Texts are UTF-8.

/// The record of a live node (NodeRecords.h).
inline constexpr std::string_view kItemType = "com.tabulon.item";
inline constexpr std::string_view kStringType = "public.utf8-plain-text";
inline constexpr std::string_view kURLType = "public.url";
/// The URI of a file.
inline constexpr std::string_view kFileURLType = "public.file-url";
/// The title that goes with a URL.
inline constexpr std::string_view kURLNameType = "public.url-name";
inline constexpr std::string_view kHTMLType = "public.html";
/// A property list: a dictionary with the integers "TotalCount" and "FolderCount".
inline constexpr std::string_view kSafariStatisticsType = "com.apple.Safari.bookmarkStatistics";
/// A property list: an array of dictionaries with "URLString" and "URIDictionary", which holds "title".
inline constexpr std::string_view kSafariListType = "com.apple.Safari.bookmarkDictionaryList";

class PasteboardItem {
public:
    using Value = std::pair<std::string, std::string>;

    /// Replaces a value of the same type.
    void set(std::string_view type, std::string bytes) {
        for (Value& value : values_)
            if (value.first == type) {
                value.second = std::move(bytes);
                return;
            }
        values_.emplace_back(type, std::move(bytes));
    }
    /// Null where the item does not offer the type.
    const std::string* get(std::string_view type) const {
        for (const Value& value : values_)
            if (value.first == type)
                return &value.second;
        return nullptr;
    }
    bool offers(std::string_view type) const { return get(type) != nullptr; }
    const std::vector<Value>& values() const { return values_; }

    friend bool operator==(const PasteboardItem&, const PasteboardItem&) = default;

private:
    std::vector<Value> values_;
};

} // namespace tabulon
