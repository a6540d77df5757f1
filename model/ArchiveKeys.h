// The names and numbers in the keyed archive of a document, for its reader and its writer.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tabulon::archive {

/// The keys of a node in the order in which they are written, then the other keys of an archive.
enum class Key : std::uint8_t {
    Name,
    URL,
    Note,
    Tags,
    DateAdded,
    DateModified,
    LastChecked,
    LastOpened,
    Type,
    Label,
    Flags,
    Status,
    Browser,
    Folder,
    OpenFolder,
    AutoTab,
    Children,
    Class,
    Version,
    SortOrder,
    FileType,
    Objects,
    Time,
    String,
    Bytes,
    ClassName,
    Classes,
    Root,
    ArchiveObjects,
    ArchiveTop,
    ArchiveArchiver,
    ArchiveVersion,
    Unknown,
};

/// The number of keys of a node.
inline constexpr std::size_t kNodeKeyCount = static_cast<std::size_t>(Key::Class) + 1;
/// The number of all keys.
inline constexpr std::size_t kKeyCount = static_cast<std::size_t>(Key::Unknown);

/// The names of the keys, by Key.
inline constexpr std::array<std::string_view, kKeyCount> kKeyNames = {
    "Name",       "URL",     "Note",      "Tags",     "DateAdded",  "DateModified", "LastChecked",
    "LastOpened", "Type",    "Label",     "Flags",    "Status",     "Browser",      "Folder",
    "OpenFolder", "AutoTab", "Children",  "$class",   "Version",    "SortOrder",    "FileType",
    "NS.objects", "NS.time", "NS.string", "NS.bytes", "$classname", "$classes",     "root",
    "$objects",   "$top",    "$archiver", "$version"};

/// The values of "$archiver" and "$version".
inline constexpr std::string_view kArchiverName = "NSKeyedArchiver";
inline constexpr std::uint64_t kArchiverVersion = 100000;

/// The version of documents that the program reads and writes.
inline constexpr std::uint64_t kDocumentVersion = 1;
/// "Tbln" as a big-endian four-character code.
inline constexpr std::uint64_t kDocumentFileType = 0x54626C6E;

} // namespace tabulon::archive
