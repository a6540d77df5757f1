"""Documents between the tool and two independent readers and writers of property lists: Python's plistlib and libplist's
plistutil."""

import plistlib
import shutil
import subprocess
import unittest

import cli
import keyed_archive
import trees


class WhatWeWrite(cli.TestCase):
    def test_plistlib_reads_every_field_of_every_node(self):
        document = self.make(trees.every_value())
        version, root = keyed_archive.decode(keyed_archive.read(document))
        self.assertEqual(version, {"Version": 1, "SortOrder": 0, "FileType": 1415736430})
        self.assert_same_tree(root, cli.show(document))
        self.assert_same_tree(root, trees.every_value())

    def test_keys_come_in_the_order_of_the_format(self):
        archive = keyed_archive.read(self.make(trees.every_value()))
        nodes = [item for item in archive["$objects"] if isinstance(item, dict) and "OpenFolder" in item]
        self.assertGreater(len(nodes), 100)
        for item in nodes:
            self.assertEqual([key for key in item if key != "$class"], keyed_archive.KEYS)

    def test_classes_name_their_ancestors(self):
        archive = keyed_archive.read(self.make(trees.every_value()))
        classes = {item["$classname"]: item["$classes"] for item in archive["$objects"]
                   if isinstance(item, dict) and "$classname" in item}
        self.assertEqual(classes["Bookmark"], ["Bookmark", "NSObject"])
        self.assertEqual(classes["FileVersion"], ["FileVersion", "NSObject"])
        self.assertEqual(classes["NSDate"], ["NSDate", "NSObject"])

    def test_plistlib_reads_two_hundred_thousand_folders_inside_each_other(self):
        depth = 200_000
        html = self.write("deep.html", b"<DT><H3>f</H3>\n<DL><p>\n" * depth)
        document = self.path("deep.tbln")
        cli.done("import", "--from", "html", html, "-o", document)
        _, node = keyed_archive.decode(keyed_archive.read(document))
        levels = 0
        while node["children"]:
            self.assertEqual(len(node["children"]), 1)
            node = node["children"][0]
            levels += 1
        self.assertEqual(levels, depth)

    @unittest.skipUnless(shutil.which("plistutil"), "plistutil (libplist-utils) is not installed")
    def test_plistutil_turns_it_into_xml_that_says_the_same(self):
        # XML cannot contain control characters.
        tree = trees.every_value(control_characters=False)
        document = self.make(tree)
        xml = self.path("document.xml")
        subprocess.run(["plistutil", "-i", document, "-o", xml, "-f", "xml"], check=True, timeout=120)
        self.assertTrue(self.read("document.xml").startswith(b"<?xml"))
        self.assert_same_tree(cli.show(xml), tree)


class WhatOthersWrite(cli.TestCase):
    """A test for each way of writing. Each file is read completely."""

    def assert_reads(self, tree, form=plistlib.FMT_BINARY, **options):
        writer = keyed_archive.Writer(xml=form == plistlib.FMT_XML, **options)
        data = plistlib.dumps(writer.document(tree), fmt=form, sort_keys=False)
        self.assert_same_tree(cli.show(self.write("theirs", data)), tree)

    def test_as_plistlib_writes_it(self):
        self.assert_reads(trees.every_value())

    def test_keys_and_objects_in_any_order(self):
        for seed in range(5):
            self.assert_reads(trees.every_value(), seed=seed, shuffle_keys=True, shuffle_objects=True)

    def test_shared_texts_and_dates(self):
        self.assert_reads(trees.every_value(), share=True)

    def test_texts_as_objects(self):
        self.assert_reads(trees.every_value(), boxed_texts=True)
        self.assert_reads(trees.every_value(), boxed_texts=True, share=True, shuffle_objects=True)

    def test_immutable_child_lists(self):
        self.assert_reads(trees.every_value(), list_class="NSArray")

    def test_longer_ancestries(self):
        self.assert_reads(trees.every_value(), ancestry=("Item", "Thing", "NSObject"))

    def test_numbers_for_booleans(self):
        self.assert_reads(trees.every_value(), numbers_for_booleans=True)

    def test_unknown_keys(self):
        self.assert_reads(trees.every_value(), unknown_keys=True, shuffle_keys=True)

    def test_missing_keys_are_null(self):
        self.assert_reads(trees.every_value(), leave_out_nulls=True)

    def test_references_of_one_to_four_bytes(self):
        small = trees.master([trees.link("a", "b")])
        for filler in (0, 300, 70_000):
            self.assert_reads(small, filler=filler, shuffle_objects=True)

    def test_a_large_tree(self):
        self.assert_reads(trees.browsing(seed=7, links=20_000), shuffle_keys=True, shuffle_objects=True, share=True)

    def test_xml(self):
        tree = trees.every_value(control_characters=False)
        self.assert_reads(tree, form=plistlib.FMT_XML)
        self.assert_reads(tree, form=plistlib.FMT_XML, shuffle_keys=True, shuffle_objects=True, share=True,
                          boxed_texts=True, list_class="NSArray", numbers_for_booleans=True, unknown_keys=True)

    def test_the_sort_order_is_ignored_and_the_root_is_called_master(self):
        tree = trees.every_value() | {"name": "Something else", "openFolder": False}
        data = plistlib.dumps(keyed_archive.Writer().document(tree), fmt=plistlib.FMT_BINARY, sort_keys=False)
        found = cli.show(self.write("theirs", data))
        self.assertEqual((found["name"], found["openFolder"]), ("Master", True))


class WhatIsRefused(cli.TestCase):
    def assert_refused(self, data):
        process = cli.run("show", "--json", self.write("wrong", data))
        self.assertEqual(process.returncode, 1, process.stderr)
        self.assertEqual(process.stdout, b"")
        error = process.stderr.decode()
        self.assertTrue(error.startswith("tabulon-cli: ") and error.endswith("\n") and error.count("\n") == 1, error)

    def refused_document(self, **changes):
        tree = trees.master([trees.link("a", "b")])
        self.assert_refused(plistlib.dumps(keyed_archive.Writer().document(tree, **changes),
                                           fmt=plistlib.FMT_BINARY, sort_keys=False))

    def test_another_version(self):
        self.refused_document(version=2)
        self.refused_document(version=2**32 + 1)

    def test_another_type(self):
        self.refused_document(file_type=0x54626C6F)
        self.refused_document(file_type=2**32 + keyed_archive.FILE_TYPE)

    def test_property_lists_that_are_no_archives(self):
        for content in ({}, [], "text", {"$archiver": "NSKeyedArchiver"}, {"$objects": [], "$top": {"root": 0}}):
            self.assert_refused(plistlib.dumps(content, fmt=plistlib.FMT_BINARY))

    def test_a_node_in_two_places_and_inside_itself(self):
        writer = keyed_archive.Writer()
        archive = writer.document(trees.master([trees.folder("a", []), trees.folder("b", [])]))
        lists = [item for item in archive["$objects"] if isinstance(item, dict) and "NS.objects" in item]
        full = next(item for item in lists if len(item["NS.objects"]) == 2 and item is not lists[-1])
        twice = full["NS.objects"]
        full["NS.objects"] = [twice[0], twice[0]]
        self.assert_refused(plistlib.dumps(archive, fmt=plistlib.FMT_BINARY, sort_keys=False))
        full["NS.objects"] = twice
        empty = next(item for item in lists if not item["NS.objects"])
        empty["NS.objects"] = [twice[0]]
        self.assert_refused(plistlib.dumps(archive, fmt=plistlib.FMT_BINARY, sort_keys=False))


if __name__ == "__main__":
    unittest.main()
