// Marks: showing them, the duplicate scan with its question, removals, questions and reports.
#include "base/Settings.h"
#include "model/Baskets.h"
#include "tests/window/WindowFixture.h"

namespace tabulon {
namespace {

class MarksTest : public WindowTest {
protected:
    MarksTest() {
        alerts.whileShown = [this] { timers.advance(10); }; // before the user answers
        application.onShowMarks = [this](bool isShown) {
            shownEverywhere.push_back(isShown);
            controller->marks().showMarksView();
        };
    }
    Bookmark& addLink(const char* name, const char* url, Bookmark* parent = nullptr,
                      std::uint8_t status = 0) {
        Bookmark& link = add(makeLink(name, url), parent);
        link.setStatus(status);
        return link;
    }
    Bookmark& addWasteBasket(bool expanded = true) {
        return add(makeFolder(base.texts.text(kWasteBasket).c_str(), expanded));
    }
    std::vector<std::string> namesIn(const Bookmark& folder) {
        std::vector<std::string> names;
        for (const Bookmark* child : *folder.getChildren())
            names.push_back(child->itemName().string());
        return names;
    }
    void set(const Setting<bool>& setting, bool value) { setValue(base.defaults, setting, value); }
    void perform(const char* action) {
        const MenuItem item{.action = action};
        ASSERT_TRUE(controller->actions().validateMenuItem(item));
        controller->actions().perform(item);
    }
    using Names = std::vector<std::string>;

    std::vector<bool> shownEverywhere;
};

TEST_F(MarksTest, showMarksTurnsTheSettingAndNotifiesTheApplication) {
    addLink("a", "u", nullptr, kBrokenStatus);
    open();
    EXPECT_FALSE(controller->cells().viewForTableColumn(Column::Name, 0, false).statusShown);
    perform("showMarks:");
    EXPECT_TRUE(valueOf(base.defaults, settings::kShowMarks));
    EXPECT_EQ(outline().reloaded, (std::vector<RowRange>{{0, 1}}));
    const CellContent cell = controller->cells().viewForTableColumn(Column::Name, 0, false);
    EXPECT_TRUE(cell.statusShown);
    EXPECT_EQ(cell.statusImage, "brokenStatus");
    perform("showMarks:");
    EXPECT_FALSE(valueOf(base.defaults, settings::kShowMarks));
    EXPECT_EQ(shownEverywhere, (std::vector<bool>{true, false}));
    EXPECT_EQ(document.changeCount(), 0);
}

TEST_F(MarksTest, findDuplicatesMarksShowsThemAndLeavesTheDocumentClean) {
    Bookmark& a = addLink("a", "u");
    Bookmark& folder = add(makeFolder("folder"));
    Bookmark& b = addLink("b", "U", &folder, kValidStatus);
    Bookmark& old = addLink("old", "v", nullptr, kDuplicateStatus);
    Bookmark& broken = addLink("broken", "w", nullptr, kBrokenStatus);
    open();
    perform("findDuplicates:");
    EXPECT_EQ(a.getStatus(), kNoStatus);
    EXPECT_EQ(b.getStatus(), kDuplicateStatus);
    EXPECT_EQ(old.getStatus(), kNoStatus) << "marks of before are cleared";
    EXPECT_EQ(broken.getStatus(), kBrokenStatus);
    EXPECT_TRUE(valueOf(base.defaults, settings::kShowMarks));
    EXPECT_EQ(outline().reloaded, (std::vector<RowRange>{{0, 5}, {3, 1}, {2, 1}}));
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_EQ(document.changeCount(), 0);
    perform("findDuplicates:");
    EXPECT_EQ(shownEverywhere, std::vector<bool>{true}) << "they were shown already";
}

TEST_F(MarksTest, aWasteBasketInTheMiddleIsMovedDownAfterAQuestion) {
    Bookmark& basket = addWasteBasket();
    Bookmark& inside = addLink("inside", "u", &basket);
    Bookmark& after = addLink("after", "u");
    open();
    alerts.answer("Cancel");
    perform("findDuplicates:");
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].style, AlertStyle::Warning);
    EXPECT_EQ(alerts.shown[0].message, base.texts.text("WasteBasketTitle"));
    EXPECT_EQ(alerts.shown[0].informative, base.texts.text("WasteBasketInfo"));
    EXPECT_EQ(alerts.shown[0].document, nullptr) << "it is the application's";
    EXPECT_EQ(inside.getStatus(), kNoStatus);
    EXPECT_EQ(after.getStatus(), kNoStatus);
    EXPECT_FALSE(valueOf(base.defaults, settings::kShowMarks));
    EXPECT_EQ(document.changeCount(), 0);

