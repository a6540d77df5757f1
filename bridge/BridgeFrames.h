// The frames in which the bridge to browsers sends its messages: four bytes with the length, in the byte
// order of the machine, and that many bytes of JSON in UTF-8. Browsers define this form for native messaging.
// Pure functions over bytes.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

/// The most bytes of a message to a browser. A browser ends the connection for 1 MiB and more.
inline constexpr std::size_t kMostRequestBytes = std::size_t{512} * 1024;
/// The most bytes of a message from a browser. Long texts come in several messages.
inline constexpr std::size_t kMostReplyBytes = std::size_t{1024} * 1024;

/// Returns the message with its length in front. Requires: the message has less than 4 GiB. The result is
/// four bytes longer. The message is not checked.
std::string frameOf(std::string_view message);

/// Splits a stream of bytes into messages.
class FrameReader {
public:
    /// Accepts messages with up to `mostBytes`.
    explicit FrameReader(std::size_t mostBytes) : mostBytes_(mostBytes) {}

    /// Adds bytes of the stream. Parts of frames may be added in any size. Requires: not `isBroken`, since
    /// the bytes would be stored and never read. The bytes are stored until `next` has returned their
    /// messages.
    void add(std::string_view bytes) { bytes_ += bytes; }
    /// Returns the next whole message, or `nullopt` if there is none yet. Linear in the bytes that were
    /// added. A message may be empty. Its JSON is not checked.
    std::optional<std::string> next();
    /// Returns true if the stream announces a message that is too long. No message follows then. Set by
    /// `next`, which discards the stored bytes.
    bool isBroken() const { return isBroken_; }

private:
    const std::size_t mostBytes_;
    std::string bytes_;
    std::size_t begin_ = 0; // of the next message in `bytes_`
    bool isBroken_ = false;
};

} // namespace tabulon
