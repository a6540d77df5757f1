// Tests the fast reader of links in their usual form: the forms that it reads, those that it leaves to the
// general rules, and runs of bytes. ReferenceScannerTest compares the results of both.
#include "formats/import/LinkLine.h"

#include "formats/import/ByteRun.h"
#include "formats/import/NetscapeDates.h"

#include <gtest/gtest.h>

#include <random>

namespace tabulon {
namespace {

const std::string kFar(80, '.');

std::optional<LinkLine> lineIn(const std::string& bytes) {
    return linkLineAt(ScannedBytes(bytes), 0);
}

TEST(LinkLine, isALinkAsBrowsersWriteIt) {
    const std::string file = "\n\t <DT><A HREF=\"http://a.example/?a&amp;b\" ADD_DATE=\"1600000000\" "
                             "LAST_MODIFIED=\"1700000001\">Name</A>\n" +
                             kFar;
    const auto line = lineIn(file);
    ASSERT_TRUE(line);
    EXPECT_EQ(line->address, "http://a.example/?a&amp;b");
    EXPECT_TRUE(line->addressHasReferences);
    EXPECT_EQ(line->name, "Name");
    EXPECT_FALSE(line->nameHasReferences);
    EXPECT_EQ(line->added, Date::fromUnixSeconds(1600000000));
    EXPECT_EQ(line->modified, Date::fromUnixSeconds(1700000001));
    EXPECT_EQ(file.substr(line->size), "\n" + kFar);
}

TEST(LinkLine, mayHaveOneDateAndMoreAttributes) {
    const auto one = lineIn("<DT><A HREF=\"u\" ADD_DATE=\"1600000000\">A &gt; B</A>" + kFar);
    ASSERT_TRUE(one);
    EXPECT_TRUE(one->modified.isNull());
    EXPECT_TRUE(one->nameHasReferences);
    EXPECT_TRUE(lineIn("<DT><A HREF=\"u\" ADD_DATE=\"1600000000\" ICON=\"data:,x\">n</A>" + kFar));
    EXPECT_TRUE(
        lineIn("<DT><A HREF=\"u\" ADD_DATE=\"1600000000\" LAST_MODIFIED=\"1600000000\" ICON_URI=\"x\">n</A>" +
               kFar));
    EXPECT_TRUE(lineIn("<DT><A HREF=\"\" ADD_DATE=\"1600000000\">n</A>" + kFar));
}

TEST(LinkLine, leavesEveryOtherFormToTheGeneralRules) {
    const std::string date = "ADD_DATE=\"1600000000\"";
    const std::string others[] = {
        "<DT><A HREF=\"u\">n</A>",
        "<DT><A HREF=\"#u\" " + date + ">n</A>",
        "<DT><A HREF=\"u_v\" " + date + ">n</A>",
        "<DT><A HREF=\"u\"  " + date + ">n</A>",
        "<dt><a href=\"u\" " + date + ">n</A>",
        "<DT><H3 " + date + ">n</H3>",
        "<DT><A HREF=\"u\" ADD_DATE=\"160000000\">n</A>",
        "<DT><A HREF=\"u\" ADD_DATE=\"16000000000\">n</A>",
        "<DT><A HREF=\"u\" ADD_DATE=\"160000000x\">n</A>",
        "<DT><A HREF=\"u\" " + date + " LAST_MODIFIED=\"1\">n</A>",
        "<DT><A HREF=\"u\" " + date + " LAST_VISIT=\"1\">n</A>",
        "<DT><A HREF=\"u\" " + date + " >n_m</A>",
        "<DT><A HREF=\"u\" " + date + "></A>",
        "<DT><A HREF=\"u\" " + date + "> n</A>",
        "<DT><A HREF=\"u\" " + date + "><b>n</b></A>",
        "<DT><A HREF=\"u\" " + date + ">n\nm</A>",
        "<DT><A HREF=\"u\" " + date + ">n\rm</A>",
        "<DT><A HREF=\"u\" " + date + ">n</A>LAST_MODIFIED=\"1600000000\"",
        "<DT><A HREF=\"u\" " + date + ">" + std::string(kLongestLinkName + 1, 'n') + "</A>",
    };
    for (const std::string& other : others)
        EXPECT_FALSE(lineIn(other + kFar)) << other;
    EXPECT_TRUE(
        lineIn("<DT><A HREF=\"u\" " + date + ">" + std::string(kLongestLinkName, 'n') + "</A>" + kFar));
}

TEST(LinkLine, isNotLookedForAtTheEndOfAFile) {
    const std::string line = "<DT><A HREF=\"u\" ADD_DATE=\"1600000000\">n</A>";
    const std::string file = line + kFar;
    for (std::size_t size = 0; size <= file.size(); ++size) {
        const auto found = lineIn(file.substr(0, size));
        EXPECT_TRUE(!found || (size > line.size() && found->size == line.size())) << size;
    }
    EXPECT_TRUE(lineIn(file));
}

// Returns the run to the first '"' with the marks '_' and line end, computed byte by byte. Its `end` is
// `nullptr` only if there is no '"'.
ByteRun plainRun(const std::string& bytes, std::size_t from) {
    ByteRun run{bytes.data() + from};
    for (const char* at = run.begin; at < bytes.data() + bytes.size(); ++at) {
        if (*at == '"') {
            run.end = at;
            return run;
        }
        run.hasReferences |= *at == '&';
        run.isMarked |= *at == '_' || *at == '\n';
    }
    return run;
}

TEST(ByteRun, endsAtTheFirstByteAndReturnsWhatIsBeforeIt) {
    std::mt19937 random(1);
    std::size_t ended = 0;
    for (int i = 0; i < 20000; ++i) {
        std::string bytes(64 + random() % 200, '.');
        for (std::size_t count = random() % 4; count > 0; --count)
            bytes[random() % bytes.size()] = "\"&_\n\xA2"[random() % 5];
        const std::size_t from = random() % bytes.size();
        const ByteRun run = runTo<'"', '_', '\n'>(bytes.data() + from, bytes.data() + bytes.size());
        const ByteRun plain = plainRun(bytes, from);
        ASSERT_EQ(run.begin, plain.begin);
        if (!run.end) {
            const std::size_t left = bytes.size() - from;
            ASSERT_TRUE(!plain.end ||
                        left % ByteWindow::kSize >
                            static_cast<std::size_t>(bytes.data() + bytes.size() - plain.end) - 1)
                << "only what no window reaches may be passed over";
            continue;
        }
        ++ended;
        ASSERT_EQ(run.end, plain.end);
        ASSERT_EQ(run.hasReferences, plain.hasReferences);
        ASSERT_EQ(run.isMarked, plain.isMarked);
    }
    EXPECT_GT(ended, 1000u);
}

TEST(TenDigits, areANumber) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 20000; ++i) {
        const std::uint64_t number = random() % 10000000000;
        std::string digits = std::to_string(number);
        digits.insert(0, 10 - digits.size(), '0');
        ASSERT_EQ(tenDigits(digits.data()), number);
    }
}

TEST(TenDigits, areAllOfThemDigits) {
    for (std::size_t place = 0; place < 10; ++place)
        for (int byte = 0; byte < 256; ++byte) {
            std::string digits = "9999999999";
            digits[place] = static_cast<char>(byte);
            EXPECT_EQ(tenDigits(digits.data()).has_value(), byte >= '0' && byte <= '9')
                << place << ' ' << byte;
        }
}

} // namespace
} // namespace tabulon
