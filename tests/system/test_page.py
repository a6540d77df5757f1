"""The links of a page: in pages of all kinds, the links that the tool finds are those that a real Chromium returns when
it runs the scripts that collect links. Ends with status 77 where there is no Chromium, unless TABULON_REQUIRE_BROWSER
is set.
"""

import html.entities
import os
import re
import subprocess
import sys
import time
import unittest

import chromium
import pages

CORPUS = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "corpus", "page")

# The scripts that collect links; each joins the values, every value followed by a form feed.
SCRIPTS = [
    f"txt='';var nl = \"\f\";var x=document.links;var i;for (i=0;i<x.length;i++) {{txt=txt+x[i].{value}+nl;}};"
    for value in ("href", "text", "getAttribute('ADD_DATE')", "getAttribute('LAST_MODIFIED')")
]
PARTS = ("targets", "texts", "added dates", "modified dates")

NO_FILES = [address for address in pages.ADDRESSES if not address.startswith("file:")]

# Each page becomes the text of a document of its own that has no address.
_RUN = """
    return given.pages.map(page => {
        const frame = document.createElement("iframe");
        document.body.append(frame);
        frame.contentDocument.open();
        frame.contentDocument.write(page);
        frame.contentDocument.close();
        const results = given.scripts.map(script => frame.contentWindow.eval(script) ?? "");
        frame.remove();
        return results;
    });
"""


# Addresses that Chromium parses differently from the standard and other browsers. It writes blanks and
# asterisks of host names as escapes, and reads escapes in brackets. It preserves white space within data:. It
# leaves hosts of other schemes unchanged where a character in them maps to another. It reads backslashes in
# their paths as slashes if the path has dot segments. It removes the "/." before a path with two slashes, and
# has rules of its own for "steam:". Files: see test_addresses_of_files.
_CHROMIUMS_OWN = re.compile(r"^[a-z0-9.+-]+://[^/?#]*( |\u00a0|\*|%20|%2A)|\[[^]]*%|^\s*data:[^#]*[\t\n]|://[^/?#]*[\ufb00\u200d]|^steam:|"
                            r"^(?!https?:|ftp:|wss?:)[a-z0-9.+-]+:(.*\\|/\.)", re.IGNORECASE)


def is_chromiums_own(address, theirs):
    return bool(_CHROMIUMS_OWN.search(address) or _CHROMIUMS_OWN.search(theirs))


