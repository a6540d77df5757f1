#include "base/Text.h"

#include "base/Utf8.h"

#include <cstring>
#include <new>

namespace tabulon {
namespace {

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

} // namespace tabulon
