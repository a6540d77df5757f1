// Tests one node: construction, copies, comparison, codes.
#include "model/Bookmark.h"

#include "base/Settings.h"
#include "model/Document.h"
#include "platform/fake/FakeBaseServices.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

class BookmarkTest : public testing::Test {
protected:
    Ref<Bookmark> link(const char* name = "n", const char* url = "https://a.example/") {
        Ref<Bookmark> node = Bookmark::init(fake.now());
        node->setItemName(name);
        node->setItemURL(url);
        return node;
    }
    FakeBaseServices fake;
};

TEST_F(BookmarkTest, initHasAddedDateAndWebIconAndNothingElse) {
    const Ref<Bookmark> node = Bookmark::init(fake.now());
    EXPECT_EQ(node->itemDateAdded(), fake.now());
    EXPECT_EQ(imageName(node->itemIcon()), "httpType");
    EXPECT_TRUE(node->itemName().isNull());
    EXPECT_TRUE(node->itemDateModified().isNull());
    EXPECT_EQ(node->getType(), 0);
    EXPECT_FALSE(node->isFolder());
    EXPECT_EQ(node->getChildren(), nullptr);
    EXPECT_EQ(node->getParent(), nullptr);
    EXPECT_EQ(node->getDocument(), nullptr);
}

TEST_F(BookmarkTest, initWithDictionaryLeavesMissingFieldsNullAndClassifies) {
    const auto full =
        Bookmark::initWithDictionary({.name = "n", .url = "u", .note = "o", .tags = "t"}, fake.now());
    EXPECT_EQ(full->itemNote(), Text("o"));
    EXPECT_EQ(full->itemTags(), Text("t"));
    const auto node =
        Bookmark::initWithDictionary({.name = "n", .url = "ftp://x", .note = {}, .tags = {}}, fake.now());
    EXPECT_EQ(node->itemName(), Text("n"));
    EXPECT_TRUE(node->itemNote().isNull());
    EXPECT_TRUE(node->itemTags().isNull());
    EXPECT_EQ(node->getType(), kFTPType);
    EXPECT_EQ(node->itemIcon(), ItemIcon::FtpType);
    EXPECT_EQ(node->itemDateAdded(), fake.now());
}

TEST_F(BookmarkTest, shallowCopyOfAFolderIsAnEmptyFolderWithoutParent) {
    Document document(fake.services());
    Ref<Bookmark> folder = link("folder", "u");
    folder->makeParent();
    folder->addChild(link());
    folder->setShowHier(true);
    folder->setAutoTab(true);
    folder->setLabel(3);
    folder->setItemBrowser(0x1234567);
    folder->setItemLastOpened(Date::fromReferenceSeconds(4));
    document.getMaster().addChild(folder);
    folder->setDocument(&document);
    fake.clock.advance(100);
    const Ref<Bookmark> copy = Bookmark::initWithBookmark(*folder);
    EXPECT_TRUE(copy->isFolder());
    ASSERT_NE(copy->getChildren(), nullptr);
    EXPECT_FALSE(copy->hasChildren());
    EXPECT_EQ(copy->getParent(), nullptr);
    EXPECT_TRUE(copy->showHier());
    EXPECT_TRUE(copy->getAutoTab());
    EXPECT_EQ(copy->getLabel(), 3);
    EXPECT_EQ(copy->itemBrowser(), 0x67);
    EXPECT_EQ(copy->itemDateAdded(), folder->itemDateAdded());
    EXPECT_EQ(copy->itemLastOpened(), folder->itemLastOpened());
    EXPECT_EQ(copy->itemIcon(), ItemIcon::Folder);
    EXPECT_EQ(copy->getDocument(), &document);
}

TEST_F(BookmarkTest, shallowCopyTakesEveryTextDateAndCode) {
    const Ref<Bookmark> node = link("n", "u");
    node->setItemNote("note");
    node->setItemTags("tags");
    node->setItemDateModified(Date::fromReferenceSeconds(2));
    node->setItemLastChecked(Date::fromReferenceSeconds(3));
    node->setType(kMailType);
    node->setFlags(9);
    node->setStatus(3);
    const Ref<Bookmark> copy = Bookmark::initWithBookmark(*node);
    EXPECT_EQ(copy->itemName(), Text("n"));
    EXPECT_EQ(copy->itemURL(), Text("u"));
    EXPECT_EQ(copy->itemNote(), Text("note"));
    EXPECT_EQ(copy->itemTags(), Text("tags"));
    EXPECT_EQ(copy->itemDateModified(), Date::fromReferenceSeconds(2));
    EXPECT_EQ(copy->itemLastChecked(), Date::fromReferenceSeconds(3));
    EXPECT_EQ(copy->getType(), kMailType);
    EXPECT_EQ(copy->getFlags(), 9);
    EXPECT_EQ(copy->getStatus(), 3);
    EXPECT_FALSE(copy->isFolder());
    EXPECT_EQ(copy->getChildren(), nullptr);
}

