#include "base/Text.h"

#include "base/Utf8.h"

#include <unicode/utf8.h>

#include <cstring>
#include <new>

namespace tabulon {
namespace {

// Returns the position of the first byte that is not ASCII, or the size.
std::size_t asciiPrefix(std::string_view bytes) {
    const auto isAsciiAt = [&bytes](std::size_t at) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data() + at, 8);
        return (word & 0x8080808080808080u) == 0;
    };
    std::size_t i = 0;
    while (i + 8 <= bytes.size() && isAsciiAt(i))
        i += 8;
    // The last word may overlap the one before, which is cheaper than testing the rest byte by byte.
    if (i > 0 && i + 8 > bytes.size() && isAsciiAt(bytes.size() - 8))
        return bytes.size();
    while (i < bytes.size() && static_cast<unsigned char>(bytes[i]) < 0x80)
        ++i;
    return i;
}

// Copies `bytes` and returns true if all of them are ASCII. Requires: at least eight bytes.
bool copyAscii(std::string_view bytes, char* target) {
    std::uint64_t seen = 0;
    const auto copyAt = [&](std::size_t at) {
        std::uint64_t word = 0;
        std::memcpy(&word, bytes.data() + at, 8);
        std::memcpy(target + at, &word, 8);
        seen |= word;
    };
    for (std::size_t i = 0; i + 8 < bytes.size(); i += 8)
        copyAt(i);
    copyAt(bytes.size() - 8);
    return (seen & 0x8080808080808080u) == 0;
}

} // namespace

Text::Text(std::size_t size) : block_(static_cast<Block*>(::operator new(sizeof(Block) + size))) {
    block_->references = 1;
    block_->size = static_cast<std::uint32_t>(size);
}

Text::Text(std::string_view utf8) : Text(utf8::prefix(utf8, kMaximumSize).size()) {
    // The address of an empty view may be nullptr, which memcpy does not accept even for 0 bytes.
    if (block_->size != 0)
        std::memcpy(block_ + 1, utf8.data(), block_->size);
}

// Most texts are ASCII. They are checked while they are copied, in one pass.
Text Text::fromBytes(std::string_view bytes) {
    if (bytes.size() >= 8 && bytes.size() <= kMaximumSize) {
        Text text(bytes.size());
        if (copyAscii(bytes, reinterpret_cast<char*>(text.block_ + 1)))
            return text;
    }
    return isValidUtf8(bytes) ? Text(bytes) : Text(decodeUtf8Leniently(bytes));
}

void Text::destroy(Block* block) noexcept {
    ::operator delete(block, sizeof(Block) + block->size);
}

bool isAscii(std::string_view bytes) {
    return asciiPrefix(bytes) == bytes.size();
}

bool isValidUtf8(std::string_view bytes) {
    const auto* data = reinterpret_cast<const std::uint8_t*>(bytes.data());
    std::size_t i = asciiPrefix(bytes);
    while (i < bytes.size()) {
        UChar32 character = 0;
        U8_NEXT(data, i, bytes.size(), character);
        if (character < 0)
            return false;
    }
    return true;
}

std::string decodeUtf8Leniently(std::string_view bytes) {
    const auto* data = reinterpret_cast<const std::uint8_t*>(bytes.data());
    std::string result;
    result.reserve(bytes.size());
    std::size_t i = 0;
    while (i < bytes.size()) {
        const std::size_t start = i;
        UChar32 character = 0;
        U8_NEXT(data, i, bytes.size(), character);
        if (character < 0)
            result += "\xEF\xBF\xBD";
        else
            result.append(bytes.substr(start, i - start));
    }
    return result;
}

} // namespace tabulon
