// Thousands of random commands on random trees. After each command the tree, the selection and the change
// count are those that the command's definition demands of the tree before it, and the rows are those of the
// tree. The document is the same after it was saved and read.
#include "base/Settings.h"
#include "model/ArchiveReader.h"
#include "model/ArchiveWriter.h"
#include "tests/window/ReferenceCommands.h"
#include "tests/window/WindowFixture.h"

#include <array>
#include <random>

namespace tabulon {
namespace {

using Items = std::set<Bookmark*>;

ReferenceNode bookmark() {
    return {.name = "Untitled"};
}

// A command, and its definition.
struct Command {
    void (*run)(ViewController& all);
    void (*define)(ReferenceWindow& wanted);
};

constexpr std::array<Command, 18> kCommands = {{
    {[](ViewController& all) { all.editing().newBookmark(); },
     [](ReferenceWindow& wanted) { wanted.insert({bookmark()}); }},
    {[](ViewController& all) { all.editing().newFolder(); },
     [](ReferenceWindow& wanted) { wanted.insert({{.name = "Untitled Folder", .isFolder = true}}); }},
    {[](ViewController& all) { all.editing().addBookmark(); },
     [](ReferenceWindow& wanted) { wanted.insertInFolder(bookmark()); }},
    {[](ViewController& all) { all.editing().insertSeparator(); },
     [](ReferenceWindow& wanted) { wanted.insert({{.isSeparator = true}}); }},
    {[](ViewController& all) { all.editing().deleteSelection(); },
     [](ReferenceWindow& wanted) { wanted.removeSelection(); }},
    {[](ViewController& all) { all.editing().moveUp(); }, [](ReferenceWindow& wanted) { wanted.moveUp(); }},
    {[](ViewController& all) { all.editing().moveUp(); }, [](ReferenceWindow& wanted) { wanted.moveUp(); }},
    {[](ViewController& all) { all.editing().moveDown(); },
     [](ReferenceWindow& wanted) { wanted.moveDown(); }},
    {[](ViewController& all) { all.editing().moveDown(); },
     [](ReferenceWindow& wanted) { wanted.moveDown(); }},
    {[](ViewController& all) { all.expanding().expandFolder(); },
     [](ReferenceWindow& wanted) { wanted.expandSelection(true, false); }},
    {[](ViewController& all) { all.expanding().expandFolderPlus(); },
     [](ReferenceWindow& wanted) { wanted.expandSelection(true, true); }},
    {[](ViewController& all) { all.expanding().collapseFolder(); },
     [](ReferenceWindow& wanted) { wanted.expandSelection(false, false); }},
    {[](ViewController& all) { all.expanding().collapseFolderPlus(); },
     [](ReferenceWindow& wanted) { wanted.expandSelection(false, true); }},
    {[](ViewController& all) { all.clipboard().cut(); },
     [](ReferenceWindow& wanted) {
         wanted.copySelection();
         wanted.removeSelection();
     }},
    {[](ViewController& all) { all.clipboard().pasteEditMenu(); },
     [](ReferenceWindow& wanted) { wanted.paste(); }},
    {[](ViewController& all) { all.clipboard().pasteEditMenu(); },
     [](ReferenceWindow& wanted) { wanted.paste(); }},
    {[](ViewController& all) { all.clipboard().copyEditMenu(); },
     [](ReferenceWindow& wanted) { wanted.copySelection(); }},
    {[](ViewController& all) { all.clipboard().copyBookmarks(); },
     [](ReferenceWindow& wanted) { wanted.copySelection(); }},
}};

class RandomEditingTest : public WindowTest {
protected:
    std::size_t below(std::size_t limit) { return random_() % limit; }
    Bookmark& master() { return document.getMaster(); }

    // Plants nodes of all kinds with different names.
    void plant(std::size_t count) {
        std::vector<Bookmark*> parents{&master()};
        for (std::size_t i = 0; i < count; ++i) {
            Bookmark& parent = *parents[below(parents.size())];
            const std::string name = std::to_string(i);
            if (below(3) == 0)
                parents.push_back(&add(makeFolder(name.c_str(), below(2) == 0), &parent));
            else
                add(below(8) == 0 ? makeSeparator() : makeLink(name.c_str()), &parent);
        }
        open();
    }

