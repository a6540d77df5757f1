// The meaning of the one-byte codes of a bookmark: link types with their icons, label colours, status marks,
// browsers. Pure tables and functions; the node is in Bookmark.h.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

inline constexpr std::uint8_t kWebType = 0;
inline constexpr std::uint8_t kFTPType = 1;
inline constexpr std::uint8_t kGopherType = 2;
inline constexpr std::uint8_t kMailType = 3;
inline constexpr std::uint8_t kNewsType = 4;
inline constexpr std::uint8_t kTelnetType = 5;
inline constexpr std::uint8_t kFingerType = 7;
inline constexpr std::uint8_t kQueryType = 8;
inline constexpr std::uint8_t kUnknownType = 9;
inline constexpr std::uint8_t kSeparatorType = 10;
inline constexpr std::uint8_t kFileType = 11;

// Link status: what is known of a link. Other codes have no mark.
inline constexpr std::uint8_t kNoStatus = 0;
inline constexpr std::uint8_t kValidStatus = 1;
inline constexpr std::uint8_t kMovedStatus = 2;
inline constexpr std::uint8_t kBrokenStatus = 3;
inline constexpr std::uint8_t kUnknownStatus = 4;
inline constexpr std::uint8_t kDuplicateStatus = 5;

/// The icon of a node, by the name of its image.
enum class ItemIcon : std::uint8_t {
    None,
    HttpType,
    FtpType,
    GopherType,
    MailType,
    NewsType,
    TelnetType,
    FingerType,
    QueryType,
    UnknownType,
    FileURLType,
    Folder,
};

/// The image's name ("httpType", "folder", …); empty for None.
std::string_view imageName(ItemIcon icon);

/// The icon of a link type code; None for the codes that have no icon (6, 10 and above 11).
ItemIcon iconForType(std::uint8_t type);

/// The image name of a status mark ("validStatus", …); empty for 0 and above 5.
std::string_view statusImageName(std::uint8_t status);

/// The type that the scheme of `url` gives: a case-sensitive test of prefixes that are all lower or all upper
/// case, and mail for anything else with an "@". Nothing when no rule matches.
std::optional<std::uint8_t> typeForURL(std::string_view url);

/// Components from 0 to 1, sRGB.
struct LabelColor {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    friend bool operator==(const LabelColor&, const LabelColor&) = default;
};

/// The colour of a label number; black for 0 and from 12 up.
LabelColor labelColor(std::uint8_t label);

/// The bundle identifier of browser `index`. Indexes without a browser follow `defaultHandler`, the
/// identifier of the system's default browser; without one (empty), or where it is spelled
/// "com.apple.safari", "com.apple.Safari".
std::string browserID(std::int64_t index, std::string_view defaultHandler);

} // namespace tabulon
