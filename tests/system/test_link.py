"""Single-link files, read back by Python's plistlib and, where it is installed, libplist's plistutil."""

import plistlib
import shutil
import subprocess
import unittest

import cli
import trees

URLS = [
    "https://example.org/?a=1&b=<2>&c=\"3\"&d='4'",
    "ftp://files.example/pub/",
    "mailto:someone@example.org?subject=Hello%20there",
    "https://日本語.example/naïve?q=🎈",
    "javascript:(function(){if(1<2&&3>2)alert('x')})()",
    "two\nlines\tand a tab",
    "a carriage\rreturn \r\n",
    " blanks around ",
    "]]>",
    "&amp;",
    "x" * 70000,
]


class LinkFiles(cli.TestCase):
    def test_plistlib_reads_the_one_key_with_every_url(self):
        document = self.make(trees.master([trees.folder("f", [trees.link("n", url) for url in URLS])]))
        for index, url in enumerate(URLS):
            with self.subTest(url=url[:80]):
                file = self.path("out.webloc")
                cli.done("link", document, "--path", f"0/{index}", "-o", file)
                data = self.read("out.webloc")
                self.assertTrue(data.startswith(b"<?xml"))
                self.assertEqual(plistlib.loads(data, fmt=plistlib.FMT_XML), {"URL": url})

    @unittest.skipUnless(shutil.which("plistutil"), "plistutil (libplist-utils) is not installed")
    def test_plistutil_reads_it(self):
        document = self.make(trees.master([trees.link("n", URLS[0])]))
        file, binary = self.path("out.webloc"), self.path("out.plist")
        cli.done("link", document, "--path", "0", "-o", file)
        subprocess.run(["plistutil", "-i", file, "-o", binary, "-f", "bin"], check=True, timeout=60)
        self.assertEqual(plistlib.loads(self.read("out.plist")), {"URL": URLS[0]})

    def test_a_refused_link_leaves_the_old_file(self):
        document = self.make(trees.master([trees.link("n", "https://example.org/\x01"), trees.link("n", None)]))
        for path in ("0", "1", "2", "0/0"):
            with self.subTest(path=path):
                file = self.write("out.webloc", b"old")
                process = cli.run("link", document, "--path", path, "-o", file)
                self.assertEqual(process.returncode, 1)
                self.assertEqual(process.stderr.count(b"\n"), 1)
                self.assertEqual(self.read("out.webloc"), b"old")


if __name__ == "__main__":
    unittest.main()
