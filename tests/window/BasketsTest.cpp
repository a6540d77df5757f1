// The baskets, and items from outside: the tree, the rows, the selection and the change count.
#include "model/Baskets.h"

#include "tests/window/WindowFixture.h"

namespace tabulon {
namespace {

class BasketsTest : public WindowTest {
protected:
    std::string dropName() { return base.texts.text(kDropBasket); }
    std::string wasteName() { return base.texts.text(kWasteBasket); }
    Bookmark& top(std::size_t index) { return *document.getMaster().getChildren()->at(index); }
    std::size_t topCount() { return document.getMaster().getChildren()->size(); }
    std::vector<std::string> namesIn(const Bookmark& folder) {
        std::vector<std::string> names;
        for (const Bookmark* child : *folder.getChildren())
            names.push_back(child->itemName().string());
        return names;
    }
};

TEST_F(BasketsTest, theFirstItemMakesTheDropBasketAtTheEndAndTheNextGoesAboveIt) {
    add(makeLink("before"));
    open();
    controller->baskets().AddToBasket(makeLink("first"));
    ASSERT_EQ(topCount(), 2u);
    Bookmark& basket = top(1);
    EXPECT_EQ(basket.itemName().view(), dropName());
    EXPECT_TRUE(basket.isFolder());
    EXPECT_FALSE(basket.showHier());
    EXPECT_EQ(basket.getLabel(), 2);
    EXPECT_EQ(basket.getDocument(), &document);
    EXPECT_EQ(basket.getParent(), &document.getMaster());
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"before", dropName()}));
    EXPECT_EQ(document.changeCount(), 2) << "once for the basket and once for the item";

    controller->baskets().AddToBasket(makeLink("second"));
    EXPECT_EQ(topCount(), 2u);
    EXPECT_EQ(namesIn(basket), (std::vector<std::string>{"second", "first"}));
    EXPECT_EQ(basket.getChild()->getParent(), &basket);
    EXPECT_EQ(basket.getChild()->getDocument(), &document);
    EXPECT_EQ(document.changeCount(), 3);
}

TEST_F(BasketsTest, inAnEmptyDocumentToo) {
    open();
    controller->baskets().AddToWaste(makeLink("a"));
    ASSERT_EQ(topCount(), 1u);
    EXPECT_EQ(top(0).itemName().view(), wasteName());
    EXPECT_EQ(namesIn(top(0)), std::vector<std::string>{"a"});
    EXPECT_EQ(rowNames(), std::vector<std::string>{wasteName()});
    EXPECT_FALSE(window->empty);
}

TEST_F(BasketsTest, lettersOfAnotherCaseMakeNoOtherName) {
    Bookmark& folder = add(makeFolder("dROP bASKET"));
    open();
    EXPECT_EQ(&controller->baskets().DropBasketExists(), &folder);
    EXPECT_EQ(controller->baskets().SearchBasket("DROP BASKET"), &folder);
    EXPECT_EQ(topCount(), 1u);
    EXPECT_EQ(folder.getLabel(), 0) << "a basket that was found stays as it is";
    EXPECT_EQ(document.changeCount(), 0);
}

TEST_F(BasketsTest, aNameLikeItIsAnotherName) {
    add(makeFolder("Drop Baskets"));
    add(makeFolder("Drop  Basket"));
    add(makeFolder(""));
    add(makeSeparator());
    open();
    EXPECT_EQ(controller->baskets().SearchBasket(dropName()), nullptr);
    EXPECT_EQ(controller->baskets().SearchBasket(""), &top(2))
        << "an item without a name has not the empty one";
}

TEST_F(BasketsTest, aFolderOfThatNameInAnotherFolderIsNoBasket) {
    Bookmark& folder = add(makeFolder("folder"));
    Bookmark& inner = add(makeFolder(dropName().c_str()), &folder);
    open();
    controller->baskets().AddToBasket(makeLink("a"));
    EXPECT_FALSE(inner.hasChildren());
    ASSERT_EQ(topCount(), 2u);
    EXPECT_EQ(namesIn(top(1)), std::vector<std::string>{"a"});
}

TEST_F(BasketsTest, theFirstOfSeveralIsTheBasket) {
    Bookmark& first = add(makeFolder("drop basket"));
    add(makeFolder("Drop Basket"));
    open();
    EXPECT_EQ(&controller->baskets().DropBasketExists(), &first);
}

TEST_F(BasketsTest, aLinkOfThatNameIsTheBasketAndLosesNothing) {
    Bookmark& link = add(makeLink(dropName().c_str()));
    open();
    controller->baskets().AddToBasket(makeLink("a"));
    EXPECT_EQ(topCount(), 1u);
    EXPECT_FALSE(link.isFolder());
    EXPECT_EQ(namesIn(link), std::vector<std::string>{"a"});
    EXPECT_EQ(rowNames(), std::vector<std::string>{dropName()});
    EXPECT_TRUE(outline().selected.empty());
}

