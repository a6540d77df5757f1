// Requests from outside, by later starts and the desktop, and the order in which they are performed.
#include "base/Settings.h"
#include "tests/app/AppFixture.h"

namespace tabulon {
namespace {

using Kind = LaunchRequest::Kind;

class RequestsTest : public AppTest {
protected:
    RequestsTest() {
        files.files["/home/a.tbln"] = documentBytes("a");
        files.files["/home/b.tbln"] = documentBytes("b");
    }
    void perform(LaunchRequest request) {
        instance.requestArrives(std::move(request));
        timers.advance(0);
    }
    using Paths = std::vector<std::string>;
    Paths pathsOfDocuments() {
        Paths paths;
        for (const Document* document : documents().documents())
            paths.push_back(document->fileName());
        return paths;
    }

    void quitBetweenTwoFiles() {
        Paths before;
        const auto quit = timers.after(0, [&] {
            before = pathsOfDocuments();
            AppTest::perform("terminate:");
        });
        timers.advance(0);
        EXPECT_EQ(before, (Paths{"/home/a.tbln"}));
        EXPECT_EQ(pathsOfDocuments(), Paths());
        EXPECT_EQ(host.stops, 1);
    }
};

TEST_F(RequestsTest, theFirstRequestStartsTheProgram) {
    perform({});
    ASSERT_TRUE(onlyDocument());
    EXPECT_EQ(windowOf(*onlyDocument()).title, "Untitled");
    EXPECT_EQ(windowOf(*onlyDocument()).broughtToFront, 0) << "a new window needs no help";
}

TEST_F(RequestsTest, theFirstRequestMayNameFiles) {
    perform({.kind = Kind::Open, .uris = {"file:///home/a.tbln", "file:///home/b.tbln"}});
    EXPECT_EQ(documents().documents().size(), 2u);
}

TEST_F(RequestsTest, aFloodBecomesOneAlertWithAList) {
    files.files["/home/damaged.tbln"] = documentBytes("a").substr(0, 100);
    for (int i = 0; i < 300; ++i)
        instance.requestArrives({.kind = Kind::Open, .uris = {"file:///home/missing" + std::to_string(i)}});
    instance.requestArrives(
        {.kind = Kind::Open, .uris = {"file:///home/a.tbln", "file:///home/damaged.tbln"}});
    timers.advance(0);
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "301 files could not be opened");
    EXPECT_LT(alerts.shown[0].informative.size(), 2000u);
    ASSERT_TRUE(onlyDocument()) << "no untitled one came up in between";
    EXPECT_EQ(onlyDocument()->fileName(), "/home/a.tbln");
}

TEST_F(RequestsTest, anUntitledDocumentComesOnlyWhenNothingOfTheFirstRequestCouldBeOpened) {
    setValue(base.defaults, settings::kOpenUntitled, false);
    perform({.kind = Kind::Open, .uris = {"file:///home/missing", "file:///home/a.tbln"}});
    EXPECT_TRUE(panels.openPanels.empty());
    EXPECT_EQ(alerts.shown.size(), 1u);
}

TEST_F(RequestsTest, theMainLoopRunsBetweenTwoFiles) {
    instance.requestArrives({.kind = Kind::Open, .uris = {"file:///home/a.tbln", "file:///home/b.tbln"}});
    std::size_t before = 0;
    const auto end = timers.after(0, [&] { before = documents().documents().size(); });
    timers.advance(0);
    EXPECT_EQ(before, 1u);
    EXPECT_EQ(documents().documents().size(), 2u);
}

TEST_F(RequestsTest, filesThatTheUserOpensAreOpenedOneByOne) {
    app.applicationDidFinishLaunching({});
    panels.chooseFiles({"/home/a.tbln", "/home/b.tbln"});
    app.fileOpening().openDocumentPanel();
    EXPECT_EQ(pathsOfDocuments(), (Paths{""})) << "nothing is read while the panel closes";
    Paths between;
    const auto look = timers.after(0, [&] { between = pathsOfDocuments(); });
    timers.advance(0);
    EXPECT_EQ(between, (Paths{"/home/a.tbln"}));
    EXPECT_EQ(pathsOfDocuments(), (Paths{"/home/a.tbln", "/home/b.tbln"}));
}

TEST_F(RequestsTest, theEndOfTheSessionIsServedBetweenTwoFilesThatTheUserOpens) {
    app.applicationDidFinishLaunching({});
    app.fileOpening().openFiles({"/home/a.tbln", "/home/missing", "/home/b.tbln"});
    const auto end = timers.after(0, [&] { app.sessionWillEnd(); });
    timers.advance(0);
    EXPECT_EQ(pathsOfDocuments(), (Paths{"/home/a.tbln"}));
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_EQ(host.stops, 1);
}

TEST_F(RequestsTest, quittingIsServedBetweenTwoFilesThatTheUserOpens) {
    app.applicationDidFinishLaunching({});
    app.fileOpening().openFiles({"/home/a.tbln", "/home/b.tbln"});
    quitBetweenTwoFiles();
}

TEST_F(RequestsTest, quittingIsServedBetweenTwoFilesFromOutside) {
    instance.requestArrives({.kind = Kind::Open, .uris = {"file:///home/a.tbln", "file:///home/b.tbln"}});
    quitBetweenTwoFiles();
}

TEST_F(RequestsTest, severalFilesThatTheUserOpensAndThatAreRefusedAreOneAlert) {
    app.applicationDidFinishLaunching({});
    app.fileOpening().openFiles({"/home/missing", "/home/a.tbln", "/home/missing too"});
    timers.advance(0);
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "2 files could not be opened");
    EXPECT_EQ(pathsOfDocuments(), (Paths{"/home/a.tbln"}));
}

