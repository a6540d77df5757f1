// Tests the limits for hostile files: linear time and memory, no read outside the file, any depth. Time is
// measured in examined bytes instead of seconds, so that the results do not depend on the machine.
#include "formats/import/LinkTarget.h"
#include "formats/import/NetscapeScan.h"
#include "formats/import/NetscapeScanner.h"
#include "platform/fake/FakeBaseServices.h"
#include "tests/RepeatedText.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <vector>

namespace tabulon {
namespace {

constexpr std::size_t kMany = 100000;

class NetscapeScannerLimits : public testing::Test {
protected:
    Ref<Bookmark> scan(std::string_view bytes) {
        const BaseServices services = fakes.services();
        NetscapeScan scan(bytes, services, lastItem);
        Ref<Bookmark> root = scan.run();
        passes = static_cast<double>(scan.examined()) / static_cast<double>(bytes.size());
        return root;
    }

    FakeBaseServices fakes;
    Ref<Bookmark> lastItem;
    double passes = 0; // examined bytes per byte of the last file
};

TEST_F(NetscapeScannerLimits, linksThatShareAFarAddressNeitherSearchNorCopyItAgain) {
    const std::string file = repeated("<DT><A\t", kMany) + "HREF=\"" + std::string(4000, 'x') + "\"";
    const Ref<Bookmark> root = scan(file);
    // The scan skips every second token, because it continues inside that token.
    ASSERT_EQ(root->getChildren()->size(), kMany / 2);
    for (const Bookmark* link : *root->getChildren())
        ASSERT_TRUE(link->itemURL().sharesBytesWith(root->getChild()->itemURL()));
    EXPECT_LE(passes, 6);
}

// The document contains the whole address for each link, so that a file of some megabytes would become a
// document of terabytes.
TEST_F(NetscapeScannerLimits, addressesThatAreRepeatedTooOftenEndTheScan) {
    constexpr std::size_t kLength = 1 << 20;
    const std::string address = "HREF=\"" + std::string(kLength, 'x') + "\"";
    const std::size_t most = LinkTargets::kMostRepeatedBytes / kLength + 1;
    const std::string token = "<DT><A\t...";
    const std::string rest = "<DT><A HREF=\"u\">n</A>";
    EXPECT_EQ(scan(repeated(token, most) + address + rest)->getChildren()->size(), most + 1);
    EXPECT_EQ(scan(repeated(token, most + 1) + address + rest)->getChildren()->size(), most)
        << "what came before is kept, what follows is not read";
}

TEST_F(NetscapeScannerLimits, shortAddressesAreRepeatedForEveryLink) {
    const Ref<Bookmark> root = scan(repeated("<DT><A\t...", 10 * kMany) + "HREF=\"http://a.example/\"");
    EXPECT_EQ(root->getChildren()->size(), 10 * kMany);
}

TEST_F(NetscapeScannerLimits, everyKindOfSearchIsLinear) {
    const std::string far = std::string(1 << 20, ' ');
    const struct {
        const char* what;
        std::string file;
    } cases[] = {
        {"the quote is far", repeated("<DT><A\t.HREF", kMany) + far + "\"u\""},
        {"the address ends far away and has an @ at its end",
         repeated("<DT><A\t", 500) + "HREF=\"" + far + "@\""},
        {"many links share a long address",
         repeated("<DT><A\t", kMany) + "HREF=\"" + std::string(5000, ' ') + "@\"" + far},
        {"the anchor is far", repeated("<D..xA", kMany) + far + "<A\tHREF=\"u\""},
        {"no anchor", repeated("<D..xA", kMany) + far},
        {"no address", repeated("<DT><A\t...", kMany) + far},
        {"no quote", repeated("<DT><A\t...HREF", kMany) + far},
        {"in-page anchors only", repeated("<DT><A\t...", kMany) + repeated("<A HREF=\"#", kMany)},
        {"in-page anchors before a far link",
         repeated("<DT><A\t...", kMany) + repeated("<A HREF=\"#", kMany) + far + "<A\tHREF=\"u\""},
        {"in-page anchors and tokens by turns", repeated("<DT><A\tHREF=\"#<A\t", kMany) + far + "HREF=\"u\""},
        {"separators before a far tag", repeated("<HR>", kMany) + far + "</DL>"},
        {"separators before no tag", repeated("<HR>", kMany) + far},
        {"tags before a far separator", repeated("<DL>", kMany) + far + "<HR></DL>"},
        {"tags that are none", repeated("</DL<D-----</D><H", kMany)},
        {"less-than signs", repeated("<", 20 * kMany)},
        {"descriptions without an end", repeated("<HR><DD>x", kMany) + far},
        {"dates without an end", repeated("<DT><H3></H3>ADD_DATE=\"", kMany) + far},
        {"modified dates without an end", repeated("<DT><H3 LAST_MODIFIED=\"</H3>", kMany) + far},
        {"digits without an end",
         repeated("<DT><H3></H3>ADD_DATE=\"", kMany) + std::string(1 << 20, '9') + "\""},
        {"equals signs", "<DT><A HREF=\"u\">" + repeated("=", 20 * kMany) + "</A>"},
        {"equals signs after links", repeated("<DT><A\t====HREF=\"u\"", kMany) + repeated("=", kMany)},
        {"folders without dates",
         repeated("<DT><H3></H3>", kMany) + far + "ADD_DATE=\"1\"FOLDER_GROUP=\"true\""},
        {"folders without an end", repeated("<DT><H3>", kMany) + far + "</H3>"},
        {"links without an end", repeated("<DT><A HREF=\"u\">", kMany) + far},
        {"closing tags that are none", "<DT><A HREF=\"u\">" + repeated("</A</", kMany) + "</A>"},
        {"a name of opening tags", "<DT><A HREF=\"u\">" + repeated("<b>", kMany) + "</A>"},
        {"a name of less-than signs", "<DT><A HREF=\"u\">" + repeated("<", kMany) + "</A>"},
        {"a name of greater-than signs", "<DT><A HREF=\"u\">" + repeated(">", kMany) + "</A>"},
        {"a name that ends in tags", "<DT><A HREF=\"u\">n" + repeated("<b>", kMany) + "</A>"},
        {"names that end in tags", repeated("<DT><A HREF=\"u\">n<b><b><b>>>></A>", kMany)},
        {"a name of blanks", "<DT><A HREF=\"u\">" + far + "</A>"},
    };
    for (const auto& [what, file] : cases) {
        SCOPED_TRACE(what);
        scan(file);
        EXPECT_LE(passes, 8);
    }
}

TEST_F(NetscapeScannerLimits, folderNamesReachBackOverEachOtherOnlySoFar) {
    scan(repeated(">" + repeated("<D...H</H1>", 46), 1000));
    EXPECT_LE(passes, 2 * 512 / 11 + 10);
}

TEST_F(NetscapeScannerLimits, twoHundredThousandNestedFoldersAreScanned) {
    constexpr std::size_t kDepth = 200000;
    const Ref<Bookmark> root =
        scan(repeated("<DT><H3>f</H3><DL>", kDepth) + "<HR>" + repeated("</DL>", kDepth) + "<HR></DL>");
    std::size_t depth = 0;
    const Bookmark* node = root.get();
    for (; node->hasChildren(); node = node->getChild())
        ++depth;
    EXPECT_EQ(depth, kDepth + 1);
    EXPECT_TRUE(node->isSeparator());
    EXPECT_EQ(root->getChildren()->size(), 2u);
    EXPECT_LE(passes, 8);
}

TEST_F(NetscapeScannerLimits, aRowOfDescendingListsUnderLinksIsScanned) {
    const Ref<Bookmark> root = scan(repeated("<HR><DL>", kMany) + repeated("</DL>", 2 * kMany));
    EXPECT_EQ(root->getChildren()->size(), 1u);
    EXPECT_LE(passes, 8);
}

// A buffer between two inaccessible pages. A read outside it ends the test program with a fault.
class GuardedBytes {
public:
    explicit GuardedBytes(std::size_t capacity) {
        page_ = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
        size_ = (capacity + page_ - 1) / page_ * page_;
        base_ = static_cast<char*>(
            mmap(nullptr, size_ + 2 * page_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        usable_ = base_ != MAP_FAILED && mprotect(base_ + page_, size_, PROT_READ | PROT_WRITE) == 0;
    }
    ~GuardedBytes() { munmap(base_, size_ + 2 * page_); }
    GuardedBytes(const GuardedBytes&) = delete;
    GuardedBytes& operator=(const GuardedBytes&) = delete;

    bool usable() const { return usable_; }
    std::string_view atEnd(std::string_view bytes) {
        char* place = base_ + page_ + size_ - bytes.size();
        std::memcpy(place, bytes.data(), bytes.size());
        return {place, bytes.size()};
    }
    std::string_view atBegin(std::string_view bytes) {
        std::memcpy(base_ + page_, bytes.data(), bytes.size());
        return {base_ + page_, bytes.size()};
    }

private:
    char* base_ = nullptr;
    std::size_t page_ = 0;
    std::size_t size_ = 0;
    bool usable_ = false;
};

TEST_F(NetscapeScannerLimits, noByteOutsideTheFileIsRead) {
    const std::vector<std::string> files = {
        "<D",
        "<DT",
        "<DT>",
        "<DT><",
        "<DL",
        "<DD",
        "<DD>",
        "<DD\n<",
        "</DL",
        "</DL>",
        "<H",
        "<HR>",
        "<",
        "</",
        "</H3>",
        "><DT><H3</H",
        "<DT>.H</H",
        "<D...H</H<D",
        "<DT><H3 ADD_DATE=\"1\" LAST_MODIFIED=\"2\" FOLDER_GROUP=\"true\">n &amp; m</H3><DL><p>\r\n"
        "<DT><A HREF=\"#top\">t</A><DT><A HREF=\"mailto:a@b?&#65;\" ADD_DATE=\"3\"><b>\n "
        "n\xF0\x9F\x94\x96</b>"
        "</A>\n<DD>note &lt;\n<HR><DT><A\tHREF=\"u\" ADD_DATE=\"4\" LAST_MODIFIED=\"5\"></DL>ADD_DATE=\"6",
    };
    GuardedBytes guarded(1 << 16);
    ASSERT_TRUE(guarded.usable());
    for (const std::string& file : files)
        for (std::size_t size = 0; size <= file.size(); ++size) {
            lastItem = Bookmark::init(fakes.now());
            scan(guarded.atEnd(std::string_view(file).substr(0, size)));
            scan(guarded.atBegin(std::string_view(file).substr(file.size() - size)));
        }
    const Ref<Bookmark> root = scan(guarded.atEnd(files.back()));
    EXPECT_EQ(root->getChildren()->size(), 1u) << "the file must be one that is read to its end";
    EXPECT_EQ(root->getChild()->getChildren()->size(), 3u);
}

} // namespace
} // namespace tabulon
