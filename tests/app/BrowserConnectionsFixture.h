// The connections to browsers over services in memory: a Chromium and a Firefox with profiles, a host, and
// browsers that reply with a version.
#pragma once

#include "app/BrowserConnections.h"
#include "base/EnglishTexts.h"
#include "platform/fake/FakeBridge.h"
#include "platform/fake/FakePlatform.h"

#include <algorithm>
#include <string>

namespace tabulon {

class ConnectionsFixture : public FakePlatform {
public:
    inline static const std::string kHost = "/usr/bin/tabulon-host";
    inline static const std::string kChromiumFile =
        "/home/me/.config/chromium/NativeMessagingHosts/com.tabulon.tabulon.json";
    inline static const std::string kFirefoxFile =
        "/home/me/.mozilla/native-messaging-hosts/com.tabulon.tabulon.json";
    inline static const std::string kSystemFile =
        "/etc/chromium/native-messaging-hosts/com.tabulon.tabulon.json";
    inline static const std::string kHelloReply =
        R"({"id": 1, "result": {"protocol": 1, "extension": "0.1.0", "browser": "Firefox"}})";

    ConnectionsFixture() {
        files.files[kHost] = "program";
        files.folders.insert("/home/me/.config/chromium");
        files.folders.insert("/home/me/.mozilla/firefox");
        for (const Browser& browser : browsers())
            if (browser.title != "Chromium" && browser.title != "Firefox")
                workspace.missing.emplace(browser.identifier);
        bridge.reply = [](const std::string&) { return std::vector<FakeBridge::Message>{kHelloReply}; };
    }

    /// Returns the only row of a browser, as it is now. Fails by `at` if there is none.
    FoundBrowser row(std::string_view title) const {
        std::vector<FoundBrowser> rows = connections.found();
        std::erase_if(rows, [&](const FoundBrowser& each) { return each.browser->title != title; });
        return rows.at(0);
    }
    ConnectionStage stage(std::string_view title) const { return row(title).stage; }
    void connectExtension(const std::string& identifier) { bridge.browsers.push_back({identifier, 7}); }

    FakeBridge bridge;
    EnglishLocalization english;
    RememberedPermission remembered{{bridge, state, alerts, english}};
    bool hostIsExecutable = true;
    BrowserConnections connections{
        {workspace, files, bridge, remembered,
         [this](const std::string& path) { return path == kHost && hostIsExecutable; }},
        {"/home/me", "/home/me/.config", kHost, "/usr/share/tabulon/extension"}};
};

} // namespace tabulon
