// The text type of the bookmark tree: immutable UTF-8 that copies share, possibly null, of the size of one
// pointer. Conversion from other encodings is in text/EncodingConversion.h.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace tabulon {

/// A text that may be null. Null and empty are different values. Copies share the bytes and take constant
/// time. Their reference count is not atomic, so all copies of a text stay on one thread.
class Text {
public:
    /// The longest text in bytes. Longer input is cut after the last character that fits.
    static constexpr std::size_t kMaximumSize = 0xFFFFFFF0u;

    /// Constructs null.
    Text() noexcept = default;

    /// Copies `utf8`. The result is not null, even if `utf8` is empty. Requires: valid UTF-8; use `fromBytes`
    /// for bytes that may be malformed.
    Text(std::string_view utf8);
    /// Does the same.
    Text(const std::string& utf8) : Text(std::string_view(utf8)) {}
    /// Copies a text that ends with a zero byte. Requires: valid UTF-8, and not nullptr.
    Text(const char* utf8) : Text(std::string_view(utf8)) {}
    /// Constructs null.
    Text(std::nullptr_t) noexcept {}

    /// Returns a copy of `bytes`, in which each maximal malformed part is replaced by one U+FFFD. Never null.
    static Text fromBytes(std::string_view bytes);

    /// Shares the bytes of `other`.
    Text(const Text& other) noexcept : block_(other.block_) { retain(); }
    /// Takes over the bytes of `other`, which is null afterwards.
    Text(Text&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
    /// Shares the bytes of another text, or takes over those of a temporary one. Frees the bytes of before if
    /// no other text shares them. Assigning a text to itself is allowed.
    Text& operator=(Text other) noexcept {
        std::swap(block_, other.block_);
        return *this;
    }
    /// Frees the bytes if no other text shares them.
    ~Text() { release(); }

    /// Returns true for null; false for an empty text.
    bool isNull() const noexcept { return block_ == nullptr; }
    /// Returns true for null and for a text of 0 bytes.
    bool isEmpty() const noexcept { return block_ == nullptr || block_->size == 0; }

    /// Returns the bytes, valid as long as a copy of this text exists; an empty view for null.
    std::string_view view() const noexcept {
        return block_ ? std::string_view(reinterpret_cast<const char*>(block_ + 1), block_->size)
                      : std::string_view();
    }
    /// Returns a copy of the bytes; empty for null.
    std::string string() const { return std::string(view()); }

    /// Prefetches the first bytes into the processor's cache. Has no other effect; allowed for null.
    void prefetch() const noexcept {
        __builtin_prefetch(block_);
        __builtin_prefetch(reinterpret_cast<const char*>(block_) + 64);
    }

    /// Returns true if the bytes are equal. Null equals only null. Linear, but constant for texts that share
    /// their bytes and for texts of different sizes.
    friend bool operator==(const Text& a, const Text& b) noexcept {
        return a.block_ == b.block_ || (a.block_ && b.block_ && a.view() == b.view());
    }

    /// Returns true if other copies share the bytes; false for null.
    bool isShared() const noexcept { return block_ && block_->references > 1; }

    /// Returns true if both share the same bytes in memory, or both are null. Takes constant time, and may
    /// return false for equal texts.
    bool sharesBytesWith(const Text& other) const noexcept { return block_ == other.block_; }

private:
    /// Constructs a text of `size` bytes, which are not initialised. Throws std::bad_alloc without memory.
    explicit Text(std::size_t size);

    /// The header of the bytes, which follow it in the same allocation.
    struct Block {
        std::uint32_t references; ///< the number of texts that share the bytes
        std::uint32_t size;       ///< in bytes, up to `kMaximumSize`
    };

    /// Adds a reference. Does nothing for null.
    void retain() noexcept {
        if (block_)
            ++block_->references;
    }
    /// Removes a reference, and frees the block with the last one. Does nothing for null.
    void release() noexcept {
        if (block_ && --block_->references == 0)
            destroy(block_);
    }
    /// Frees the block. Requires: no text refers to it.
    static void destroy(Block* block) noexcept;

    /// nullptr for null.
    Block* block_ = nullptr;
};

} // namespace tabulon
