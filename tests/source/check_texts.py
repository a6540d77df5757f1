"""Checks the texts of the tree at the given folder: check_texts.py FOLDER. Ends with status 1 if there is a fault."""

import sys
from pathlib import Path

from text_keys import faults, texts, used

FOLDERS = ("base", "text", "plist", "html", "url", "bridge", "model", "formats", "opening", "host", "window", "app", "ui", "cli", "main", "platform")
TABLE = "base/EnglishTexts.cpp"
LEAST_USED = 200  # fewer would mean that the places are not recognized any more


def main():
    root = Path(sys.argv[1])
    sources = {str(path.relative_to(root)): path.read_text(encoding="utf-8")
               for folder in FOLDERS for path in sorted((root / folder).rglob("*"))
               if path.suffix in (".h", ".cpp") and str(path.relative_to(root)) != TABLE}
    table = (root / TABLE).read_text(encoding="utf-8")
    found = list(faults(table, sources))
    for fault in found:
        print(fault)
    count = len(set(used(sources)) & texts(table))
    print(f"{len(texts(table))} texts, {count} of them at places of keys, {len(found)} faults")
    return 1 if found or count < LEAST_USED else 0


if __name__ == "__main__":
    sys.exit(main())
