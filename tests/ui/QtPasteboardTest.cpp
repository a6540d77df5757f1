// The text of the desktop's clipboard.
#include "platform/linux/QtPasteboard.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace tabulon {
namespace {

class QtPasteboardTest : public testing::Test {
protected:
    void TearDown() override { QGuiApplication::clipboard()->clear(); }

    std::optional<std::string> stringOf(const char* type, const QByteArray& bytes) {
        auto* content = new QMimeData; // the clipboard becomes its owner
        content->setData(type, bytes);
        QGuiApplication::clipboard()->setMimeData(content);
        return pasteboard.string();
    }

    QtPasteboard pasteboard;
};

TEST_F(QtPasteboardTest, aTextIsUtf8WithTheLineEndsThatItHas) {
    EXPECT_EQ(stringOf("text/plain", "é “日本” 😀"), "é “日本” 😀");
    EXPECT_EQ(stringOf("text/plain", "https://a/\r\nhttps://b/\n"), "https://a/\r\nhttps://b/\n");
}

TEST_F(QtPasteboardTest, anEmptyTextIsAText) {
    EXPECT_EQ(stringOf("text/plain", ""), "");
}

TEST_F(QtPasteboardTest, whatIsNoTextHasNone) {
    QGuiApplication::clipboard()->clear();
    EXPECT_EQ(pasteboard.string(), std::nullopt);
    EXPECT_EQ(stringOf("text/uri-list", "https://a/\r\n"), std::nullopt);
    EXPECT_EQ(stringOf("text/html", "<a href=\"https://a/\">A</a>"), std::nullopt);
    EXPECT_EQ(stringOf("image/png", "x"), std::nullopt);
}

} // namespace
} // namespace tabulon
