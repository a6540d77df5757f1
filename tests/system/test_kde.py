"""Bookmark files between the tool and KDE's bookmark editor, both ways. Ends with status 77 where there is no such editor,
unless TABULON_REQUIRE_BROWSER is set.
"""

import os
import sys
import unittest
from urllib.parse import unquote

import cli
import kde
import trees

_SEPARATOR = ("--- separator ---", "")  # in the form of `Editor.bookmarks_of`


def _items_of(nodes):
    """Returns nodes in the form of `Editor.bookmarks_of`."""
    return [_SEPARATOR if node["type"] == 10
            else (node["name"] or "", _items_of(node["children"]) if node["folder"] else unquote(node["url"] or ""))
            for node in nodes]


def _essence(nodes):
    """Returns the nodes with those values that an XBEL file contains and that are read back."""
    return [(node["type"], node["name"], node["url"], node["note"], node["tags"],
             _essence(node["children"]) if node["folder"] else None) for node in nodes]


def _tagged(seed, links):
    """Returns a random tree whose links have tags, too."""
    root = trees.browsing(seed, links)
    for node, _ in trees.walk(root):
        if not node["folder"] and node["type"] != 10 and node["note"]:
            node["tags"] = f"{node['name']}, \"tagged\""
    return root


class KDETest(cli.TestCase):
    def setUp(self):
        super().setUp()
        self.editor = kde.Editor()
        self.editor.__enter__()
        self.addCleanup(self.editor.__exit__)

    def exported(self, tree, to="xbel"):
        file = self.path(f"out.{to}")
        cli.done("export", "--to", to, self.make(tree), "-o", file)
        return file

    def imported(self, file):
        document = self.path("imported.tbln")
        cli.done("import", "--from", "xbel", file, "-o", document)
        return cli.show(document)["children"]

    def test_the_editor_understands_every_folder_link_and_separator_of_ours(self):
        tree = trees.browsing(1, 500)
        tree["children"] += [
            trees.link(None, "https://example.org/nameless"),
            trees.link("no address", None),
            trees.link("quotes", "https://example.org/?a=1&b='c'"),
            trees.folder("a & b < c > d \" e ' f", [trees.folder("empty", [])], note="a note", openFolder=True),
        ]
        self.assertEqual(self.editor.bookmarks_of(self.exported(tree)), _items_of(tree["children"]))

    def test_what_the_editor_writes_of_our_file_is_what_we_read_of_it(self):
        for seed in (2, 3, 4):
            ours, theirs = self.exported(_tagged(seed, 300)), self.path(f"theirs-{seed}.xbel")
            self.editor.import_xbel(ours, theirs)
            [folder] = self.imported(theirs)
            self.assertEqual(folder["name"], "KDE Bookmarks")
            direct = self.imported(ours)
            self.assertTrue(any(node["tags"] for node, _ in trees.walk({"children": direct})))
            self.assertEqual(_essence(folder["children"]), _essence(direct), f"seed {seed}")

    def test_we_read_what_the_editor_lists_of_its_own_file(self):
        tree, theirs = trees.browsing(5, 300), self.path("theirs.xbel")
        # It reads bookmark HTML by lines: items after an empty folder, which is one line, are read into that.
        for node, _ in trees.walk(tree):
            if node["folder"] and not node["children"]:
                node["children"].append(trees.link("only", "https://example.org/only"))
        self.editor.import_html(self.exported(tree, to="html"), theirs)
        listed = self.editor.bookmarks_of(theirs)
        self.assertEqual(listed, [("Mozilla Bookmarks", _items_of(tree["children"]))])
        self.assertEqual(_items_of(self.imported(theirs)), listed)


if __name__ == "__main__":
    if not kde.find():
        print("KDE's bookmark editor is not installed (apt-get install keditbookmarks brings it): nothing was tested.")
        sys.exit(1 if os.environ.get("TABULON_REQUIRE_BROWSER") else 77)
    unittest.main()
