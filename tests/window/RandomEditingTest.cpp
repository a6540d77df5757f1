// Thousands of random commands on a random tree. After each command the tree is sound, the rows are those of
// a new flattening by `shownBelow`, and the document is the same after it was saved and read.
#include "model/ArchiveReader.h"
#include "model/ArchiveWriter.h"
#include "model/TreeWalk.h"
#include "tests/window/WindowFixture.h"

#include <random>

namespace tabulon {
namespace {

class RandomEditingTest : public WindowTest {
protected:
    std::size_t below(std::size_t limit) { return random_() % limit; }

    void plant() {
        std::vector<Bookmark*> parents{&document.getMaster()};
        for (int i = 0; i < 60; ++i) {
            Bookmark& parent = *parents[below(parents.size())];
            if (below(3) == 0)
                parents.push_back(&add(makeFolder("folder", below(2) == 0), &parent));
            else
                add(below(8) == 0 ? makeSeparator() : makeLink("link"), &parent);
        }
        open();
    }

    void selectSomeRows() {
        outline().selected.clear();
        if (outline().rows.empty() || below(10) == 0)
            return;
        for (std::size_t count = below(4) == 0 ? below(6) : 1; count > 0; --count)
            outline().selected.insert(outline().rows[below(outline().rows.size())]);
    }

    void doSomething() {
        using Command = void (*)(ViewController&);
        static constexpr std::array<Command, 16> kCommands = {
            [](ViewController& all) { all.editing().newBookmark(); },
            [](ViewController& all) { all.editing().newFolder(); },
            [](ViewController& all) { all.editing().addBookmark(); },
            [](ViewController& all) { all.editing().insertSeparator(); },
            [](ViewController& all) { all.editing().deleteSelection(); },
            [](ViewController& all) { all.editing().moveUp(); },
            [](ViewController& all) { all.editing().moveUp(); },
            [](ViewController& all) { all.editing().moveDown(); },
            [](ViewController& all) { all.expanding().expandFolder(); },
            [](ViewController& all) { all.expanding().expandFolderPlus(); },
            [](ViewController& all) { all.expanding().collapseFolder(); },
            [](ViewController& all) { all.expanding().collapseFolderPlus(); },
            [](ViewController& all) { all.clipboard().cut(); },
            [](ViewController& all) { all.clipboard().pasteEditMenu(); },
            [](ViewController& all) { all.clipboard().pasteEditMenu(); },
            [](ViewController& all) { all.clipboard().copyEditMenu(); },
        };
        selectSomeRows();
        if (below(40) == 0)
            return below(2) == 0 ? controller->expanding().expandAll()
                                 : controller->expanding().collapseAll();
        if (below(10) == 0)
            return controller->editing().labelBookmark(static_cast<std::uint8_t>(below(8)));
        if (below(4) == 0)
            return dragSomewhere();
        const Command command = kCommands[below(kCommands.size())];
        command(*controller);
    }

    // On a row, between two rows, or on the area without rows; as a move or as a copy.
    void dragSomewhere() {
        const std::vector<PasteboardItem> items = controller->dragging().beginDraggingSession();
        const DragInfo drag{.source = below(6) == 0 ? nullptr : &controller->outline(),
                            .copies = below(4) == 0,
                            .items = items};
        Bookmark* target =
            outline().rows.empty() || below(8) == 0 ? nullptr : outline().rows[below(outline().rows.size())];
        std::optional<std::size_t> index;
        if (below(2) == 0)
            index = below((target ? *target : document.getMaster()).hasChildren()
                              ? (target ? *target : document.getMaster()).getChildren()->size() + 1
                              : 1);
        if (controller->dragging().validateDrop(drag, target, index) != DragOperation::None)
            controller->dragging().acceptDrop(drag, target, index);
        controller->dragging().draggingSessionEnded(DragOperation::Move);
    }

    // Copies of copies would grow without limit.
    bool isTooLarge() { return shownBelow(document.getMaster()).size() > 3000; }

    void checkTree() {
        std::set<const Bookmark*> seen;
        walkBelow(document.getMaster(), [&](Bookmark& node) {
            EXPECT_TRUE(seen.insert(&node).second) << "a node stands in two places";
            EXPECT_EQ(node.getDocument(), &document);
            EXPECT_TRUE(node.getParent()->getChildren()->contains(node));
            return true;
        });
    }

    void checkRows() {
        EXPECT_EQ(outline().rows, shownBelow(document.getMaster()));
        EXPECT_TRUE(outline().rowsAreRight());
        for (const Bookmark* item : outline().selected)
            EXPECT_TRUE(controller->outline().rowForItem(*item)) << "what is selected has a row";
        EXPECT_EQ(window->empty, outline().rows.empty());
    }

    void checkCounts() {
        std::size_t folderCount = 0;
        std::size_t linkCount = 0;
        walkBelow(document.getMaster(), [&](const Bookmark& node) {
            ++(node.isFolder() ? folderCount : linkCount);
            linkCount -= node.isSeparator() ? 1 : 0;
            return true;
        });
        EXPECT_EQ(controller->statusLine().countsText(),
                  std::to_string(linkCount) + (linkCount == 1 ? " bookmark in " : " bookmarks in ") +
                      std::to_string(folderCount) + (folderCount == 1 ? " folder" : " folders"));
    }

    void checkFile() {
        const std::string bytes = writeDocumentArchive(document.getMaster());
        const auto read = readDocumentArchive(bytes);
        ASSERT_TRUE(read);
        EXPECT_EQ(writeDocumentArchive(**read), bytes);
    }

    std::mt19937 random_;
};

TEST_F(RandomEditingTest, itStaysOneTreeAndTheRowsFollow) {
    for (unsigned seed = 1; seed <= 40 && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        random_.seed(seed);
        document.setMaster([&] {
            Ref<Bookmark> master = Bookmark::init(base.now());
            master->makeParent();
            master->setItemName("Master");
            master->setShowHier(true);
            return master;
        }());
        plant();
        for (int step = 0; step < 200 && !HasFailure() && !isTooLarge(); ++step) {
            doSomething();
            checkTree();
            checkRows();
            checkCounts();
        }
        checkFile();
    }
}

} // namespace
} // namespace tabulon
