"""The rules for the sources of the tree: which folder may include or name the classes of which, how long a file may be, and
that a file says what it contains. Pure functions over a folder; check_sources.py runs them, test_source_rules.py tests them.
"""

import re
from pathlib import Path

MAXIMUM_LINES = 600

SOURCE_FOLDERS = (
    "base", "text", "plist", "html", "url", "bridge", "model", "formats", "opening", "host", "search", "history", "window", "app", "ui", "cli",
    "main", "platform", "tests", "bench", "fuzz",
)

# The rooms, which are folders of the tree, and the rooms that each may include. A room may always include
# itself.
_CODINGS = {"base", "text", "plist"}
_MODEL = _CODINGS | {"model"}
_UPPER = _MODEL | {"formats", "bridge", "opening", "search", "history", "platform"}
_PROOF = _UPPER | {"host", "html", "url", "window", "app", "cli", "platform/fake", "platform/linux"}
ARROWS = {
    "base": set(),
    "text": {"base"},
    "plist": {"base", "text"},
    "html": {"base"},
    "url": {"base", "text"},
    "model": _CODINGS,
    "formats": _MODEL | {"html", "url"},
    "bridge": {"base"},
    "opening": _MODEL | {"platform", "bridge"},
    "host": {"base", "bridge"},
    "search": _MODEL,
    "history": _MODEL,
    "platform": {"base"},
    "platform/fake": {"base", "platform"},
    "platform/linux": {"base", "text", "platform", "bridge"},
    "window": _UPPER,
    "app": _UPPER | {"window"},
    "ui": _UPPER | {"window", "app"},
    "cli": _UPPER | {"window", "app", "platform/fake"},
    "main": _UPPER | {"window", "app", "ui", "cli", "platform/fake", "platform/linux"},
    "bench": _PROOF,
    "bench/ui": _PROOF | {"ui", "bench"},
    "fuzz": _PROOF | {"tests"},
    "tests": _PROOF | {"bench", "fuzz"},
    "tests/ui": _PROOF | {"ui", "tests"},
}

# The rooms that may include Qt or any other part of a desktop.
TOOLKIT_ROOMS = {"ui", "main", "platform/linux", "bench/ui", "tests/ui"}
TOOLKIT_HEADER = re.compile(r"^(Q[A-Za-z]|X11/|xcb/|dbus/|gio/|glib|gtk/|wayland-)")

# Files that the build generates and one source includes.
GENERATED = (".moc", ".inc")

_INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)

# A type of a namespace, which is not indented: declared only, or defined.
_TYPE = r"^(?:class|struct|union|enum(?: class| struct)?) (\w+)"
_DECLARED = re.compile(_TYPE + r"(?: : [\w:]+)?;", re.MULTILINE)
_DEFINED = re.compile(_TYPE + r"(?: final)?(?: :[^;{]*)? ?\{", re.MULTILINE)


def room_of(path):
    """Returns the room that a path relative to the tree's root belongs to, or None for a path outside the rooms."""
    parts = Path(path).parts
    if parts[0] == "platform" and len(parts) > 2:
        return f"platform/{parts[1]}"
    if parts[:2] in (("tests", "ui"), ("bench", "ui")):
        return "/".join(parts[:2])
    return parts[0] if parts[0] in SOURCE_FOLDERS else None


def sources(root):
    """Returns the C++ sources below `root`, as paths relative to it."""
    for folder in SOURCE_FOLDERS:
        for path in sorted((root / folder).rglob("*")):
            if path.suffix in (".h", ".cpp") and path.is_file():
                yield path.relative_to(root)


def include_faults(root, path):
    """Yields a sentence for every include of the file that no arrow allows."""
    room = room_of(path)
    text = (root / path).read_text(encoding="utf-8")
    for quoted, angled in _INCLUDE.findall(text):
        if angled:
            if TOOLKIT_HEADER.match(angled) and room not in TOOLKIT_ROOMS:
                yield f"{path}: <{angled}> is the toolkit's; only {', '.join(sorted(TOOLKIT_ROOMS))} may include it"
            continue
        if quoted.endswith(GENERATED):
            continue
        target = _resolve(root, path, quoted)
        if target is None:
            yield f'{path}: "{quoted}" is no file of the tree'
        elif (other := room_of(target)) != room and other not in ARROWS[room]:
            yield f'{path}: "{quoted}" belongs to {other}, which {room} does not see'


def rooms_of_types(root):
    """Returns the rooms that define a type of the name, for each type that a header of the tree defines."""
    rooms = {}
    for path in sources(root):
        if path.suffix == ".h":
            for name in _DEFINED.findall((root / path).read_text(encoding="utf-8")):
                rooms.setdefault(name, set()).add(room_of(path))
    return rooms


def declaration_faults(root, path, rooms):
    """Yields a sentence for every type that the file declares and that only rooms define which no arrow allows. `rooms` is the
    result of `rooms_of_types`."""
    room = room_of(path)
    visible = ARROWS[room] | {room}
    for name in _DECLARED.findall((root / path).read_text(encoding="utf-8")):
        others = rooms.get(name, set())
        if others and not others & visible:
            yield f"{path}: declares {name} of {', '.join(sorted(others))}, which {room} does not see"
        elif not others and room not in TOOLKIT_ROOMS and re.match(r"Q[A-Z]", name):
            yield f"{path}: declares {name} of the toolkit; only {', '.join(sorted(TOOLKIT_ROOMS))} may use it"


def _resolve(root, path, quoted):
    for candidate in (root / quoted, (root / path).parent / quoted):
        if candidate.is_file():
            return candidate.resolve().relative_to(root.resolve())
    return None


def length_faults(root, path):
    lines = (root / path).read_text(encoding="utf-8").count("\n")
    if lines > MAXIMUM_LINES:
        yield f"{path}: {lines} lines; a file has at most {MAXIMUM_LINES}"


def opening_faults(root, path):
    """Yields a sentence for a file that does not begin with a comment about its contents. A .cpp file beside its own header
    needs none."""
    if path.suffix == ".cpp" and (root / path.with_suffix(".h")).is_file():
        return
    first = (root / path).read_text(encoding="utf-8").split("\n", 1)[0]
    if not re.match(r"// *\W?\w", first):
        yield f"{path}: does not begin with a comment that says what the file contains"


def faults(root):
    """Yields every fault of the tree at `root`, one sentence each, in the order of the files."""
    root = Path(root)
    found = []
    rooms = rooms_of_types(root)
    for path in sources(root):
        found.extend(declaration_faults(root, path, rooms))
        for rule in (include_faults, length_faults, opening_faults):
            found.extend(rule(root, path))
    return found
