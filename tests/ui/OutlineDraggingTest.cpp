// Drags over the rows of the outline: the places of drops, the folders that are expanded, and the rows that
// are marked.
#include "tests/ui/OutlineFixture.h"
#include "ui/MimeData.h"
#include "window/MimeItems.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

namespace tabulon {
namespace {

class OutlineDraggingTest : public OutlineTest {
protected:
    void show() {
        openWidget();
        widget().resize(600, 300);
        widget().show();
    }
    /// Returns the middle of a row, or the point at `fraction` of its height.
    QPoint place(int row, double fraction = 0.5) {
        const QRect rect = widget().visualRect(widget().model()->index(row, 0));
        return {rect.left() + 60, rect.top() + static_cast<int>(rect.height() * fraction)};
    }
    QPoint belowAllRows() { return {60, widget().viewport()->height() - 30}; }

    bool enter(const QPoint& point) {
        QDragEnterEvent event(point, possible, &data, Qt::LeftButton, modifiers);
        QApplication::sendEvent(widget().viewport(), &event);
        return event.isAccepted();
    }
    Qt::DropAction moveTo(const QPoint& point) {
        QDragMoveEvent event(point, possible, &data, Qt::LeftButton, modifiers);
        QApplication::sendEvent(widget().viewport(), &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }
    Qt::DropAction drop(const QPoint& point) {
        if (!enter(point))
            return Qt::IgnoreAction;
        moveTo(point);
        QDropEvent event(point, possible, &data, Qt::LeftButton, modifiers);
        QApplication::sendEvent(widget().viewport(), &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }
    std::vector<std::string> names() {
        std::vector<std::string> names;
        for (std::size_t row = 0; row < controller->outline().numberOfRows(); ++row)
            names.push_back(controller->outline().itemAtRow(row).itemName().string());
        return names;
    }

    QMimeData data;
    Qt::DropActions possible = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
};

using Names = std::vector<std::string>;

TEST_F(OutlineDraggingTest, aLinkOfABrowserGoesWhereItIsDropped) {
    add(makeLink("a"));
    add(makeLink("b"));
    show();
    const std::u16string link = u"https://new/\nTitle";
    data.setData("text/x-moz-url", QByteArray(reinterpret_cast<const char*>(link.data()),
                                              static_cast<qsizetype>(link.size() * 2)));
    EXPECT_EQ(drop(place(1, 0.2)), Qt::CopyAction) << "never a move: the source might delete it";
    EXPECT_EQ(names(), (Names{"a", "Title", "b"}));
    EXPECT_EQ(drop(belowAllRows()), Qt::CopyAction);
    EXPECT_EQ(names(), (Names{"a", "Title", "b", "Title"}));
}

TEST_F(OutlineDraggingTest, filesBecomeBookmarks) {
    Bookmark& folder = add(makeFolder("f"));
    show();
    data.setData("text/uri-list", "file:///tmp/a%20b.txt\r\n");
    EXPECT_EQ(drop(place(0)), Qt::CopyAction);
    ASSERT_TRUE(folder.hasChildren());
    EXPECT_EQ(folder.getChild()->itemURL(), Text("file:///tmp/a b.txt"));
}

TEST_F(OutlineDraggingTest, aSourceThatOnlyMovesIsNotTaken) {
    add(makeLink("a"));
    show();
    data.setData("text/uri-list", "https://new/\r\n");
    possible = Qt::MoveAction;
    EXPECT_EQ(drop(belowAllRows()), Qt::IgnoreAction);
    EXPECT_EQ(names(), Names{"a"});
}

TEST_F(OutlineDraggingTest, whatIsNoLinkIsNotTaken) {
    add(makeLink("a"));
    show();
    data.setData("image/png", "x");
    EXPECT_FALSE(enter(place(0)));
    data.setHtml("<p>only HTML");
    EXPECT_FALSE(enter(place(0)));
}

TEST_F(OutlineDraggingTest, aFolderOpensUnderADragThatRests) {
    Bookmark& folder = add(makeFolder("f", false));
    add(makeLink("inside"), &folder);
    show();
    data.setText("https://new/");
    ASSERT_TRUE(enter(place(0)));
    moveTo(place(0));
    QTest::qWait(OutlineDrops::kSpringDelay / 3);
    moveTo(place(0) + QPoint(3, 0));
    EXPECT_FALSE(folder.showHier()) << "a drag that passes by opens nothing";
    EXPECT_TRUE(QTest::qWaitFor([&] { return folder.showHier(); }, 3 * OutlineDrops::kSpringDelay));
    EXPECT_EQ(names(), (Names{"f", "inside"}));
    EXPECT_EQ(drop(place(1, 0.9)), Qt::CopyAction);
    EXPECT_EQ(names(), (Names{"f", "inside", "Untitled"}));
}

TEST_F(OutlineDraggingTest, aDragThatLeavesOpensNothing) {
    Bookmark& folder = add(makeFolder("f", false));
    show();
    data.setText("https://new/");
    enter(place(0));
    moveTo(place(0));
    QDragLeaveEvent leave;
    QApplication::sendEvent(widget().viewport(), &leave);
    QTest::qWait(OutlineDrops::kSpringDelay * 3 / 2);
    EXPECT_FALSE(folder.showHier());
}

TEST_F(OutlineDraggingTest, whereItWouldDropIsShown) {
    add(makeFolder("f"));
    add(makeLink("a"));
    show();
    data.setText("https://new/");
    const auto picture = [this] { return widget().viewport()->grab().toImage(); };
    const QImage before = picture();
    enter(place(0));
    moveTo(place(0));
    const QImage onRow = picture();
    moveTo(place(1, 0.2));
    const QImage between = picture();
    moveTo(belowAllRows());
    const QImage onGround = picture();
    EXPECT_NE(before, onRow);
    EXPECT_NE(onRow, between);
    EXPECT_NE(between, onGround);
    QDragLeaveEvent leave;
    QApplication::sendEvent(widget().viewport(), &leave);
    EXPECT_EQ(picture(), before);
}

TEST_F(OutlineDraggingTest, theRowsOfThisOutlineAreOfferedInEveryForm) {
    Bookmark& link = add(makeLink("Title", "https://l/"));
    show();
    widget().selectRows({{0, 1}});
    const auto offered =
        makeMimeData(controller->items().mimeContentOf(controller->dragging().beginDraggingSession()));
    EXPECT_EQ(offered->text(), "https://l/");
    EXPECT_EQ(offered->urls(), QList<QUrl>{QUrl("https://l/")});
    EXPECT_TRUE(offered->hasHtml());
    const auto items = controller->items().itemsIn(mimeContentOf(*offered, kReadMimeTypes));
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(shared.records.find(*items[0].get(kItemType)).get(), &link);
}

} // namespace
} // namespace tabulon
