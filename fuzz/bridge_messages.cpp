// Any bytes as the stream that a browser or a program sends over the bridge. Every message that is accepted
// survives its own way through the host, and an address stays one text of a request.
#include "bridge/BridgeFrames.h"
#include "bridge/BridgeMessages.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using namespace tabulon;

constexpr std::size_t kMostBytes = 4096;

void require(bool condition) {
    if (!condition)
        std::abort();
}

// Reads the stream in pieces of the given size and returns the messages, each with its frame.
std::string framesOf(std::string_view stream, std::size_t piece) {
    FrameReader reader(kMostBytes);
    std::string frames;
    for (; !stream.empty(); stream.remove_prefix(std::min(piece, stream.size()))) {
        reader.add(stream.substr(0, piece));
        while (const auto message = reader.next()) {
            require(message->size() <= kMostBytes);
            frames += frameOf(*message);
        }
    }
    return frames;
}

void checkMessage(const std::string& message) {
    if (const auto request = requestOfClient(7, message))
        require(request->starts_with("{\"client\":7,\"request\":{") && request->ends_with("}"));
    const auto reply = replyFromJson(message);
    if (!reply)
        return;
    require(reply->error.empty() || !reply->part);
    const auto wrapped = replyOfClient("{\"client\":7,\"reply\":" + message + "}");
    require(wrapped && wrapped->client == 7);
    const auto again = replyFromJson(wrapped->reply);
    require(again && again->id == reply->id && again->part == reply->part && again->error == reply->error &&
            again->result.text == reply->result.text && again->result.url == reply->result.url);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::string frames = framesOf(bytes, bytes.size() + 1);
    require(frames == framesOf(bytes, 1) && bytes.starts_with(frames));
    checkMessage(std::string(bytes));
    static_cast<void>(replyOfClient(bytes));
    return 0;
}