TEST_F(RequestsTest, whatTheUserOpensDoesNotWaitForAnAlertOfAnotherWindow) {
    app.applicationDidFinishLaunching({});
    host.waits = true;
    instance.requestArrives({.kind = Kind::Open, .uris = {"file:///home/b.tbln"}});
    app.fileOpening().openFiles({"/home/a.tbln"});
    timers.advance(0);
    EXPECT_EQ(pathsOfDocuments(), (Paths{"/home/a.tbln"}));
}

TEST_F(RequestsTest, nothingIsOpenedAfterTheEndOfTheSession) {
    perform({.kind = Kind::Open, .uris = {"file:///home/a.tbln"}});
    instance.requestArrives({.kind = Kind::Open, .uris = {"file:///home/b.tbln", "file:///home/missing"}});
    app.sessionWillEnd();
    timers.advance(0);
    EXPECT_TRUE(onlyDocument());
    EXPECT_TRUE(alerts.shown.empty());
}

TEST_F(RequestsTest, theEndOfTheSessionWhileAnAlertIsUpOpensNothingMore) {
    alerts.whileShown = [this] { app.sessionWillEnd(); };
    perform({.kind = Kind::Open, .uris = {"file:///home/missing"}});
    EXPECT_TRUE(documents().documents().empty());
    EXPECT_EQ(host.stops, 1);
}

TEST_F(RequestsTest, aNewDocumentAsFirstRequestIsOneDocument) {
    setValue(base.defaults, settings::kOpenUntitled, false);
    perform({.kind = Kind::NewDocument});
    EXPECT_TRUE(onlyDocument());
    EXPECT_TRUE(panels.openPanels.empty());
}

TEST_F(RequestsTest, laterFilesOpenBesideTheOthersAndComeToTheFront) {
    perform({.kind = Kind::Open, .uris = {"file:///home/a.tbln"}});
    perform({.kind = Kind::Open, .uris = {"file:///home/b.tbln"}});
    ASSERT_EQ(documents().documents().size(), 2u);
    EXPECT_EQ(documents().currentDocument()->fileName(), "/home/b.tbln");
    EXPECT_EQ(windowOf(*documents().currentDocument()).broughtToFront, 1);
}

