"""The settings of base/Settings.h against the table of keys in docs/settings.md, the registered values and the sources.
The faults are a missing key, a key that the program does not have, a different value, and a key in a string literal, in
the program and in its tests.
check_settings.py runs it, test_settings_table.py tests it.
"""

import re

_SETTING = re.compile(r'\bSetting<[\w:]+> (\w+)\{"(\w+)"(?:,\s*"([^"]*)")?\}')
_ENTRY = re.compile(r"\bentry\(settings::(\w+)\)")
# Values that the program stores without a choice of the user are not settings.
_KEY_AS_TEXT = re.compile(r'(\w+)(?:\.|->)(?:\w+ForKey|removeKey|resolve|store)\(\s*"')
_KEY_IN_TEST = re.compile(r'\b(?:(?:\w+ForKey|removeKey|resolve|store)\(|kept\[)\s*"(\w+)"')
_LISTED = re.compile(r"\bsettings::(\w+)\.key")
_LISTED_TEXT = re.compile(r'^    "(\w+)",$', re.MULTILINE)
_STATE = ("state", "state_")
_KEY = re.compile(r"`(\w+)`")


def settings(source):
    """Returns constant -> (key, registered value) of Settings.h. The value is empty where none is registered."""
    return {constant: (key, value) for constant, key, value in _SETTING.findall(source)}


def registered(source):
    """Returns key -> registered value of Settings.h."""
    return {key: value for key, value in settings(source).values() if value}


def documented(text):
    """Returns key -> first value of the tables in settings.md, empty for a key without one, such as a folder."""
    before, section = text.split("\n## Keys\n", 1)
    folders = before.partition("\n## Folders chosen by the user\n")[2]
    values = {key: "" for line in folders.splitlines() if line.startswith("| `") for key in _KEY.findall(line.split("|")[1])}
    for line in section.splitlines():
        cells = [cell.strip() for cell in line.split("|")]
        if len(cells) == 5 and cells[1].startswith("`"):
            for key in _KEY.findall(cells[1]):
                values[key] = cells[2]
    return values


def table_faults(source, text):
    """Yields a sentence for each difference between Settings.h and docs/settings.md."""
    program, manual = registered(source), documented(text)
    for key, value in sorted(settings(source).values()):
        if key not in manual:
            yield f"docs/settings.md does not describe {key}"
        elif manual[key] != value:
            yield f"docs/settings.md has {manual[key] or 'no value'} for {key}, the program {value or 'none'}"
    for key, value in manual.items():
        if value and key not in program:
            yield f"docs/settings.md has a value for {key}, the program has none"


def registration_faults(source, registration):
    """Yields a sentence for each registered value of Settings.h that RegisteredDefaults.cpp leaves out."""
    listed = set(_ENTRY.findall(registration))
    for constant, (key, value) in settings(source).items():
        if value and constant not in listed:
            yield f"base/RegisteredDefaults.cpp leaves out {constant}"


def text_faults(sources):
    """Yields a sentence for each place of the sources, a mapping of path -> text, that names a setting's key as a text."""
    for path, text in sources.items():
        for match in _KEY_AS_TEXT.finditer(text):
            if match.group(1) not in _STATE:
                yield f"{path}: {match.group()}… names a setting as a text; base/Settings.h has a constant for it"


def accepted(source, command_line):
    """Returns the keys that the command line accepts, those with a registered value and those in cli/SettingKeys.cpp."""
    keys = {constant: key for constant, (key, _) in settings(source).items()}
    registered = {key for key, value in settings(source).values() if value}
    listed = {keys.get(constant) for constant in _LISTED.findall(command_line)}
    return registered | listed | set(_LISTED_TEXT.findall(command_line))


def command_line_faults(source, text, command_line):
    """Yields a sentence for each key of docs/settings.md that cli/SettingKeys.cpp leaves out, and the reverse."""
    listed, manual = accepted(source, command_line), set(documented(text))
    for key in sorted(manual - listed):
        yield f"cli/SettingKeys.cpp leaves out {key}"
    for key in sorted(listed - manual):
        yield f"docs/settings.md does not describe {key} of cli/SettingKeys.cpp"


def test_faults(source, tests):
    """Yields a sentence for each place of the tests, a mapping of path -> text, that names a setting's key as a text.

    Tests of the services that store settings also use keys that no setting has.
    """
    keys = {key for key, _ in settings(source).values()}
    for path, text in tests.items():
        for match in _KEY_IN_TEST.finditer(text):
            if match.group(1) in keys:
                yield f"{path}: {match.group()}… names a setting as a text; base/Settings.h has a constant for it"
