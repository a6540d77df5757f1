// The reports of the outline to its observers, and changes of many rows under the guard object.
#include "window/Outline.h"

#include "base/Settings.h"
#include "tests/window/WindowFixture.h"

namespace tabulon {
namespace {

using Reports = std::vector<std::string>;

// Records the reports, each with its name.
class Recorder : public RowObserver, public SelectionObserver, public PointerObserver {
public:
    Recorder(std::string name, Outline& outline, Reports& reports)
        : name_(std::move(name)), outline_(outline), reports_(reports) {
        outline.addRowObserver(*this);
        outline.addSelectionObserver(*this);
        outline.addPointerObserver(*this);
    }

    void rowsWillChange() override { note("rowsWillChange"); }
    void rowsDidChange() override { note("rowsDidChange"); }
    void treeDidChange() override { note("treeDidChange"); }
    void nodesDidLeave() override { note("nodesDidLeave"); }
    void masterDidChange() override { note("masterDidChange"); }
    void selectionDidChange(SelectedBy cause) override {
        note(cause == SelectedBy::User ? "selectedByUser" : "selectedByProgram");
    }
    void currentRowDidChange() override { note("currentRowDidChange"); }
    void pointerIsOver(std::optional<std::size_t> row) override {
        note("over " + (row ? std::to_string(*row) : "no row"));
    }
    void pointerDidLeave() override { note("pointerDidLeave"); }

private:
    void note(const std::string& report) {
        reports_.push_back(name_ + report + " with " + std::to_string(outline_.numberOfRows()) + " rows, " +
                           std::to_string(outline_.document().changeCount()) + " changes");
    }

    const std::string name_;
    const Outline& outline_;
    Reports& reports_;
};

class OutlineTest : public WindowTest {
protected:
    Outline& rows() { return controller->outline(); }
    void addLinks(int count) {
        for (int i = 0; i < count; ++i)
            add(makeLink("l"));
    }
    Reports taken() { return std::exchange(reports, {}); }

