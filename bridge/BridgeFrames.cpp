#include "bridge/BridgeFrames.h"

#include <cstdint>
#include <cstring>

namespace tabulon {
namespace {

using Length = std::uint32_t;

} // namespace

std::string frameOf(std::string_view message) {
    const auto length = static_cast<Length>(message.size());
    std::string frame(sizeof length, '\0');
    std::memcpy(frame.data(), &length, sizeof length);
    return frame.append(message);
}

std::optional<std::string> FrameReader::next() {
    if (isBroken_ || bytes_.size() - begin_ < sizeof(Length))
        return std::nullopt;
    Length length = 0;
    std::memcpy(&length, bytes_.data() + begin_, sizeof length);
    if (length > mostBytes_) {
        isBroken_ = true;
        bytes_.clear();
        return std::nullopt;
    }
    if (bytes_.size() - begin_ - sizeof length < length)
        return std::nullopt;
    std::string message = bytes_.substr(begin_ + sizeof length, length);
    begin_ += sizeof length + length;
    if (begin_ > bytes_.size() / 2) {
        bytes_.erase(0, begin_);
        begin_ = 0;
    }
    return message;
}

} // namespace tabulon