TEST_F(BasketsTest, theNamesAreThoseOfTheLanguage) {
    struct German : EnglishLocalization {
        std::string text(std::string_view key) const override {
            return key == kDropBasket ? "Ablage" : EnglishLocalization::text(key);
        }
    };
    German texts;
    add(makeFolder("Drop Basket"));
    window.reset();
    controller = std::make_unique<ViewController>(document, platformIn(texts), shared);
    window = std::make_unique<MemoryWindow>(*controller);
    controller->setWindow(window.get());
    controller->baskets().AddToBasket(makeLink("a"));
    ASSERT_EQ(topCount(), 2u);
    EXPECT_EQ(top(1).itemName().view(), "Ablage");
}

TEST_F(BasketsTest, aCollapsedBasketTakesTheItemUnseenAndNothingStaysSelected) {
    Bookmark& a = add(makeLink("a"));
    Bookmark& basket = add(makeFolder(dropName().c_str(), false));
    open();
    select({&a});
    const auto before = rowNames();
    controller->baskets().AddToBasket(makeLink("b"));
    EXPECT_EQ(rowNames(), before);
    EXPECT_TRUE(outline().selected.empty());
    EXPECT_EQ(namesIn(basket), std::vector<std::string>{"b"});
    EXPECT_EQ(document.changeCount(), 1);
}

TEST_F(BasketsTest, anExpandedBasketShowsTheItemFirstAndSelected) {
    Bookmark& a = add(makeLink("a"));
    Bookmark& basket = add(makeFolder(dropName().c_str()));
    add(makeLink("old"), &basket);
    open();
    select({&a});
    controller->baskets().AddToBasket(makeLink("new"));
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"a", dropName(), "new", "old"}));
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{basket.getChild()});
}

TEST_F(BasketsTest, theWasteBasketShowsTheItemAndSelectsNothing) {
    Bookmark& a = add(makeLink("a"));
    Bookmark& basket = add(makeFolder(wasteName().c_str()));
    open();
    select({&a});
    controller->baskets().AddToWaste(makeLink("new"));
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"a", wasteName(), "new"}));
    EXPECT_TRUE(outline().selected.empty());
    EXPECT_EQ(namesIn(basket), std::vector<std::string>{"new"});
    EXPECT_EQ(document.changeCount(), 1);
}

TEST_F(BasketsTest, anExpandedFolderArrivesWithItsRows) {
    Bookmark& folder = add(makeFolder("folder"));
    add(makeLink("after"));
    open();
    Ref<Bookmark> arriving = makeFolder("arriving");
    arriving->addChild(makeLink("inside"));
    controller->baskets().DropBookmarkIn(arriving, folder);
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"folder", "arriving", "inside", "after"}));
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{arriving.get()});
    EXPECT_EQ(arriving->getChild()->getDocument(), &document);
    EXPECT_EQ(document.changeCount(), 1);
}

TEST_F(BasketsTest, aFolderThatIsItselfNotShownTakesTheItemUnseen) {
    Bookmark& outer = add(makeFolder("outer", false));
    Bookmark& inner = add(makeFolder("inner"), &outer);
    open();
    controller->baskets().DropBookmarkIn(makeLink("a"), inner);
    EXPECT_EQ(rowNames(), std::vector<std::string>{"outer"});
    EXPECT_TRUE(outline().selected.empty());
    EXPECT_EQ(namesIn(inner), std::vector<std::string>{"a"});
}

TEST_F(BasketsTest, atTheRootTheItemIsTheFirstRowAndSelected) {
    Bookmark& a = add(makeLink("a"));
    open();
    select({&a});
    controller->baskets().DropBookmarkAtRoot(makeLink("b"));
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"b", "a"}));
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{&top(0)});
    EXPECT_EQ(document.changeCount(), 1);
    controller->baskets().DropBookmarkIn(makeLink("c"), document.getMaster());
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"c", "b", "a"}));
    EXPECT_EQ(outline().selected, std::set<Bookmark*>{&top(0)});
}

TEST_F(BasketsTest, aBasketAtTheEndComesBehindTheRowsOfAnExpandedFolder) {
    Bookmark& folder = add(makeFolder("folder"));
    Bookmark& link = add(makeLink("link"), &folder);
    open();
    select({&link});
    controller->baskets().DropBasketAtEnd(controller->baskets().CreateBasket("basket"));
    EXPECT_EQ(rowNames(), (std::vector<std::string>{"folder", "link", "basket"}));
    EXPECT_TRUE(outline().selected.empty());
    EXPECT_EQ(document.changeCount(), 1);
}

TEST_F(BasketsTest, aNewBasketStandsInNoTree) {
    open();
    const Ref<Bookmark> basket = controller->baskets().CreateBasket("basket");
    EXPECT_EQ(basket->getParent(), nullptr);
    EXPECT_EQ(basket->getDocument(), &document);
    EXPECT_TRUE(basket->isFolder());
    EXPECT_FALSE(basket->hasChildren());
    EXPECT_EQ(basket->getLabel(), 2);
    EXPECT_EQ(basket->itemDateAdded(), base.now());
    EXPECT_EQ(document.changeCount(), 0);
}

} // namespace
} // namespace tabulon