TEST_F(BookmarkTest, shallowCopyDoesNotSetAnAddedDate) {
    const Ref<Bookmark> node = Bookmark::initEmpty();
    EXPECT_TRUE(Bookmark::initWithBookmark(*node)->itemDateAdded().isNull());
}

TEST_F(BookmarkTest, shallowCopySharesTheIconOfItsSource) {
    const Ref<Bookmark> node = link();
    node->setType(kSeparatorType);
    node->setItemIcon(ItemIcon::UnknownType);
    EXPECT_EQ(Bookmark::initWithBookmark(*node)->itemIcon(), ItemIcon::UnknownType);
}

TEST_F(BookmarkTest, deepCopyHasTheWholeSubtreeWithFreshParents) {
    Ref<Bookmark> top = link("top");
    top->makeParent();
    Ref<Bookmark> inner = link("inner");
    inner->makeParent();
    inner->addChild(link("x"));
    top->addChild(inner);
    top->addChild(link("y"));
    const Ref<Bookmark> copy = deepCopy(*top);
    EXPECT_EQ(copy->getParent(), nullptr);
    ASSERT_EQ(copy->getChildren()->size(), 2u);
    Bookmark* copiedInner = copy->getChild();
    EXPECT_NE(copiedInner, inner.get());
    EXPECT_EQ(copiedInner->getParent(), copy.get());
    EXPECT_EQ(copiedInner->getChild()->itemName(), Text("x"));
    EXPECT_EQ(copiedInner->getChild()->getParent(), copiedInner);
    EXPECT_EQ(copy->getLast()->itemName(), Text("y"));
    EXPECT_EQ(copy->getLast()->getParent(), copy.get());
}

TEST_F(BookmarkTest, deepCopyOfALinkLeavesItsChildrenBehind) {
    Ref<Bookmark> node = link();
    node->addChild(link("below"));
    EXPECT_FALSE(deepCopy(*node)->hasChildren());
}

TEST_F(BookmarkTest, setWithBookmarkClearsWhatTheSourceDoesNotHave) {
    const Ref<Bookmark> target = link();
    target->setItemNote("old");
    target->setItemDateModified(fake.now());
    const Ref<Bookmark> source = link("new", "u");
    source->setItemTags("t");
    source->setItemBrowser(-1);
    source->setLabel(2);
    source->setStatus(5);
    source->setFlags(7);
    target->setWithBookmark(*source);
    EXPECT_TRUE(target->itemNote().isNull());
    EXPECT_EQ(target->itemName(), Text("new"));
    EXPECT_EQ(target->itemTags(), Text("t"));
    EXPECT_TRUE(target->itemDateModified().isNull());
    EXPECT_EQ(target->itemBrowser(), 255);
    EXPECT_EQ(target->getLabel(), 2);
    EXPECT_EQ(target->getStatus(), 5);
    EXPECT_EQ(target->getFlags(), 7);
}

TEST_F(BookmarkTest, setWithBookmarkLeavesFolderStateDatesAndIconAlone) {
    const Ref<Bookmark> target = link();
    const Date added = target->itemDateAdded();
    target->setItemLastChecked(Date::fromReferenceSeconds(5));
    target->setItemLastOpened(Date::fromReferenceSeconds(6));
    target->addChild(link());
    const Ref<Bookmark> parent = link();
    parent->addChild(target);
    Ref<Bookmark> source = Bookmark::init(Date::fromReferenceSeconds(1));
    source->makeParent();
    source->setType(kMailType);
    source->setAutoTab(true);
    source->setShowHier(true);
    source->setItemURL("new");
    source->setItemDateModified(Date::fromReferenceSeconds(7));
    target->setWithBookmark(*source);
    EXPECT_EQ(target->itemURL(), Text("new"));
    EXPECT_EQ(target->itemDateModified(), Date::fromReferenceSeconds(7));
    EXPECT_EQ(target->itemLastChecked(), Date::fromReferenceSeconds(5));
    EXPECT_EQ(target->itemLastOpened(), Date::fromReferenceSeconds(6));
    EXPECT_TRUE(target->hasChildren());
    EXPECT_EQ(target->getParent(), parent.get());
    EXPECT_FALSE(target->isFolder());
    EXPECT_FALSE(target->getAutoTab());
    EXPECT_FALSE(target->showHier());
    EXPECT_EQ(target->itemDateAdded(), added);
    EXPECT_EQ(target->itemIcon(), ItemIcon::HttpType);
    EXPECT_EQ(target->getType(), kMailType);
}

