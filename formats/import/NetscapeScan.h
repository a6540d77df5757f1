// One run of the tag scanner over one file: the actions of the tokens. The state between runs is in
// NetscapeScanner.h.
#pragma once

#include "base/BaseServices.h"
#include "base/Progress.h"
#include "formats/import/LinkLine.h"
#include "formats/import/LinkTarget.h"
#include "formats/import/NetscapeTokens.h"
#include "formats/import/ScannedBytes.h"
#include "formats/import/ScannedTexts.h"
#include "model/Bookmark.h"

#include <optional>
#include <string_view>

namespace tabulon {

/// Scans a file once. The action of each token returns the offset at which the search for the next token
/// begins; it is always greater than the offset of the token.
class NetscapeScan {
public:
    /// The arguments must outlive this object. `bytes` should be UTF-8; malformed parts are decoded to
    /// U+FFFD. `lastItem` is the item that a description belongs to. It may be null, and is set to each new
    /// item.
    NetscapeScan(std::string_view bytes, const BaseServices& services, Ref<Bookmark>& lastItem);

    /// Returns the root folder with all items, or with those before the user cancelled. `progress` may be
    /// `nullptr`. Linear, without recursion. To be called once.
    Ref<Bookmark> run(Progress* progress = nullptr);

    /// Returns the number of bytes that were searched and decoded, each counted as often as it was read. It
    /// is at most a constant multiple of the file's size, whatever the file contains.
    std::size_t examined() const { return bytes_.examined(); }

private:
    // Each returns the next cursor, or npos where the scan ends.
    std::size_t act(const NetscapeToken& token);
    std::size_t appendSeparator(std::size_t start);
    std::size_t beginList(std::size_t start);
    std::size_t endList(std::size_t start);
    std::size_t setNote(std::size_t start);
    std::size_t appendLinkLine(const LinkLine& line, std::size_t start);
    std::size_t appendLink(std::size_t start);
    std::size_t appendFolder(std::size_t start);

    /// The name of a link, and the next cursor.
    struct LinkName {
        Text text;
        std::size_t next = 0;
    };
    /// Returns the name of the link, or `nullopt` where the bytes end before it does.
    std::optional<LinkName> nameOf(const LinkTarget& target);
    /// Returns the name in a range of bytes, or "Untitled" where it is empty.
    Text nameBetween(std::size_t from, std::size_t to);
    /// Returns the name of a folder; "Favourites" for a toolbar folder of a browser.
    Text folderName(std::size_t from, std::size_t to);

    /// Sets the dates of the tag at `start`; null where it has none.
    void readDates(Bookmark& item, std::size_t start, std::size_t next) const;
    /// Appends the link with the name. A link named "-" becomes a separator.
    void appendNamed(Ref<Bookmark> link, Text name);
    /// Appends the item to the current folder, and sets it as the last item.
    void append(Ref<Bookmark> item);

    const BaseServices& services_;
    ScannedBytes bytes_;
    NetscapeTokens tokens_{bytes_};
    ScannedTexts texts_{bytes_};
    LinkTargets targets_{bytes_, texts_};
    Ref<Bookmark>& lastItem_;
    Date now_;
    Text untitled_;
    /// The current folder. Not owned: it is in the tree.
    Bookmark* folder_ = nullptr;
};

} // namespace tabulon
