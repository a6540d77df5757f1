// What the bridge does for each event, and where an event goes that it does not serve.
#include "opening/BridgeEvents.h"

#include "opening/BridgeOperations.h"
#include "opening/BrowserEvents.h"
#include "platform/fake/FakeBridge.h"
#include "platform/fake/FakeBrowsers.h"

#include <gmock/gmock.h>

namespace tabulon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kChromium = "org.chromium.Chromium";
constexpr const char* kURL = "https://a/";

AppEvent question(FourCharCode property_, ObjectSpecifier container) {
    return {.application = kChromium,
            .eventClass = "core",
            .eventIdentifier = "getd",
            .directObject = property(property_, std::move(container))};
}

AppEvent script(const char* text) {
    return {.application = kChromium,
            .eventClass = "CrSu",
            .eventIdentifier = "ExJa",
            .directObject = property("acTa", element("cwin", 1)),
            .parameters = {{FourCharCode("JvSc"), std::string(text)}}};
}

class BridgeEventsTest : public testing::Test {
protected:
    BridgeEventsTest() {
        bridge.browsers = {{"org.mozilla.firefox", 5}, {kChromium, 6}, {kChromium, 7}};
        bridge.reply = [this](const std::string& request) {
            const std::size_t at = request.find("\"id\":") + 5;
            const std::string id = request.substr(at, request.find(',', at) - at);
            return std::vector<FakeBridge::Message>{"{\"id\":" + id + "," + answer + "}"};
        };
    }
    // Returns the request for the event without its number, and what was sent by the other way.
    std::string requestOf(const AppEvent& event) {
        bridge.sent.clear();
        requests.clear();
        lastReply = events.send(event);
        if (bridge.sent.empty())
            return "";
        std::string request = bridge.sent.back();
        const std::size_t at = request.find("\"id\":");
        return request.erase(at, request.find(',', at) + 1 - at);
    }
    std::optional<EventValue> direct() const { return lastReply ? lastReply->directObject : std::nullopt; }

    std::string answer = R"("result":{"title":"T","url":"https://u/","text":"x","count":2})";
    FakeBridge bridge;
    std::vector<std::string> requests;
    FakeEventSender otherwise{requests};
    BridgeEvents events{bridge, otherwise};
    Result<AppEventReply> lastReply;
};