TEST_F(BookmarkTest, isIdenticalOfTwoNullNamesIsFalse) {
    EXPECT_FALSE(Bookmark::initEmpty()->isIdentical(*Bookmark::initEmpty()));
}

TEST_F(BookmarkTest, isIdenticalIgnoresDatesFolderStateChildrenAndIcon) {
    const Ref<Bookmark> a = link();
    const Ref<Bookmark> b = link();
    b->setItemDateAdded(Date());
    b->makeParent();
    b->setShowHier(true);
    EXPECT_TRUE(a->isIdentical(*b));
}

TEST_F(BookmarkTest, isIdenticalComparesEachFieldExactly) {
    const auto differs = [&](auto change) {
        const Ref<Bookmark> a = link();
        const Ref<Bookmark> b = link();
        EXPECT_TRUE(a->isIdentical(*b));
        change(*b);
        return !a->isIdentical(*b);
    };
    EXPECT_TRUE(differs([](Bookmark& b) { b.setItemName("N"); }));
    EXPECT_TRUE(differs([](Bookmark& b) { b.setItemURL(nullptr); }));
    EXPECT_TRUE(differs([](Bookmark& b) { b.setItemNote(""); }));
    EXPECT_TRUE(differs([](Bookmark& b) { b.setItemTags("t"); }));
    EXPECT_TRUE(differs([](Bookmark& b) { b.setType(1); }));
    EXPECT_TRUE(differs([](Bookmark& b) { b.setFlags(8); }));
    EXPECT_TRUE(differs([](Bookmark& b) { b.setBrowser(1); }));
    EXPECT_TRUE(differs([](Bookmark& b) { b.setLabel(1); }));
    EXPECT_TRUE(differs([](Bookmark& b) { b.setStatus(1); }));
}

TEST_F(BookmarkTest, isIdenticalComparesTheFullBrowserWithTheOthersLowByte) {
    const Ref<Bookmark> a = link();
    const Ref<Bookmark> b = link();
    b->setItemBrowser(256);
    EXPECT_TRUE(a->isIdentical(*b));
    EXPECT_FALSE(b->isIdentical(*a));
}

TEST_F(BookmarkTest, handleShowHierSplitsItsByteWithTheOverlap) {
    const auto handled = [](std::uint8_t byte) {
        Ref<Bookmark> node = Bookmark::initEmpty();
        node->handleShowHier(byte);
        return node;
    };
    const auto a = handled(0x13);
    EXPECT_TRUE(a->showHier());
    EXPECT_TRUE(a->getAutoTab());
    EXPECT_EQ(a->getLabel(), 7);
    EXPECT_EQ(a->getBrowser(), 3);
    EXPECT_EQ(handled(0x80)->getLabel(), 0);
    EXPECT_EQ(handled(0x80)->getBrowser(), 0);
    EXPECT_EQ(handled(0x90)->getLabel(), 255);
    const auto b = handled(0x23);
    EXPECT_EQ(b->getLabel(), 6);
    EXPECT_EQ(b->getBrowser(), 3);
    b->handleShowHier(0);
    EXPECT_TRUE(b->showHier());
    EXPECT_TRUE(b->getAutoTab());
}

TEST_F(BookmarkTest, handleFlagsSplitsItsByte) {
    const Ref<Bookmark> node = Bookmark::initEmpty();
    node->handleFlags(0x5A);
    EXPECT_EQ(node->getFlags(), 0xA);
    EXPECT_EQ(node->getStatus(), 5);
    EXPECT_FALSE(node->getReload());
    EXPECT_TRUE(node->getPassword());
    EXPECT_FALSE(node->getLocked());
    node->setFlags(1);
    EXPECT_TRUE(node->getReload());
    node->setFlags(4);
    EXPECT_FALSE(node->getReload());
    EXPECT_TRUE(node->getLocked());
}

TEST_F(BookmarkTest, openedWithoutADocumentStampsAlone) {
    setValue(fake.defaults, settings::kLastOpened, true);
    const Ref<Bookmark> node = link();
    node->opened(fake.services());
    EXPECT_EQ(node->itemLastOpened(), fake.now());
}

