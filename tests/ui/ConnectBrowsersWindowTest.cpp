// The window Connect Browsers: its rows, its buttons and the keyboard.
#include "ui/browsers/ConnectBrowsersWindow.h"

#include "tests/app/BrowserConnectionsFixture.h"
#include "ui/Strings.h"
#include "ui/browsers/BrowserRow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <set>
#include <stdexcept>

namespace tabulon {
namespace {

class ConnectBrowsersWindowTest : public testing::Test, protected ConnectionsFixture {
protected:
    void SetUp() override { window.present(); }

    QList<BrowserRow*> rows() const { return window.findChildren<BrowserRow*>(); }
    BrowserRow& rowOf(const char* title) const {
        for (BrowserRow* row : rows())
            if (row->found().browser->title == title)
                return *row;
        throw std::runtime_error("no row of this title");
    }
    static QPushButton* button(const QWidget& widget, const char* title) {
        for (QPushButton* each : widget.findChildren<QPushButton*>())
            if (each->isVisible() && each->text() == QString::fromUtf8(title))
                return each;
        return nullptr;
    }
    static bool shows(const QWidget& widget, const std::string& text) {
        const auto labels = widget.findChildren<QLabel*>();
        return std::ranges::any_of(labels, [&](const QLabel* label) {
            return label->isVisible() && label->text().contains(toQString(text));
        });
    }
    static bool press(const QWidget& widget, const char* title) {
        QPushButton* found = button(widget, title);
        if (!found || !found->isEnabled())
            return false;
        QTest::mouseClick(found, Qt::LeftButton);
        return true;
    }
    // Activating the window reads the state again.
    void readAgain() {
        window.hide();
        window.present();
    }
    QDialog* sheet() const {
        for (QDialog* each : window.findChildren<QDialog*>())
            if (each->isVisible())
                return each;
        return nullptr;
    }

    ConnectBrowsersWindow window{connections, english};
};

TEST_F(ConnectBrowsersWindowTest, eachBrowserHasARowWithItsState) {
    ASSERT_EQ(rows().size(), 2);
    EXPECT_TRUE(shows(rowOf("Chromium"), "Chromium is not connected."));
    EXPECT_TRUE(button(rowOf("Firefox"), "Connect"));
    ASSERT_TRUE(button(rowOf("Firefox"), "Disconnect"));
    EXPECT_FALSE(button(rowOf("Firefox"), "Disconnect")->isEnabled());
    EXPECT_FALSE(shows(window, "No browser was found"));
}

TEST_F(ConnectBrowsersWindowTest, withoutABrowserASentenceSaysSo) {
    files.folders.clear();
    for (const Browser& browser : browsers())
        workspace.missing.emplace(browser.identifier);
    readAgain();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(rows().isEmpty());
    EXPECT_TRUE(shows(window, "No browser was found on this computer."));
    workspace.missing.erase("org.mozilla.firefox");
    readAgain();
    EXPECT_EQ(rows().size(), 1);
    EXPECT_FALSE(shows(window, "No browser was found"));
}

TEST_F(ConnectBrowsersWindowTest, oneClickWritesTheManifestAndShowsTheSteps) {
    ASSERT_TRUE(press(rowOf("Chromium"), "Connect"));
    EXPECT_TRUE(files.files.contains(kChromiumFile));
    QPointer<QDialog> steps = sheet();
    ASSERT_TRUE(steps);
    EXPECT_TRUE(shows(*steps, "chrome://extensions"));
    EXPECT_EQ(steps->findChild<QLineEdit*>()->text(), "/usr/share/tabulon/extension");
    ASSERT_TRUE(press(*steps, "Copy Path"));
    EXPECT_EQ(QApplication::clipboard()->text(), "/usr/share/tabulon/extension");
    QTest::keyClick(steps, Qt::Key_Escape);
    EXPECT_FALSE(sheet());
    EXPECT_TRUE(press(rowOf("Chromium"), "Show Steps…"));
    EXPECT_TRUE(sheet());
}

TEST_F(ConnectBrowsersWindowTest, anErrorIsShownInTheRow) {
    files.files[kChromiumFile] = "foreign";
    readAgain();
    ASSERT_TRUE(press(rowOf("Chromium"), "Connect"));
    EXPECT_TRUE(shows(rowOf("Chromium"), kChromiumFile));
    EXPECT_FALSE(sheet());
}

TEST_F(ConnectBrowsersWindowTest, aConnectedBrowserIsAllowedTestedForgottenAndDisconnected) {
    connectExtension("org.mozilla.firefox");
    readAgain();
    BrowserRow& row = rowOf("Firefox");
    ASSERT_TRUE(press(row, "Test"));
    EXPECT_TRUE(shows(row, "nothing was sent"));
    ASSERT_TRUE(press(row, "Allow"));
    EXPECT_FALSE(shows(row, "nothing was sent"));
    ASSERT_TRUE(press(row, "Test"));
    EXPECT_TRUE(shows(row, "version 0.1.0"));
    ASSERT_TRUE(press(row, "Forget Permission"));
    EXPECT_EQ(remembered.answer("org.mozilla.firefox"), std::nullopt);
    files.files[kFirefoxFile] = *hostManifest(ManifestForm::Firefox, kHost);
    readAgain();
    ASSERT_TRUE(press(row, "Disconnect"));
    EXPECT_FALSE(files.files.contains(kFirefoxFile));
    EXPECT_TRUE(shows(row, "is disconnected"));
}

TEST_F(ConnectBrowsersWindowTest, aBrowserThatConnectsByItselfIsShown) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QCoreApplication::processEvents();
    connectExtension("org.mozilla.firefox");
    EXPECT_TRUE(QTest::qWaitFor([&] { return button(rowOf("Firefox"), "Allow") != nullptr; }, 4000));
}

TEST_F(ConnectBrowsersWindowTest, allButtonsAreReachedByTabAndEscapeCloses) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(QApplication::focusWidget(), button(window, "Close"));
    std::set<QWidget*> reached;
    for (int count = 0; count < 20; ++count) {
        reached.insert(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    for (BrowserRow* row : rows())
        for (const char* title : {"Connect", "Test"})
            EXPECT_TRUE(reached.contains(button(*row, title))) << title;
    QPushButton* connectButton = button(rowOf("Chromium"), "Connect");
    ASSERT_TRUE(connectButton);
    connectButton->setFocus();
    QTest::keyClick(connectButton, Qt::Key_Return);
    EXPECT_TRUE(files.files.contains(kChromiumFile));
    ASSERT_TRUE(sheet());
    sheet()->close();
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

} // namespace
} // namespace tabulon