    // Selects no row, one, a few, or a long run of them. Any of them may be the one that was clicked last.
    void selectSomeRows() {
        const std::vector<Bookmark*>& rows = outline().rows;
        std::vector<Bookmark*> items;
        if (!rows.empty() && below(10) != 0) {
            const std::size_t first = below(rows.size());
            const std::array<std::size_t, 4> runs{64, 65, 100, 1000};
            const std::size_t run = below(4) == 0 ? runs.at(below(runs.size())) : 1;
            for (std::size_t row = first; row < std::min(first + run, rows.size()); ++row)
                items.push_back(rows[row]);
            for (std::size_t others = below(4) == 0 ? below(6) : 0; others > 0; --others)
                items.push_back(rows[below(rows.size())]);
            std::swap(items.back(), items[below(items.size())]);
        }
        outline().clickOn(items);
    }

    // Returns the window as it is before a command.
    ReferenceWindow stateOfWindow() {
        ReferenceWindow result{.tree = ReferenceOutline(master()),
                               .current = std::nullopt,
                               .remembersDesktop = remembersDesktop_,
                               .copied = copied_};
        for (const Bookmark* item : outline().selected)
            result.tree.select(result.tree.find(item));
        if (const auto row = outline().selectedRow())
            result.current = result.tree.find(outline().rows[*row]);
        return result;
    }

    void doSomething() {
        selectSomeRows();
        changesBefore_ = document.changeCount();
        ReferenceWindow wanted = stateOfWindow();
        if (below(4) == 0)
            return dragSomewhere(wanted);
        if (below(40) == 0) {
            const bool expands = below(2) == 0;
            wanted.expandAll(expands);
            expands ? controller->expanding().expandAll() : controller->expanding().collapseAll();
            return check(wanted);
        }
        if (below(10) == 0) {
            const auto label = static_cast<std::uint8_t>(below(8));
            wanted.label(label);
            controller->editing().labelBookmark(label);
            return check(wanted);
        }
        const std::size_t number = below(kCommands.size());
        SCOPED_TRACE("command " + std::to_string(number));
        kCommands.at(number).define(wanted);
        kCommands.at(number).run(*controller);
        check(wanted);
        copied_ = wanted.copied;
        // After a copy of no items, nodes that were copied before cannot be pasted any more.
        if (copied_.empty())
            pasteboard.setContent({});
    }

    void check(ReferenceWindow& wanted) {
        ASSERT_NO_FATAL_FAILURE(wanted.tree.expectTree(master()));
        EXPECT_EQ(document.changeCount() - changesBefore_, static_cast<long>(wanted.changes));
        Items selection;
        for (const std::size_t place : wanted.tree.selected())
            selection.insert(wanted.tree.at(place).node.get());
        EXPECT_EQ(outline().selected, selection);
    }

    // Drags onto a row, between two rows, or onto the area without rows, as a move or as a copy.
    void dragSomewhere(ReferenceWindow& wanted) {
        SCOPED_TRACE("drag");
        const std::vector<PasteboardItem> items = controller->dragging().beginDraggingSession();
        const DragInfo drag{.source = below(6) == 0 ? nullptr : &controller->outline(),
                            .copies = below(4) == 0,
                            .items = items};
        const std::vector<std::size_t> rows = wanted.tree.rows();
        const std::size_t target = rows.empty() || below(8) == 0 ? 0 : rows[below(rows.size())];
        Bookmark* item = target == 0 ? nullptr : wanted.tree.at(target).node.get();
        std::optional<std::size_t> index;
        if (below(2) == 0)
            index = below(wanted.tree.childrenOf(target).size() + 1);
        defineDrop(drag, target, index, wanted);
        if (controller->dragging().validateDrop(drag, item, index) != DragOperation::None)
            controller->dragging().acceptDrop(drag, item, index);
        controller->dragging().draggingSessionEnded(DragOperation::Move);
        check(wanted);
    }
    static void defineDrop(const DragInfo& drag, std::size_t target, std::optional<std::size_t> index,
                           ReferenceWindow& wanted) {
        const ReferenceOutline& tree = wanted.tree;
        const bool isFolder = tree.at(target).isFolder;
        if ((!isFolder && !index) || (drag.source && isDragged(target, tree)))
            return;
        ReferenceChild place{.folder = target, .index = index.value_or(0)};
        if (!isFolder)
            place = tree.placeAfter(target);
        else if (!index && target == 0)
            place.index = tree.childrenOf(target).size();
        const ReferenceOutline before = tree;
        const bool copies = drag.copies || !drag.source;
        wanted.drop(place, copies);
        // Where no copy has a row, the selection stays.
        if (copies && tree.selected().empty())
            for (const std::size_t selected : before.selected())
                wanted.tree.select(tree.find(before.at(selected).node.get()));
    }
    // Returns whether the node is a dragged folder or in one.
    static bool isDragged(std::size_t place, const ReferenceOutline& tree) {
        for (; place != 0; place = tree.parentOf(place))
            if (tree.at(place).isFolder && tree.at(place).isSelected)
                return true;
        return false;
    }

