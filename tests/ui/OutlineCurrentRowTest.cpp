// The selection and the current row of the real outline, compared with those of the outline in memory, which
// the tests of the commands use. Both receive the same random clicks, commands and changes.
#include "tests/ui/OutlineFixture.h"

#include <random>

namespace tabulon {
namespace {

class OutlineCurrentRowTest : public OutlineTest, public testing::WithParamInterface<unsigned> {
protected:
    void SetUp() override {
        plant(document.getMaster(), std::mt19937(GetParam()));
        openWidget();
        plant(otherDocument.getMaster(), std::mt19937(GetParam()));
        otherDocument.setMaster(Ref<Bookmark>(&otherDocument.getMaster()));
        other = std::make_unique<ViewController>(otherDocument, platform(), shared);
        memory = std::make_unique<MemoryWindow>(*other);
        other->setWindow(memory.get());
    }
    void TearDown() override {
        OutlineTest::TearDown();
        memory.reset();
        other.reset();
    }

    void plant(Bookmark& master, std::mt19937 seeded) {
        std::vector<Bookmark*> places{&master};
        for (int i = 0; i < 120; ++i) {
            Bookmark& parent = *places.at(seeded() % places.size());
            const bool isFolder = seeded() % 3 == 0;
            const bool isExpanded = seeded() % 2 == 0;
            const std::string name = std::to_string(i);
            const Ref<Bookmark> node =
                isFolder ? makeFolder(name.c_str(), isExpanded) : makeLink(name.c_str());
            parent.addChild(node);
            if (isFolder)
                places.push_back(node.get());
        }
    }

    std::size_t pick(std::size_t count) { return random() % count; }
    std::size_t rowCount() { return controller->outline().numberOfRows(); }
    Bookmark& otherItem(std::size_t row) { return other->outline().itemAtRow(row); }

    void click(std::size_t row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        widget().scrollRowToVisible(row);
        QTest::mouseClick(widget().viewport(), Qt::LeftButton, modifiers,
                          cell(static_cast<int>(row), Column::URL).center());
        if (modifiers == Qt::ControlModifier)
            memory->outlineView.clickWithControl(otherItem(row));
        else
            memory->outlineView.clickOn({&otherItem(row)});
    }
    void selectRows() {
        RowSet rows;
        const std::size_t distance = 1 + pick(4);
        for (std::size_t row = pick(rowCount()); row < rowCount(); row += distance)
            addRow(rows, row);
        widget().selectRows(rows);
        memory->outlineView.selectRows(rows);
    }
    void selectAll() {
        widget().selectAll();
        memory->outlineView.selectAll();
    }
    void both(void (*command)(ViewController& all, std::size_t row)) {
        const std::size_t row = pick(rowCount());
        command(*controller, row);
        command(*other, row);
    }

    void step() {
        if (rowCount() == 0)
            return both([](ViewController& all, std::size_t) { all.editing().insertSeparator(); });
        switch (pick(16)) {
        case 0:
            return selectRows();
        case 1:
            return pick(8) == 0 ? selectAll() : click(pick(rowCount()));
        case 2:
        case 3:
            return click(pick(rowCount()));
        case 4:
        case 5:
        case 6:
        case 7:
            return click(pick(rowCount()), Qt::ControlModifier);
        case 8:
        case 9:
            return both([](ViewController& all, std::size_t row) {
                all.outline().collapseItem(all.outline().itemAtRow(row));
            });
        case 10:
        case 11:
            return both([](ViewController& all, std::size_t row) {
                all.outline().expandItem(all.outline().itemAtRow(row));
            });
        case 12:
            return both([](ViewController& all, std::size_t row) {
                all.outline().removeItem(all.outline().itemAtRow(row));
            });
        case 13:
            return both([](ViewController& all, std::size_t) { all.editing().insertSeparator(); });
        case 14:
            return both([](ViewController& all, std::size_t) { all.editing().moveUp(); });
        default:
            return both([](ViewController& all, std::size_t) { all.editing().moveDown(); });
        }
    }
    std::unique_ptr<ViewController> other;
    std::unique_ptr<MemoryWindow> memory;
    Document otherDocument{base.services()};
    std::mt19937 random{GetParam() + 1000};
};

// If the row with the cursor is not selected, the two outlines may differ in the selected row that was
// selected last: Qt stores ranges, and divides them when rows change. The test then only checks that each
// outline has one of the selected rows.
TEST_P(OutlineCurrentRowTest, IsTheSameInMemory) {
    int compared = 0;
    for (int i = 0; i < 300; ++i) {
        step();
        const RowSet selected = widget().selectedRows();
        const auto real = widget().selectedRow();
        const auto inMemory = memory->outlineView.selectedRow();
        ASSERT_EQ(rowCount(), other->outline().numberOfRows()) << "after step " << i;
        ASSERT_EQ(selected, memory->outlineView.selectedRows()) << "after step " << i;
        ASSERT_EQ(real.has_value(), inMemory.has_value()) << "after step " << i;
        if (!real)
            continue;
        if (!containsRow(selected, static_cast<std::size_t>(std::max(currentRow(), 0)))) {
            ASSERT_TRUE(containsRow(selected, *real) && containsRow(selected, *inMemory))
                << "after step " << i;
            continue;
        }
        ASSERT_EQ(real, inMemory) << "after step " << i;
        ++compared;
    }
    EXPECT_GT(compared, 100);
}

INSTANTIATE_TEST_SUITE_P(Seeds, OutlineCurrentRowTest, testing::Values(1U, 2U, 3U, 4U, 5U, 6U, 7U, 8U));

} // namespace
} // namespace tabulon
