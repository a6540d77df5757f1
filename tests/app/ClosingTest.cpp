// Closing documents and quitting: the questions, and the effect of each answer.
#include "base/Settings.h"
#include "tests/app/AppFixture.h"

namespace tabulon {
namespace {

class ClosingTest : public AppTest {
protected:
    // The user takes longer than the pause of automatic saving to answer each alert.
    ClosingTest() {
        alerts.whileShown = [this] { timers.advance(AutosavePause::kSeconds + 1); };
    }

    Document& untitled(bool changed) {
        Document& document = *documents().openUntitledDocumentAndDisplay();
        if (changed)
            document.updateChangeCount(ChangeKind::Done);
        return document;
    }
};

TEST_F(ClosingTest, CleanDocumentClosesWithoutAQuestion) {
    untitled(false);
    EXPECT_TRUE(perform("performClose:"));
    EXPECT_TRUE(documents().documents().empty());
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_EQ(host.stops, 1) << "the last window's end is the program's";
}

TEST_F(ClosingTest, QuestionOffersSaveDontSaveAndCancel) {
    untitled(true);
    alerts.answer("Cancel");
    perform("performClose:");
    ASSERT_EQ(alerts.shown.size(), 1u);
    const Alert& alert = alerts.shown[0];
    EXPECT_EQ(alert.message, "Save the changes to “Untitled” before closing?");
    ASSERT_EQ(alert.buttons.size(), 3u);
    EXPECT_EQ(alert.buttons[0].title, "Save");
    EXPECT_EQ(alert.buttons[1].role, AlertButtonRole::Destructive);
    EXPECT_EQ(alert.buttons[2].role, AlertButtonRole::Cancel);
    EXPECT_EQ(documents().documents().size(), 1u);
}

TEST_F(ClosingTest, DontSaveDropsTheChanges) {
    untitled(true);
    alerts.answer("Don’t Save");
    perform("performClose:");
    EXPECT_TRUE(documents().documents().empty());
    EXPECT_TRUE(files.files.empty());
}

TEST_F(ClosingTest, SaveOfAnUntitledDocumentNamesItAndCloses) {
    untitled(true);
    alerts.answer("Save");
    panels.nameFile("/home/kept.tbln");
    perform("performClose:");
    EXPECT_TRUE(documents().documents().empty());
    EXPECT_TRUE(files.fileExists("/home/kept.tbln"));
}

TEST_F(ClosingTest, CancelledSavePanelKeepsTheWindowOpen) {
    untitled(true);
    alerts.answer("Save");
    perform("performClose:");
    EXPECT_EQ(documents().documents().size(), 1u);
}

TEST_F(ClosingTest, FailedSaveKeepsTheWindowOpen) {
    Document& document = untitled(true);
    alerts.answer("Save");
    panels.nameFile("/home/kept.tbln");
    alerts.whileShown = [this] { files.diskFull = true; };
    perform("performClose:");
    EXPECT_EQ(documents().documents().size(), 1u);
    EXPECT_TRUE(document.isDocumentEdited());
}

TEST_F(ClosingTest, TitledDocumentIsSavedToItsFileWithoutAQuestion) {
    setValue(base.defaults, settings::kMakeBackups, false);
    files.files["/home/a.tbln"] = documentBytes("a");
    std::vector<std::string> written;
    files.willWrite = [&](const std::string& path) {
        if (!path.starts_with(folders.state))
            written.push_back(path);
    };
    app.fileOpening().openFile("/home/a.tbln");
    onlyDocument()->updateChangeCount(ChangeKind::Done);
    perform("performClose:");
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_TRUE(documents().documents().empty());
    EXPECT_EQ(written, std::vector<std::string>{"/home/a.tbln"});
}

TEST_F(ClosingTest, QuitAsksAboutEveryChangedDocumentAndClosesThemAll) {
    untitled(true);
    untitled(false);
    untitled(true);
    alerts.answer("Don’t Save");
    alerts.answer("Don’t Save");
    EXPECT_TRUE(perform("terminate:"));
    EXPECT_EQ(alerts.shown.size(), 2u);
    EXPECT_TRUE(documents().documents().empty());
    EXPECT_EQ(host.stops, 1);
}

TEST_F(ClosingTest, CancellingOneQuestionOfQuitKeepsEverythingOpen) {
    untitled(true);
    untitled(true);
    alerts.answer("Don’t Save");
    alerts.answer("Cancel");
    perform("terminate:");
    EXPECT_EQ(documents().documents().size(), 2u);
    EXPECT_EQ(host.stops, 0);
    alerts.answer("Don’t Save");
    alerts.answer("Don’t Save");
    perform("terminate:");
    EXPECT_EQ(host.stops, 1) << "quitting works after it was cancelled once";
}

TEST_F(ClosingTest, QuestionBringsItsWindowToTheFront) {
    Document& first = untitled(true);
    untitled(false);
    alerts.answer("Cancel");
    perform("terminate:");
    EXPECT_EQ(windowOf(first).broughtToFront, 1);
}

TEST_F(ClosingTest, CommandsWithoutADocumentAreDisabled) {
    EXPECT_FALSE(enabled("saveDocument:"));
    EXPECT_FALSE(enabled("performClose:"));
    EXPECT_FALSE(enabled("expandAll:"));
    EXPECT_FALSE(perform("saveDocument:"));
    EXPECT_TRUE(enabled("newDocument:"));
}

TEST_F(ClosingTest, CommandsGoToTheDocumentInFront) {
    Document& first = untitled(false);
    Document& second = untitled(false);
    documents().windowDidBecomeKey(first);
    perform("performClose:");
    EXPECT_EQ(onlyDocument(), &second);
    EXPECT_EQ(documents().currentDocument(), &second);
}

TEST_F(ClosingTest, WhatChangesWhileAQuestionIsUpIsAskedAboutAsWell) {
    Document& other = untitled(false);
    Document& asked = untitled(true);
    alerts.answer("Don’t Save");
    alerts.answer("Cancel");
    alerts.whileShown = [&] {
        if (alerts.shown.back().document == &asked)
            other.updateChangeCount(ChangeKind::Done);
    };
    perform("terminate:");
    EXPECT_EQ(alerts.shown.size(), 2u);
    EXPECT_EQ(alerts.shown.back().document, &other);
    EXPECT_EQ(documents().documents().size(), 2u);
    EXPECT_EQ(host.stops, 0);
}

TEST_F(ClosingTest, QuittingWaitsForTheAnswerToAQuestion) {
    Document& document = untitled(true);
    untitled(false);
    alerts.answer("Cancel");
    alerts.whileShown = [&] {
        EXPECT_TRUE(platform().alerts.isAskingAbout(&document));
        app.terminate();
    };
    documents().closeDocument(document, [](bool) {});
    EXPECT_EQ(beeper.beeps, 1);
    EXPECT_EQ(documents().documents().size(), 2u);
    EXPECT_EQ(alerts.shown.size(), 1u);
}

TEST_F(ClosingTest, AWindowMayBeClosedWhileAllAreSaved) {
    for (const char* path : {"/home/a.tbln", "/home/b.tbln"}) {
        files.files[path] = documentBytes("a");
        app.fileOpening().openFile(path);
        documents().currentDocument()->updateChangeCount(ChangeKind::Done);
    }
    Document& first = *documents().documents().front();
    Document& second = *documents().documents().back();
    files.diskFull = true;
    alerts.whileShown = [&] {
        files.diskFull = false;
        if (documents().documents().size() == 2 && alerts.shown.back().document == &first)
            documents().closeDocument(second, [](bool) {});
    };
    app.applicationWillResignActive();
    EXPECT_EQ(documents().documents(), std::vector<Document*>{&first});
}

} // namespace
} // namespace tabulon