TEST_F(BookmarkTest, browserIdentifierFollowsTheWholeIndex) {
    const Ref<Bookmark> node = link();
    node->setItemBrowser(15);
    EXPECT_EQ(node->getBrowserID("x.default"), "com.google.Chrome");
    node->setItemBrowser(256 + 15);
    EXPECT_EQ(node->getBrowserID("x.default"), "x.default");
}

TEST_F(BookmarkTest, lockingTouchesItsBitAlone) {
    const Ref<Bookmark> node = Bookmark::initEmpty();
    node->setFlags(0xFB);
    node->setItemLocked(true);
    EXPECT_EQ(node->getFlags(), 0xFF);
    EXPECT_TRUE(node->itemLocked());
    node->setItemLocked(false);
    EXPECT_EQ(node->getFlags(), 0xFB);
}

TEST_F(BookmarkTest, setTypeOfASeparatorKeepsTheIconAndLinkIconResetsIt) {
    const Ref<Bookmark> node = link();
    node->setType(kMailType);
    for (const std::uint8_t type : {std::uint8_t{10}, std::uint8_t{6}, std::uint8_t{12}, std::uint8_t{255}}) {
        node->setType(kMailType);
        node->setType(type);
        EXPECT_EQ(node->itemIcon(), ItemIcon::MailType);
        node->linkIcon();
        EXPECT_EQ(node->itemIcon(), ItemIcon::HttpType);
    }
}

TEST_F(BookmarkTest, linkIconOfAFolderIsTheFolder) {
    const Ref<Bookmark> node = link();
    node->makeParent();
    node->setType(kMailType);
    node->linkIcon();
    EXPECT_EQ(imageName(node->itemIcon()), "folder");
}

TEST_F(BookmarkTest, setBrowserWidensAnUnsignedValue) {
    const Ref<Bookmark> node = link();
    node->setBrowser(0xFFFFFFFF);
    EXPECT_EQ(node->itemBrowser(), 4294967295);
    EXPECT_EQ(node->getBrowser(), 255);
}

TEST_F(BookmarkTest, queryIsIgnoredOnAFolderAndUndoneByClassification) {
    const Ref<Bookmark> folder = link();
    folder->makeParent();
    folder->setItemQuery(true);
    EXPECT_FALSE(folder->itemQuery());
    const Ref<Bookmark> node = link("n", "news:x");
    node->setItemQuery(true);
    EXPECT_TRUE(node->itemQuery());
    EXPECT_EQ(node->itemIcon(), ItemIcon::QueryType);
    node->setItemQuery(false);
    EXPECT_EQ(node->getType(), kNewsType);
}

TEST_F(BookmarkTest, openedStampsAndRecordsAChangeOnlyWhenSwitchedOn) {
    Document document(fake.services());
    Ref<Bookmark> node = link();
    document.getMaster().addChild(node);
    node->setDocument(&document);
    node->opened(fake.services());
    EXPECT_TRUE(node->itemLastOpened().isNull());
    EXPECT_FALSE(document.isDocumentEdited());
    setValue(fake.defaults, settings::kLastOpened, true);
    fake.clock.advance(5);
    node->opened(fake.services());
    EXPECT_EQ(node->itemLastOpened(), fake.now());
    EXPECT_EQ(document.changeCount(), 1);
}

TEST_F(BookmarkTest, nodeThatOutlivesItsDocumentHasNone) {
    Ref<Bookmark> node = link();
    {
        Document document(fake.services());
        document.getMaster().addChild(node);
        node->setDocument(&document);
        EXPECT_EQ(node->getDocument(), &document);
    }
    EXPECT_EQ(node->getDocument(), nullptr);
    EXPECT_EQ(node->getParent(), nullptr);
}

TEST_F(BookmarkTest, searchResultPointsBack) {
    const Ref<Bookmark> node = link();
    const Ref<Bookmark2> fresh = Bookmark2::init(fake.now());
    EXPECT_EQ(fresh->originalID(), nullptr);
    EXPECT_EQ(fresh->itemDateAdded(), fake.now());
    const Ref<Bookmark2> result = Bookmark2::initWithBookmark(*node);
    EXPECT_EQ(result->originalID(), nullptr);
    result->setOriginalID(node.get());
    EXPECT_EQ(result->originalID(), node.get());
    EXPECT_EQ(result->itemName(), node->itemName());
    EXPECT_TRUE(result->isBookmark2());
    const Ref<Bookmark> asNode(result.get());
    EXPECT_TRUE(asNode->isBookmark2());
}

} // namespace
} // namespace tabulon
