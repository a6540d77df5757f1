// Tests that exported trees are scanned to the same trees, and compares the export with its reference
// implementation.
#include "formats/export/NetscapeHTML.h"
#include "tests/formats/ReferenceExport.h"
#include "tests/formats/ScanFixture.h"

#include <random>

namespace tabulon {
namespace {

using NetscapeRoundTrip = test::ScanFixture;

// Makes random trees that a bookmark file can represent: every folder has a name, dates are whole seconds,
// notes have one line.
class TreeMaker {
public:
    explicit TreeMaker(unsigned seed) : random_(seed) {}

    Ref<Bookmark> tree(int nodes) {
        Ref<Bookmark> root = folder("Master");
        std::vector<Bookmark*> folders{root.get()};
        for (; nodes > 0; --nodes) {
            Bookmark* parent = folders[folders.size() - 1 - pick(std::min<std::size_t>(folders.size(), 3))];
            Ref<Bookmark> node = pick(4) == 0 ? folder(name()) : link();
            if (node->isFolder())
                folders.push_back(node.get());
            parent->addChild(node);
        }
        return root;
    }

private:
    std::size_t pick(std::size_t count) { return random_() % count; }
    template <std::size_t Count>
    std::string oneOf(const char* const (&texts)[Count]) {
        return texts[pick(Count)];
    }
    Date date() { return pick(3) == 0 ? Date() : Date::fromUnixSeconds(static_cast<double>(random_())); }
    std::string name() {
        static constexpr const char* kNames[] = {"Plain",      "Q&A",    "<b>tags</b>", "\"quoted\" 'text'",
                                                 "日本語 é",   "&amp;",  "a > b < c",   "trailing \t ",
                                                 "\U0001F516", "--",     "#",           "</A></H3>",
                                                 "</DL><HR>",  "&#65;\n"};
        return oneOf(kNames) + std::to_string(pick(100));
    }
    Ref<Bookmark> folder(const std::string& name) {
        Ref<Bookmark> node = Bookmark::initEmpty();
        node->makeParent();
        node->setItemName(name);
        node->setItemDateAdded(Date::fromUnixSeconds(static_cast<double>(random_())));
        node->setItemDateModified(date());
        return node;
    }
    Ref<Bookmark> link() {
        static constexpr const char* kURLs[] = {"http://a.example/?a=1&b=2",
                                                "mailto:a@b.example",
                                                "ftp://c.example",
                                                "javascript:if(1<2){alert('x')}",
                                                "",
                                                "file:///tmp/a>b"};
        static constexpr const char* kNotes[] = {"A note.", "with <tags> & 'quotes'", "日本語", " "};
        Ref<Bookmark> node = Bookmark::initEmpty();
        node->setItemName(name());
        node->setItemURL(oneOf(kURLs));
        node->determineType();
        if (pick(3) == 0)
            node->setItemNote(oneOf(kNotes));
        node->setItemDateAdded(Date::fromUnixSeconds(static_cast<double>(random_())));
        node->setItemDateModified(date());
        return node;
    }

