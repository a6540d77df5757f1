#include "base/Localization.h"

namespace tabulon {

std::string localeIdentifier(std::string_view name) {
    const std::size_t at = name.find('@');
    const std::string_view keywords = at == std::string_view::npos ? std::string_view() : name.substr(at);
    const std::string_view base = name.substr(0, name.find_first_of(".@"));
    if (base.empty() || base == "C" || base == "POSIX" || base == "en_US_POSIX")
        return "en_US";
    std::string identifier(base);
    if (keywords.find('=') != std::string_view::npos)
        identifier += keywords;
    return identifier;
}

} // namespace tabulon
