// The self-test returns the first hop that fails.
#include "app/BridgeSelfTest.h"

#include "tests/app/BrowserConnectionsFixture.h"

#include <gmock/gmock.h>

namespace tabulon {
namespace {

class BridgeSelfTest : public testing::Test, protected ConnectionsFixture {
protected:
    ConnectionHop hop() const { return testConnection(connections, row("Firefox")).hop; }
    ConnectionHop hopAfter(std::vector<FakeBridge::Message> messages) {
        bridge.reply = [messages](const std::string&) { return messages; };
        return hop();
    }
    void connectAndAllow() {
        connectExtension("org.mozilla.firefox");
        connections.allow(row("Firefox"));
    }
};

TEST_F(BridgeSelfTest, eachHopBeforeTheConnectionFailsInItsTurn) {
    workspace.missing.emplace("org.mozilla.firefox");
    EXPECT_EQ(hop(), ConnectionHop::Installed);
    workspace.missing.erase("org.mozilla.firefox");
    files.files.erase(kHost);
    EXPECT_EQ(hop(), ConnectionHop::HostMissing);
    files.files[kHost] = "program";
    hostIsExecutable = false;
    EXPECT_EQ(hop(), ConnectionHop::HostExecutable);
    hostIsExecutable = true;
    EXPECT_EQ(hop(), ConnectionHop::Manifest);
    ASSERT_TRUE(connections.connect(row("Firefox")));
    EXPECT_EQ(hop(), ConnectionHop::Running);
    workspace.running.emplace("org.mozilla.firefox");
    EXPECT_EQ(hop(), ConnectionHop::Extension);
    connectExtension("org.mozilla.firefox");
    EXPECT_EQ(hop(), ConnectionHop::Permission);
    remembered.setAnswer("org.mozilla.firefox", false);
    EXPECT_EQ(hop(), ConnectionHop::Permission);
    EXPECT_THAT(bridge.sent, testing::IsEmpty());
    connections.allow(row("Firefox"));
    EXPECT_EQ(hop(), ConnectionHop::Complete);
}

TEST_F(BridgeSelfTest, aSandboxIsNamed) {
    files.folders.erase("/home/me/.mozilla/firefox");
    files.folders.insert("/home/me/snap/firefox/common/.mozilla/firefox");
    EXPECT_EQ(hop(), ConnectionHop::Sandbox);
}

TEST_F(BridgeSelfTest, theReplyHasTheVersionOfTheExtension) {
    connectAndAllow();
    EXPECT_EQ(testConnection(connections, row("Firefox")),
              (ConnectionTest{ConnectionHop::Complete, "0.1.0"}));
    ASSERT_EQ(bridge.sent.size(), 1u);
    EXPECT_THAT(bridge.sent[0], testing::HasSubstr(R"("operation":"hello")"));
}

TEST_F(BridgeSelfTest, anEndedOrSilentBrowserIsNamed) {
    connectAndAllow();
    EXPECT_EQ(hopAfter({}), ConnectionHop::Connection);
    EXPECT_EQ(hopAfter({std::nullopt}), ConnectionHop::Answer);
    bridge.hasEnded = true;
    EXPECT_EQ(hop(), ConnectionHop::Connection);
}

TEST_F(BridgeSelfTest, anotherVersionOfTheProtocolIsNamed) {
    connectAndAllow();
    EXPECT_EQ(hopAfter({R"({"id": 1, "error": "protocol", "message": "Another version."})"}),
              ConnectionHop::Protocol);
    EXPECT_EQ(hopAfter({R"({"id": 1, "result": {"protocol": 2, "extension": "9"}})"}),
              ConnectionHop::Protocol);
}

TEST_F(BridgeSelfTest, aWrongReplyIsNamed) {
    connectAndAllow();
    EXPECT_EQ(hopAfter({"no JSON"}), ConnectionHop::Reply);
    EXPECT_EQ(hopAfter({R"({"id": 1, "error": "failed", "message": "It failed."})"}), ConnectionHop::Reply);
    EXPECT_EQ(hopAfter({R"({"id": 1, "part": "text"})"}), ConnectionHop::Reply);
}

TEST_F(BridgeSelfTest, repliesToOtherRequestsAreSkippedAFewTimes) {
    connectAndAllow();
    const std::string other = R"({"id": 5, "result": {}})";
    EXPECT_EQ(hopAfter({other, other, kHelloReply}), ConnectionHop::Complete);
    EXPECT_EQ(hopAfter(std::vector<FakeBridge::Message>(1000, other)), ConnectionHop::Reply);
}

} // namespace
} // namespace tabulon
