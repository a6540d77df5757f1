// The one text type of the bookmark tree: immutable UTF-8, shared between copies, null or not, one pointer
// wide. Conversions from other encodings live with the readers that need them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace tabulon {

/// A text that may be null. Null and empty are different values. Copies share the bytes; the count behind
/// them is not atomic, so a Text stays on one thread.
class Text {
public:
    /// The longest text in bytes; longer input is cut at the last whole character before it.
    static constexpr std::size_t kMaximumSize = 0xFFFFFFF0u;

    Text() noexcept = default;

    /// A text with a copy of `utf8`, which must be valid UTF-8 (see `fromBytes` for input of doubtful
    /// origin).
    Text(std::string_view utf8);
    Text(const std::string& utf8) : Text(std::string_view(utf8)) {}
    Text(const char* utf8) : Text(std::string_view(utf8)) {}
    Text(std::nullptr_t) noexcept {}

    /// A text from bytes that should be UTF-8: each maximal malformed part becomes one U+FFFD. Never null.
    static Text fromBytes(std::string_view bytes);

    Text(const Text& other) noexcept : block_(other.block_) { retain(); }
    Text(Text&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
    Text& operator=(Text other) noexcept {
        std::swap(block_, other.block_);
        return *this;
    }
    ~Text() { release(); }

    bool isNull() const noexcept { return block_ == nullptr; }
    /// True for null and for a text of no bytes.
    bool isEmpty() const noexcept { return block_ == nullptr || block_->size == 0; }

    /// The bytes, valid as long as any copy of this text lives; an empty view for null.
    std::string_view view() const noexcept {
        return block_ ? std::string_view(reinterpret_cast<const char*>(block_ + 1), block_->size)
                      : std::string_view();
    }
    std::string string() const { return std::string(view()); }

    /// Begins to bring the first bytes near, for whoever reads them soon.
    void prefetch() const noexcept {
        __builtin_prefetch(block_);
        __builtin_prefetch(reinterpret_cast<const char*>(block_) + 64);
    }

    /// Bytes equal; null equals only null.
    friend bool operator==(const Text& a, const Text& b) noexcept {
        return a.block_ == b.block_ || (a.block_ && b.block_ && a.view() == b.view());
    }

    /// Whether other texts have the same bytes in memory.
    bool isShared() const noexcept { return block_ && block_->references > 1; }

    /// True when both are the same shared bytes (or both null): cheaper than `==`, and may be false for
    /// equals.
    bool sharesBytesWith(const Text& other) const noexcept { return block_ == other.block_; }

private:
    explicit Text(std::size_t size); // of bytes that are still to be written

    struct Block {
        std::uint32_t references;
        std::uint32_t size;
    };

    void retain() noexcept {
        if (block_)
            ++block_->references;
    }
    void release() noexcept {
        if (block_ && --block_->references == 0)
            destroy(block_);
    }
    static void destroy(Block* block) noexcept;

    Block* block_ = nullptr;
};

/// `bytes` as valid UTF-8: each maximal malformed part replaced by U+FFFD. Valid input comes back unchanged.
std::string decodeUtf8Leniently(std::string_view bytes);

/// True when no byte is above 127.
bool isAscii(std::string_view bytes);

/// True when `bytes` is well-formed UTF-8.
bool isValidUtf8(std::string_view bytes);

} // namespace tabulon
