"""The links of a page: what we find in pages of all kinds is what a real Chromium tells of them when it runs the scripts that
collect links. Ends with status 77 where there is no Chromium, unless TABULON_REQUIRE_BROWSER is set.
"""

import json
import os
import subprocess
import sys
import unittest

import chromium
import pages

CORPUS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "corpus", "page")

# The scripts that collect links; each joins the values, every value followed by a form feed.
SCRIPTS = [
    f"txt='';var nl = \"\f\";var x=document.links;var i;for (i=0;i<x.length;i++) {{txt=txt+x[i].{value}+nl;}};"
    for value in ("href", "text", "getAttribute('ADD_DATE')", "getAttribute('LAST_MODIFIED')")
]
PARTS = ("targets", "texts", "added dates", "modified dates")

# Each page becomes the text of a document of its own that has no address.
_RUN = """
    return given.pages.map(page => {
        const frame = document.createElement("iframe");
        document.body.append(frame);
        frame.contentDocument.open();
        frame.contentDocument.write(page);
        frame.contentDocument.close();
        const told = given.scripts.map(script => frame.contentWindow.eval(script) ?? "");
        frame.remove();
        return told;
    });
"""


class PageTest(unittest.TestCase):
    maxDiff = 3000

    @classmethod
    def setUpClass(cls):
        cls.browser = cls.enterClassContext(chromium.Chromium(chromium.find(), page="about:blank"))

    def theirs(self, given):
        return self.browser.run(_RUN, {"pages": given, "scripts": SCRIPTS})

    @staticmethod
    def ours(given):
        encoded = [page.encode() for page in given]
        told = subprocess.run([os.environ["TABULON_PAGE_SCRIPTS"]], check=True, timeout=300, capture_output=True,
                              input=b"".join(b"%d\n%s" % (len(page), page) for page in encoded)).stdout
        texts = [text.decode() for text in told.split(b"\0")[:-1]]
        return [texts[i:i + 4] for i in range(0, len(texts), 4)]

    def differences(self, given):
        """A text for each page of which not everything is the same; also how many links there were."""
        told = []
        links = 0
        for start in range(0, len(given), 200):
            some = given[start:start + 200]
            theirs, ours = self.theirs(some), self.ours(some)
            self.assertEqual(len(ours), len(theirs))
            for page, one, other in zip(some, ours, theirs):
                links += other[0].count("\f")
                for part, mine, wanted in zip(PARTS, one, other):
                    if mine != wanted:
                        told.append(self.difference(page, part, mine, wanted))
                        break
        return told, links

    @staticmethod
    def difference(page, part, ours, theirs):
        pairs = zip(ours.split("\f"), theirs.split("\f"))
        first = next(((mine, wanted) for mine, wanted in pairs if mine != wanted), (ours, theirs))
        return f"{part} of {page[:1500]!r}\n  ours   {first[0]!r}\n  theirs {first[1]!r}"

    def assert_same(self, given, least_links):
        told, links = self.differences(given)
        self.assertEqual(told, [], f"{len(told)} of {len(given)} pages differ; the first:\n" + "\n".join(told[:3]))
        self.assertGreaterEqual(links, least_links)

    def test_the_corpus(self):
        given = []
        for folder, _, names in sorted(os.walk(CORPUS)):
            for name in sorted(names):
                with open(os.path.join(folder, name), "rb") as file:
                    content = file.read()
                try:
                    given.append(content.decode())
                except UnicodeDecodeError:
                    pass  # its encoding is tested elsewhere: a browser is given a text here
        self.assertGreater(len(given), 30)
        self.assert_same(given, 300)

    def test_pages_of_tags_in_any_order(self):
        self.assert_same([pages.page(seed) for seed in range(4000)], 5000)

    def test_addresses(self):
        self.assert_same([pages.page_of_addresses([address]) for address in pages.ADDRESSES], 100)

    def test_addresses_that_count_from_a_base(self):
        for base in ("http://u:p@base.example:8080/a/b?c#d", "file:///C:/x/y", "foo://h/a/b", "foo:opaque", "file://h/x", "foo:/x/y"):
            self.assert_same([pages.page_of_addresses(pages.ADDRESSES, base)], 100)

    def test_damaged_addresses(self):
        bases = [None, "https://base.example/a/b?c#d", "file:///x/y"]
        self.assert_same([pages.page_of_addresses(pages.addresses(seed, 20), bases[seed % 3]) for seed in range(1000)], 15000)

    def test_addresses_of_bases(self):
        self.assert_same([pages.page_of_addresses(["x", "/y", "#z", "", "?q", "//h"], base) for base in pages.ADDRESSES], 100)


if __name__ == "__main__":
    if not chromium.find():
        print("Chromium is not installed (apt-get install chromium brings one): nothing was tested.")
        sys.exit(1 if os.environ.get("TABULON_REQUIRE_BROWSER") else 77)
    unittest.main()