TEST_F(BridgeEventsTest, EachEventIsOneOperation) {
    EXPECT_EQ(requestOf(getWindowEvent(kChromium)), R"({"protocol":1,"operation":"windows"})");
    EXPECT_EQ(requestOf(setURLEvent(kChromium, BrowserFamily::Chromium, kURL)),
              R"({"protocol":1,"operation":"setURL","url":"https://a/"})");
    EXPECT_EQ(requestOf(makeWindowEvent(kChromium, BrowserFamily::Chromium)),
              R"({"protocol":1,"operation":"newWindow"})");
    EXPECT_EQ(requestOf(suiteEvent(kChromium, kURL, SuiteWindow::Frontmost)),
              R"({"protocol":1,"operation":"setURL","url":"https://a/"})");
    EXPECT_EQ(requestOf(suiteEvent(kChromium, kURL, SuiteWindow::NewWindow)),
              R"({"protocol":1,"operation":"newWindow","url":"https://a/"})");
    EXPECT_EQ(requestOf(suiteEvent(kChromium, kURL, SuiteWindow::NewTab)),
              R"({"protocol":1,"operation":"newTab","url":"https://a/"})");
    EXPECT_EQ(requestOf(getURLEvent(kChromium, kURL)),
              R"({"protocol":1,"operation":"newTab","url":"https://a/"})");
    EXPECT_THAT(requests, IsEmpty());
}

TEST_F(BridgeEventsTest, QuestionsAreAnswered) {
    requestOf(getWindowEvent(kChromium));
    EXPECT_EQ(direct(), EventValue(element("cwin", 1)));
    const ObjectSpecifier tab = property("acTa", element("cwin", 1));
    EXPECT_EQ(requestOf(question("pnam", tab)), R"({"protocol":1,"operation":"frontTab"})");
    EXPECT_EQ(direct(), EventValue("T"));
    EXPECT_EQ(requestOf(question("URL ", tab)), R"({"protocol":1,"operation":"frontTab"})");
    EXPECT_EQ(direct(), EventValue("https://u/"));
    requestOf(question("pURL", element("docu", 1)));
    EXPECT_EQ(direct(), EventValue("https://u/"));
    EXPECT_EQ(requestOf(question("Sour", element("docu", 1))),
              R"({"protocol":1,"operation":"run","script":"source"})");
    EXPECT_EQ(direct(), EventValue("x"));
    answer = R"("result":{"count":0})";
    requestOf(getWindowEvent(kChromium));
    ASSERT_TRUE(lastReply);
    EXPECT_EQ(direct(), std::nullopt);
}

TEST_F(BridgeEventsTest, ScriptsAreRecognisedByTheirTexts) {
    EXPECT_EQ(requestOf(script("getSelection()+''")),
              R"({"protocol":1,"operation":"run","script":"selection"})");
    EXPECT_EQ(direct(), EventValue("x"));
    EXPECT_EQ(requestOf(script("x = document.title;")),
              R"({"protocol":1,"operation":"run","script":"title"})");
    EXPECT_EQ(requestOf(script("txt='';var nl = \"\\f\";var x=document.links;var i;for (i=0;i<x.length;i++) "
                               "{txt=txt+x[i].href+nl;};")),
              R"({"protocol":1,"operation":"run","script":"linkTargets"})");
    EXPECT_EQ(requestOf(script("alert(1)")), ""); // no text of an event is run
    EXPECT_FALSE(lastReply);
    EXPECT_THAT(requests, IsEmpty());
}

TEST_F(BridgeEventsTest, OfSeveralProcessesTheFirstIsAsked) {
    requestOf(getWindowEvent(kChromium));
    requestOf(getWindowEvent("org.mozilla.Firefox")); // in the other spelling
    EXPECT_THAT(bridge.connectedTo, ElementsAre(6u, 5u));
}

TEST_F(BridgeEventsTest, WithoutABridgeAddressesGoTheOtherWay) {
    bridge.browsers.clear();
    EXPECT_EQ(requestOf(getURLEvent(kChromium, kURL)), "");
    EXPECT_THAT(requests, ElementsAre("event GURL/GURL org.chromium.Chromium"));
    requestOf(makeWindowEvent(kChromium, BrowserFamily::Chromium));
    EXPECT_THAT(requests, ElementsAre("event core/crel org.chromium.Chromium"));
    requestOf(getWindowEvent(kChromium));
    EXPECT_FALSE(lastReply); // a command line cannot answer
    EXPECT_THAT(requests, IsEmpty());
}

TEST_F(BridgeEventsTest, WhatTheBrowserRefusesGoesTheOtherWay) {
    answer = R"("error":"refused","message":"No such address.")";
    requestOf(setURLEvent(kChromium, BrowserFamily::Chromium, "file:///a"));
    EXPECT_THAT(requests, ElementsAre("event core/setd org.chromium.Chromium"));
    requestOf(script("getSelection()+''"));
    EXPECT_THAT(requests, IsEmpty());
    EXPECT_EQ(lastReply.error().message, "No such address.");
}

TEST_F(BridgeEventsTest, ABrowserThatEndsInTheMiddleIsStartedWithTheAddress) {
    bridge.reply = [](const std::string&) { return std::vector<FakeBridge::Message>{}; };
    requestOf(getURLEvent(kChromium, kURL));
    EXPECT_THAT(requests, ElementsAre("event GURL/GURL org.chromium.Chromium"));
    bridge.hasEnded = true;
    requestOf(getURLEvent(kChromium, kURL));
    EXPECT_THAT(requests, ElementsAre("event GURL/GURL org.chromium.Chromium"));
}

TEST_F(BridgeEventsTest, ABrowserThatDoesNotAnswerGetsTheAddressOnce) {
    bridge.reply = [](const std::string&) { return std::vector<FakeBridge::Message>{std::nullopt}; };
    requestOf(getURLEvent(kChromium, kURL));
    EXPECT_THAT(requests, IsEmpty());
    EXPECT_FALSE(lastReply);
}

TEST_F(BridgeEventsTest, BrokenMessagesAreRefusals) {
    bridge.reply = [](const std::string&) { return std::vector<FakeBridge::Message>{"{}"}; };
    requestOf(getWindowEvent(kChromium));
    EXPECT_FALSE(lastReply);
}

TEST_F(BridgeEventsTest, ALongTextComesInParts) {
    bridge.reply = [](const std::string& request) {
        const std::string id =
            request.substr(request.find("\"id\":"), request.find(",\"op") - request.find("\"id\":"));
        return std::vector<FakeBridge::Message>{"{\"id\":0,\"part\":\"of an earlier request\"}",
                                                "{" + id + ",\"part\":\"ab\"}", "{" + id + ",\"part\":\"c\"}",
                                                "{" + id + ",\"result\":{\"text\":\"\"}}"};
    };
    requestOf(script("getSelection()+''"));
    EXPECT_EQ(direct(), EventValue("abc"));
}

TEST_F(BridgeEventsTest, ATextWithoutAnEndIsRefused) {
    bridge.reply = [](const std::string& request) {
        const std::string id =
            request.substr(request.find("\"id\":"), request.find(",\"op") - request.find("\"id\":"));
        const std::string part = "{" + id + ",\"part\":\"" + std::string(1'000'000, 'x') + "\"}";
        return std::vector<FakeBridge::Message>(70, part);
    };
    requestOf(script("getSelection()+''"));
    ASSERT_FALSE(lastReply);
    EXPECT_EQ(lastReply.error().message, "The text of the page is too long.");
}

} // namespace
} // namespace tabulon