    alerts.answer("OK");
    perform("findDuplicates:");
    EXPECT_EQ(document.getMaster().getLast(), &basket);
    EXPECT_EQ(rowNames(), (Names{"after", "Waste Basket", "inside"}));
    EXPECT_EQ(inside.getStatus(), kDuplicateStatus);
    EXPECT_EQ(after.getStatus(), kNoStatus);
    EXPECT_EQ(document.changeCount(), 1);
    EXPECT_EQ(controller->marks().moveWasteDown(), kAlertFirstButton);
    EXPECT_EQ(alerts.shown.size(), 2u) << "there is nothing left to ask";
}

TEST_F(MarksTest, clearMarksTakesEveryStatusAndLeavesTheDocumentClean) {
    Bookmark& a = addLink("a", "u", nullptr, kMovedStatus);
    Bookmark& folder = add(makeFolder("folder", false));
    Bookmark& b = addLink("b", "u", &folder, kDuplicateStatus);
    open();
    perform("clearMarks:");
    EXPECT_EQ(a.getStatus(), kNoStatus);
    EXPECT_EQ(b.getStatus(), kNoStatus);
    EXPECT_TRUE(outline().reloaded.empty()) << "no marks are shown";
    set(settings::kShowMarks, true);
    perform("clearMarks:");
    EXPECT_EQ(outline().reloaded, (std::vector<RowRange>{{0, 2}}));
    EXPECT_EQ(document.changeCount(), 0);
}

TEST_F(MarksTest, deleteDuplicatesAsksFirst) {
    addLink("a", "u");
    addLink("b", "u");
    open();
    alerts.answer("Cancel");
    perform("deleteDuplicatesCommand:");
    ASSERT_EQ(alerts.shown.size(), 1u);
    const Alert& alert = alerts.shown[0];
    EXPECT_EQ(alert.style, AlertStyle::Informational);
    EXPECT_EQ(alert.message, base.texts.text("DeleteDuplicates"));
    EXPECT_EQ(alert.informative, base.texts.text("DuplicatesWarning"));
    ASSERT_EQ(alert.buttons.size(), 2u);
    EXPECT_EQ(alert.buttons[0].title, "Delete 1 Duplicate");
    EXPECT_EQ(alert.buttons[0].role, AlertButtonRole::Destructive);
    EXPECT_EQ(alert.buttons[1].title, "Cancel");
    EXPECT_EQ(alert.document, &document);
    EXPECT_TRUE(alert.cancelIsDefault);
    EXPECT_EQ(rowNames(), (Names{"a", "b"}));
}

TEST_F(MarksTest, thousandsOfDuplicatesAreCountedAsTheUserWritesThem) {
    for (int i = 0; i <= 1500; ++i)
        addLink("a", "u");
    open();
    alerts.answer("Cancel");
    perform("deleteDuplicatesCommand:");
    EXPECT_EQ(alerts.shown.at(0).buttons.at(0).title, "Delete 1,500 Duplicates");
}

TEST_F(MarksTest, deleteDuplicatesDeletesThemWhateverTheSettingsSay) {
    Bookmark& basket = addWasteBasket();
    addLink("w", "u", &basket);
    addLink("a", "u");
    addLink("broken", "v", nullptr, kBrokenStatus);
    addLink("old", "x", nullptr, kDuplicateStatus);
    open();
    set(settings::kDuplicateLinks, false);
    set(settings::kBrokenLinks, true);
    set(settings::kMoveLinks, true);
    perform("deleteDuplicatesCommand:");
    EXPECT_EQ(rowNames(), (Names{"Waste Basket", "w", "broken", "old"}));
    ASSERT_EQ(alerts.shown.size(), 2u) << "the basket is not asked about";
    EXPECT_EQ(alerts.shown[1].message, "1 bookmark was deleted.");
    EXPECT_EQ(alerts.shown[1].buttons.at(0).title, "OK");
    EXPECT_EQ(alerts.shown[1].document, &document);
    EXPECT_EQ(shared.removedLinks, 1u);
    EXPECT_EQ(document.changeCount(), 1);
    EXPECT_FALSE(valueOf(base.defaults, settings::kShowMarks));
    EXPECT_FALSE(valueOf(base.defaults, settings::kDuplicateLinks));
    EXPECT_TRUE(valueOf(base.defaults, settings::kBrokenLinks) &&
                valueOf(base.defaults, settings::kMoveLinks));
}

TEST_F(MarksTest, theSheetShowsTheSettingsAndStoresThem) {
    addLink("a", "u", nullptr, kUnknownStatus);
    open();
    perform("moveDeleteSheet:");
    ASSERT_TRUE(window->moveDelete);
    MoveDeleteController& sheet = *window->moveDelete;
    EXPECT_TRUE(sheet.duplicateLinks && sheet.moveLinks);
    EXPECT_FALSE(sheet.brokenLinks || sheet.unknownLinks);
    EXPECT_EQ(sheet.okTitle(), "Move");
    sheet.moveLinks = false;
    EXPECT_EQ(sheet.okTitle(), "Delete");
    sheet.unknownLinks = true;
    EXPECT_TRUE(valueOf(base.defaults, settings::kMoveLinks)) << "nothing is stored before it is done";
    sheet.done();
    sheet.execute();
    EXPECT_FALSE(valueOf(base.defaults, settings::kMoveLinks));
    EXPECT_TRUE(valueOf(base.defaults, settings::kUnknownLinks));
    EXPECT_TRUE(rowNames().empty());
    EXPECT_TRUE(window->empty);
    EXPECT_TRUE(valueOf(base.defaults, settings::kShowMarks));
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "1 bookmark was deleted.");
}

