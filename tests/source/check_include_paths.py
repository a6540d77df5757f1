"""Compiles small files with the include path of each library. The includes that source_rules.py allows compile, and
every other include of the tree fails. check_include_paths.py ROOT PATHS COMPILER, where PATHS has one line for each
library: its folder and the folders of its include path.
"""

import subprocess
import sys
import unittest
from pathlib import Path

from source_rules import ARROWS

ROOT, PATHS, COMPILER = Path(), Path(), ""


def header_of(room):
    """Returns a header of the room as it is included, or None for a room without headers."""
    folder = ROOT / room
    pattern = "*.h" if room == "platform" else "**/*.h"
    found = sorted(folder.glob(pattern)) if folder.is_dir() else []
    return str(found[0].relative_to(ROOT)) if found else None


def libraries():
    """Yields each library's folder and its include path."""
    for line in PATHS.read_text(encoding="utf-8").splitlines():
        room, *path = line.split()
        yield room, path


def compiled(path, text):
    """Preprocesses `text` with the include path."""
    arguments = [COMPILER, "-std=c++20", "-x", "c++", "-E", "-o", "/dev/null", *(f"-I{folder}" for folder in path), "-"]
    return subprocess.run(arguments, input=text, capture_output=True, text=True, cwd=PATHS.parent)


class IncludePathsTest(unittest.TestCase):
    def test_the_libraries_of_a_folder_see_the_folders_of_its_arrows_and_no_others(self):
        headers = {room: header_of(room) for room in ARROWS if header_of(room)}
        seen = {}
        for room, path in libraries():
            text = "".join(f'#if __has_include("{h}")\n#warning sees {r}.\n#endif\n' for r, h in headers.items())
            result = compiled(path, text)
            self.assertEqual(result.returncode, 0, result.stderr)
            seen.setdefault(room, set()).update(r for r in headers if f"sees {r}." in result.stderr)
        for room, others in seen.items():
            self.assertEqual(others, ({room} | ARROWS[room]) & headers.keys(), room)

    def test_a_forbidden_include_does_not_compile(self):
        for room, path in libraries():
            for other in ARROWS.keys() - ARROWS[room] - {room}:
                if header := header_of(other):
                    result = compiled(path, f'#include "{header}"\n')
                    self.assertNotEqual(result.returncode, 0, f"{room} sees {header}")
                    self.assertIn(header, result.stderr)
            self.assertEqual(compiled(path, f'#include "{header_of(room)}"\n').returncode, 0, room)

    def test_the_root_of_the_tree_is_on_no_include_path(self):
        for room, path in libraries():
            self.assertNotIn(ROOT.resolve(), [Path(folder).resolve() for folder in path], room)

    def test_the_libraries_are_there(self):
        rooms = {room for room, _ in libraries()}
        self.assertLessEqual({"base", "model", "formats", "platform", "platform/fake", "window", "app", "cli"}, rooms)


if __name__ == "__main__":
    ROOT, PATHS, COMPILER = Path(sys.argv[1]), Path(sys.argv[2]), sys.argv[3]
    unittest.main(argv=sys.argv[:1])
