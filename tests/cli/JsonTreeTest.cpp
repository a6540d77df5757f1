// The JSON of a tree, both ways.
#include "cli/JsonTree.h"

#include "model/TreeWalk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace tabulon::cli {
namespace {

using testing::HasSubstr;

std::string roundTrip(std::string_view json) {
    const auto tree = treeFromJson(json);
    EXPECT_TRUE(tree) << tree.error().message;
    return tree ? jsonFromTree(**tree) : "";
}

void refused(std::string_view json) {
    const auto tree = treeFromJson(json);
    ASSERT_FALSE(tree) << json;
    EXPECT_FALSE(tree.error().message.empty());
}

TEST(JsonTree, missingKeysAreNullZeroFalse) {
    EXPECT_EQ(roundTrip("{}"),
              R"({"name":null,"url":null,"note":null,"tags":null,"dateAdded":null,"dateModified":null,)"
              R"("lastChecked":null,"lastOpened":null,"type":0,"label":0,"flags":0,"status":0,"browser":0,)"
              R"("folder":false,"openFolder":false,"autoTab":false,"children":null})");
}

TEST(JsonTree, everyFieldComesBack) {
    const std::string json =
        R"({"name":"a","url":"","note":"ü\"\\\/","tags":"t","dateAdded":1355526400.0,"dateModified":-1.5,)"
        R"("lastChecked":0,"lastOpened":978307200.125,"type":255,"label":1,"flags":2,"status":3,)"
        R"("browser":-9223372036854775808,"folder":true,"openFolder":true,"autoTab":true,"children":[]})";
    EXPECT_EQ(
        roundTrip(json),
        R"({"name":"a","url":"","note":"ü\"\\/","tags":"t","dateAdded":1355526400.0,"dateModified":-1.5,)"
        R"("lastChecked":0.0,"lastOpened":978307200.125,"type":255,"label":1,"flags":2,"status":3,)"
        R"("browser":-9223372036854775808,"folder":true,"openFolder":true,"autoTab":true,"children":[]})");
}

TEST(JsonTree, childrenNullAndEmptyStayDifferent) {
    EXPECT_THAT(roundTrip(R"({"folder":true,"children":null})"), HasSubstr(R"("children":null})"));
    EXPECT_THAT(roundTrip(R"({"folder":true,"children":[]})"), HasSubstr(R"("children":[]})"));
    const auto tree = treeFromJson(R"({"folder":true})");
    EXPECT_EQ((*tree)->getChildren(), nullptr);
    EXPECT_EQ((*tree)->itemIcon(), ItemIcon::Folder);
}

TEST(JsonTree, childrenKeepTheirOrderAndParents) {
    const auto tree =
        treeFromJson(R"({"children":[{"name":"a","children":[{"name":"b"},{"name":"c"}]},{"name":"d"}]})");
    ASSERT_TRUE(tree);
    std::string names;
    walkBelow(**tree, [&](Bookmark& node) {
        names += node.itemName().view();
        EXPECT_TRUE(node.getParent()->getChildren()->contains(node));
        return true;
    });
    EXPECT_EQ(names, "abcd");
}

TEST(JsonTree, controlCharactersAreEscaped) {
    const Ref<Bookmark> node = Bookmark::initEmpty();
    node->setItemName(Text(std::string_view("\0\n\t\x1f\"\\", 6)));
    const std::string json = jsonFromTree(*node);
    EXPECT_EQ(json.find('\n'), std::string::npos);
    const auto again = treeFromJson(json);
    ASSERT_TRUE(again);
    EXPECT_EQ((*again)->itemName(), node->itemName());
}

TEST(JsonTree, datesThatAreNoFiniteNumberAreNull) {
    for (const double seconds :
         {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        const Ref<Bookmark> node = Bookmark::initEmpty();
        node->setItemDateAdded(Date::fromReferenceSeconds(seconds));
        EXPECT_THAT(jsonFromTree(*node), HasSubstr("\"dateAdded\":null"));
    }
    const Ref<Bookmark> node = Bookmark::initEmpty();
    node->setItemDateAdded(Date::fromReferenceSeconds(1.8446744e19));
    EXPECT_TRUE(treeFromJson(jsonFromTree(*node)));
}

TEST(JsonTree, unknownKeysAreIgnored) {
    EXPECT_EQ(roundTrip(R"({"colour":[1,{"children":3}],"name":"n"})").substr(0, 11), R"({"name":"n")");
}

TEST(JsonTree, whatIsNoTreeIsRefused) {
    for (const char* json : {"",
                             "nonsense",
                             "[]",
                             "3",
                             "null",
                             "{",
                             R"({"name":3})",
                             R"({"dateAdded":"today"})",
                             R"({"type":256})",
                             R"({"type":-1})",
                             R"({"type":1.5})",
                             R"({"label":"1"})",
                             R"({"folder":1})",
                             R"({"browser":1e30})",
                             R"({"browser":null})",
                             R"({"children":{}})",
                             R"({"children":[3]})",
                             R"({"children":[null]})",
                             R"({"name":"\ud800"})",
                             "{\"name\":\"\xff\"}",
                             "{} {}"})
        refused(json);
}

TEST(JsonTree, twoListsOfChildrenAreRefused) {
    std::string json = R"({"children":[)";
    for (int i = 0; i < 50; ++i)
        json += R"({"name":"OLD"},)";
    json += R"({}],"children":[{"url":"new"}]})";
    refused(json);
    refused(R"({"children":[],"children":null,"children":[]})");
}

TEST(JsonTree, aKeyGivenTwiceHasItsLastValue) {
    const auto tree =
        treeFromJson(R"({"name":"a","name":null,"dateAdded":1,"dateAdded":null,"type":1,"type":2})");
    ASSERT_TRUE(tree);
    EXPECT_TRUE((*tree)->itemName().isNull());
    EXPECT_TRUE((*tree)->itemDateAdded().isNull());
    EXPECT_EQ((*tree)->getType(), 2);
}

TEST(JsonTree, byteOrderMarkIsPassedOver) {
    EXPECT_TRUE(treeFromJson("\xEF\xBB\xBF{}"));
}

TEST(JsonTree, anyDepth) {
    constexpr int kDepth = 200000;
    std::string json;
    for (int i = 0; i < kDepth; ++i)
        json += "{\"children\":[";
    for (int i = 0; i < kDepth; ++i)
        json += "]}";
    const auto tree = treeFromJson(json);
    ASSERT_TRUE(tree) << tree.error().message;
    const auto again = treeFromJson(jsonFromTree(**tree));
    ASSERT_TRUE(again);
    int depth = 0;
    for (const Bookmark* node = again->get(); node; node = node->getChild())
        ++depth;
    EXPECT_EQ(depth, kDepth);
}

} // namespace
} // namespace tabulon::cli
