"""XBEL as GLib writes it, whose format GTK uses for its list of recent files. Ends with status 77 if GLib is missing."""

import sys
import unittest

import cli
import glib_bookmarks


class GLibTest(cli.TestCase):
    def test_every_bookmark_that_glib_writes_is_imported(self):
        file, document = self.write("recent.xbel", glib_bookmarks.sample()), self.path("imported.tbln")
        cli.done("import", "--from", "xbel", file, "-o", document)
        imported = cli.show(document)["children"]
        self.assertEqual(
            [(node["url"], node["name"], node["note"], node["dateAdded"], node["dateModified"]) for node in imported],
            [(address, title or None, note or None, added, added)
             for address, title, note, added in glib_bookmarks.SAMPLE])
        self.assertEqual([(node["folder"], node["tags"]) for node in imported],
                         [(False, None)] * len(glib_bookmarks.SAMPLE))


if __name__ == "__main__":
    if not glib_bookmarks.find():
        print("GLib is not installed (apt-get install libglib2.0-0 brings it): nothing was tested.")
        sys.exit(77)
    unittest.main()