    std::mt19937 random_;
};

// Returns the lines as a scan of the exported file returns them: line ends in the names of links are blanks.
std::vector<test::TreeLine> afterTheWay(std::vector<test::TreeLine> lines) {
    for (test::TreeLine& line : lines)
        if (!line.folder)
            std::replace(line.name->begin(), line.name->end(), '\n', ' ');
    return lines;
}

// Returns the lines without the line end and indent that a scan adds to a note from the text before the next
// tag.
std::vector<test::TreeLine> withoutIndents(std::vector<test::TreeLine> lines) {
    for (test::TreeLine& line : lines)
        if (line.note && line.note->find('\n') != std::string::npos)
            line.note->erase(line.note->rfind('\n', line.note->find_last_not_of('\t')));
    return lines;
}

TEST_F(NetscapeRoundTrip, anExportIsScannedToTheSameTree) {
    const double now = fakes.now().unixSeconds();
    for (unsigned seed = 0; seed < 300; ++seed) {
        const Ref<Bookmark> tree = TreeMaker(seed).tree(static_cast<int>(seed));
        const std::string html = exportToHTML(*tree, {}).value();
        ASSERT_EQ(test::treeText(withoutIndents(test::treeLines(*scan(html))), now),
                  test::treeText(afterTheWay(test::treeLines(*tree)), now))
            << html;
    }
}

TEST_F(NetscapeRoundTrip, aNoteGainsTheIndentOfTheNextLine) {
    EXPECT_EQ(scanText(exportToHTML(*scan("<DT><A HREF=\"u\">n</A><DD>note<"), {}).value()),
              "link \"n\" <u> added 0 note \"note\"\n")
        << "the list ends without an indent: only its line end stands there, and that is left out";
    EXPECT_EQ(scanText(exportToHTML(*scan("<DT><A HREF=\"u\">n</A><DD>note<HR></DL>"), {}).value()),
              "link \"n\" <u> added 0 note \"note\\x0A\\x09\"\nseparator null added now\n");
}

TEST_F(NetscapeRoundTrip, separatorsAndEmptyFoldersComeBack) {
    const std::string html = exportToHTML(*scan("<DT><H3 ADD_DATE=\"1\">a</H3><DT><H3 "
                                                "ADD_DATE=\"2\">b</H3><DL><HR><DT><H3 ADD_DATE=\"3\">c</H3>"
                                                "</DL><HR></DL>"),
                                          {})
                                 .value();
    EXPECT_EQ(scanText(html), "folder \"a\" added 1\n"
                              "folder \"b\" added 2\n"
                              "  separator null added now\n"
                              "  folder \"c\" added 3\n"
                              "separator null added now\n");
}

// Returns a random tree with any mixture of kinds, texts and dates, including ones that no file contains.
Ref<Bookmark> oddTree(std::mt19937& random) {
    const Text texts[] = {nullptr, "", "n", "a&b", "<\"'>\t\r\n", "é"};
    const auto text = [&] { return texts[random() % std::size(texts)]; };
    const auto date = [&]() -> Date {
        static constexpr double kSeconds[] = {0, 1.9, -1.9, 1e9, 978307200};
        const std::size_t which = random() % (std::size(kSeconds) + 1);
        return which == std::size(kSeconds) ? Date() : Date::fromUnixSeconds(kSeconds[which]);
    };
    std::vector<Ref<Bookmark>> nodes{Bookmark::initEmpty()};
    for (std::size_t count = random() % 20; count > 0; --count) {
        Ref<Bookmark> node = Bookmark::initEmpty();
        if (random() % 3 == 0)
            node->makeParent();
        node->setItemFolder(node->isFolder() || random() % 10 == 0);
        node->setType(random() % 5 == 0 ? kSeparatorType : kWebType);
        node->setItemName(text());
        node->setItemURL(text());
        node->setItemNote(text());
        node->setItemDateAdded(date());
        node->setItemDateModified(date());
        nodes[random() % nodes.size()]->addChild(node);
        nodes.push_back(std::move(node));
    }
    return nodes.front();
}

TEST_F(NetscapeRoundTrip, exportAgreesWithTheReferenceOnOddTrees) {
    std::mt19937 random(6);
    for (int round = 0; round < 3000; ++round) {
        const Ref<Bookmark> tree = oddTree(random);
        ASSERT_EQ(exportToHTML(*tree, {}).value(), test::referenceExport(*tree));
    }
}

std::size_t indentsIn(const std::string& html) {
    std::size_t tabs = 0;
    bool atLineStart = true;
    for (const char c : html) {
        tabs += atLineStart && c == '\t' ? 1 : 0;
        atLineStart = c == '\n' || (atLineStart && c == '\t');
    }
    return tabs;
}

TEST_F(NetscapeRoundTrip, indentsAreCountedBeforeTheyAreWritten) {
    std::mt19937 random(7);
    for (int round = 0; round < 1000; ++round) {
        const Ref<Bookmark> tree = oddTree(random);
        const std::size_t indents = indentsIn(test::referenceExport(*tree));
        if (indents == 0)
            continue;
        const auto reason = [&](std::size_t mostBytes) {
            return exportToHTML(*tree, {.mostBytes = mostBytes}).error().message;
        };
        ASSERT_NE(reason(indents - 1).find("nested too deep"), std::string::npos);
        ASSERT_NE(reason(indents).find("too many or too long"), std::string::npos);
    }
}

} // namespace
} // namespace tabulon
