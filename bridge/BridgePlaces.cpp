#include "bridge/BridgePlaces.h"

#include <charconv>

namespace tabulon {
namespace {

constexpr std::string_view kSuffix = ".sock";

// Removes the digits at the beginning of `text` and returns their number, or `nullopt` if there are none.
std::optional<unsigned> takeNumber(std::string_view& text) {
    unsigned number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec != std::errc())
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
    return number;
}

} // namespace

std::string bridgeFolder(const std::string& runtimeFolder) {
    return runtimeFolder + "/app/com.tabulon.Tabulon/bridge";
}

std::string fileNameOf(const BridgeSocketName& name) {
    return std::to_string(name.browser) + "-" + std::to_string(name.host) + std::string(kSuffix);
}

std::optional<BridgeSocketName> socketNameIn(std::string_view fileName) {
    const auto browser = takeNumber(fileName);
    if (!browser || !fileName.starts_with('-'))
        return std::nullopt;
    fileName.remove_prefix(1);
    const auto host = takeNumber(fileName);
    if (!host || fileName != kSuffix)
        return std::nullopt;
    return BridgeSocketName{*browser, *host};
}

} // namespace tabulon