    Reports reports;
};

TEST_F(OutlineTest, ObserversAreCalledInTheOrderInWhichTheyWereAdded) {
    open();
    const Recorder first("first ", rows(), reports);
    const Recorder second("second ", rows(), reports);
    rows().insertChild(document.getMaster(), 0, makeLink("l"));
    EXPECT_EQ(taken(), (Reports{"first rowsWillChange with 0 rows, 0 changes",
                                "second rowsWillChange with 0 rows, 0 changes",
                                "first rowsDidChange with 1 rows, 0 changes",
                                "second rowsDidChange with 1 rows, 0 changes"}));
}

TEST_F(OutlineTest, ChangeIsReportedBeforeTheDocumentRecordsIt) {
    Bookmark& link = add(makeLink("l"));
    open();
    const Recorder recorder("", rows(), reports);
    rows().itemDidChange(link);
    EXPECT_EQ(taken(), Reports{"treeDidChange with 1 rows, 0 changes"});
    EXPECT_EQ(document.changeCount(), 1);
    EXPECT_EQ(outline().reloaded.back(), (RowRange{0, 1}));
}

TEST_F(OutlineTest, AnotherTreeIsReportedWithItsRows) {
    open();
    const Recorder recorder("", rows(), reports);
    add(makeLink("l"));
    document.updateUI();
    EXPECT_EQ(taken(),
              (Reports{"rowsWillChange with 0 rows, 0 changes", "masterDidChange with 1 rows, 0 changes",
                       "nodesDidLeave with 1 rows, 0 changes"}));
}

TEST_F(OutlineTest, ExpandingReportsTheCurrentRowAndNoChangeOfTheTree) {
    setValue(base.defaults, settings::kRememberDesktop, false);
    Bookmark& folder = add(makeFolder("f", false));
    add(makeLink("l"), &folder);
    open();
    const Recorder recorder("", rows(), reports);
    rows().expandItem(folder);
    EXPECT_EQ(taken(), (Reports{"rowsWillChange with 1 rows, 0 changes",
                                "currentRowDidChange with 2 rows, 0 changes"}));
}

TEST_F(OutlineTest, RevealExpandsTheFoldersOfANodeInTheTreeOnly) {
    Bookmark& outer = add(makeFolder("outer", false));
    Bookmark& inner = add(makeFolder("inner", false), &outer);
    const Ref<Bookmark> link(&add(makeLink("l"), &inner));
    const Ref<Bookmark> elsewhere = makeFolder("elsewhere", false);
    elsewhere->addChild(makeLink("other"));
    open();
    rows().reveal(*elsewhere->getChild());
    EXPECT_FALSE(elsewhere->showHier());
    link->detachMe(); // does not reset its parent
    rows().reveal(*link);
    EXPECT_FALSE(outer.showHier() || inner.showHier());
    EXPECT_EQ(document.changeCount(), 0);
    inner.addChild(link);
    rows().reveal(*link);
    EXPECT_EQ(rows().rowForItem(*link), 2u);
    EXPECT_EQ(document.changeCount(), 2);
}

TEST_F(OutlineTest, SelectionIsReportedWithItsCause) {
    Bookmark& link = add(makeLink("l"));
    open();
    const Recorder recorder("", rows(), reports);
    rows().selectRowOf(link);
    rows().selectionDidChange(SelectedBy::User);
    EXPECT_EQ(taken(),
              (Reports{"selectedByProgram with 1 rows, 0 changes", "selectedByUser with 1 rows, 0 changes"}));
}

TEST_F(OutlineTest, PointerIsReportedOnceForARowUntilRowsChange) {
    addLinks(2);
    open();
    const Recorder recorder("", rows(), reports);
    rows().mouseMoved(1);
    rows().mouseMoved(1);
    EXPECT_EQ(taken(), Reports{"over 1 with 2 rows, 0 changes"});
    rows().removeItem(rows().itemAtRow(0));
    taken();
    rows().mouseMoved(0);
    EXPECT_EQ(taken(), Reports{"over 0 with 1 rows, 0 changes"});
    rows().mouseMoved(std::nullopt);
    rows().mouseMoved(std::nullopt);
    EXPECT_EQ(taken().size(), 2u) << "each move over no row";
    rows().mouseMoved(0);
    rows().mouseExited();
    rows().mouseMoved(0);
    EXPECT_EQ(taken(), (Reports{"over 0 with 1 rows, 0 changes", "pointerDidLeave with 1 rows, 0 changes",
                                "over 0 with 1 rows, 0 changes"}));
}

TEST_F(OutlineTest, FewChangesUnderTheGuardAreShownOneByOne) {
    open();
    const int reloads = outline().reloads;
    {
        const Outline::ManyRows guard(rows(), Outline::ManyRows::kRowsHandledSingly);
        rows().insertChild(document.getMaster(), 0, makeLink("l"));
        EXPECT_EQ(outline().rows.size(), 1u);
    }
    EXPECT_EQ(outline().reloads, reloads);
}

TEST_F(OutlineTest, ManyChangesUnderTheGuardAreShownOnceAtItsEnd) {
    addLinks(3);
    open();
    const Recorder recorder("", rows(), reports);
    const int reloads = outline().reloads;
    const auto change = [this](bool stops) {
        const Ref<Bookmark> last(&rows().itemAtRow(2));
        const Outline::ManyRows guard(rows(), Outline::ManyRows::kAlways);
        rows().insertChild(document.getMaster(), 0, makeLink("new"));
        EXPECT_EQ(rows().numberOfRows(), 3u);
        if (stops)
            return;
        rows().removeItem(*last);
    };
    change(false);
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"new", "l", "l"}));
    EXPECT_EQ(outline().reloads, reloads + 1);
    EXPECT_EQ(taken(),
              (Reports{"rowsWillChange with 3 rows, 0 changes", "rowsDidChange with 3 rows, 0 changes"}));
    change(true);
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"new", "new", "l", "l"})) << "after an early return";
    EXPECT_TRUE(outline().rowsAreRight());
}

TEST_F(OutlineTest, ClickedRowIsForgottenWhenRowsChange) {
    addLinks(2);
    open();
    rows().setClickedRow(1);
    EXPECT_EQ(rows().getSelectionArray(), std::vector<Bookmark*>{&rows().itemAtRow(1)});
    rows().insertChild(document.getMaster(), 0, makeLink("new"));
    EXPECT_TRUE(rows().getSelectionArray().empty());
}

} // namespace
} // namespace tabulon
