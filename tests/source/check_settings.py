"""Checks the settings of the tree at the given folder: check_settings.py FOLDER. Ends with status 1 if there is a fault."""

import sys
from pathlib import Path

from settings_table import command_line_faults, registered, registration_faults, table_faults, test_faults, text_faults

FOLDERS = ("text", "plist", "html", "url", "bridge", "model", "formats", "opening", "host", "window", "app", "ui", "cli", "main", "platform")


def sources_in(root, folders):
    """Returns path -> text of the sources in these folders."""
    return {str(path.relative_to(root)): path.read_text(encoding="utf-8")
            for folder in folders for path in sorted((root / folder).rglob("*")) if path.suffix in (".h", ".cpp")}


def main():
    root = Path(sys.argv[1])
    source = (root / "base/Settings.h").read_text(encoding="utf-8")
    manual = (root / "docs/settings.md").read_text(encoding="utf-8")
    found = list(table_faults(source, manual))
    found += command_line_faults(source, manual, (root / "cli/SettingKeys.cpp").read_text(encoding="utf-8"))
    found += registration_faults(source, (root / "base/RegisteredDefaults.cpp").read_text(encoding="utf-8"))
    found += text_faults(sources_in(root, FOLDERS))
    found += test_faults(source, sources_in(root, ("tests",)))
    for fault in found:
        print(fault)
    print(f"{len(registered(source))} registered values, {len(found)} faults")
    return 1 if found or not registered(source) else 0


if __name__ == "__main__":
    sys.exit(main())
