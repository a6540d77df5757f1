// The names that the keyed archive of a document is made of: shared by its reader and its writer.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tabulon::archive {

/// Keys of a node in the order in which they are written, then the other keys of the graph.
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

inline constexpr std::size_t kNodeKeyCount = static_cast<std::size_t>(Key::Class) + 1;
inline constexpr std::size_t kKeyCount = static_cast<std::size_t>(Key::Unknown);

inline constexpr std::array<std::string_view, kKeyCount> kKeyNames = {
    "Name",       "URL",     "Note",      "Tags",     "DateAdded",  "DateModified", "LastChecked",
    "LastOpened", "Type",    "Label",     "Flags",    "Status",     "Browser",      "Folder",
    "OpenFolder", "AutoTab", "Children",  "$class",   "Version",    "SortOrder",    "FileType",
    "NS.objects", "NS.time", "NS.string", "NS.bytes", "$classname", "$classes",     "root",
    "$objects",   "$top",    "$archiver", "$version"};

inline constexpr std::string_view kArchiverName = "NSKeyedArchiver";
inline constexpr std::uint64_t kArchiverVersion = 100000;

inline constexpr std::uint64_t kDocumentVersion = 1;
/// "Tbln" as a big-endian four-character code.
inline constexpr std::uint64_t kDocumentFileType = 0x54626C6E;

} // namespace tabulon::archive
