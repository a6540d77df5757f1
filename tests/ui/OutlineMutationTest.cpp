// Random expanding, collapsing, selecting and replacing in the real outline. Qt's model tester checks the
// model. After every step the rows, the selection and the change count are compared with those that the tree
// and the step demand.
#include "tests/ui/OutlineFixture.h"
#include "tests/window/ReferenceTree.h"

#include <random>

namespace tabulon {
namespace {

using Items = std::set<Bookmark*>;

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
    std::vector<Bookmark*> rows() { return rowsOfTree(document.getMaster()); }

    void replaceTree() {
        selected.clear();
        document.setMaster(randomTree());
        document.updateUI();
        expanded = expandedFolders();
    }
    void turnFolder() {
        Bookmark& folder = anyFolder();
        switch (pick(5)) {
        case 0:
            return controller->outline().expandItem(folder);
        case 1:
            return controller->outline().collapseItem(folder);
        case 2:
            return controller->outline().expandItemWithChildren(folder);
        case 3:
            return controller->outline().collapseItemWithChildren(folder);
        default:
            ++changes; // besides the one of the folder
            return controller->expanding().doubleClickFolder(folder);
        }
    }
    void select(std::size_t first, std::size_t end, std::size_t distance) {
        RowSet some;
        selected.clear();
        for (std::size_t row = first; row < std::min(end, rows().size()); row += distance) {
            addRow(some, row);
            selected.insert(rows()[row]);
        }
        widget().selectRows(some);
        EXPECT_EQ(widget().selectedRows(), some);
    }
    void selectSome() {
        const std::size_t count = rows().size();
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
        const std::vector<Bookmark*> all = rows();
        selected = {all.begin(), all.end()};
        widget().selectAll();
    }
    // The keys select the last two rows. A key that does not move the cursor does not select.
    void selectWithKeys() {
        const std::vector<Bookmark*> all = rows();
        if (all.size() < 3)
            return;
        press(Qt::Key_Home);
        press(Qt::Key_End);
        press(Qt::Key_Up, Qt::ShiftModifier);
        selected = {all.at(all.size() - 2), all.back()};
    }
    void step() {
        switch (pick(12)) {
        case 0:
            return pick(2) == 0 ? controller->expanding().expandAll() : controller->expanding().collapseAll();
        case 1:
            return selectSome();
        case 2:
            selectAll();
            return controller->expanding().expandFolder();
        case 3:
            return pick(2) == 0 ? controller->table().addTagsColumn()
                                : controller->table().removeTagsColumn();
        case 4:
            return selectWithKeys();
        case 5:
            return pick(6) == 0 ? replaceTree() : controller->table().zoomIn();
        case 6:
            return selected.empty() ? selectSome() : controller->expanding().collapseFolder();
        default:
            return turnFolder();
        }
    }

    Items expandedFolders() {
        Items result;
        for (Bookmark* folder : folders)
            if (folder->showHier())
                result.insert(folder);
        return result;
    }
    // Each folder that was expanded or collapsed is one change, and rows that are hidden are deselected.
    void followStep() {
        const Items before = std::exchange(expanded, expandedFolders());
        std::vector<Bookmark*> turned;
        std::ranges::set_symmetric_difference(before, expanded, std::back_inserter(turned));
        changes += static_cast<long>(turned.size());
        std::erase_if(selected, [&](const Bookmark* item) { return !hasRow(*item, document.getMaster()); });
    }
    void checkRows() {
        const std::vector<Bookmark*> wanted = rows();
        ASSERT_EQ(static_cast<std::size_t>(widget().model()->rowCount()), wanted.size());
        for (std::size_t row = 0; row < wanted.size(); ++row) {
            ASSERT_EQ(&controller->outline().itemAtRow(row), wanted[row]);
            ASSERT_EQ(controller->outline().rowForItem(*wanted[row]), row);
            const QModelIndex index = widget().model()->index(static_cast<int>(row), 0);
            ASSERT_EQ(index.data().toString().toStdString(), wanted[row]->itemName().string());
        }
    }
    void checkSelection() {
        const std::vector<Bookmark*> all = rows();
        RowSet wanted;
        for (std::size_t row = 0; row < all.size(); ++row)
            if (selected.contains(all[row]))
                addRow(wanted, row);
        ASSERT_EQ(widget().selectedRows(), wanted);
        const std::optional<std::size_t> current = widget().selectedRow();
        ASSERT_EQ(current.has_value(), !selected.empty());
        ASSERT_TRUE(!current || selected.contains(all.at(*current)));
    }
    void run(int steps) {
        document.setMaster(randomTree());
        openWidget();
        expanded = expandedFolders();
        for (int i = 0; i < steps; ++i) {
            step();
            followStep();
            ASSERT_NO_FATAL_FAILURE(checkRows()) << "after step " << i;
            ASSERT_NO_FATAL_FAILURE(checkSelection()) << "after step " << i;
            ASSERT_EQ(document.changeCount(), changes) << "after step " << i;
        }
        EXPECT_FALSE(widget().grab().isNull());
    }

    std::mt19937 random{GetParam()};
    int nodes = 300;
    std::vector<Bookmark*> folders;
    Items selected; // the selection that the steps demand
    Items expanded; // the folders that were expanded before the step
    long changes = 0;
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
