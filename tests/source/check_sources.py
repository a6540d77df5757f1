"""Checks the sources of the tree in a folder by the rules of source_rules.py: check_sources.py FOLDER. Fails if there is a
fault."""

import sys
from pathlib import Path

import source_rules


def main():
    root = Path(sys.argv[1])
    count = sum(1 for _ in source_rules.sources(root))
    if count == 0:
        print(f"{root} holds no sources: wrong folder?")
        return 1
    found = source_rules.faults(root)
    for fault in found:
        print(fault)
    print(f"{count} sources, {len(found)} faults")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
