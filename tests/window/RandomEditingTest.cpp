// Thousands of random commands on random trees. After each command the tree is sound, and the rows, the
// selection and the change count are those that the command's definition demands of the tree before it. The
// document is the same after it was saved and read.
#include "model/ArchiveReader.h"
#include "model/ArchiveWriter.h"
#include "tests/window/ReferenceTree.h"
#include "tests/window/WindowFixture.h"

#include <array>
#include <random>
#include <unordered_map>

namespace tabulon {
namespace {

using Items = std::set<Bookmark*>;

enum class Kind {
    Inserts,
    InsertsInFolder,
    Removes,
    Cuts,
    MovesUp,
    MovesDown,
    Expands,
    Labels,
    Copies,
    Pastes
};

struct Command {
    Kind kind;
    void (*run)(ViewController& all);
};

constexpr std::array<Command, 16> kCommands = {{
    {Kind::Inserts, [](ViewController& all) { all.editing().newBookmark(); }},
    {Kind::Inserts, [](ViewController& all) { all.editing().newFolder(); }},
    {Kind::InsertsInFolder, [](ViewController& all) { all.editing().addBookmark(); }},
    {Kind::Inserts, [](ViewController& all) { all.editing().insertSeparator(); }},
    {Kind::Removes, [](ViewController& all) { all.editing().deleteSelection(); }},
    {Kind::MovesUp, [](ViewController& all) { all.editing().moveUp(); }},
    {Kind::MovesUp, [](ViewController& all) { all.editing().moveUp(); }},
    {Kind::MovesDown, [](ViewController& all) { all.editing().moveDown(); }},
    {Kind::Expands, [](ViewController& all) { all.expanding().expandFolder(); }},
    {Kind::Expands, [](ViewController& all) { all.expanding().expandFolderPlus(); }},
    {Kind::Expands, [](ViewController& all) { all.expanding().collapseFolder(); }},
    {Kind::Expands, [](ViewController& all) { all.expanding().collapseFolderPlus(); }},
    {Kind::Cuts, [](ViewController& all) { all.clipboard().cut(); }},
    {Kind::Pastes, [](ViewController& all) { all.clipboard().pasteEditMenu(); }},
    {Kind::Pastes, [](ViewController& all) { all.clipboard().pasteEditMenu(); }},
    {Kind::Copies, [](ViewController& all) { all.clipboard().copyEditMenu(); }},
}};

// A tree as it was before a command. It has references to the nodes, so that a new one never has the address
// of an old one.
struct State {
    struct Codes {
        Ref<Bookmark> node;
        bool expanded;
        std::uint8_t label;
    };
    std::unordered_map<const Bookmark*, Codes> nodes;
    std::vector<Bookmark*> rows;
    Items selected;
    Bookmark* current;
    long changes;
};

class RandomEditingTest : public WindowTest {
protected:
    std::size_t below(std::size_t limit) { return random_() % limit; }
    Bookmark& master() { return document.getMaster(); }

