"""Checks docs/settings.md of the tree at the given folder: check_settings.py FOLDER. Ends with 1 when there is a fault."""

import sys
from pathlib import Path

from settings_table import faults, registered


def main():
    root = Path(sys.argv[1])
    source = (root / "base/RegisteredDefaults.cpp").read_text(encoding="utf-8")
    found = list(faults(source, (root / "docs/settings.md").read_text(encoding="utf-8")))
    for fault in found:
        print(fault)
    print(f"{len(registered(source))} registered values, {len(found)} faults")
    return 1 if found or not registered(source) else 0


if __name__ == "__main__":
    sys.exit(main())