TEST_F(RequestsTest, aStartWithoutFilesBringsTheCurrentDocumentToTheFront) {
    perform({.kind = Kind::Open, .uris = {"file:///home/a.tbln"}});
    perform({});
    ASSERT_TRUE(onlyDocument());
    EXPECT_EQ(windowOf(*onlyDocument()).broughtToFront, 1);
}

TEST_F(RequestsTest, anotherNewDocumentIsOneMore) {
    perform({});
    perform({.kind = Kind::NewDocument});
    EXPECT_EQ(documents().documents().size(), 2u);
}

TEST_F(RequestsTest, aFileThatCannotBeOpenedLeavesTheOthers) {
    perform({.kind = Kind::Open, .uris = {"file:///home/a.tbln"}});
    perform({.kind = Kind::Open, .uris = {"http://example.org/b.tbln"}});
    EXPECT_TRUE(onlyDocument());
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "“http://example.org/b.tbln” could not be opened");
    EXPECT_EQ(alerts.shown[0].informative, "Only files on this computer can be opened.");
}

TEST_F(RequestsTest, theOpenPanelOfAStartIsNotShownTwice) {
    setValue(base.defaults, settings::kOpenUntitled, false);
    panels.keepOpen = true;
    perform({});
    perform({});
    EXPECT_EQ(panels.openPanels.size(), 1u);
    EXPECT_EQ(host.stops, 0);
    panels.closeAll();
    EXPECT_EQ(host.stops, 1);
}

TEST_F(RequestsTest, requestsWaitWhileAnAlertIsShownAndKeepTheirOrder) {
    host.waits = true;
    perform({.kind = Kind::Open, .uris = {"file:///home/b.tbln"}});
    perform({.kind = Kind::Open, .uris = {"file:///home/a.tbln"}});
    EXPECT_TRUE(documents().documents().empty());
    EXPECT_TRUE(app.requestQueue().hasMore());
    host.waits = false;
    app.requestQueue().performSoon();
    timers.advance(0);
    ASSERT_EQ(documents().documents().size(), 2u);
    EXPECT_EQ(documents().documents()[0]->fileName(), "/home/b.tbln");
    EXPECT_FALSE(app.requestQueue().hasMore());
}

TEST_F(RequestsTest, aRequestThatComesWhileOneIsDoneIsDoneAfterwards) {
    std::vector<std::string> order;
    host.onWillPerform = [&](const LaunchRequest& request) {
        order.push_back("will " + request.activationToken);
        if (request.activationToken == "1") {
            perform({.activationToken = "2"});
        }
    };
    host.onDidPerform = [&](const LaunchRequest& request) {
        order.push_back("did " + request.activationToken);
    };
    perform({.activationToken = "1"});
    EXPECT_EQ(order, (std::vector<std::string>{"will 1", "did 1", "will 2", "did 2"}));
}

TEST_F(RequestsTest, aRequestIsAnsweredBeforeItIsDone) {
    instance.requestArrives({.kind = Kind::Open, .uris = {"file:///home/a.tbln"}});
    EXPECT_TRUE(documents().documents().empty());
    EXPECT_TRUE(app.requestQueue().wasUsed());
    timers.advance(0);
    EXPECT_TRUE(onlyDocument());
}

TEST_F(RequestsTest, closingTheLastDocumentDoesNotEndTheProgramThatHasJustAcceptedAFile) {
    perform({.kind = Kind::Open, .uris = {"file:///home/a.tbln"}});
    instance.requestArrives({.kind = Kind::Open, .uris = {"file:///home/b.tbln"}});
    AppTest::perform("performClose:");
    EXPECT_EQ(host.stops, 0);
    timers.advance(0);
    ASSERT_TRUE(onlyDocument());
    EXPECT_EQ(onlyDocument()->fileName(), "/home/b.tbln");
    AppTest::perform("performClose:");
    EXPECT_EQ(host.stops, 1);
}

} // namespace
} // namespace tabulon
