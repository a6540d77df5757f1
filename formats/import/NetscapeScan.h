// One run of the tag scanner over one file: the tokens and what each does. What lives on between runs is in
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

/// Scans once. Every token's action gives the place where the search for the next token begins, and that
/// place always lies behind the token.
class NetscapeScan {
public:
    /// `bytes` and `lastItem` must outlive this object. `lastItem` is the item that a description belongs to;
    /// it may be null and is kept up to date.
    NetscapeScan(std::string_view bytes, const BaseServices& services, Ref<Bookmark>& lastItem);

    /// The root folder with everything that was found, up to where the user cancelled. Call it once.
    /// `progress` may be null.
    Ref<Bookmark> run(Progress* progress = nullptr);

    /// How many bytes were searched and decoded, those counted twice that were gone over twice: at most a
    /// small multiple of the file, whatever it holds.
    std::size_t examined() const { return bytes_.examined(); }

private:
    // Each gives the next cursor, or npos where the scan ends.
    std::size_t act(const NetscapeToken& token);
    std::size_t appendSeparator(std::size_t start);
    std::size_t beginList(std::size_t start);
    std::size_t endList(std::size_t start);
    std::size_t setNote(std::size_t start);
    std::size_t appendLinkLine(const LinkLine& line, std::size_t start);
    std::size_t appendLink(std::size_t start);
    std::size_t appendFolder(std::size_t start);

    struct LinkName {
        Text text;
        std::size_t next = 0;
    };
    std::optional<LinkName> nameOf(const LinkTarget& target);
    Text nameBetween(std::size_t from, std::size_t to);
    Text folderName(std::size_t from, std::size_t to);

    void readDates(Bookmark& item, std::size_t start, std::size_t next) const;
    void appendNamed(Ref<Bookmark> link, Text name);
    void append(Ref<Bookmark> item);

    const BaseServices& services_;
    ScannedBytes bytes_;
    NetscapeTokens tokens_{bytes_};
    ScannedTexts texts_{bytes_};
    LinkTargets targets_{bytes_, texts_};
    Ref<Bookmark>& lastItem_;
    Date now_;
    Text untitled_;
    Bookmark* folder_ = nullptr;
};

} // namespace tabulon
