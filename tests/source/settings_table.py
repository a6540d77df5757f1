"""The table of keys in docs/settings.md against the values that the program registers: a key that is missing there, one
that the program does not know, another value. check_settings.py runs it, test_settings_table.py tests it.
"""

import re

_REGISTERED = re.compile(r'\{"(\w+)", "([^"]*)"\}')
_KEY = re.compile(r"`(\w+)`")


def registered(source):
    """Key -> value of the table in RegisteredDefaults.cpp."""
    return dict(_REGISTERED.findall(source))


def documented(text):
    """Key -> value at first of the table in settings.md; the empty text for none."""
    values = {}
    section = text.split("\n## Keys\n", 1)[1]
    for line in section.splitlines():
        cells = [cell.strip() for cell in line.split("|")]
        if len(cells) == 5 and cells[1].startswith("`"):
            for key in _KEY.findall(cells[1]):
                values[key] = cells[2]
    return values


def faults(source, text):
    """A sentence for each difference."""
    program, manual = registered(source), documented(text)
    for key, value in program.items():
        if key not in manual:
            yield f"docs/settings.md does not tell of {key}"
        elif manual[key] != value:
            yield f"docs/settings.md has {manual[key] or 'no value'} for {key}, the program {value}"
    for key, value in manual.items():
        if value and key not in program:
            yield f"docs/settings.md has a value for {key}, the program has none"
