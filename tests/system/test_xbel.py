"""Exported XBEL, read by a validating parser, libxml2's xmllint, with the document type of XBEL 1.0: the
constructs that are valid, and those that intentionally are not."""

import os
import random
import re
import shutil
import subprocess
import unittest
import xml.etree.ElementTree

import cli
import trees

_DTD = os.path.join(os.path.dirname(os.path.abspath(__file__)), "xbel-1.0.dtd")
_FAULT = re.compile(r"^.*?:(\d+): element (\w+): validity error : (.*)$")

# The errors that xmllint reports for the four constructs of the export that the document type does not allow.
_LONG_FORM = "Element separator was declared EMPTY this one has content"
_TAGS = "Element metadata was declared EMPTY this one has content"
_NO_URL = "Element bookmark does not carry attribute href"
_TAGS_AFTER_NOTE = (
    "Element bookmark content does not follow the DTD, expecting (title? , info? , desc?), got ({}desc info )")


def links(count, seed):
    """Returns links and folders without tags; each link has a URL."""
    generator = random.Random(seed)
    texts = [None, "", "plain", "a & b < c > d \" e ' f", "日本語", "🎈", "]]>", "<!-- x -->", "two\nlines", " "]
    root = trees.master([])
    folders = [root]
    for index in range(count):
        parent = folders[-1 - generator.randrange(min(3, len(folders)))]
        common = {"note": generator.choice(texts), "name": generator.choice(texts)}
        if generator.random() < 0.2:
            child = trees.folder(common.pop("name"), [], openFolder=generator.random() < 0.5, tags="never", **common)
            folders.append(child)
        else:
            child = trees.link(common.pop("name"), f"https://{index}.example/?a=1&b=\"<'>", **common)
        parent["children"].append(child)
    return root


@unittest.skipUnless(shutil.which("xmllint"), "xmllint (libxml2-utils) is not installed")
class Validation(cli.TestCase):
    def export(self, tree):
        file = self.path("out.xbel")
        cli.done("export", "--to", "xbel", self.make(tree), "-o", file)
        return file

    def faults(self, file):
        """Returns the faults that xmllint finds: line, element, sentence. The file has to be well-formed."""
        process = subprocess.run(["xmllint", "--noout", "--nonet", "--dtdvalid", _DTD, file],
                                 capture_output=True, text=True, timeout=120, check=False)
        found = [_FAULT.match(line) for line in process.stderr.splitlines() if "does not validate" not in line]
        self.assertNotIn(None, found, process.stderr)
        self.assertEqual(process.returncode, 3 if found else 0, process.stderr)
        return sorted((int(match[1]), match[2], match[3]) for match in found)

    def test_the_document_type_separates_valid_from_invalid(self):
        start = '<?xml version="1.0"?>\n<!DOCTYPE xbel>\n'
        right = self.write("right.xbel", f"{start}<xbel version=\"1.0\"><title>t</title><folder folded=\"no\" id=\"f\">"
                           "<title/><info><metadata owner=\"o\"/></info><desc/><separator/></folder>"
                           "<bookmark href=\"u\" added=\"d\"/><alias ref=\"f\"/></xbel>".encode())
        self.assertEqual(self.faults(right), [])
        for wrong in ("<bookmark/>", "<folder folded=\"perhaps\"/>", "<unknown/>", "text", "<alias ref=\"none\"/>",
                      "<separator> </separator>", "<bookmark href=\"u\"><desc/><title/></bookmark>"):
            with self.subTest(wrong=wrong):
                file = self.write("wrong.xbel", f"{start}<xbel version=\"1.0\">{wrong}</xbel>".encode())
                self.assertNotEqual(self.faults(file), [])

    def test_folders_and_links_with_urls_are_valid(self):
        self.assertEqual(self.faults(self.export(trees.master([]))), [])
        for seed in range(5):
            self.assertEqual(self.faults(self.export(links(500, seed))), [], f"seed {seed}")

    def test_exactly_separators_tags_and_links_without_url_are_not(self):
        tree = trees.master([
            trees.separator(),
            trees.link("no url", None),
            trees.link("tags", "u", tags="x"),
            trees.link("note and tags", "u", note="n", tags="x"),
            trees.link(None, "u", note="n", tags="x"),
            trees.link("note", "u", note="n", tags=""),
            trees.folder("f", [trees.separator(), trees.link("", "")], note="n", tags="x"),
        ])
        file = self.export(tree)
        lines = self.read("out.xbel").decode().split("\n")
        expected = []
        for number, line in enumerate(lines, start=1):
            line = line.strip("\t")
            if line == "<separator>":
                expected.append((number, "separator", _LONG_FORM))
            elif line.startswith("<metadata"):
                expected.append((number, "metadata", _TAGS))
            elif line.startswith("<bookmark"):
                if line == "<bookmark>":
                    expected.append((number, "bookmark", _NO_URL))
                content = [part.lstrip("\t<").split(">")[0] for part in lines[number:number + 3]]
                if "desc" in content and content[content.index("desc") + 1:][:1] == ["info"]:
                    expected.append((number, "bookmark", _TAGS_AFTER_NOTE.format("title " * (content[0] == "title"))))
        self.assertEqual(len(expected), 2 + 2 + 3 + 2)
        self.assertEqual(self.faults(file), sorted(expected))

    def test_without_these_elements_everything_is_valid(self):
        tagged = trees.browsing(1, 300)
        for node, _ in trees.walk(tagged):
            node["tags"] = node["note"]
        for tree in (trees.every_value(control_characters=False), trees.browsing(2, 300), tagged):
            file = self.export(tree)
            self.assertNotEqual(self.faults(file), [])
            root = xml.etree.ElementTree.parse(file)
            for parent in list(root.iter()):
                for child in list(parent):
                    if child.tag in ("separator", "info") or (child.tag == "bookmark" and "href" not in child.attrib):
                        parent.remove(child)
            root.write(self.path("rest.xbel"), encoding="UTF-8", xml_declaration=True)
            self.assertEqual(self.faults(self.path("rest.xbel")), [])

    def test_a_control_character_makes_it_no_xml_but_we_read_it_back(self):
        file = self.export(trees.master([trees.link("a\x01b", "https://example.org/")]))
        process = subprocess.run(["xmllint", "--noout", file], capture_output=True, text=True, timeout=60, check=False)
        self.assertEqual(process.returncode, 1)
        self.assertIn("PCDATA invalid Char value 1", process.stderr)
        cli.done("import", "--from", "xbel", file, "-o", self.path("back.tbln"))
        self.assertEqual(cli.show(self.path("back.tbln"))["children"][0]["name"], "a\x01b")


if __name__ == "__main__":
    unittest.main()
