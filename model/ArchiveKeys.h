// The names and numbers in the keyed archive of a document, for its reader and its writer.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tabulon::archive {

/// The keys of a node in the order in which they are written, then the other keys of an archive. The reader
/// uses this order: the values up to LastOpened are uids of texts and dates, and the keys after Class are not
/// those of a node. A uid of 0 is null. The value of a missing key is null, 0 or false.
enum class Key : std::uint8_t {
    // Uids of texts.
    Name,
    URL,
    Note,
    Tags,
    // Uids of dates.
    DateAdded,
    DateModified,
    LastChecked,
    LastOpened,
    // Integers, of which only the low 8 bits are read; see LinkType.h.
    Type,
    Label,
    Flags,
    Status,
    // An integer of 64 bits with a sign.
    Browser,
    // Booleans. In a file that another writer has made, also integers, of which 0 is false.
    Folder,
    OpenFolder,
    AutoTab,
    // The uid of an array of nodes. Null for a node without a child list.
    Children,
    // The uid of a class description. Every archived dictionary other than these descriptions has this key.
    Class,
    // The integers of the version record. SortOrder is written as 0 and not read.
    Version,
    SortOrder,
    FileType,
    // Of an array: an array of uids.
    Objects,
    // Of a date: a number, the seconds since 2001-01-01 00:00 UTC.
    Time,
    // Of a text that is a dictionary, which only other writers produce: a text, or data in UTF-8.
    String,
    Bytes,
    // Of a class description: the name of the class, and an array of this name and those of its ancestors.
    ClassName,
    Classes,
    // In the dictionary of "$top": the uid of the root object.
    Root,
    // In the top dictionary of the file: an array of all objects, a dictionary, a text, an integer.
    ArchiveObjects,
    ArchiveTop,
    ArchiveArchiver,
    ArchiveVersion,
    // Any other key. It has no name.
    Unknown,
};

/// The number of keys of a node, with its class.
inline constexpr std::size_t kNodeKeyCount = static_cast<std::size_t>(Key::Class) + 1;
/// The number of keys that have a name.
inline constexpr std::size_t kKeyCount = static_cast<std::size_t>(Key::Unknown);

/// The names of the keys in the file, by Key. ASCII.
inline constexpr std::array<std::string_view, kKeyCount> kKeyNames = {
    "Name",       "URL",     "Note",      "Tags",     "DateAdded",  "DateModified", "LastChecked",
    "LastOpened", "Type",    "Label",     "Flags",    "Status",     "Browser",      "Folder",
    "OpenFolder", "AutoTab", "Children",  "$class",   "Version",    "SortOrder",    "FileType",
    "NS.objects", "NS.time", "NS.string", "NS.bytes", "$classname", "$classes",     "root",
    "$objects",   "$top",    "$archiver", "$version"};

/// The values of "$archiver" and "$version". A property list with other values is no document.
inline constexpr std::string_view kArchiverName = "NSKeyedArchiver";
inline constexpr std::uint64_t kArchiverVersion = 100000;

/// The version of documents that the program writes, and the only one that it reads.
inline constexpr std::uint64_t kDocumentVersion = 1;
/// "Tbln" as a big-endian four-character code.
inline constexpr std::uint64_t kDocumentFileType = 0x54626C6E;

} // namespace tabulon::archive
