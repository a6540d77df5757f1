#include "app/FileContent.h"

#include "base/Ascii.h"
#include "formats/import/LinkFileReader.h"
#include "model/ClassicReader.h"
#include "model/Document.h"
#include "plist/PropertyList.h"
#include "text/ByteOrderMark.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <optional>
#include <utility>

namespace tabulon {
namespace {

constexpr std::size_t kBytesLookedAt = 4096;
// Enough to recognize documents and most link files.
constexpr std::size_t kBeginning = 65536;

std::string_view withoutSpace(std::string_view bytes) {
    const auto start = std::ranges::find_if_not(bytes, ascii::isSpace);
    return bytes.substr(static_cast<std::size_t>(start - bytes.begin()));
}

// Returns the file without a byte-order mark and leading white space.
std::string_view withoutMark(std::string_view bytes) {
    return withoutSpace(withoutUtf8Mark(bytes));
}

// Returns the beginning of the file in lower case.
std::string beginning(std::string_view bytes) {
    return ascii::lowered(withoutMark(bytes).substr(0, kBytesLookedAt));
}

// Returns the end of the XML declaration or comment that the text begins with; `nullopt` if it begins with
// neither, or it has no end.
std::optional<std::size_t> endOfAside(std::string_view text) {
    for (const auto& [begin, end] : {std::pair<std::string_view, std::string_view>("<!--", "-->"),
                                     std::pair<std::string_view, std::string_view>("<?", "?>")})
        if (text.starts_with(begin))
            if (const auto found = text.find(end, begin.size()); found != std::string_view::npos)
                return found + end.size();
    return std::nullopt;
}

// Returns the file from its document type or first element on: what is before them may be of any length.
std::string_view withoutAsides(std::string_view bytes) {
    std::string_view rest = withoutMark(bytes);
    while (const auto end = endOfAside(rest))
        rest = withoutSpace(rest.substr(*end));
    return rest;
}

FileContent imported(std::string_view format) {
    return {FileContent::Kind::Import, importFormatNamed(format)};
}

constexpr FileContent kDocument{FileContent::Kind::Document};

bool hasAny(std::string_view text, std::initializer_list<std::string_view> marks) {
    return std::ranges::any_of(
        marks, [&](std::string_view mark) { return text.find(mark) != std::string_view::npos; });
}

bool isArchive(std::string_view bytes) {
    return hasAny(bytes, {"$objects"}) && hasAny(bytes, {"$top"});
}

// How many entries are examined, of the top of a list and of the folder in it.
constexpr std::uint64_t kEntriesLookedAt = 100;

// Returns the kind that the keys of a dictionary indicate, or Unknown.
FileContent contentByKeys(const BinaryPlist& list, BinaryPlist::Object dictionary) {
    FileContent content;
    const std::uint64_t count = dictionary.kind() == BinaryPlist::Kind::Dictionary ? dictionary.count() : 0;
    for (std::uint64_t i = 0; i < std::min(count, kEntriesLookedAt); ++i) {
        const BinaryPlist::Object key = list.object(list.reference(dictionary, i));
        const auto isAny = [&](std::initializer_list<std::string_view> names) {
            return std::ranges::any_of(
                names, [&](std::string_view name) { return BinaryPlist::textEquals(key, name); });
        };
        if (isAny({"$objects", "$top"}))
            return kDocument;
        if (isAny({"WebBookmarkType", "WebBookmarkUUID", "WebBookmarkFileVersion", "URLString"}))
            content = imported("safari");
        else if (isAny({"BookmarkType", "FolderType", "LastCheckedDate", "Closed"}))
            content = imported("icab");
    }
    return content;
}

// Examines the keys of the top dictionary, then those of its children.
FileContent contentByEntries(const BinaryPlist& list) {
    const BinaryPlist::Object top = list.object(list.topObject());
    FileContent content = contentByKeys(list, top);
    if (top.kind() != BinaryPlist::Kind::Dictionary)
        return content;
    for (std::uint64_t i = 0; i < std::min(top.count(), kEntriesLookedAt); ++i) {
        const BinaryPlist::Object children = list.object(list.reference(top, top.count() + i));
        if (!BinaryPlist::textEquals(list.object(list.reference(top, i)), "Children") ||
            children.kind() != BinaryPlist::Kind::Array)
            continue;
        for (std::uint64_t j = 0; j < std::min(children.count(), kEntriesLookedAt); ++j)
            if (content.kind == FileContent::Kind::Unknown)
                content = contentByKeys(list, list.object(list.reference(children, j)));
    }
    return content;
}

// For a list that cannot be parsed, or whose first entries do not decide. Keys are stored unchanged in both
// forms of lists. A list of no known kind is read as a document, whose reader reports what is wrong with it.
FileContent contentByBytes(std::string_view bytes) {
    if (isArchive(bytes) || !hasAny(bytes, {"Children"}))
        return kDocument;
    if (hasAny(bytes, {"WebBookmark", "URLString"}))
        return imported("safari");
    if (hasAny(bytes, {"BookmarkType", "FolderType", "LastCheckedDate", "Closed"}))
        return imported("icab");
    return kDocument;
}

FileContent contentOfList(std::string_view bytes) {
    if (const auto list = PropertyList::open(bytes))
        if (const FileContent content = contentByEntries(list->binary());
            content.kind != FileContent::Kind::Unknown)
            return content;
    return contentByBytes(bytes);
}

bool isXML(std::string_view text) {
    return text.starts_with("<?xml") || text.starts_with("<!doctype");
}

bool isXMLList(std::string_view text) {
    return text.starts_with("<plist") || (isXML(text) && hasAny(text, {"<plist", "<!doctype plist"}));
}

// Returns what follows the tag that the text begins with, without white space and paragraph tags; empty if
// the tag has no end.
std::string_view afterTag(std::string_view text) {
    const std::size_t end = text.find_first_of("<>", 1);
    if (end == std::string_view::npos || text[end] == '<')
        return {};
    std::string_view rest = withoutSpace(text.substr(end + 1));
    while (ascii::startsWithIgnoringCase(rest, "<p>"))
        rest = withoutSpace(rest.substr(3));
    return rest;
}

bool startsWithTag(std::string_view text, std::string_view tag) {
    return ascii::startsWithIgnoringCase(text, tag) && text.size() > tag.size() &&
           (ascii::isSpace(text[tag.size()]) || text[tag.size()] == '>');
}

// Returns whether the file has an entry of a bookmark file: a link or a folder at the beginning of a list's
// term. The lists of other pages have text there.
bool hasBookmarkEntry(std::string_view bytes) {
    for (std::size_t at = bytes.find('<'); at != std::string_view::npos; at = bytes.find('<', at + 1)) {
        const std::string_view tag = bytes.substr(at);
        if (!startsWithTag(tag, "<dt"))
            continue;
        const std::string_view content = afterTag(tag);
        if (startsWithTag(content, "<a") || startsWithTag(content, "<h3"))
            return true;
    }
    return false;
}

// A bookmark file has its document type or its entries. Any other page is imported for its links.
FileContent contentOfHTML(std::string_view text, std::string_view bytes) {
    const bool isBookmarkFile = hasAny(text, {"<!doctype netscape-bookmark"}) || hasBookmarkEntry(bytes);
    return imported(isBookmarkFile ? "html" : "html-links");
}

bool looksLikeHTML(std::string_view text) {
    return text.starts_with('<') && hasAny(text, {"<!doctype netscape-bookmark", "<!doctype html", "<html",
                                                  "<title", "<meta ", "<h1", "<dl>", "<dt>", "<a "});
}

FileContent contentByExtension(const std::string& path, std::string_view bytes) {
    const std::string extension = ascii::lowered(std::filesystem::path(path).extension().string());
    if (extension == "." + std::string(kDocumentExtension))
        return kDocument;
    if (extension == ".html" || extension == ".htm")
        return withoutMark(bytes).starts_with('<') ? contentOfHTML(beginning(bytes), bytes)
                                                   : imported("html");
    return extension == ".xbel" ? imported("xbel") : FileContent();
}

// Returns whether the rest of a file may change the decision: a list may be a link file, and some files of
// other programs are recognized late.
bool leavesOpen(std::string_view start) {
    const std::string_view rest = withoutAsides(start);
    if (rest.starts_with("<!--") || rest.starts_with("<?"))
        return true;
    const std::string text = beginning(start);
    if (start.starts_with("bplist") || isXMLList(text) || isXMLList(beginning(rest)))
        return !isArchive(start);
    return text.size() < kBytesLookedAt || (text.starts_with('{') && !hasAny(start, {"\"roots\""}));
}

// `text` is the beginning of the file, or of its document type or first element.
FileContent contentByBeginning(const std::string& text, std::string_view bytes) {
    if (isXMLList(text))
        return contentOfList(bytes);
    if (text.starts_with("<xbel") || (isXML(text) && hasAny(text, {"<xbel", "<!doctype xbel"})))
        return imported("xbel");
    if (text.starts_with('{') && hasAny(bytes, {"\"roots\""}))
        return imported(hasAny(bytes, {"\"custom_root\""}) ? "opera" : "chromium");
    return looksLikeHTML(text) ? contentOfHTML(text, bytes) : FileContent();
}

} // namespace

FileContent contentOfFile(std::string_view bytes, const std::string& path) {
    if (classicFile(bytes))
        return kDocument;
    if (bytes.starts_with("bplist"))
        return contentOfList(bytes);
    for (const std::string& text : {beginning(withoutAsides(bytes)), beginning(bytes)})
        if (const FileContent content = contentByBeginning(text, bytes);
            content.kind != FileContent::Kind::Unknown)
            return content;
    return contentByExtension(path, bytes);
}

bool isOpenable(FileStore& files, const std::string& path) {
    Result<std::string> bytes = files.readBeginning(path, kBeginning);
    if (bytes && bytes->size() == kBeginning && leavesOpen(*bytes))
        bytes = files.readFile(path);
    if (!bytes)
        return contentByExtension(path, {}).kind == FileContent::Kind::Document;
    return contentOfFile(*bytes, path).kind != FileContent::Kind::Unknown && !readLinkFile(*bytes);
}

} // namespace tabulon
