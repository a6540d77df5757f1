// The pasteboard as the outline's commands use it: a list of items, each a set of typed values. The desktop's
// forms of them are in MimeItems.h, the nodes made of them in BookmarkPasteboard.h.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tabulon {

// The types of values. Texts are UTF-8.

/// The record of a live node (NodeRecords.h).
inline constexpr std::string_view kItemType = "com.tabulon.item";
/// A plain text.
inline constexpr std::string_view kStringType = "public.utf8-plain-text";
/// An address.
inline constexpr std::string_view kURLType = "public.url";
/// The URI of a file.
inline constexpr std::string_view kFileURLType = "public.file-url";
/// The title of the address.
inline constexpr std::string_view kURLNameType = "public.url-name";
/// A page, or a part of one.
inline constexpr std::string_view kHTMLType = "public.html";
/// A property list: a dictionary with the integers "TotalCount" and "FolderCount".
inline constexpr std::string_view kSafariStatisticsType = "com.apple.Safari.bookmarkStatistics";
/// A property list: an array of dictionaries with "URLString" and "URIDictionary", which contains "title".
inline constexpr std::string_view kSafariListType = "com.apple.Safari.bookmarkDictionaryList";

/// One item: a few values, each with its type. Functions take time linear in the number of values.
class PasteboardItem {
public:
    /// The type and the bytes.
    using Value = std::pair<std::string, std::string>;

    /// Adds the value, or replaces the one of the same type.
    void set(std::string_view type, std::string bytes) {
        for (Value& value : values_)
            if (value.first == type) {
                value.second = std::move(bytes);
                return;
            }
        values_.emplace_back(type, std::move(bytes));
    }
    /// Returns the bytes of that type, or `nullptr` if the item has none. They are valid until the item is
    /// changed.
    const std::string* get(std::string_view type) const {
        for (const Value& value : values_)
            if (value.first == type)
                return &value.second;
        return nullptr;
    }
    /// Returns whether the item has a value of that type.
    bool offers(std::string_view type) const { return get(type) != nullptr; }
    /// Returns the values in the order in which their types were added.
    const std::vector<Value>& values() const { return values_; }

    friend bool operator==(const PasteboardItem&, const PasteboardItem&) = default;

private:
    std::vector<Value> values_;
};

} // namespace tabulon
