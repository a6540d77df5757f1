"""Bookmark files between the tool and a real Firefox, both ways: the browser's own import and export, no network.
Ends with status 77 where there is no Firefox, unless TABULON_REQUIRE_BROWSER is set.
"""

import os
import sys
import unittest

import cli
import firefox
import trees

_IMPORT = """
    const {BookmarkHTMLUtils} = ChromeUtils.importESModule("resource://gre/modules/BookmarkHTMLUtils.sys.mjs");
    const {PlacesUtils} = ChromeUtils.importESModule("resource://gre/modules/PlacesUtils.sys.mjs");
    await PlacesUtils.bookmarks.eraseEverything();
    await BookmarkHTMLUtils.importFromFile(args[0], {replace: false});
    return await PlacesUtils.promiseBookmarksTree(PlacesUtils.bookmarks.menuGuid);
"""

_FILL_AND_EXPORT = """
    const {BookmarkHTMLUtils} = ChromeUtils.importESModule("resource://gre/modules/BookmarkHTMLUtils.sys.mjs");
    const {PlacesUtils} = ChromeUtils.importESModule("resource://gre/modules/PlacesUtils.sys.mjs");
    const dates = node => Object.fromEntries(["dateAdded", "lastModified"].filter(key => key in node).map(
        key => [key, new Date(node[key] * 1000)]));
    const item = node => node.children
        ? {type: PlacesUtils.bookmarks.TYPE_FOLDER, title: node.title, children: node.children.map(item), ...dates(node)}
        : node.url ? {title: node.title, url: node.url, ...dates(node)}
        : {type: PlacesUtils.bookmarks.TYPE_SEPARATOR};
    await PlacesUtils.bookmarks.eraseEverything();
    for (const [guid, children] of Object.entries(args[1]))
        await PlacesUtils.bookmarks.insertTree({guid, children: children.map(item)});
    await BookmarkHTMLUtils.exportToFile(args[0]);
"""


