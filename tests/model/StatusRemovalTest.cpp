// Tests the removal of links by status: which links are removed, where they are moved, and what remains.
#include "model/StatusRemoval.h"

#include "base/Settings.h"
#include "model/Baskets.h"
#include "platform/fake/FakeBaseServices.h"
#include "tests/model/TreeText.h"

#include <gtest/gtest.h>

#include <random>

namespace tabulon {
namespace {

using test::LetterTree;

class StatusRemovalTest : public testing::Test {
protected:
    static constexpr RemovalOptions kAll{.duplicates = true, .broken = true, .unknown = true};
    static constexpr RemovalOptions kMoveAll{
        .duplicates = true, .broken = true, .unknown = true, .move = true};

    Removal remove(LetterTree& tree, const RemovalOptions& options) {
        return removeByStatus(*tree.root, options, fake.texts, fake.now());
    }
    void makeWasteBasket(Bookmark& item) { item.setItemName(fake.texts.text(kWasteBasket)); }

    FakeBaseServices fake;
};

TEST_F(StatusRemovalTest, onlyTheNamedStatusesGo) {
    const auto left = [this](const RemovalOptions& options) {
        LetterTree tree("abcdefg");
        for (std::uint8_t status = 0; status < 7; ++status)
            tree[static_cast<char>('a' + status)].setStatus(status);
        remove(tree, options);
        return tree.text();
    };
    EXPECT_EQ(left({}), "a b c d e f g");
    EXPECT_EQ(left({.duplicates = true}), "a b c d e g");
    EXPECT_EQ(left({.broken = true}), "a b c e f g");
    EXPECT_EQ(left({.unknown = true}), "a b c d f g");
    EXPECT_EQ(left(kAll), "a b c g");
}

TEST_F(StatusRemovalTest, theSettingsNameThem) {
    setValue(fake.defaults, settings::kBrokenLinks, true);
    RemovalOptions options = removalOptions(fake.defaults);
    EXPECT_TRUE(options.duplicates && options.broken && options.move);
    EXPECT_FALSE(options.unknown);
    setValue(fake.defaults, settings::kDuplicateLinks, false);
    setValue(fake.defaults, settings::kMoveLinks, false);
    setValue(fake.defaults, settings::kUnknownLinks, true);
    options = removalOptions(fake.defaults);
    EXPECT_TRUE(options.unknown);
    EXPECT_FALSE(options.duplicates || options.move);
}

TEST_F(StatusRemovalTest, linksGoFromEveryLevelAndFoldersStay) {
    LetterTree tree("aB(cD(e)f)-");
    for (const char letter : {'a', 'B', 'c', 'D', 'e', '-'})
        tree[letter].setStatus(kDuplicateStatus);
    const Removal removal = remove(tree, kAll);
    EXPECT_EQ(tree.text(), "B(D() f)") << "separators are links in this";
    EXPECT_EQ(removal.items.size(), 4u);
    EXPECT_FALSE(removal.madeBasket);
}

TEST_F(StatusRemovalTest, movedLinksStandInTheBasketLaterOnesAbove) {
    LetterTree tree("aB(c)dW(x)");
    makeWasteBasket(tree['W']);
    for (const char letter : {'a', 'c', 'd'})
        tree[letter].setStatus(kBrokenStatus);
    const Removal removal = remove(tree, kMoveAll);
    EXPECT_EQ(tree.text(), "B() Waste Basket(d c a x)");
    EXPECT_EQ(removal.items.size(), 3u);
    EXPECT_EQ(tree['a'].getParent(), &tree['W']);
}

TEST_F(StatusRemovalTest, aMissingBasketIsMadeAtTheEndAndItsLinksCountOnce) {
    LetterTree tree("abC(d)");
    for (const char letter : {'a', 'b', 'd'})
        tree[letter].setStatus(kDuplicateStatus);
    const Removal removal = remove(tree, kMoveAll);
    EXPECT_EQ(tree.text(), "C() Waste Basket(d b a)");
    EXPECT_EQ(removal.items.size(), 3u);
    EXPECT_TRUE(removal.madeBasket);
    EXPECT_EQ(tree.root->getLast()->getLabel(), kBasketLabel);
}

TEST_F(StatusRemovalTest, noBasketIsMadeForNothing) {
    LetterTree tree("ab");
    const Removal removal = remove(tree, kMoveAll);
    EXPECT_EQ(tree.text(), "a b");
    EXPECT_TRUE(removal.items.empty());
    EXPECT_FALSE(removal.madeBasket);
}

TEST_F(StatusRemovalTest, whatIsDirectlyInTheBasketStaysAndWhatIsInItsFoldersMovesToItsTop) {
    LetterTree tree("W(aB(c)d)");
    makeWasteBasket(tree['W']);
    for (const char letter : {'a', 'c', 'd'})
        tree[letter].setStatus(kDuplicateStatus);
    const Removal removal = remove(tree, kMoveAll);
    EXPECT_EQ(tree.text(), "Waste Basket(c a B() d)");
    ASSERT_EQ(removal.items.size(), 1u);
    EXPECT_EQ(removal.items[0].get(), &tree['c']);
}

TEST_F(StatusRemovalTest, deletingTakesWhatIsInTheBasketToo) {
    LetterTree tree("W(ab)");
    makeWasteBasket(tree['W']);
    tree['a'].setStatus(kDuplicateStatus);
    remove(tree, kAll);
    EXPECT_EQ(tree.text(), "Waste Basket(b)");
}

TEST_F(StatusRemovalTest, aBasketInTheMiddleTakesFromBothSides) {
    LetterTree tree("aW(x)b");
    makeWasteBasket(tree['W']);
    tree['a'].setStatus(kDuplicateStatus);
    tree['b'].setStatus(kDuplicateStatus);
    EXPECT_EQ(remove(tree, kMoveAll).items.size(), 2u);
    EXPECT_EQ(tree.text(), "Waste Basket(b a x)");
}

TEST_F(StatusRemovalTest, aMarkedLinkOfTheBasketsNameGoesIntoABasketOfItsOwnAndNothingIsLost) {
    LetterTree tree("awb");
    makeWasteBasket(tree['w']);
    for (const char letter : {'a', 'w', 'b'})
        tree[letter].setStatus(kDuplicateStatus);
    const Removal removal = remove(tree, kMoveAll);
    EXPECT_EQ(tree.text(), "Waste Basket(b Waste Basket(a))");
    EXPECT_TRUE(tree.root->getChild()->isFolder());
    EXPECT_EQ(tree['w'].getChild(), &tree['a']);
    EXPECT_EQ(removal.items.size(), 3u);
    EXPECT_TRUE(removal.madeBasket);
}

TEST_F(StatusRemovalTest, aMarkedLinkOfTheBasketsNameGoesIntoTheNextOfThatName) {
    LetterTree tree("wW()");
    makeWasteBasket(tree['w']);
    makeWasteBasket(tree['W']);
    tree['w'].setStatus(kDuplicateStatus);
    EXPECT_FALSE(remove(tree, kMoveAll).madeBasket);
    EXPECT_EQ(tree.text(), "Waste Basket(Waste Basket)");
}

TEST_F(StatusRemovalTest, theBasketIsMisplacedUnlessItIsTheLastItem) {
    LetterTree none("aB(w)");
    makeWasteBasket(none['w']);
    EXPECT_EQ(misplacedWasteBasket(*none.root, fake.texts), nullptr);
    LetterTree last("aW()");
    makeWasteBasket(last['W']);
    EXPECT_EQ(misplacedWasteBasket(*last.root, fake.texts), nullptr);
    LetterTree first("W()a");
    makeWasteBasket(first['W']);
    EXPECT_EQ(misplacedWasteBasket(*first.root, fake.texts), &first['W']);
    EXPECT_EQ(misplacedWasteBasket(*LetterTree("").root, fake.texts), nullptr);
}

TEST_F(StatusRemovalTest, theSummaryCountsTheItemsOfEachKind) {
    EXPECT_EQ(removalSummary(kMoveAll, 3, fake.texts),
              fake.texts.format("DuplicatesMoved", std::string_view("3 bookmarks")));
    EXPECT_EQ(removalSummary(kAll, 0, fake.texts),
              fake.texts.format("DuplicatesDeleted", std::string_view("0 bookmarks")));
    EXPECT_NE(removalSummary(kAll, 1, fake.texts), removalSummary(kMoveAll, 1, fake.texts));
    EXPECT_NE(removalSummary(kAll, 1, fake.texts), "DuplicatesDeleted");
}

TEST_F(StatusRemovalTest, clearingMarksSparesFolders) {
    LetterTree tree("aB(c)");
    for (const char letter : {'a', 'B', 'c'})
        tree[letter].setStatus(kValidStatus);
    clearMarks(*tree.root);
    EXPECT_EQ(tree['a'].getStatus(), kNoStatus);
    EXPECT_EQ(tree['c'].getStatus(), kNoStatus);
    EXPECT_EQ(tree['B'].getStatus(), kValidStatus);
}

TEST_F(StatusRemovalTest, manyLinksMoveInLittleTime) {
    LetterTree tree("");
    constexpr std::size_t kLinks = 100000;
    for (std::size_t i = 0; i < kLinks; ++i) {
        const Ref<Bookmark> link = Bookmark::initEmpty();
        link->setStatus(kDuplicateStatus);
        link->setItemDateAdded(Date::fromReferenceSeconds(static_cast<double>(i)));
        tree.root->addChild(link);
    }
    EXPECT_EQ(remove(tree, kMoveAll).items.size(), kLinks);
    const Bookmark& basket = *tree.root->getChild();
    EXPECT_EQ(basket.getChildren()->size(), kLinks);
    EXPECT_EQ(basket.getChild()->itemDateAdded().referenceSeconds(), kLinks - 1.0);
    EXPECT_EQ(basket.getLast()->itemDateAdded().referenceSeconds(), 0.0);
}

} // namespace
} // namespace tabulon
