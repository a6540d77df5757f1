// Frames of messages that arrive in pieces of any size, and the names of sockets.
#include "bridge/BridgeFrames.h"

#include "bridge/BridgePlaces.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

namespace tabulon {
namespace {

std::string lengthBytes(std::uint32_t length) {
    std::string bytes(sizeof length, '\0');
    std::memcpy(bytes.data(), &length, sizeof length);
    return bytes;
}

TEST(BridgeFrames, AFrameIsTheLengthAndTheMessage) {
    EXPECT_EQ(frameOf("{}"), lengthBytes(2) + "{}");
    EXPECT_EQ(frameOf(""), lengthBytes(0));
}

TEST(BridgeFrames, MessagesArriveInPieces) {
    const std::vector<std::string> messages = {"{}", "", std::string(70'000, 'x'), "{\"a\":1}",
                                               std::string(1, '\0')};
    std::string stream;
    for (const std::string& message : messages)
        stream += frameOf(message);
    std::mt19937 random(5);
    for (int round = 0; round < 50; ++round) {
        FrameReader reader(100'000);
        std::vector<std::string> received;
        for (std::size_t at = 0; at < stream.size();) {
            const std::size_t count = 1 + random() % (round < 10 ? 7 : 30'000);
            reader.add(std::string_view(stream).substr(at, count));
            at += count;
            while (const auto message = reader.next())
                received.push_back(*message);
        }
        EXPECT_EQ(received, messages);
        EXPECT_FALSE(reader.isBroken());
    }
}

TEST(BridgeFrames, AMessageThatIsTooLongEndsTheStream) {
    FrameReader reader(10);
    reader.add(frameOf("0123456789"));
    reader.add(lengthBytes(11));
    EXPECT_EQ(reader.next(), "0123456789");
    EXPECT_FALSE(reader.isBroken());
    EXPECT_EQ(reader.next(), std::nullopt);
    EXPECT_TRUE(reader.isBroken());
    reader.add(frameOf("{}"));
    EXPECT_EQ(reader.next(), std::nullopt);
}

TEST(BridgePlaces, ASocketIsNamedAfterItsProcesses) {
    EXPECT_EQ(fileNameOf({.browser = 12, .host = 345}), "12-345.sock");
    const auto name = socketNameIn("12-345.sock");
    ASSERT_TRUE(name);
    EXPECT_EQ(name->browser, 12u);
    EXPECT_EQ(name->host, 345u);
    for (const char* other : {"", "12", "12-", "12-345", "-345.sock", "12-345.sock2", "12-345.socket",
                              "a-1.sock", "12 -3.sock", "99999999999999-1.sock", "../1-2.sock"})
        EXPECT_FALSE(socketNameIn(other)) << other;
    EXPECT_EQ(bridgeFolder("/run/user/1000"), "/run/user/1000/app/com.tabulon.Tabulon/bridge");
}

} // namespace
} // namespace tabulon
