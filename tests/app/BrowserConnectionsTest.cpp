// How far browsers are connected, connecting and disconnecting them, and the sentences about it.
#include "app/BrowserConnections.h"

#include "app/ConnectionTexts.h"
#include "tests/app/BrowserConnectionsFixture.h"

#include <gmock/gmock.h>

#include <set>

namespace tabulon {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class BrowserConnectionsTest : public testing::Test, protected ConnectionsFixture {
protected:
    std::vector<std::string> titles() const {
        std::vector<std::string> all;
        for (const FoundBrowser& each : connections.found())
            all.push_back(browserTitle(each, english));
        return all;
    }
    std::string manifestFor(ManifestForm form, const std::string& host = kHost) const {
        return *hostManifest(form, host);
    }
};

TEST_F(BrowserConnectionsTest, theBrowsersThatAreInstalledOrHaveAProfileAreFound) {
    files.folders.insert("/home/me/.config/vivaldi");
    EXPECT_THAT(titles(), ElementsAre("Chromium", "Firefox", "Vivaldi"));
    EXPECT_EQ(stage("Vivaldi"), ConnectionStage::NotInstalled);
    workspace.missing.erase("com.vivaldi.Vivaldi");
    EXPECT_EQ(stage("Vivaldi"), ConnectionStage::ManifestMissing);
}

TEST_F(BrowserConnectionsTest, noBrowserIsFoundWhereThereIsNone) {
    files.folders.clear();
    workspace.missing = {"org.chromium.Chromium", "org.mozilla.firefox"};
    for (const Browser& browser : browsers())
        workspace.missing.emplace(browser.identifier);
    EXPECT_THAT(connections.found(), IsEmpty());
}

TEST_F(BrowserConnectionsTest, aBrowserWithoutAProfileWasNeverStarted) {
    files.folders.clear();
    EXPECT_EQ(stage("Chromium"), ConnectionStage::NeverStarted);
    ASSERT_TRUE(connections.connect(row("Chromium")));
    EXPECT_FALSE(files.files.contains(kChromiumFile));
}

TEST_F(BrowserConnectionsTest, snapAndFlatpakHaveRowsOfTheirOwnAndCannotBeConnected) {
    files.folders.insert("/home/me/snap/chromium/common/chromium");
    files.folders.insert("/home/me/.var/app/org.chromium.Chromium/config/chromium");
    EXPECT_THAT(titles(), ElementsAre("Chromium", "Chromium (Snap)", "Chromium (Flatpak)", "Firefox"));
    const auto rows = connections.found();
    EXPECT_EQ(rows[0].stage, ConnectionStage::ManifestMissing);
    EXPECT_EQ(rows[1].stage, ConnectionStage::Sandboxed);
    EXPECT_EQ(rows[2].stage, ConnectionStage::Sandboxed);
    EXPECT_EQ(nextStep(rows[1].stage), ConnectionStep::None);
    connectExtension("org.chromium.Chromium");
    EXPECT_EQ(connections.found()[0].stage, ConnectionStage::NotAsked);
    EXPECT_EQ(connections.found()[1].stage, ConnectionStage::Sandboxed);
}

TEST_F(BrowserConnectionsTest, aSandboxedBrowserThatReachesTheHostIsConnected) {
    files.folders.erase("/home/me/.config/chromium");
    files.folders.insert("/home/me/snap/chromium/common/chromium");
    EXPECT_EQ(stage("Chromium"), ConnectionStage::Sandboxed);
    connectExtension("org.chromium.Chromium");
    EXPECT_EQ(stage("Chromium"), ConnectionStage::NotAsked);
}

TEST_F(BrowserConnectionsTest, connectingWritesTheManifestThatTheBrowserReads) {
    EXPECT_EQ(stage("Chromium"), ConnectionStage::ManifestMissing);
    ASSERT_TRUE(connections.connect(row("Chromium")));
    ASSERT_TRUE(connections.connect(row("Firefox")));
    EXPECT_EQ(files.files[kChromiumFile], manifestFor(ManifestForm::Chromium));
    EXPECT_EQ(files.files[kFirefoxFile], manifestFor(ManifestForm::Firefox));
    EXPECT_EQ(stage("Chromium"), ConnectionStage::ExtensionMissing);
    EXPECT_EQ(stage("Firefox"), ConnectionStage::ExtensionMissing);
    const int writes = files.writes;
    ASSERT_TRUE(connections.connect(row("Chromium")));
    EXPECT_EQ(files.writes, writes);
}

TEST_F(BrowserConnectionsTest, everyFolderOfProfilesGetsAManifest) {
    ASSERT_TRUE(connections.connect(row("Firefox")));
    files.folders.insert("/home/me/.config/mozilla/firefox");
    EXPECT_EQ(stage("Firefox"), ConnectionStage::ManifestMissing);
    ASSERT_TRUE(connections.connect(row("Firefox")));
    EXPECT_TRUE(
        files.files.contains("/home/me/.config/mozilla/native-messaging-hosts/com.tabulon.tabulon.json"));
    EXPECT_EQ(stage("Firefox"), ConnectionStage::ExtensionMissing);
}

TEST_F(BrowserConnectionsTest, theManifestOfAnotherCopyIsReplaced) {
    files.files[kChromiumFile] = manifestFor(ManifestForm::Chromium, "/old/tabulon-host");
    EXPECT_EQ(stage("Chromium"), ConnectionStage::ManifestOther);
    ASSERT_TRUE(connections.connect(row("Chromium")));
    EXPECT_EQ(files.files[kChromiumFile], manifestFor(ManifestForm::Chromium));
}

TEST_F(BrowserConnectionsTest, aForeignFileIsNeitherReplacedNorRemoved) {
    files.files[kChromiumFile] = "another program’s";
    EXPECT_EQ(stage("Chromium"), ConnectionStage::ManifestOther);
    const auto connected = connections.connect(row("Chromium"));
    ASSERT_FALSE(connected);
    EXPECT_THAT(connected.error().message, HasSubstr(kChromiumFile));
    EXPECT_FALSE(row("Chromium").canTakeBack);
    ASSERT_TRUE(connections.takeBack(row("Chromium")));
    EXPECT_EQ(files.files[kChromiumFile], "another program’s");
}

TEST_F(BrowserConnectionsTest, anEqualManifestThatCannotBeWrittenCountsAsThere) {
    files.files[kChromiumFile] = manifestFor(ManifestForm::Chromium);
    files.unwritable = "/home/me/.config/chromium";
    EXPECT_EQ(stage("Chromium"), ConnectionStage::ExtensionMissing);
    EXPECT_TRUE(connections.connect(row("Chromium")));
}

TEST_F(BrowserConnectionsTest, theEqualManifestOfTheSystemCountsUnlessTheUserHasAnotherOne) {
    files.files[kSystemFile] = manifestFor(ManifestForm::Chromium);
    EXPECT_EQ(stage("Chromium"), ConnectionStage::ExtensionMissing);
    EXPECT_FALSE(row("Chromium").canTakeBack);
    ASSERT_TRUE(connections.connect(row("Chromium")));
    EXPECT_FALSE(files.files.contains(kChromiumFile));
    files.files[kChromiumFile] = manifestFor(ManifestForm::Chromium, "/old/tabulon-host");
    EXPECT_EQ(stage("Chromium"), ConnectionStage::ManifestOther);
    files.files.erase(kChromiumFile);
    files.files[kSystemFile] = manifestFor(ManifestForm::Chromium, "/old/tabulon-host");
    EXPECT_EQ(stage("Chromium"), ConnectionStage::ManifestMissing);
}

TEST_F(BrowserConnectionsTest, aManifestThatCannotBeWrittenIsAnError) {
    files.diskFull = true;
    EXPECT_FALSE(connections.connect(row("Chromium")));
    EXPECT_EQ(stage("Chromium"), ConnectionStage::ManifestMissing);
}

TEST_F(BrowserConnectionsTest, nothingIsWrittenWithoutTheHost) {
    files.files.erase(kHost);
    const auto connected = connections.connect(row("Chromium"));
    ASSERT_FALSE(connected);
    EXPECT_THAT(connected.error().message, HasSubstr(kHost));
    EXPECT_FALSE(files.files.contains(kChromiumFile));
}

TEST_F(BrowserConnectionsTest, theExtensionOfThePackageIsRecognised) {
    files.files[kSystemFile] = manifestFor(ManifestForm::Chromium);
    files.folders.insert("/usr/share/chromium/extensions/tabulon");
    EXPECT_EQ(stage("Chromium"), ConnectionStage::ExtensionInstalled);
}

TEST_F(BrowserConnectionsTest, theAnswerOfTheUserIsShownAndCanBeChanged) {
    connectExtension("org.mozilla.firefox");
    EXPECT_EQ(stage("Firefox"), ConnectionStage::NotAsked);
    remembered.setAnswer("org.mozilla.firefox", false);
    EXPECT_EQ(stage("Firefox"), ConnectionStage::Denied);
    connections.allow(row("Firefox"));
    EXPECT_EQ(stage("Firefox"), ConnectionStage::Allowed);
    EXPECT_TRUE(remembered.mayAutomate("org.mozilla.Firefox", PermissionQuestion::NotAllowed));
    connections.forget(row("Firefox"));
    EXPECT_EQ(stage("Firefox"), ConnectionStage::NotAsked);
    EXPECT_THAT(bridge.sent, IsEmpty());
}

TEST_F(BrowserConnectionsTest, takingBackRemovesTheManifestsAndThePermission) {
    ASSERT_TRUE(connections.connect(row("Firefox")));
    ASSERT_TRUE(connections.connect(row("Chromium")));
    connections.allow(row("Firefox"));
    EXPECT_TRUE(row("Firefox").canTakeBack);
    ASSERT_TRUE(connections.takeBack(row("Firefox")));
    EXPECT_FALSE(files.files.contains(kFirefoxFile));
    EXPECT_TRUE(files.files.contains(kChromiumFile));
    EXPECT_EQ(remembered.answer("org.mozilla.firefox"), std::nullopt);
    EXPECT_FALSE(row("Firefox").canTakeBack);
}

TEST_F(BrowserConnectionsTest, everyStageAndHopHasASentenceOfItsOwn) {
    FoundBrowser found = row("Firefox");
    std::set<std::string> sentences;
    for (int stage = 0; stage <= static_cast<int>(ConnectionStage::Allowed); ++stage) {
        found.stage = static_cast<ConnectionStage>(stage);
        const std::string text = stageText(found, english);
        EXPECT_THAT(text, HasSubstr("Firefox"));
        EXPECT_TRUE(text.ends_with('.')) << text;
        EXPECT_TRUE(sentences.insert(text).second) << text;
        EXPECT_EQ(stepTitle(nextStep(found.stage), english).empty(),
                  nextStep(found.stage) == ConnectionStep::None);
    }
    sentences.clear();
    for (int hop = 0; hop <= static_cast<int>(ConnectionHop::Complete); ++hop) {
        const std::string text = testText({static_cast<ConnectionHop>(hop), "0.1.0"}, found, kHost, english);
        EXPECT_TRUE(text.ends_with('.') && text.find('%') == std::string::npos) << text;
        EXPECT_TRUE(sentences.insert(text).second) << text;
    }
}

TEST_F(BrowserConnectionsTest, theStepsAreThoseOfTheFamily) {
    EXPECT_THAT(setupSteps(*row("Chromium").browser, english)[0],
                HasSubstr("chrome://extensions in Chromium"));
    EXPECT_THAT(setupSteps(*row("Firefox").browser, english)[0], HasSubstr("about:debugging"));
}

} // namespace
} // namespace tabulon
