// Each command of the main menu while an automatic save is due and a name is being typed. After each command,
// the typed name and the earlier changes are in the file.
#include "model/TreeWalk.h"
#include "tests/app/AppFixture.h"

#include <gmock/gmock.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace tabulon {
namespace {

using testing::Contains;
using testing::Not;

// Each command is tested in a program of its own.
class Running : public AppTest {
public:
    Running() {
        const Ref<Bookmark> master = Bookmark::init(base.now());
        master->setItemName("Master");
        master->makeParent();
        master->setShowHier(true);
        for (const char* name : {"first", "folder", "last"}) {
            const Ref<Bookmark> node = Bookmark::init(base.now());
            node->setItemName(name);
            node->setItemURL(Text(std::string("https://") + name + "/"));
            if (node->itemName().view() == "folder")
                node->makeParent();
            master->addChild(node);
        }
        files.files[kPath] = writeDocumentArchive(*master);
        app.applicationDidFinishLaunching({kPath});
        alerts.timePasses = [] {}; // no time passes in alerts before `choose`
    }

    std::vector<MenuItem> commands() {
        std::vector<MenuItem> items = menuItems();
        std::erase_if(items, [](const MenuItem& item) { return item.action.empty(); });
        return items;
    }

    // Changes the last row, and lets almost all of the pause pass before the first row is renamed.
    void typeWhileASaveIsDue() {
        Document& document = *onlyDocument();
        window_ = &windowOf(document);
        window_->outlineView.clickOn({document.getMaster().getLast()});
        app.responders().performMenuItem(MenuItem{.action = "labelBookmark:", .tag = 2});
        timers.advance(AutosavePause::kSeconds - 0.1);
        EXPECT_EQ(namesInFile().front(), "first:0");
        EXPECT_EQ(namesInFile().back(), "last:0") << "it is not saved yet";
        window_->outlineView.clickOn({document.getMaster().getChild()});
        app.responders().performMenuItem(MenuItem{.action = "editBookmark:"});
        window_->outlineView.typed = "typed";
    }

    void choose(const MenuItem& item) {
        alerts.timePasses = [this] {
            base.clock.advance(kSecondsOfAnAlert);
            timers.advance(kSecondsOfAnAlert);
        };
        app.responders().performMenuItem(item);
        timers.advance(kSecondsOfAnAlert);
        const std::vector<Document*> all = documents().documents();
        // The text of a field that a command has opened is still being typed. Activating another program ends
        // the editing.
        app.applicationWillResignActive();
        isOpen_ = !all.empty() && all.front()->fileName() == kPath;
        if (isOpen_) {
            EXPECT_TRUE(*files.readFile(kPath) == writeDocumentArchive(all.front()->getMaster()));
        }
    }

    bool isOpen() const { return isOpen_; }
    const std::vector<Alert>& questions() const { return alerts.shown; }

    // Each name is followed by its label.
    std::vector<std::string> namesInFile() {
        Document read(base.services());
        EXPECT_TRUE(read.readFromDataOfType(*files.readFile(kPath), kDocumentType));
        std::vector<std::string> names;
        walkBelow(read.getMaster(), [&](const Bookmark& node) {
            names.push_back(node.itemName().string() + ":" + std::to_string(node.getLabel()));
            return true;
        });
        return names;
    }

private:
    void TestBody() override {}

    const std::string kPath = "/home/a.tbln";
    MemoryWindow* window_ = nullptr;
    bool isOpen_ = false;
};

TEST(DueTimersTest, everyCommandKeepsWhatWasTypedAndWhatWasToBeSaved) {
    // These commands remove the row that was edited, or its change.
    const std::set<std::string> removing = {"cut:", "delete:", "revertDocumentToSaved:"};
    const std::vector<MenuItem> items = Running().commands();
    EXPECT_GT(items.size(), 60u);
    for (const MenuItem& item : items) {
        SCOPED_TRACE(item.action + " " + item.title);
        Running running;
        running.typeWhileASaveIsDue();
        running.choose(item);
        for (const Alert& alert : running.questions())
            EXPECT_THAT(alert.message, Not(testing::HasSubstr("was changed by another program")));
        if (removing.contains(item.action))
            continue;
        EXPECT_THAT(running.namesInFile(), Contains(testing::StartsWith("typed:")));
        EXPECT_THAT(running.namesInFile(), Contains("last:2"));
    }
}

TEST(DueTimersTest, aReversionThatIsConfirmedHasTheOldContentBackWhateverWasDue) {
    Running running;
    running.typeWhileASaveIsDue();
    running.choose(MenuItem{.action = "revertDocumentToSaved:"});
    ASSERT_TRUE(running.isOpen());
    EXPECT_THAT(running.namesInFile(), testing::ElementsAre("first:0", "folder:0", "last:0"));
}

} // namespace
} // namespace tabulon
