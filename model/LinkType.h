// The codes of a bookmark: link types with their icons, label colours, status marks and browsers, as tables
// and pure functions. The node is in Bookmark.h.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

// Link types, with the schemes for which `typeForURL` returns them. Files store these numbers, and other
// codes are possible in files.
inline constexpr std::uint8_t kWebType = 0;        ///< http, https; also the type of a new node
inline constexpr std::uint8_t kFTPType = 1;        ///< ftp, ftps
inline constexpr std::uint8_t kGopherType = 2;     ///< only from files
inline constexpr std::uint8_t kMailType = 3;       ///< mailto; any other URL with an "@"
inline constexpr std::uint8_t kNewsType = 4;       ///< news, nntp
inline constexpr std::uint8_t kTelnetType = 5;     ///< telnet, rlogin, tn3270
inline constexpr std::uint8_t kFingerType = 7;     ///< whois, and finger in its spelling "finder"
inline constexpr std::uint8_t kQueryType = 8;      ///< a link that the user has made a query
inline constexpr std::uint8_t kUnknownType = 9;    ///< only from files
inline constexpr std::uint8_t kSeparatorType = 10; ///< a separator, which is no link
inline constexpr std::uint8_t kFileType = 11;      ///< file

// Link statuses, the result of a check or of the duplicate scan. Files store these numbers. Other codes have
// no mark. The program itself sets kNoStatus and kDuplicateStatus; the others are from files.
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

/// Returns the name of the icon's image ("httpType", "folder", …); empty for None. This view and that of
/// `statusImageName` are valid as long as the program runs.
std::string_view imageName(ItemIcon icon);

/// Returns the icon of a link type, or None for the codes without an icon (6, 10 and above 11).
ItemIcon iconForType(std::uint8_t type);

/// Returns the name of the image of a status mark ("validStatus", …); empty for 0 and above 5.
std::string_view statusImageName(std::uint8_t status);

/// Returns the type of a link by the scheme of its URL, which must be all lower case or all upper case. For
/// every other text with an "@" it is kMailType. Returns `nullopt` if no rule matches. `url` may be any
/// text; white space before the scheme is not skipped.
std::optional<std::uint8_t> typeForURL(std::string_view url);

/// A colour in sRGB, with components from 0 to 1.
struct LabelColor {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    friend bool operator==(const LabelColor&, const LabelColor&) = default;
};

/// Returns the colour of a label, opaque; black for 0 and from 12 on.
LabelColor labelColor(std::uint8_t label);

/// Returns the bundle identifier of browser `index`. For an index without a browser it is `defaultHandler`,
/// the identifier of the system's default browser; for an empty one and for "com.apple.safari" it is
/// "com.apple.Safari".
std::string browserID(std::int64_t index, std::string_view defaultHandler);

} // namespace tabulon