class PageTest(unittest.TestCase):
    maxDiff = 3000

    @classmethod
    def setUpClass(cls):
        cls.browser = cls.enterClassContext(chromium.Chromium(chromium.find(), page="about:blank"))

    def theirs(self, given):
        return self.browser.run(_RUN, {"pages": given, "scripts": SCRIPTS})

    @staticmethod
    def ours(given, *arguments):
        output = subprocess.run([os.environ["TABULON_PAGE_SCRIPTS"], *arguments], check=True, timeout=300, capture_output=True,
                              input=b"".join(b"%d\n%s" % (len(page), page) for page in given)).stdout
        texts = [text.decode() for text in output.split(b"\0")[:-1]]
        return [texts[i:i + 4] for i in range(0, len(texts), 4)]

    def both(self, given):
        """Yields each page with our links and the browser's."""
        for start in range(0, len(given), 200):
            some = given[start:start + 200]
            theirs, ours = self.theirs(some), self.ours([page.encode() for page in some])
            self.assertEqual(len(ours), len(theirs))
            yield from zip(some, ours, theirs)

    def assert_same(self, given, least_links):
        differences = []
        links = 0
        for page, ours, theirs in given:
            links += theirs[0].count("\f")
            if ours != theirs:
                differences.append(self.difference(page, ours, theirs))
        self.assertEqual(differences, [], f"{len(differences)} pages differ; the first:\n" + "\n".join(differences[:3]))
        self.assertGreaterEqual(links, least_links)

    @staticmethod
    def difference(page, ours, theirs):
        part, mine, wanted = next(row for row in zip(PARTS, ours, theirs) if row[1] != row[2])
        pairs = zip(mine.split("\f"), wanted.split("\f"))
        first = next((pair for pair in pairs if pair[0] != pair[1]), (mine, wanted))
        return f"{part} of {page[:1500]!r}\n  ours   {first[0]!r}\n  theirs {first[1]!r}"

    def assert_same_addresses(self, given, least):
        """Compares the addresses of pairs of a base and addresses one by one, without those that only Chromium parses so."""
        differences = []
        compared = 0
        both = self.both([pages.page_of_addresses(addresses, base) for base, addresses in given])
        for (_, ours, theirs), (base, addresses) in zip(both, given):
            for address, mine, wanted in zip(addresses, ours[0].split("\f"), theirs[0].split("\f")):
                if is_chromiums_own(address, wanted) or (base and is_chromiums_own(base, wanted)):
                    continue
                compared += 1
                if mine != wanted:
                    differences.append(f"{address!r} from {base}\n  ours   {mine!r}\n  theirs {wanted!r}")
        self.assertEqual(differences, [], f"{len(differences)} of {compared} addresses differ; the first:\n" + "\n".join(differences[:5]))
        self.assertGreaterEqual(compared, least)

    def test_the_corpus(self):
        given = [content.decode() for path, content in corpus() if os.path.basename(os.path.dirname(path)) != "encodings"]
        self.assertGreater(len(given), 30)
        self.assert_same(self.both(given), 300)

    def test_files_in_other_encodings(self):
        """Pages are loaded as files, so that the browser decodes them. Each has a base element."""
        files = [row for row in corpus() if os.path.basename(os.path.dirname(row[0])) == "encodings"]
        theirs = [self.theirs_of_file(path) for path, _ in files]
        self.navigate("about:blank")
        ours = self.ours([content for _, content in files], "files")
        self.assertEqual(len(ours), len(theirs))
        self.assert_same(zip([path for path, _ in files], ours, theirs), 15)

    def navigate(self, address):
        self.browser.call("Page.navigate", {"url": address})
        end = time.monotonic() + 60
        while not self.browser.run("return document.readyState == 'complete' && location.href == given", address):
            self.assertLess(time.monotonic(), end, f"{address} was not loaded")
            time.sleep(0.05)

    def theirs_of_file(self, path):
        self.navigate("file://" + path)
        return self.browser.run('return given.map(script => (0, eval)(script) ?? "")', SCRIPTS)

    def test_pages_of_tags_in_any_order(self):
        self.assert_same(self.both([pages.page(seed) for seed in range(1500)]), 2500)

    def test_every_named_character(self):
        names = sorted(name.rstrip(";") for name in html.entities.html5)
        given = ["".join(f'<a href="#&{name}{end}">&{name}{end}</a>' for name in names) for end in (";", "", "=", "x", " ")]
        self.assert_same(self.both(given), 10000)

    def test_every_numbered_character(self):
        numbers = [*range(0x180), 0xD7FF, 0xE000, 0xFDD0, 0xFFFD, 0xFFFF, 0x10000, 0x10FFFF, 0x110000, 1 << 31, 1 << 40]
        given = ["".join(f'<a href="x{number}">&#{number};&#x{number:X}</a>' for number in numbers)]
        self.assert_same(self.both(given), 300)

    def test_addresses(self):
        bases = (None, "http://u:p@base.example:8080/a/b?c#d", "foo://h/a/b", "foo:opaque", "foo:/x/y", "https://h")
        self.assert_same_addresses([(base, NO_FILES) for base in bases], 900)

    def test_damaged_addresses(self):
        given = [(None if seed % 2 else "https://base.example/a/b?c#d", pages.addresses(seed, 50)) for seed in range(400)]
        self.assert_same_addresses([(base, [address for address in some if "file" not in address]) for base, some in given],
                                   16000)

    def test_addresses_of_bases(self):
        self.assert_same_addresses([(base, ["x", "/y", "", "?q", "//h", "https://h/"]) for base in NO_FILES], 800)

    def test_addresses_of_files(self):
        """Tests addresses without drives and without the name of this machine, which Chromium parses differently on every
        system."""
        given = ["file:///etc/passwd", "file:/etc", "file:etc", "file://host/x", "file:///a b/%41?q#f", "file:///ä/../x", "file:", "//h/x"]
        self.assert_same_addresses([(base, given) for base in (None, "file:///x/y?z", "file://h/x", "https://h/")], 32)

    def test_pages_that_nest_deeply(self):
        link = "<a href=x add_date=1>y<b>z</b></a>w"
        given = [f"<{tag}>" * depth + link + f"</{tag}>" * 3 + link
                 for tag in ("div", "b", "font", "span", "blockquote", "table><tr><td", "ul><li", "svg", "p")
                 for depth in (5, 508, 509, 510, 511, 512, 513, 600)]
        self.assert_same(self.both(given), 100)


def corpus():
    """Returns the path and the bytes of every file."""
    for folder, _, names in sorted(os.walk(CORPUS)):
        for name in sorted(names):
            with open(os.path.join(folder, name), "rb") as file:
                yield file.name, file.read()


if __name__ == "__main__":
    if not chromium.find():
        print("Chromium is not installed (apt-get install chromium brings one): nothing was tested.")
        sys.exit(1 if os.environ.get("TABULON_REQUIRE_BROWSER") else 77)
    unittest.main()
