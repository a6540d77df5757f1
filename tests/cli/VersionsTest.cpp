// The verbs compare and versions.
#include "app/VersionStore.h"
#include "tests/cli/Tool.h"

#include <gmock/gmock.h>

namespace tabulon {
namespace {

using testing::HasSubstr;

class VersionsTest : public testing::Test, protected test::Tool {
protected:
    void make(const std::string& path, const std::string& json) {
        in = json;
        ASSERT_EQ(run({"make", "-", "-o", path}), 0) << error;
    }
    std::string compare(const std::string& before, const std::string& after) {
        make("/a.tbln", before);
        make("/b.tbln", after);
        EXPECT_EQ(run({"compare", "/a.tbln", "/b.tbln"}), 0) << error;
        return out;
    }
    static std::string folder(const std::string& name, const std::string& children) {
        return R"({"name":")" + name + R"(","folder":true,"children":[)" + children + "]}";
    }
    static std::string link(const std::string& name, const std::string& url, const std::string& more = "") {
        return R"({"name":")" + name + R"(","url":")" + url + "\"" + more + "}";
    }
};

TEST_F(VersionsTest, compareListsEachChangeOnOneLine) {
    const std::string before =
        folder("Master", link("a", "https://a/") + "," + link("b", "https://b/") + "," +
                             folder("F", link("c", "https://c/")) + "," + link("d", "https://d/"));
    const std::string after = folder(
        "Master", link("b2", "https://b/") + "," + folder("F", link("d", "https://d/")) + "," +
                      link("c", "https://c/", R"(,"tags":"t","label":2)") + "," + link("e", "https://e/"));
    EXPECT_EQ(compare(before, after), "removed\t0\ta  <https://a/>\n"
                                      "renamed\t0\tb2  <https://b/>  (was b)\n"
                                      "moved\t1/0\td  <https://d/>  (was at 3)\n"
                                      "moved\t2\tc  <https://c/>  (was at 2/0)\n"
                                      "edited\t2\tc  <https://c/>  (tags, label)\n"
                                      "added\t3\te  <https://e/>\n");
}

TEST_F(VersionsTest, compareOfEqualDocumentsPrintsNothing) {
    const std::string tree = folder("Master", link("a", "https://a/"));
    EXPECT_EQ(compare(tree, tree), "");
}

TEST_F(VersionsTest, compareAsJsonHasOldPathsAndNames) {
    make("/a.tbln", folder("Master", folder("F", link("a\\tb", "https://a/"))));
    make("/b.tbln", folder("Master", link("c", "https://a/") + "," + folder("F", "")));
    EXPECT_EQ(run({"compare", "--json", "/a.tbln", "/b.tbln"}), 0);
    EXPECT_EQ(
        out,
        R"({"change":"moved","path":"0","oldPath":"0/0","name":"c","url":"https://a/"})"
        "\n"
        R"({"change":"renamed","path":"0","oldPath":"0/0","name":"c","oldName":"a\tb","url":"https://a/"})"
        "\n");
}

TEST_F(VersionsTest, compareTakesDevNullForAnEmptyDocument) {
    make("/a.tbln", folder("Master", link("a", "https://a/")));
    EXPECT_EQ(run({"compare", "/dev/null", "/a.tbln"}), 0);
    EXPECT_EQ(out, "added\t0\ta  <https://a/>\n");
    EXPECT_EQ(run({"compare", "/a.tbln", "/dev/null"}), 0);
    EXPECT_EQ(out, "removed\t0\ta  <https://a/>\n");
}

TEST_F(VersionsTest, compareNamesTheFileItCannotRead) {
    make("/a.tbln", folder("Master", ""));
    files.files["/b.tbln"] = "no document";
    EXPECT_EQ(run({"compare", "/a.tbln", "/b.tbln"}), 1);
    EXPECT_THAT(error, HasSubstr("/b.tbln"));
    EXPECT_EQ(run({"compare", "-", "-"}), 2);
}

TEST_F(VersionsTest, versionsAreListedNewestFirstAndWrittenByTheirNumber) {
    VersionStore store(files, fake.clock, fake.defaults, "/state/versions");
    for (const char* content : {"first", "second", "third"}) {
        ASSERT_TRUE(store.willReplace("/home/Links.tbln", "/home/Links.tbln"));
        files.files["/home/Links.tbln"] = content;
        store.didReplace("/home/Links.tbln", "/home/Links.tbln");
        fake.clock.advance(60);
    }
    EXPECT_EQ(run({"versions", "/home/Links.tbln"}), 0) << error;
    EXPECT_THAT(out, testing::MatchesRegex("1\t....-..-.. ..:..:..\n2\t....-..-.. ..:..:..\n"));
    EXPECT_EQ(run({"versions", "--json", "/home/Links.tbln"}), 0);
    EXPECT_THAT(out, HasSubstr(R"({"version":1,"saved":)"));
    EXPECT_EQ(run({"versions", "/home/Links.tbln", "--restore", "2", "-o", "/out.tbln"}), 0) << error;
    EXPECT_EQ(files.files["/out.tbln"], "first");
    EXPECT_EQ(run({"versions", "/home/Links.tbln", "--restore", "1", "-o", "-"}), 0) << error;
    EXPECT_EQ(out, "second");
}

TEST_F(VersionsTest, aVersionThatIsNotKeptWritesNothing) {
    files.files["/home/Links.tbln"] = "x";
    EXPECT_EQ(run({"versions", "/home/Links.tbln"}), 0);
    EXPECT_EQ(out, "");
    for (const char* number : {"0", "1", "99999999999"})
        EXPECT_EQ(run({"versions", "/home/Links.tbln", "--restore", number, "-o", "/out.tbln"}), 1) << number;
    EXPECT_FALSE(files.files.contains("/out.tbln"));
    EXPECT_EQ(run({"versions", "/home/None.tbln"}), 1);
    EXPECT_THAT(error, HasSubstr("/home/None.tbln"));
    EXPECT_EQ(run({"versions", "/home/Links.tbln", "--restore", "1"}), 2);
    EXPECT_EQ(run({"versions", "/home/Links.tbln", "-o", "/out.tbln"}), 2);
    EXPECT_EQ(run({"versions", "/home/Links.tbln", "--restore", "x", "-o", "/out.tbln"}), 2);
}

TEST_F(VersionsTest, aNumberWithASignOrMoreIsWrongUsage) {
    files.files["/home/Links.tbln"] = "x";
    for (const char* number : {"-1", "-0", "+1", "1.5", "0x1", " 1", "1 ", "", "99999999999999999999"}) {
        const std::string value = std::string("--restore=") + number;
        EXPECT_EQ(run({"versions", "/home/Links.tbln", value.c_str(), "-o", "/out.tbln"}), 2) << number;
        EXPECT_THAT(error, HasSubstr("--restore")) << number;
    }
    EXPECT_EQ(run({"versions", "/home/Links.tbln", "--restore", "-1", "-o", "/out.tbln"}), 2);
    EXPECT_FALSE(files.files.contains("/out.tbln"));
}

TEST_F(VersionsTest, anEmptyFileNameIsAFailure) {
    EXPECT_EQ(run({"versions", ""}), 1);
    EXPECT_EQ(error, "tabulon-cli: The file “” cannot be found: Invalid argument.\n");
    EXPECT_EQ(run({"versions", "", "--restore", "1", "-o", "/out.tbln"}), 1);
    EXPECT_FALSE(files.files.contains("/out.tbln"));
}

} // namespace
} // namespace tabulon
