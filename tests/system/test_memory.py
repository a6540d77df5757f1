"""Small documents with a very large output: every command either writes a bounded multiple of what it read or fails with
a sentence, and uses a bounded amount of memory."""

import os
import plistlib
import subprocess
import unittest

import cli
import keyed_archive
import trees

LINKS = 20_000
LONG = "x" * (5 << 20)
MEBIBYTE = 1 << 20
MOST_MEMORY = 512 * MEBIBYTE  # of resident memory, at the maximum
MOST_OUTPUT = 16 * 2 * len(LONG)  # sixteen times the size of the tree: the long text and some short ones

# Arguments, and whether the command may be too large for its output.
COMMANDS = [
    (["show"], True),
    (["show", "--json"], True),
    (["export", "--to", "html"], True),
    (["export", "--to", "xbel"], True),
    (["export", "--to", "text"], True),
    (["find", "x"], True),
    (["find", "x", "--json"], True),
    (["find", "no such text"], False),
    (["duplicates"], True),
    (["duplicates", "--json"], True),
    (["duplicates", "--mark", "-o"], False),
    (["duplicates", "--delete", "-o"], False),
    (["sort", "--by", "name", "-o"], False),
    (["sort", "--by", "url", "-o"], False),
    (["remove", "--status", "duplicate", "-o"], False),
    (["link", "--path", "0", "-o"], False),
]


class Memory(cli.TestCase):
    def document(self, root):
        archive = keyed_archive.Writer(share=True).document(root)
        return self.write("small.tbln", plistlib.dumps(archive, fmt=plistlib.FMT_BINARY))

    def measured(self, arguments):
        """Returns the status, standard error, the size of the output, and the largest amount of resident memory."""
        with open(self.path("out"), "wb") as out, open(self.path("error"), "wb") as error:
            process = subprocess.Popen([cli.TOOL, *arguments], stdin=subprocess.DEVNULL, stdout=out, stderr=error)
            _, status, usage = os.wait4(process.pid, 0)
            process.returncode = os.waitstatus_to_exitcode(status)
        return process.returncode, self.read("error").decode(), os.path.getsize(self.path("out")), usage.ru_maxrss * 1024

    def assert_bounded(self, document, most_output):
        for command, may_fail in COMMANDS:
            arguments = [*command[:-1], document, "-o", self.path("written")] if command[-1] == "-o" else [*command, document]
            with self.subTest(command):
                status, error, size, memory = self.measured(arguments)
                if may_fail and status == 1:
                    self.assertRegex(error, r"^tabulon-cli: .*too long.*\.\n$")
                else:
                    self.assertEqual(status, 0, error)
                    self.assertRegex(error, r"^(\d+ bookmarks were deleted\.\n)?$")
                if command[-1] == "-o":
                    size = os.path.getsize(self.path("written"))
                self.assertLessEqual(size, most_output)
                if not cli.is_sanitized():
                    self.assertLessEqual(memory, MOST_MEMORY)

    def test_links_that_share_a_long_address(self):
        self.assert_bounded(self.document(trees.master([trees.link("n", LONG) for _ in range(LINKS)])), MOST_OUTPUT)

    def test_links_that_share_every_text(self):
        links = [trees.link(LONG, LONG, note=LONG, tags=LONG) for _ in range(LINKS)]
        self.assert_bounded(self.document(trees.master(links)), MOST_OUTPUT)

    def test_two_versions_that_share_a_long_text(self):
        old = self.document(trees.master([trees.link("n", LONG) for _ in range(LINKS)]))
        os.rename(old, self.path("old.tbln"))
        new = self.document(trees.master([trees.link("m", LONG) for _ in range(LINKS)]))
        for option in ([], ["--json"]):
            status, error, size, memory = self.measured(["compare", *option, self.path("old.tbln"), new])
            self.assertIn((status, error.count("\n")), [(0, 0), (1, 1)], error)
            self.assertLessEqual(size, MOST_OUTPUT)
            if not cli.is_sanitized():
                self.assertLessEqual(memory, MOST_MEMORY)

    def test_folders_inside_each_other(self):
        deepest = trees.folder("bottom", [])
        for _ in range(50_000):
            deepest = trees.folder("a folder with a name of some length", [deepest])
        document = self.document(trees.master([deepest]))
        for command in (["show"], ["show", "--json"], ["find", "folder"], ["find", "folder", "--json"],
                        ["export", "--to", "html"], ["export", "--to", "xbel"], ["export", "--to", "text"]):
            with self.subTest(command):
                status, error, size, memory = self.measured([*command, document])
                self.assertIn((status, error.count("\n")), [(0, 0), (1, 1)], error)
                self.assertLessEqual(size, MOST_OUTPUT)
                if not cli.is_sanitized():
                    self.assertLessEqual(memory, MOST_MEMORY)


if __name__ == "__main__":
    unittest.main()
