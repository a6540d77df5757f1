#include "model/LinkType.h"

#include "base/Browsers.h"

#include <array>
#include <utility>

namespace tabulon {
namespace {

constexpr std::array<std::string_view, 12> kImageNames = {
    "",           "httpType",   "ftpType",   "gopherType",  "mailType",    "newsType",
    "telnetType", "fingerType", "queryType", "unknownType", "fileURLType", "folder"};

constexpr std::array<ItemIcon, 12> kIcons = {
    ItemIcon::HttpType,  ItemIcon::FtpType,     ItemIcon::GopherType, ItemIcon::MailType,
    ItemIcon::NewsType,  ItemIcon::TelnetType,  ItemIcon::None,       ItemIcon::FingerType,
    ItemIcon::QueryType, ItemIcon::UnknownType, ItemIcon::None,       ItemIcon::FileURLType};

constexpr std::array<std::string_view, 6> kStatusImages = {
    "", "validStatus", "movedStatus", "brokenStatus", "unknownStatus", "duplicateStatus"};

// In the order of the tests. "finder:" is the spelling that documents contain.
constexpr auto kPrefixes = std::to_array<std::pair<std::string_view, std::uint8_t>>({
    {"http:", kWebType},      {"https:", kWebType},     {"HTTP:", kWebType},      {"HTTPS:", kWebType},
    {"mailto:", kMailType},   {"MAILTO:", kMailType},   {"ftp:", kFTPType},       {"ftps:", kFTPType},
    {"FTP:", kFTPType},       {"FTPS:", kFTPType},      {"file:", kFileType},     {"FILE:", kFileType},
    {"news:", kNewsType},     {"NEWS:", kNewsType},     {"nntp:", kNewsType},     {"NNTP:", kNewsType},
    {"finder:", kFingerType}, {"FINDER:", kFingerType}, {"telnet:", kTelnetType}, {"TELNET:", kTelnetType},
    {"rlogin:", kTelnetType}, {"RLOGIN:", kTelnetType}, {"tn3270:", kTelnetType}, {"TN3270:", kTelnetType},
    {"whois:", kFingerType},  {"WHOIS:", kFingerType},
});

constexpr std::array<LabelColor, 12> kLabelColors = {{
    {0, 0, 0},       // black
    {1, 0.5, 0},     // orange
    {1, 0, 0},       // red
    {1, 0, 1},       // magenta
    {0.4, 0.6, 0.8}, // light blue
    {0, 0, 1},       // blue
    {0, 0.4, 0.07},  // dark green
    {0.6, 0.4, 0.2}, // brown
    {0.5, 0, 0.5},   // purple
    {0.5, 0.5, 0.5}, // gray
    {1, 1, 0},       // yellow
    {0, 1, 1},       // cyan
}};

} // namespace

std::string_view imageName(ItemIcon icon) {
    return kImageNames[static_cast<std::size_t>(icon)];
}

ItemIcon iconForType(std::uint8_t type) {
    return type < kIcons.size() ? kIcons[type] : ItemIcon::None;
}

std::string_view statusImageName(std::uint8_t status) {
    return status < kStatusImages.size() ? kStatusImages[status] : std::string_view();
}

std::optional<std::uint8_t> typeForURL(std::string_view url) {
    for (const auto& [prefix, type] : kPrefixes)
        if (url.size() >= prefix.size() && url[prefix.size() - 1] == ':' && url.starts_with(prefix))
            return type;
    if (url.find('@') != std::string_view::npos)
        return kMailType;
    return std::nullopt;
}

LabelColor labelColor(std::uint8_t label) {
    return label < kLabelColors.size() ? kLabelColors[label] : LabelColor{};
}

std::string browserID(std::int64_t index, std::string_view defaultHandler) {
    if (const Browser* browser = browserWithCode(index))
        return std::string(browser->codeIdentifier);
    if (defaultHandler.empty() || defaultHandler == "com.apple.safari")
        return "com.apple.Safari";
    return std::string(defaultHandler);
}

} // namespace tabulon
