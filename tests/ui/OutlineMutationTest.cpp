// Random expanding, collapsing, selecting and replacing in the real outline. Qt's model tester checks the
// model. After every step the tree, the rows, the selection and the change count are compared with those that
// the step demands of the tree before it.
#include "tests/ui/OutlineFixture.h"
#include "tests/window/ReferenceCommands.h"

#include <random>

namespace tabulon {
namespace {

class OutlineMutationTest : public OutlineTest, public testing::WithParamInterface<unsigned> {
protected:
    // Returns a tree of folders and links that are nested at random.
    Ref<Bookmark> randomTree() {
        Ref<Bookmark> root = makeFolder("Master");
        folders = {root.get()};
        for (int i = 0; i < nodes; ++i) {
            Bookmark& parent = *folders.at(pick(folders.size()));
            const bool isFolder = pick(3) == 0;
            const std::string name = std::to_string(i);
            const Ref<Bookmark> node =
                isFolder ? makeFolder(name.c_str(), pick(2) == 0) : makeLink(name.c_str());
            parent.addChild(node);
            if (isFolder)
                folders.push_back(node.get());
        }
        return root;
    }
    std::size_t pick(std::size_t count) { return random() % count; }
    Bookmark& anyFolder() { return *folders.at(1 + pick(folders.size() - 1)); }

    // Shows a random tree, in which no row is selected.
    void replaceTree() {
        document.setMaster(randomTree());
        document.updateUI();
        wanted.tree = ReferenceOutline(document.getMaster());
    }
    // Expands or collapses one folder, or those below it too. A double click is one more change.
    void turnFolder() {
        Bookmark& folder = anyFolder();
        const std::size_t place = wanted.tree.find(&folder);
        const std::size_t end = wanted.tree.endOf(place);
        switch (pick(5)) {
        case 0:
            wanted.expand(true, place, place + 1);
            return controller->outline().expandItem(folder);
        case 1:
            wanted.expand(false, place, place + 1);
            return controller->outline().collapseItem(folder);
        case 2:
            wanted.expand(true, place, end);
            return controller->outline().expandItemWithChildren(folder);
        case 3:
            wanted.expand(false, place, end);
            return controller->outline().collapseItemWithChildren(folder);
        default:
            wanted.expand(!wanted.tree.at(place).isExpanded, place, place + 1);
            ++wanted.changes;
            return controller->expanding().doubleClickFolder(folder);
        }
    }
    void turnAll() {
        const bool expands = pick(2) == 0;
        wanted.expandAll(expands);
        expands ? controller->expanding().expandAll() : controller->expanding().collapseAll();
    }
    void turnSelection(bool expands) {
        wanted.expandSelection(expands, false);
        expands ? controller->expanding().expandFolder() : controller->expanding().collapseFolder();
    }

    void select(std::size_t first, std::size_t end, std::size_t distance) {
        const std::vector<std::size_t> rows = wanted.tree.rows();
        RowSet some;
        wanted.tree.deselectAll();
        for (std::size_t row = first; row < std::min(end, rows.size()); row += distance) {
            addRow(some, row);
            wanted.tree.select(rows[row]);
        }
        widget().selectRows(some);
        EXPECT_EQ(widget().selectedRows(), some);
    }
    void selectSome() {
        const std::size_t count = wanted.tree.rows().size();
        switch (pick(5)) {
        case 0: {
            const std::size_t first = pick(count);
            const std::array<std::size_t, 4> runs{64, 65, 100, 1000};
            return select(first, first + runs.at(pick(runs.size())), 1);
        }
        case 1:
            return select(0, 0, 1);
        default:
            return select(pick(4), count, 2 + pick(6));
        }
    }
    void selectAll() {
        for (const std::size_t row : wanted.tree.rows())
            wanted.tree.select(row);
        widget().selectAll();
    }
    // The keys select the last two rows. A key that does not move the cursor does not select.
    void selectWithKeys() {
        const std::vector<std::size_t> rows = wanted.tree.rows();
        if (rows.size() < 3)
            return;
        press(Qt::Key_Home);
        press(Qt::Key_End);
        press(Qt::Key_Up, Qt::ShiftModifier);
        wanted.tree.deselectAll();
        wanted.tree.select(rows.at(rows.size() - 2));
        wanted.tree.select(rows.back());
    }
    void step() {
        switch (pick(12)) {
        case 0:
            return turnAll();
        case 1:
            return selectSome();
        case 2:
            selectAll();
            return turnSelection(true);
        case 3:
            return pick(2) == 0 ? controller->table().addTagsColumn()
                                : controller->table().removeTagsColumn();
        case 4:
            return selectWithKeys();
        case 5:
            return pick(6) == 0 ? replaceTree() : controller->table().zoomIn();
        case 6:
            return wanted.tree.selected().empty() ? selectSome() : turnSelection(false);
        default:
            return turnFolder();
        }
    }

    void checkRows() {
        const std::vector<std::size_t> rows = wanted.tree.rows();
        ASSERT_EQ(static_cast<std::size_t>(widget().model()->rowCount()), rows.size());
        for (std::size_t row = 0; row < rows.size(); ++row) {
            const ReferenceNode& node = wanted.tree.at(rows[row]);
            ASSERT_EQ(&controller->outline().itemAtRow(row), node.node.get());
            ASSERT_EQ(controller->outline().rowForItem(*node.node), row);
            const QModelIndex index = widget().model()->index(static_cast<int>(row), 0);
            ASSERT_EQ(index.data().toString().toStdString(), node.name.string());
        }
    }
    void checkSelection() {
        const std::vector<std::size_t> rows = wanted.tree.rows();
        RowSet selected;
        for (std::size_t row = 0; row < rows.size(); ++row)
            if (wanted.tree.at(rows[row]).isSelected)
                addRow(selected, row);
        ASSERT_EQ(widget().selectedRows(), selected);
        const std::optional<std::size_t> current = widget().selectedRow();
        ASSERT_EQ(current.has_value(), !selected.empty());
        ASSERT_TRUE(!current || wanted.tree.at(rows.at(*current)).isSelected);
    }
    void run(int steps) {
        document.setMaster(randomTree());
        openWidget();
        wanted.tree = ReferenceOutline(document.getMaster());
        for (int i = 0; i < steps; ++i) {
            step();
            wanted.tree.deselectHidden();
            ASSERT_NO_FATAL_FAILURE(wanted.tree.expectTree(document.getMaster())) << "after step " << i;
            ASSERT_NO_FATAL_FAILURE(checkRows()) << "after step " << i;
            ASSERT_NO_FATAL_FAILURE(checkSelection()) << "after step " << i;
            ASSERT_EQ(document.changeCount(), static_cast<long>(wanted.changes)) << "after step " << i;
        }
        EXPECT_FALSE(widget().grab().isNull());
    }

    std::mt19937 random{GetParam()};
    int nodes = 300;
    std::vector<Bookmark*> folders;
    ReferenceWindow wanted; // what the steps demand
};

TEST_P(OutlineMutationTest, RowsStayThoseOfTheTreeWhateverHappens) {
    run(200);
}

TEST_P(OutlineMutationTest, LongSelectionsMoveWithTheirRows) {
    nodes = 2000;
    run(60);
}

INSTANTIATE_TEST_SUITE_P(Seeds, OutlineMutationTest, testing::Values(1U, 2U, 3U, 4U, 5U, 6U, 7U, 8U));

} // namespace
} // namespace tabulon
