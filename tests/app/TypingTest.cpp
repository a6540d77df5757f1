// Text that is being typed when the application saves, closes or ends is in the file.
#include "tests/app/AppFixture.h"

#include <functional>

namespace tabulon {
namespace {

class TypingTest : public AppTest {
protected:
    /// Opens a document of one link and begins to replace its name.
    Document& openAndType() {
        files.writeFileAtomically(kPath, documentBytes("old"));
        app.applicationDidFinishLaunching({kPath});
        Document& document = *onlyDocument();
        windowOf(document).outlineView.selected = {document.getMaster().getChild()};
        perform("editBookmark:");
        windowOf(document).outlineView.typed = "typed";
        return document;
    }
    std::string nameInFile() {
        Document read(base.services());
        EXPECT_TRUE(read.readFromDataOfType(*files.readFile(kPath), kDocumentType));
        return read.getMaster().getChild()->itemName().string();
    }

    const std::string kPath = "/home/typed.tbln";
};

TEST_F(TypingTest, saving) {
    openAndType();
    EXPECT_TRUE(perform("saveDocument:"));
    EXPECT_EQ(nameInFile(), "typed");
}

TEST_F(TypingTest, savingUnderAnotherName) {
    openAndType();
    panels.nameFile("/home/other.tbln");
    EXPECT_TRUE(perform("saveDocumentAs:"));
    EXPECT_EQ(nameInFile(), "old");
    EXPECT_EQ(onlyDocument()->getMaster().getChild()->itemName().view(), "typed");
    EXPECT_FALSE(onlyDocument()->isDocumentEdited());
}

TEST_F(TypingTest, closingByKeyAndByButton) {
    openAndType();
    EXPECT_TRUE(perform("performClose:"));
    EXPECT_EQ(nameInFile(), "typed");
    documents().closeDocument(openAndType(), [](bool) {});
    EXPECT_EQ(nameInFile(), "typed");
    EXPECT_TRUE(alerts.shown.empty());
}

TEST_F(TypingTest, closingAsksAboutADocumentWithoutAFile) {
    app.applicationDidFinishLaunching({});
    Document& document = *onlyDocument();
    perform("newBookmark:");
    windowOf(document).outlineView.typed = "typed";
    document.updateChangeCount(ChangeKind::Cleared);
    alerts.answer("Cancel");
    EXPECT_TRUE(perform("performClose:"));
    EXPECT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(document.getMaster().getChild()->itemName().view(), "typed");
}

TEST_F(TypingTest, quitting) {
    openAndType();
    EXPECT_TRUE(perform("terminate:"));
    EXPECT_EQ(nameInFile(), "typed");
    EXPECT_EQ(host.stops, 1);
}

TEST_F(TypingTest, theEndOfTheSessionWithAFieldOrAPanelOpen) {
    Document& document = openAndType();
    app.sessionWillEnd();
    EXPECT_EQ(nameInFile(), "typed");
    perform("getInfo:");
    windowOf(document).info->setName("typed in the panel");
    app.sessionWillEnd();
    EXPECT_EQ(nameInFile(), "typed in the panel");
}

TEST_F(TypingTest, theQuestionBeforeAReversion) {
    Document& document = openAndType();
    perform("newFolder:");
    perform("expandAll:");
    windowOf(document).outlineView.selected = {document.getMaster().getLast()};
    perform("editBookmark:");
    windowOf(document).outlineView.typed = "typed again";
    alerts.answer("Cancel");
    EXPECT_TRUE(perform("revertDocumentToSaved:"));
    EXPECT_EQ(document.getMaster().getLast()->itemName().view(), "typed again");
}

TEST_F(TypingTest, anotherProgramInFrontEndsEditingAndATimerDoesNot) {
    Document& document = openAndType();
    document.updateChangeCount(ChangeKind::Done);
    timers.advance(AutosavePause::kSeconds);
    EXPECT_EQ(nameInFile(), "old");
    EXPECT_FALSE(document.isDocumentEdited());
    EXPECT_TRUE(windowOf(document).outlineView.edited);
    app.applicationWillResignActive();
    EXPECT_EQ(nameInFile(), "typed");
}

} // namespace
} // namespace tabulon
