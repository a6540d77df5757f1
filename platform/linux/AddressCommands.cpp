#include "platform/linux/AddressCommands.h"

#include <algorithm>

namespace tabulon {
namespace {

constexpr std::size_t kMostAddressBytes = 100'000;

bool isControlCharacter(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7f;
}

// The bytes that the kernel needs for a word: the text, its end and a pointer.
std::size_t bytesOf(const std::string& word) {
    return word.size() + 1 + sizeof(char*);
}

} // namespace

bool canBeArgument(std::string_view address) {
    return !address.empty() && !address.starts_with('-') && address.size() <= kMostAddressBytes &&
           std::ranges::none_of(address, isControlCharacter);
}

std::vector<std::vector<std::string>> commandsWithAddresses(const std::vector<std::string>& command,
                                                            std::span<const std::string> addresses,
                                                            std::size_t mostBytes) {
    std::size_t fixedBytes = 0;
    for (const std::string& word : command)
        fixedBytes += bytesOf(word);
    std::vector<std::vector<std::string>> commands;
    std::size_t bytes = 0;
    for (const std::string& address : addresses) {
        if (commands.empty() || bytes + bytesOf(address) > mostBytes) {
            commands.push_back(command);
            bytes = fixedBytes;
        }
        commands.back().push_back(address);
        bytes += bytesOf(address);
    }
    return commands;
}

} // namespace tabulon