    void checkTree() {
        for (const Bookmark* node : nodesOfTree(master())) {
            EXPECT_EQ(node->getDocument(), &document);
            EXPECT_TRUE(node->getParent()->getChildren()->contains(*node));
        }
    }
    void checkRows() {
        EXPECT_EQ(outline().rows, rowsOfTree(master()));
        EXPECT_TRUE(outline().rowsAreRight());
        for (std::size_t row = 0; row < outline().rows.size(); ++row)
            EXPECT_EQ(controller->outline().rowForItem(*outline().rows[row]), row);
        EXPECT_EQ(window->empty, outline().rows.empty());
    }

    static std::string number(std::size_t count, const std::string& unit) {
        return std::to_string(count) + " " + unit + (count == 1 ? "" : "s");
    }
    void checkCounts() {
        std::size_t folderCount = 0;
        std::size_t linkCount = 0;
        for (const Bookmark* node : nodesOfTree(master())) {
            folderCount += node->isFolder() ? 1 : 0;
            linkCount += node->isFolder() || node->isSeparator() ? 0 : 1;
        }
        EXPECT_EQ(controller->statusLine().countsText(),
                  number(linkCount, "bookmark") + " in " + number(folderCount, "folder"));
    }
    void checkFile() {
        const std::string bytes = writeDocumentArchive(master());
        const auto read = readDocumentArchive(bytes);
        ASSERT_TRUE(read);
        EXPECT_EQ(writeDocumentArchive(**read), bytes);
    }

    void runSeed(unsigned seed, std::size_t nodes, int steps) {
        SCOPED_TRACE(seed);
        random_.seed(seed);
        document.setMaster(makeFolder("Master"));
        plant(nodes);
        copied_.clear();
        pasteboard.setContent({});
        // Copies of copies would grow without limit.
        for (int step = 0; step < steps && !HasFailure() && nodesOfTree(master()).size() < nodes + 2000;
             ++step) {
            SCOPED_TRACE(step);
            doSomething();
            checkTree();
            checkRows();
            checkCounts();
        }
        checkFile();
    }

    std::mt19937 random_;
    std::vector<ReferenceOutline::Nodes> copied_; // the subtrees on the pasteboard
    long changesBefore_ = 0;                      // the change count before the command
    bool remembersDesktop_ = true;
};

TEST_F(RandomEditingTest, itStaysOneTreeAndTheRowsFollow) {
    for (unsigned seed = 1; seed <= 40 && !HasFailure(); ++seed)
        runSeed(seed, 60, 200);
}

TEST_F(RandomEditingTest, longSelectionsAreTreatedAsShortOnes) {
    for (unsigned seed = 101; seed <= 110 && !HasFailure(); ++seed)
        runSeed(seed, 1500, 100);
}

TEST_F(RandomEditingTest, expandingIsNoChangeWhereItIsNotRemembered) {
    setValue(base.defaults, settings::kRememberDesktop, false);
    remembersDesktop_ = false;
    for (unsigned seed = 201; seed <= 210 && !HasFailure(); ++seed)
        runSeed(seed, 60, 200);
}

} // namespace
} // namespace tabulon