    void plant(std::size_t count) {
        std::vector<Bookmark*> parents{&master()};
        for (std::size_t i = 0; i < count; ++i) {
            Bookmark& parent = *parents[below(parents.size())];
            if (below(3) == 0)
                parents.push_back(&add(makeFolder("folder", below(2) == 0), &parent));
            else
                add(below(8) == 0 ? makeSeparator() : makeLink("link"), &parent);
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

    State state() {
        State result{.nodes = {},
                     .rows = rowsOfTree(master()),
                     .selected = outline().selected,
                     .current = nullptr,
                     .changes = document.changeCount()};
        for (Bookmark* node : nodesOfTree(master()))
            result.nodes[node] = {Ref<Bookmark>(node), node->showHier(), node->getLabel()};
        if (const auto row = outline().selectedRow())
            result.current = outline().rows[*row];
        return result;
    }

    // The tree after a command, compared with the one before it

    std::size_t countOfExpanded(const State& before) {
        return static_cast<std::size_t>(std::ranges::count_if(before.nodes, [this](const auto& each) {
            return remembersDesktop_ && each.first->showHier() != each.second.expanded;
        }));
    }
    std::size_t countOfLabelled(const State& before) {
        return static_cast<std::size_t>(std::ranges::count_if(
            before.nodes, [](const auto& each) { return each.first->getLabel() != each.second.label; }));
    }
    std::vector<Bookmark*> newNodes(const State& before) {
        std::vector<Bookmark*> nodes = nodesOfTree(master());
        std::erase_if(nodes, [&](const Bookmark* node) { return before.nodes.contains(node); });
        return nodes;
    }
    Items shown(const Items& items) {
        Items result;
        for (Bookmark* row : rowsOfTree(master()))
            if (items.contains(row))
                result.insert(row);
        return result;
    }

    // The result that each command must have

    static bool moves(Kind kind, const State& before) {
        if (before.selected.size() != 1)
            return false;
        Bookmark* edge = kind == Kind::MovesUp ? before.rows.front() : before.rows.back();
        return *before.selected.begin() != edge;
    }
    std::size_t wantedChanges(Kind kind, const State& before) {
        switch (kind) {
        case Kind::Inserts:
            return 1;
        case Kind::InsertsInFolder:
            return before.current && before.current->isFolder() ? 1 + countOfExpanded(before) : 0;
        case Kind::Removes:
        case Kind::Cuts:
            return before.selected.empty() ? 0 : 1;
        case Kind::MovesUp:
        case Kind::MovesDown:
            return moves(kind, before) ? 1 : 0;
        case Kind::Expands:
            return countOfExpanded(before);
        case Kind::Labels:
            return countOfLabelled(before);
        case Kind::Copies:
            return 0;
        case Kind::Pastes:
            return copied_;
        }
        return 0;
    }
    Items wantedSelection(Kind kind, const State& before) {
        const std::vector<Bookmark*> added = newNodes(before);
        switch (kind) {
        case Kind::Inserts:
        case Kind::InsertsInFolder:
            return added.empty() ? before.selected : Items(added.begin(), added.end());
        case Kind::Removes:
        case Kind::Cuts:
            return {};
        case Kind::Pastes:
            return added.empty() ? before.selected : Items{lastPasted(*added.front())};
        default:
            return shown(before.selected);
        }
    }
    // Each item is pasted into the one before if that is an expanded folder, else after it.
    Bookmark* lastPasted(Bookmark& first) {
        Bookmark* last = &first;
        for (std::size_t i = 1; i < copied_ && last; ++i)
            last = last->isFolder() && last->showHier() ? last->getChild() : last->nextBookmark();
        return last;
    }

    void doSomething() {
        selectSomeRows();
        const State before = state();
        if (below(40) == 0) {
            below(2) == 0 ? controller->expanding().expandAll() : controller->expanding().collapseAll();
            return check(Kind::Expands, before);
        }
        if (below(10) == 0) {
            controller->editing().labelBookmark(static_cast<std::uint8_t>(below(8)));
            return check(Kind::Labels, before);
        }
        if (below(4) == 0)
            return dragSomewhere(before);
        const std::size_t number = below(kCommands.size());
        const Command command = kCommands.at(number);
        SCOPED_TRACE("command " + std::to_string(number));
        command.run(*controller);
        check(command.kind, before);
        if (command.kind == Kind::Copies || command.kind == Kind::Cuts)
            didCopy(before.selected.size());
    }

    // After a copy of no items, nodes that were copied before cannot be pasted any more.
    void didCopy(std::size_t count) {
        copied_ = count;
        if (count == 0)
            pasteboard.setContent({});
    }

    void check(Kind kind, const State& before) {
        check(wantedChanges(kind, before), wantedSelection(kind, before), before);
    }
    void check(std::size_t changes, const Items& selection, const State& before) {
        EXPECT_EQ(document.changeCount() - before.changes, static_cast<long>(changes));
        EXPECT_EQ(outline().selected, selection);
    }

    // Drags onto a row, between two rows, or onto the area without rows, as a move or as a copy.
    void dragSomewhere(const State& before) {
        const std::vector<PasteboardItem> items = controller->dragging().beginDraggingSession();
        const DragInfo drag{.source = below(6) == 0 ? nullptr : &controller->outline(),
                            .copies = below(4) == 0,
                            .items = items};
        Bookmark* item =
            before.rows.empty() || below(8) == 0 ? nullptr : before.rows[below(before.rows.size())];
        const Bookmark& target = item ? *item : master();
        std::optional<std::size_t> index;
        if (below(2) == 0)
            index = below(target.hasChildren() ? target.getChildren()->size() + 1 : 1);
        const bool accepted = accepts(drag, target, index, before);
        if (controller->dragging().validateDrop(drag, item, index) != DragOperation::None)
            controller->dragging().acceptDrop(drag, item, index);
        controller->dragging().draggingSessionEnded(DragOperation::Move);
        SCOPED_TRACE("drag");
        check(accepted ? items.size() : 0, accepted ? selectionAfterDrop(drag, before) : before.selected,
              before);
    }
    bool accepts(const DragInfo& drag, const Bookmark& target, std::optional<std::size_t> index,
                 const State& before) {
        if (!target.isFolder() && !index)
            return false;
        for (const Bookmark* node = &target; drag.source && node != &master(); node = node->getParent())
            if (node->isFolder() && before.selected.contains(const_cast<Bookmark*>(node)))
                return false;
        return true;
    }
    Items selectionAfterDrop(const DragInfo& drag, const State& before) {
        Items dropped = before.selected;
        const bool copies = drag.copies || !drag.source;
        if (copies) {
            dropped.clear();
            for (Bookmark* node : newNodes(before))
                if (node->getParent() == &master() || before.nodes.contains(node->getParent()))
                    dropped.insert(node);
            EXPECT_EQ(dropped.size(), drag.items.size());
        }
        const Items rows = shown(dropped);
        const bool keepsTheOld =
            rows.empty() && copies && drag.items.size() <= Outline::ManyRows::kRowsHandledSingly;
        return keepsTheOld ? before.selected : rows;
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
        didCopy(0);
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
    std::size_t copied_ = 0; // the items on the pasteboard
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
    base.defaults.setBoolForKey("RememberDesktop", false);
    remembersDesktop_ = false;
    for (unsigned seed = 201; seed <= 210 && !HasFailure(); ++seed)
        runSeed(seed, 60, 200);
}

} // namespace
} // namespace tabulon
