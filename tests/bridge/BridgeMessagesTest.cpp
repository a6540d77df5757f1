// The JSON of requests and replies, and messages that are broken.
#include "bridge/BridgeMessages.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

TEST(BridgeMessages, ARequestNamesItsOperation) {
    EXPECT_EQ(jsonOf({.id = 7, .operation = BridgeOperation::FrontTab}),
              R"({"protocol":1,"id":7,"operation":"frontTab"})");
    EXPECT_EQ(jsonOf({.id = 8, .operation = BridgeOperation::RunScript, .script = BridgeScript::LinkTargets}),
              R"({"protocol":1,"id":8,"operation":"run","script":"linkTargets"})");
    EXPECT_EQ(jsonOf({.id = 9, .operation = BridgeOperation::NewWindow}),
              R"({"protocol":1,"id":9,"operation":"newWindow"})");
}

TEST(BridgeMessages, AnAddressStaysData) {
    EXPECT_EQ(jsonOf({.id = 1, .operation = BridgeOperation::SetURL, .url = "https://a/\"},\\\n\x01ä\x7f"}),
              "{\"protocol\":1,\"id\":1,\"operation\":\"setURL\",\"url\":\"https://a/"
              "\\\"},\\\\\\u000a\\u0001ä\x7f\"}");
}

TEST(BridgeMessages, AReplyHasAResult) {
    const auto reply = replyFromJson(
        R"({"id":7,"result":{"title":"Tï\"tle","url":"https://a/","count":3,"focused":true,"time":1795404489048,"new":[]}})");
    ASSERT_TRUE(reply) << reply.error().message;
    EXPECT_EQ(reply->id, 7);
    EXPECT_EQ(reply->error, "");
    EXPECT_EQ(reply->part, std::nullopt);
    EXPECT_EQ(reply->result.title, "Tï\"tle");
    EXPECT_EQ(reply->result.url, "https://a/");
    EXPECT_EQ(reply->result.windows, 3);
    EXPECT_TRUE(reply->result.isFocused);
    EXPECT_EQ(reply->result.focusTime, 1795404489048.0);
    EXPECT_EQ(reply->result.text, "");
}

TEST(BridgeMessages, AReplyMayBeAPartOrARefusal) {
    EXPECT_EQ(replyFromJson(R"({"id":1,"part":"abc"})")->part, "abc");
    const auto refusal = replyFromJson(R"({"id":1,"error":"noWindow","message":"There is no window."})");
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->error, "noWindow");
    EXPECT_EQ(refusal->message, "There is no window.");
}

TEST(BridgeMessages, MembersOfAnotherKindAreMissing) {
    const auto reply =
        replyFromJson(R"({"id":1,"result":{"title":5,"url":null,"count":"3","focused":"yes","text":[]}})");
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->result.title, "");
    EXPECT_EQ(reply->result.url, "");
    EXPECT_EQ(reply->result.windows, 0);
    EXPECT_FALSE(reply->result.isFocused);
}

TEST(BridgeMessages, OtherBytesAreNoMessage) {
    for (const char* bytes :
         {"", "{", "[]", "5", "{}", R"({"id":"1","result":{}})", R"({"id":1})", R"({"id":1,"result":5})",
          R"({"id":1,"error":""})", R"({"id":1.5,"result":{}})", "{\"id\":1,\"part\":\"\xff\"}"})
        EXPECT_FALSE(replyFromJson(bytes)) << bytes;
    EXPECT_FALSE(replyFromJson(std::string(100'000, '[')));
}

TEST(BridgeMessages, TheHostPutsTheNumberOfTheConnectionAroundMessages) {
    EXPECT_EQ(requestOfClient(3, R"({"id": 1, "x": "\n"})").value(),
              R"({"client":3,"request":{"id":1,"x":"\n"}})");
    for (const char* bytes : {"", "1", "{}}", R"({},"client":4)", "{\"a\":\"\xff\"}"})
        EXPECT_FALSE(requestOfClient(3, bytes)) << bytes;
    const auto replied = replyOfClient(R"({"client":3,"reply":{"id":1,"result":{"text":"é"}}})");
    ASSERT_TRUE(replied);
    EXPECT_EQ(replied->client, 3);
    EXPECT_EQ(replied->reply, R"({"id":1,"result":{"text":"é"}})");
    for (const char* bytes : {"{}", R"({"client":3})", R"({"reply":{}})", R"({"client":"3","reply":{}})",
                              R"({"client":3,"reply":[]})"})
        EXPECT_FALSE(replyOfClient(bytes)) << bytes;
}

} // namespace
} // namespace tabulon
