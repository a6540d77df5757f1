"""The texts of base/EnglishTexts.cpp against the keys that the sources use: a key without a text, a text without a use.
check_texts.py runs it, test_text_keys.py tests it.

A key is a string literal at one of these places:
- in the first argument of text(), format() and counted(),
- in an argument whose parameter is called key or somethingKey, of any function, lambda or struct of the sources,
- in a member initializer .somethingKey = "…",
- in the initializer of a variable that is called key or k…Keys,
- in a row of to_array<Struct>({…}) at the place of a member that is called somethingKey.
Keys that are put together from a key and a suffix are found by the literals of `key + …`.
"""

import re

_ENTRY = re.compile(r'\{"((?:[^"\\]|\\.)*)",\s*"')
_LITERAL = r'"((?:[^"\\\n]|\\.)*)"'
_TOKENS = re.compile(r"//[^\n]*|/\*.*?\*/|'(?:[^'\\\n]|\\.)+'|\"(?:[^\"\\\n]|\\.)*\"", re.DOTALL)
_KEY_PARAMETER = re.compile(r"(?:std::string_view|const std::string&|std::string|const char\*)\s+(?:key|\w+Key)\b")
_FUNCTION = re.compile(r"(?:\b(\w+)\s*=\s*\[[^\]]*\]|\b(\w+))\s*\(((?:[^()]|\([^()]*\))*)\)")
_MEMBER = re.compile(r"\.\w+Key\s*=\s*" + _LITERAL)
_VARIABLE = re.compile(r"\b(?:key|k\w*Keys)(?:\[\])?\s*=([^;]*);")
_STRUCT = re.compile(r"\bstruct (\w+) \{(.*?)\n\s*\};", re.DOTALL)
_SUFFIX = re.compile(r"\bkey\)? \+ ([^;,]*)")
_CALLS = {"text": {0}, "format": {0}, "counted": {0}}
# Files whose keys are those of JSON, property lists and settings. Only calls of texts.text() and the like are
# checked in them.
_WITHOUT_TEXTS = ("cli/JsonTree", "formats/import/", "model/Archive", "plist/", "platform/linux/")
# Functions whose parameters are keys of something else: settings, JSON, property lists.
_OTHER_KEYS = re.compile(
    r"^(?:\w+ForKey|removeKey|registeredDefault|resolve|store|change|set|remove|isOptionOf|userFolder|lineFor|value\w*)$")


def texts(source):
    """Returns the keys of the table in EnglishTexts.cpp."""
    return set(_ENTRY.findall(source))


def _without_comments(source):
    """Returns the source without comments and character literals."""
    return _TOKENS.sub(lambda match: match.group() if match.group().startswith('"') else " ", source)


def _split(arguments):
    """Returns the arguments of a list, at the commas outside of brackets and literals."""
    parts, depth, current = [], 0, ""
    for token in re.findall(_LITERAL.replace("(", "(?:", 1) + r"|[^\"]", arguments):
        depth += (token in "([{" and len(token) == 1) - (token in ")]}" and len(token) == 1)
        if token == "," and depth == 0:
            parts.append(current)
            current = ""
        else:
            current += token
    return parts + [current]


def _balanced(source, start):
    """Returns the text between the bracket at `start` and the one that closes it."""
    depth = 0
    for match in re.compile(r'"(?:[^"\\\n]|\\.)*"|[()\[\]{}]').finditer(source, start):
        token = match.group()
        if token[0] != '"':
            depth += 1 if token in "([{" else -1
            if depth == 0:
                return source[start + 1:match.start()]
    return ""


def _literals(expression):
    return re.findall(_LITERAL, expression)


def _key_parameters(source):
    """Returns function -> places of its parameters that are keys."""
    places = {}
    for assigned, name, parameters in _FUNCTION.findall(source):
        function = assigned or name
        found = {place for place, part in enumerate(_split(parameters)) if _KEY_PARAMETER.search(part)}
        if found and not _OTHER_KEYS.match(function):
            places.setdefault(function, set()).update(found)
    return places


def _key_members(source):
    """Returns struct -> places of its members that are keys."""
    places = {}
    for name, body in _STRUCT.findall(source):
        members = [line for line in body.split("\n") if line.rstrip().endswith(";") and "(" not in line.split("=")[0]]
        found = {place for place, line in enumerate(members) if re.search(r"\b\w+Key\b", line)}
        if found:
            places[name] = found
    return places


def _keys_of_calls(source, functions, before=r"(?<!fmt::)(?<!list\.)\b"):
    for match in re.finditer(before + r"(\w+)\s*\(", source):
        if match.group(1) in functions:
            parts = _split(_balanced(source, match.end() - 1))
            for place in functions[match.group(1)]:
                if place < len(parts) and "+" not in re.sub(_LITERAL, "", parts[place]):
                    yield from _literals(parts[place])


def _keys_of_rows(source, structs):
    for match in re.finditer(r"to_array<(\w+)>\(", source):
        rows = _balanced(source, match.end() - 1).strip()
        for row in _split(rows[1:-1]) if match.group(1) in structs else ():
            parts = _split(row.strip()[1:-1]) if row.strip().startswith("{") else []
            for place in structs[match.group(1)]:
                if place < len(parts) and not parts[place].strip().startswith("."):
                    yield from _literals(parts[place])


def used(sources):
    """Returns the keys that the sources use, from a mapping of path -> text: key -> path."""
    plain = {path: _without_comments(text) for path, text in sources.items()}
    shared, structs = {}, {}
    for path, text in plain.items():
        if path.endswith(".h"):
            structs.update(_key_members(text))
            for function, places in _key_parameters(text).items():
                shared.setdefault(function, set()).update(places)
    keys = {}
    for path, text in plain.items():
        if path.startswith(_WITHOUT_TEXTS):
            for key in _keys_of_calls(text, _CALLS, before=r"\btexts\."):
                keys.setdefault(key, path)
            continue
        functions = {**shared, **_key_parameters(text), **_CALLS}
        found = list(_keys_of_calls(text, functions)) + list(_keys_of_rows(text, {**structs, **_key_members(text)}))
        found += _MEMBER.findall(text)
        for initializer in _VARIABLE.findall(text):
            found += _literals(initializer)
        for key in found:
            keys.setdefault(key, path)
    return keys


def _suffixes(sources):
    return {suffix for text in sources.values() for part in _SUFFIX.findall(text) for suffix in _literals(part)} | {":one"}


def faults(table, sources):
    """Yields a sentence for each difference between the table of texts and the sources."""
    known = texts(table)
    for key, path in sorted(used(sources).items()):
        if key and key not in known:
            yield f"{path}: there is no text for the key \"{key}\""
    literals = {literal for text in sources.values() for literal in _literals(_without_comments(text))}
    suffixes = _suffixes(sources)
    for key in sorted(known):
        stems = {key.removesuffix(suffix) for suffix in suffixes if key.endswith(suffix)}
        if key not in literals and not stems & literals:
            yield f"base/EnglishTexts.cpp: nothing uses the text of \"{key}\""