class BrowserTest(cli.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.browser = firefox.Firefox(firefox.find())
        cls.browser.__enter__()
        cls.addClassCleanup(cls.browser.__exit__)

    # From the tool to the browser

    def imported_by_firefox(self, document):
        html = self.path("export.html")
        cli.done("export", "--to", "html", document, "-o", html)
        return self.browser.run(_IMPORT, html)

    def assert_imported(self, tree, *, folders, links, separators):
        """Checks that Firefox has every node of `tree` in its place, and that the expected number of nodes was compared."""
        seen = {"folder": 0, "link": 0, "separator": 0}
        pairs = [(tree, self.imported_by_firefox(self.make(tree)), "")]
        while pairs:
            ours, theirs, path = pairs.pop()
            children, others = ours["children"] or [], theirs.get("children", [])
            self.assertEqual(len(others), len(children), f"children of /{path}")
            for index, (child, other) in enumerate(zip(children, others)):
                place = f"{path}/{index}"
                seen[self._compare(child, other, place)] += 1
                pairs.append((child, other, place))
        self.assertEqual(seen, {"folder": folders, "link": links, "separator": separators})

    def _compare(self, ours, theirs, place):
        if ours["type"] == 10:
            self.assertEqual(theirs["type"], "text/x-moz-place-separator", place)
            return "separator"
        self.assertEqual(theirs["title"], ours["name"], place)
        self.assertEqual(theirs["dateAdded"], int(ours["dateAdded"] or 0) * 1_000_000, place)
        if ours["folder"]:
            # Firefox sets the modified date of a folder to the time at which it inserted the last item. It is
            # not compared.
            self.assertEqual(theirs["type"], "text/x-moz-place-container", place)
            return "folder"
        self.assertEqual(theirs["type"], "text/x-moz-place", place)
        self.assertEqual(theirs["uri"], ours["url"], place)
        modified = ours["dateModified"] if ours["dateModified"] is not None else ours["dateAdded"] or 0
        self.assertEqual(theirs["lastModified"], int(modified) * 1_000_000, place)
        return "link"

    def test_firefox_imports_every_folder_link_separator_and_date(self):
        tree = trees.browsing(seed=11, links=2000)
        nodes = [node for node, _ in trees.walk(tree)]
        folders = sum(node["folder"] for node in nodes)
        separators = sum(node["type"] == 10 for node in nodes)
        self.assertGreater(folders, 100)
        self.assertGreater(separators, 100)
        self.assertGreater(max(depth for _, depth in trees.walk(tree)), 6)
        self.assert_imported(tree, folders=folders, links=2000, separators=separators)

    def test_firefox_imports_what_is_easily_lost(self):
        dates = {"dateAdded": 1355526400.9, "dateModified": 1355526500.0}
        tree = trees.master([
            trees.folder("empty first", [], **dates),
            trees.folder("no list", None, **dates),
            trees.separator(),
            trees.separator(),
            trees.folder("<b>&amp; \"quoted\" 'twice'", [
                trees.folder("only folders", [trees.folder("empty", [], **dates)], **dates),
                trees.link("&lt;not a tag&gt; &#65;", "http://example.org/?a=1&b=%20&copy=2", note="a\nb & <c>", **dates),
                trees.separator(),
            ], **dates),
            trees.link("mail", "mailto:someone@example.org", **dates),
            trees.link("script", "javascript:void(0)", **dates),
            trees.link("file", "file:///tmp/x", **dates),
            trees.link("no dates", "http://example.org/nodates"),
            trees.link("last, with a note", "http://example.org/", note="the end", **dates),
        ])
        self.assert_imported(tree, folders=5, links=6, separators=3)

    # From the browser to the tool

    def imported_from_firefox(self, roots):
        html, document = self.path("firefox.html"), self.path("firefox.tbln")
        self.browser.run(_FILL_AND_EXPORT, html, roots)
        cli.done("import", "--from", "html", html, "-o", document)
        return cli.show(document)

    def assert_items(self, nodes, items, place):
        """Checks that our nodes are Firefox's items, in order and at every depth."""
        pairs = [(nodes, items, place)]
        while pairs:
            ours, theirs, path = pairs.pop()
            self.assertEqual(len(ours or []), len(theirs), f"children of {path}")
            for node, item in zip(ours or [], theirs):
                if "title" not in item:
                    self.assertEqual((node["type"], node["folder"]), (10, False), path)
                    continue
                self.assertEqual(node["name"], item["title"], path)
                self.assertEqual(node["dateAdded"], item["dateAdded"], item["title"])
                self.assertEqual(node["folder"], "children" in item, item["title"])
                if "children" in item:
                    pairs.append((node["children"], item["children"], f"{path}/{item['title']}"))
                else:
                    self.assertEqual(node["url"], item["url"], item["title"])
                    self.assertEqual(node["dateModified"], item["lastModified"], item["title"])

    def test_we_import_every_folder_link_separator_and_date_of_firefox(self):
        def item(node):
            if node["type"] == 10:
                return {}
            dates = {"dateAdded": node["dateAdded"], "lastModified": node["dateModified"] or node["dateAdded"]}
            if node["folder"]:
                return {"title": node["name"], "children": [item(child) for child in node["children"]], **dates}
            return {"title": node["name"], "url": node["url"], **dates}

        menu, toolbar, unfiled = ([item(node) for node in trees.browsing(seed, 300)["children"]] for seed in (1, 2, 3))
        found = self.imported_from_firefox({"menu________": menu, "toolbar_____": toolbar, "unfiled_____": unfiled})
        top = found["children"]
        self.assert_items(top[:-2], menu, "menu")
        self.assertEqual([node["name"] for node in top[-2:]], ["Favourites", "Other Bookmarks"])
        self.assert_items(top[-2]["children"], toolbar, "toolbar")
        self.assert_items(top[-1]["children"], unfiled, "other bookmarks")


if __name__ == "__main__":
    if not firefox.find():
        print("Firefox is not installed (apt-get install firefox-esr brings one): nothing was tested.")
        sys.exit(1 if os.environ.get("TABULON_REQUIRE_BROWSER") else 77)
    unittest.main()
