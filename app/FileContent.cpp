#include "app/FileContent.h"

#include "formats/import/LinkFileReader.h"
#include "model/Ascii.h"
#include "model/ClassicReader.h"
#include "model/Document.h"
#include "model/PropertyList.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <initializer_list>

namespace tabulon {
namespace {

constexpr std::size_t kBytesLookedAt = 4096;
// Of files that may be opened: more than documents need, and than most links take.
constexpr std::size_t kBeginning = 65536;

// The beginning of the file in lower case, without a byte-order mark and leading white space.
std::string beginning(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF"))
        bytes.remove_prefix(3);
    const auto start = bytes.find_first_not_of(" \t\r\n");
    return start == std::string_view::npos ? std::string()
                                           : ascii::lowered(bytes.substr(start, kBytesLookedAt));
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

// How many entries of a list are looked at, of its top and of the folder there.
constexpr std::uint64_t kEntriesLookedAt = 100;

// What the keys of a dictionary say about the program that wrote it; Unknown where they say nothing.
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

// By the keys of the top dictionary, then by those of its children.
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

// For a list that cannot be read, or whose first entries say nothing: in both forms keys appear in the bytes
// unchanged. A list of no known kind is read as a document, which says what is wrong with it.
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

// A bookmark file says so, or has its lists; any other page has links.
FileContent contentOfHTML(std::string_view text) {
    const bool isBookmarkFile = hasAny(text, {"<!doctype netscape-bookmark", "<dl>", "<dt>"});
    return imported(isBookmarkFile ? "html" : "html-links");
}

bool looksLikeHTML(std::string_view text) {
    return text.starts_with('<') && hasAny(text, {"<!doctype netscape-bookmark", "<!doctype html", "<html",
                                                  "<title", "<meta ", "<h1", "<dl>", "<dt>", "<a "});
}

FileContent contentByExtension(const std::string& path) {
    const std::string extension = ascii::lowered(std::filesystem::path(path).extension().string());
    if (extension == "." + std::string(kDocumentExtension))
        return kDocument;
    if (extension == ".html" || extension == ".htm")
        return imported("html");
    return extension == ".xbel" ? imported("xbel") : FileContent();
}

// Whether the rest of a file may say something else: a list may be a link, and of other programs' files some
// say late what they are.
bool leavesOpen(std::string_view start) {
    const std::string text = beginning(start);
    if (start.starts_with("bplist") || isXMLList(text))
        return !isArchive(start);
    return text.size() < kBytesLookedAt || (text.starts_with('{') && !hasAny(start, {"\"roots\""}));
}

} // namespace

FileContent contentOfFile(std::string_view bytes, const std::string& path) {
    if (classicFile(bytes))
        return kDocument;
    if (bytes.starts_with("bplist"))
        return contentOfList(bytes);
    const std::string text = beginning(bytes);
    if (isXMLList(text))
        return contentOfList(bytes);
    if (text.starts_with("<xbel") || (isXML(text) && hasAny(text, {"<xbel", "<!doctype xbel"})))
        return imported("xbel");
    if (text.starts_with('{') && hasAny(bytes, {"\"roots\""}))
        return imported(hasAny(bytes, {"\"custom_root\""}) ? "opera" : "chromium");
    if (looksLikeHTML(text))
        return contentOfHTML(text);
    return contentByExtension(path);
}

bool isOpenable(FileStore& files, const std::string& path) {
    Result<std::string> bytes = files.readBeginning(path, kBeginning);
    if (bytes && bytes->size() == kBeginning && leavesOpen(*bytes))
        bytes = files.readFile(path);
    if (!bytes)
        return contentByExtension(path).kind == FileContent::Kind::Document;
    return contentOfFile(*bytes, path).kind != FileContent::Kind::Unknown && !readLinkFile(*bytes);
}

} // namespace tabulon
