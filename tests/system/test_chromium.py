"""The bookmarks of a real Chromium: what its profile's file contains is imported. Ends with status 77 where there is no
Chromium, unless TABULON_REQUIRE_BROWSER is set.
"""

import json
import os
import sys
import unittest

import chromium
import cli
import trees


def _items(nodes):
    """Returns nodes of `trees` as items of `Chromium.fill`: it has neither separators nor notes."""
    return [[node["name"], _items(node["children"]) if node["folder"] else node["url"]]
            for node in nodes if node["type"] != 10]


class ChromiumTest(cli.TestCase):
    def imported(self, content):
        source, document = self.path("Bookmarks"), self.path("imported.tbln")
        with open(source, "wb") as file:
            file.write(content)
        cli.done("import", "--from", "chromium", source, "-o", document)
        return cli.show(document)

    def test_every_folder_link_and_date_of_chromium_is_imported(self):
        roots = {"1": _items(trees.browsing(5, 400)["children"]), "2": _items(trees.browsing(6, 200)["children"])}
        with chromium.Chromium(chromium.find()) as browser:
            bar, other = browser.fill(roots)[0]["children"][:2]
            stored = browser.bookmarks_file()
        self.assertEqual(json.loads(stored)["version"], 1)
        ours = self.imported(stored)
        self.assertEqual([node["name"] for node in ours["children"]], ["Favourites", "Other Bookmarks"])
        links = folders = 0
        pairs = list(zip(ours["children"], (bar, other)))
        while pairs:
            node, theirs = pairs.pop()
            # The browser reports milliseconds; its file and ours have whole seconds of the microseconds.
            self.assertEqual(node["dateAdded"], theirs["dateAdded"] // 1000, theirs)
            self.assertEqual(node["folder"], "children" in theirs, theirs)
            if not node["folder"]:
                self.assertEqual(node["url"], theirs["url"])
                links += 1
                continue
            folders += 1
            self.assertEqual(len(node["children"]), len(theirs["children"]), theirs["title"])
            for child, other in zip(node["children"], theirs["children"]):
                self.assertEqual(child["name"], other["title"] or "Untitled")
                pairs.append((child, other))
        self.assertEqual(links, 600)
        self.assertGreater(folders, 20)


if __name__ == "__main__":
    if not chromium.find():
        print("Chromium is not installed (apt-get install chromium brings one): nothing was tested.")
        sys.exit(1 if os.environ.get("TABULON_REQUIRE_BROWSER") else 77)
    unittest.main()
