"""Proves that the source rules can fail: each rule is checked with a small tree that breaks it, and with one that does not."""

import tempfile
import unittest
from pathlib import Path

import source_rules


class SourceRulesTest(unittest.TestCase):
    def faults_in(self, files):
        with tempfile.TemporaryDirectory() as folder:
            root = Path(folder)
            for name, text in files.items():
                path = root / name
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text, encoding="utf-8")
            return source_rules.faults(root)

    def assert_fault(self, files, *words):
        found = self.faults_in(files)
        self.assertEqual(len(found), 1, found)
        for word in words:
            self.assertIn(word, found[0])

    def include_from(self, source, target):
        return {target: "// Target.\n", source: f'// Source.\n#include "{target}"\n'}

    def test_arrows_down_are_allowed(self):
        for source, target in (
            ("text/A.h", "base/B.h"),
            ("plist/A.h", "text/B.h"),
            ("html/A.h", "base/B.h"),
            ("url/A.h", "base/B.h"),
            ("model/A.h", "base/B.h"),
            ("model/A.h", "plist/B.h"),
            ("formats/import/A.h", "html/B.h"),
            ("formats/import/A.h", "model/B.h"),
            ("formats/import/A.h", "formats/B.h"),
            ("window/A.h", "formats/B.h"),
            ("window/A.h", "platform/Alerts.h"),
            ("app/A.h", "window/B.h"),
            ("ui/outline/A.h", "app/B.h"),
            ("cli/A.h", "platform/fake/B.h"),
            ("main/a.cpp", "platform/linux/B.h"),
            ("platform/Panels.h", "base/B.h"),
            ("platform/fake/A.h", "platform/B.h"),
            ("tests/model/A.cpp", "platform/fake/B.h"),
            ("tests/ui/A.cpp", "ui/B.h"),
        ):
            self.assertEqual(self.faults_in(self.include_from(source, target)), [], (source, target))

    def test_arrows_up_and_sideways_are_not(self):
        for source, target in (
            ("base/A.h", "text/B.h"),
            ("base/A.h", "platform/Alerts.h"),
            ("text/A.h", "plist/B.h"),
            ("plist/A.h", "model/B.h"),
            ("html/A.h", "text/B.h"),
            ("html/A.h", "url/B.h"),
            ("url/A.h", "plist/B.h"),
            ("model/A.h", "formats/B.h"),
            ("model/A.h", "html/B.h"),
            ("model/A.h", "platform/Alerts.h"),
            ("formats/A.h", "window/B.h"),
            ("formats/A.h", "platform/Alerts.h"),
            ("search/A.h", "formats/B.h"),
            ("window/A.h", "app/B.h"),
            ("window/A.h", "url/B.h"),
            ("window/A.h", "platform/fake/B.h"),
            ("app/A.h", "ui/B.h"),
            ("app/A.h", "platform/linux/B.h"),
            ("ui/A.h", "cli/B.h"),
            ("ui/A.h", "platform/linux/B.h"),
            ("cli/A.h", "ui/B.h"),
            ("cli/A.h", "platform/linux/B.h"),
            ("platform/Alerts.h", "model/B.h"),
            ("platform/Panels.h", "window/B.h"),
            ("platform/linux/A.h", "platform/fake/B.h"),
            ("platform/fake/A.h", "model/B.h"),
            ("model/A.h", "tests/B.h"),
            ("tests/model/A.cpp", "ui/B.h"),
        ):
            self.assert_fault(self.include_from(source, target), source, target)

    def test_the_toolkit_stays_in_its_rooms(self):
        for header in ("QString", "QtCore/QString", "X11/Xlib.h", "gio/gio.h"):
            text = f"// Source.\n#include <{header}>\n"
            self.assert_fault({"window/A.h": text}, "window/A.h", header)
            self.assert_fault({"tests/window/A.cpp": text}, header)
            for room in ("ui", "main", "platform/linux", "tests/ui"):
                self.assertEqual(self.faults_in({f"{room}/A.cpp": text}), [])

    def test_a_class_that_is_only_declared_is_an_arrow_too(self):
        for source, target, declaration in (
            ("platform/Alerts.h", "model/Document.h", "class Document"),
            ("platform/Panels.h", "window/Outline.h", "class Outline"),
            ("platform/linux/A.cpp", "model/Document.h", "class Document"),
            ("base/A.h", "text/B.h", "struct B"),
            ("model/A.h", "app/B.h", "enum class B"),
            ("formats/A.h", "app/B.h", "enum class B : std::uint8_t"),
            ("html/A.h", "url/B.h", "class B"),
        ):
            definition = declaration.replace("class Document", "class Document : public Base")
            files = {target: f"// Target.\nnamespace tabulon {{\n{definition} {{\n}};\n}}\n",
                     source: f"// Source.\nnamespace tabulon {{\n{declaration};\n}}\n"}
            name = declaration.split(" :")[0].split()[-1]
            self.assert_fault(files, source, f"declares {name} ", target.split("/", maxsplit=1)[0])

    def test_a_declaration_along_an_arrow_is_allowed(self):
        target = "// Target.\nclass B {\n    class C;\n};\n"
        for source, place in (("model/A.h", "base/B.h"), ("app/A.cpp", "window/B.h"), ("ui/A.h", "ui/document/B.h")):
            self.assertEqual(self.faults_in({place: target, source: "// Source.\nclass B;\n"}), [])
        # Of two classes of one name, one is visible.
        self.assertEqual(self.faults_in({"base/B.h": target, "app/B.h": target, "text/A.h": "// Source.\nclass B;\n"}), [])
        # A class of the file's own, and one of a library.
        self.assertEqual(self.faults_in({"text/A.h": "// Source.\nclass B;\nclass B {\n};\nstruct stat;\n"}), [])

    def test_a_class_of_the_toolkit_is_declared_in_its_rooms(self):
        text = "// Source.\nclass QWidget;\n"
        self.assert_fault({"platform/Alerts.h": text}, "platform/Alerts.h", "declares QWidget of the toolkit")
        self.assertEqual(self.faults_in({"platform/linux/A.h": text, "ui/A.h": text}), [])

    def test_standard_headers_are_free_to_all(self):
        self.assertEqual(self.faults_in({"model/A.h": "// Source.\n#include <queue>\n#include <vector>\n"}), [])

    def test_an_include_of_no_file_is_found(self):
        self.assert_fault({"model/A.h": '// Source.\n#include "model/Gone.h"\n'}, "model/Gone.h")

    def test_what_the_build_makes_is_no_file_of_the_tree(self):
        self.assertEqual(self.faults_in({"html/A.cpp": '// Source.\n#include "Table.inc"\n'}), [])

    def test_an_include_beside_the_file_counts_for_its_room(self):
        files = self.include_from("model/A.h", "model/B.h")
        files["model/A.h"] = '// Source.\n  #  include "B.h"\n'
        self.assertEqual(self.faults_in(files), [])

    def test_a_file_may_have_600_lines_and_no_more(self):
        self.assertEqual(self.faults_in({"model/A.h": "// Long.\n" + "\n" * 599}), [])
        self.assert_fault({"model/A.h": "// Long.\n" + "\n" * 600}, "601 lines")

    def test_a_file_begins_with_what_lives_in_it(self):
        for text in ("#pragma once\n", "// --- x\n", "\n// Late.\n", "//\n", "// -----\n", ""):
            self.assert_fault({"model/A.h": text}, "model/A.h", "begin")
        self.assert_fault({"model/a.cpp": "int x;\n"}, "model/a.cpp", "begin")

    def test_a_header_speaks_for_the_source_beside_it(self):
        self.assertEqual(self.faults_in({"model/A.h": "// A.\n", "model/A.cpp": '#include "model/A.h"\n'}), [])


if __name__ == "__main__":
    unittest.main()