TEST_F(MarksTest, aSheetWhoseWindowIsGoneDoesNothing) {
    addLink("a", "u", nullptr, kDuplicateStatus);
    open();
    perform("moveDeleteSheet:");
    const auto sheet = window->moveDelete;
    window.reset();
    controller.reset();
    sheet->execute();
    EXPECT_TRUE(document.getMaster().hasChildren());
}

TEST_F(MarksTest, theSheetsWayEndsWhenTheBasketIsNotToBeMoved) {
    addWasteBasket();
    addLink("a", "u", nullptr, kDuplicateStatus);
    open();
    alerts.answer("Cancel");
    controller->marks().deleteSheetExecute();
    EXPECT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(rowNames(), (Names{"Waste Basket", "a"}));
    EXPECT_FALSE(valueOf(base.defaults, settings::kShowMarks));
}

TEST_F(MarksTest, theSheetsWayMovesTheBasketDownFirst) {
    Bookmark& basket = addWasteBasket();
    addLink("inside", "u", &basket, kDuplicateStatus);
    addLink("a", "u", nullptr, kDuplicateStatus);
    addLink("b", "u");
    open();
    alerts.answer("OK");
    controller->marks().deleteSheetExecute();
    EXPECT_EQ(rowNames(), (Names{"b", "Waste Basket", "a", "inside"}));
    EXPECT_EQ(alerts.shown.at(1).message, "1 bookmark was moved to the Waste Basket.");
    EXPECT_EQ(alerts.shown.at(1).style, AlertStyle::Informational);
    EXPECT_EQ(shared.removedLinks, 1u) << "what is in the basket already does not count";
    EXPECT_EQ(document.changeCount(), 3) << "the basket, the link and the command";
}

TEST_F(MarksTest, theSheetsWayDoesNotScan) {
    addLink("a", "u");
    addLink("b", "u");
    open();
    shared.removedLinks = 7; // of an earlier removal
    controller->marks().deleteSheetExecute();
    EXPECT_EQ(rowNames(), (Names{"a", "b"}));
    ASSERT_EQ(alerts.shown.size(), 1u);
    EXPECT_EQ(alerts.shown[0].message, "0 bookmarks were moved to the Waste Basket.");
    EXPECT_EQ(document.changeCount(), 0);
    EXPECT_EQ(shared.removedLinks, 0u);
}

TEST_F(MarksTest, movedLinksGoIntoTheBasketAndCountAsChangesEach) {
    Bookmark& a = addLink("a", "u", nullptr, kDuplicateStatus);
    Bookmark& folder = add(makeFolder("folder"));
    addLink("b", "u", &folder, kDuplicateStatus);
    addLink("c", "u");
    open();
    select({&a});
    controller->marks().deleteSheetExecute();
    EXPECT_EQ(rowNames(), (Names{"folder", "c", "Waste Basket"}));
    EXPECT_EQ(namesIn(*document.getMaster().getLast()), (Names{"b", "a"}));
    EXPECT_TRUE(outline().selected.empty());
    EXPECT_EQ(alerts.shown.at(0).message, "2 bookmarks were moved to the Waste Basket.");
    EXPECT_EQ(document.changeCount(), 4) << "the basket, two links and the command";
    EXPECT_EQ(shared.removedLinks, 2u);
}

TEST_F(MarksTest, theFirstRowGoesWithTheNextReload) {
    Bookmark& a = addLink("a", "u", nullptr, kDuplicateStatus);
    Bookmark& b = addLink("b", "v");
    const Ref<Bookmark> held(&a);
    open();
    select({&a, &b});
    set(settings::kMoveLinks, false);
    controller->marks().deleteSheetExecute();
    EXPECT_EQ(rowNames(), Names{"b"});
    EXPECT_EQ(outline().reloads, 1);
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{&b}) << "what stays, stays selected";
}

TEST_F(MarksTest, whatIsShownInTheBasketComesWithRows) {
    Bookmark& basket = add(makeFolder("x"));
    addLink("a", "u", &basket, kDuplicateStatus);
    addWasteBasket(true);
    open();
    controller->marks().deleteSheetExecute();
    EXPECT_EQ(rowNames(), (Names{"x", "Waste Basket", "a"}));
}

TEST_F(MarksTest, theLegendIsTheWindows) {
    open();
    perform("legendaSheet:");
    EXPECT_EQ(window->legends, 1);
}

} // namespace
} // namespace tabulon
