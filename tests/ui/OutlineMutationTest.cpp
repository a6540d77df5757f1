// Random expanding, collapsing, selecting and replacing in the real outline. Qt's model tester checks the
// model, and the rows are compared with a new flattening by `shownBelow` after every step.
#include "tests/ui/OutlineFixture.h"

#include <random>

namespace tabulon {
namespace {

class OutlineMutationTest : public OutlineTest, public testing::WithParamInterface<unsigned> {
protected:
    // Returns a tree of folders and links that are nested at random.
    Ref<Bookmark> randomTree() {
        Ref<Bookmark> root = makeFolder("Master");
        folders = {root.get()};
        for (int i = 0; i < 300; ++i) {
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

    void replaceTree() {
        document.setMaster(randomTree());
        document.updateUI();
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
            return controller->expanding().doubleClickFolder(folder);
        }
    }
    void selectSome() {
        const std::size_t rows = controller->outline().numberOfRows();
        RowSet some;
        for (std::size_t row = pick(4); row < rows; row += 2 + pick(6))
            addRow(some, row);
        widget().selectRows(some);
        EXPECT_EQ(widget().selectedRows(), some);
    }
    void step() {
        switch (pick(12)) {
        case 0:
            return pick(2) == 0 ? controller->expanding().expandAll() : controller->expanding().collapseAll();
        case 1:
            return selectSome();
        case 2:
            widget().selectAll();
            return controller->expanding().expandFolder();
        case 3:
            return pick(2) == 0 ? controller->table().addTagsColumn()
                                : controller->table().removeTagsColumn();
        case 4:
            press(Qt::Key_End);
            return press(Qt::Key_Up, Qt::ShiftModifier);
        case 5:
            return pick(6) == 0 ? replaceTree() : controller->table().zoomIn();
        default:
            return turnFolder();
        }
    }
    // Checks that the rows are those of a new flattening, each with its name, and that no selected row is
    // beyond the last one.
    void check() {
        const std::vector<Bookmark*> wanted = shownBelow(document.getMaster());
        ASSERT_EQ(static_cast<std::size_t>(widget().model()->rowCount()), wanted.size());
        for (std::size_t row = 0; row < wanted.size(); ++row) {
            ASSERT_EQ(&controller->outline().itemAtRow(row), wanted[row]);
            ASSERT_EQ(controller->outline().rowForItem(*wanted[row]), row);
            const QModelIndex index = widget().model()->index(static_cast<int>(row), 0);
            ASSERT_EQ(index.data().toString().toStdString(), wanted[row]->itemName().string());
        }
        const RowSet selected = widget().selectedRows();
        ASSERT_TRUE(selected.empty() || selected.back().first + selected.back().count <= wanted.size());
    }

    std::mt19937 random{GetParam()};
    std::vector<Bookmark*> folders;
};

TEST_P(OutlineMutationTest, RowsStayThoseOfTheTreeWhateverHappens) {
    document.setMaster(randomTree());
    openWidget();
    for (int i = 0; i < 200; ++i) {
        step();
        ASSERT_NO_FATAL_FAILURE(check()) << "after step " << i;
    }
    EXPECT_FALSE(widget().grab().isNull());
}

INSTANTIATE_TEST_SUITE_P(Seeds, OutlineMutationTest, testing::Values(1U, 2U, 3U, 4U, 5U, 6U, 7U, 8U));

} // namespace
} // namespace tabulon
