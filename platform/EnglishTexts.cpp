// The table itself, sorted by key. "%@" and "%d" mark where a value goes.
#include "platform/EnglishTexts.h"

#include <array>
#include <utility>

namespace tabulon {
namespace {

using Entry = std::pair<std::string_view, std::string_view>;

constexpr auto kTexts = std::to_array<Entry>({
    {"%d bookmarks", "%d bookmarks"},
    {"%d folders", "%d folders"},
    {"DropBasket", "Drop Basket"},
    {"EmptyFolder", "Untitled Folder"},
    {"EmptyScan", "No links found"},
    {"Favourites", "Favourites"},
    {"ImportError", "The bookmarks could not be imported"},
    {"ImportedBookmarks", "Imported from %@"},
    {"NoSelection", "Nothing is selected"},
    {"NoURLs", "No links were found in the text or file."},
    {"OK", "OK"},
    {"PleaseSelect", "Please select one or more bookmarks first."},
    {"PleaseSelectFile", "Please select the file “%@”."},
    {"PleaseSelectFolder", "Please select a folder first."},
    {"Select", "Select"},
    {"SelectBookmarks", "Select a bookmark file in HTML format"},
    {"Tags", "Tags"},
    {"TagsLabel", "Tags: %@"},
    {"Untitled", "Untitled"},
    {"WasteBasket", "Waste Basket"},
    {"in", "in"},
});

} // namespace

std::optional<std::string_view> englishText(std::string_view key) {
    for (const auto& [name, text] : kTexts)
        if (name == key)
            return text;
    return std::nullopt;
}

} // namespace tabulon
