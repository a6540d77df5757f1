"""The texts of base/EnglishTexts.cpp against the keys that the sources use: a key without a text, a text without a use.
check_texts.py runs it, test_text_keys.py tests it.

A key is a string literal at one of these places:
- in the first argument of text(), format() and counted(),
- in an argument whose parameter is called key or somethingKey, of any function, lambda or struct of the sources,
- in a member initializer .somethingKey = "…",
- in the initializer of a variable that is called key or k…Keys,
- in a row of to_array<Struct>({…}) at the place of a member that is called somethingKey,
- in a pair of `for (const auto& [x, key] : {std::pair(x, "…"), …})` at the place of the name key or somethingKey,
- in a return statement of a function that is called keyOf,
- in the initializer of a constant or of an array that is named at one of the places of arguments and members.
A literal beside a + is a part of a key. Keys that are put together from a key and a suffix are found by the literals of
`key + …`. A member that is a key in some rows only, such as `.text` in `texts.text(row.text)`, is no place of keys, but its
literals count as uses of their texts. No other literal is a use.
"""

import re

_ENTRY = re.compile(r'\{"((?:[^"\\]|\\.)*)",\s*"')
_LITERAL = r'"((?:[^"\\\n]|\\.)*)"'
_TOKENS = re.compile(r"//[^\n]*|/\*.*?\*/|'(?:[^'\\\n]|\\.)+'|\"(?:[^\"\\\n]|\\.)*\"", re.DOTALL)
_KEY_PARAMETER = re.compile(r"(?:std::string_view|const std::string&|std::string|const char\*)\s+(?:key|\w+Key)\b")
_FUNCTION = re.compile(r"(?:\b(\w+)\s*=\s*\[[^\]]*\]|\b(\w+))\s*\(((?:[^()]|\([^()]*\))*)\)")
_MEMBER = re.compile(r"\.\w+Key\s*=\s*([^,;{}]*)")
_CONSTANT = re.compile(r"\bconstexpr (?:auto|std::string_view|const char\*) (k\w+)(?:\[\])?\s*=([^;]*);")
_ONE_OR_LIST = re.compile(r"\s*(?:L|\{\s*L(?:\s*,\s*L)*\s*,?\s*\})\s*")
_BINDING = re.compile(r"\bfor \(const auto& \[([^\]]*)\] :\s*(?=\{)")
_KEY_FUNCTION = re.compile(r"\bkeyOf\([^()]*\)\s*(?=\{)")
_PART = re.compile(r"\+\s*(?:" + _LITERAL + r"|\([^()]*\))|" + _LITERAL + r"\s*\+")
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


def _keys_in(expression, constants):
    """Returns the keys that an expression can have as its value, from the literals of constants: name -> literals."""
    whole = _PART.sub(" ", expression)
    names = re.findall(r"\bk[A-Z]\w*", re.sub(_LITERAL, " ", whole))
    return _literals(whole) + [key for name in names for key in constants.get(name, ())]


def _constants(source):
    """Returns constant or array of literals -> its literals."""
    return {name: _literals(initializer) for name, initializer in _CONSTANT.findall(source)
            if _ONE_OR_LIST.fullmatch(re.sub(_LITERAL, "L", initializer))}


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


def _arguments(source, functions, before=r"(?<!fmt::)(?<!list\.)\b"):
    """Yields the arguments that are keys, of all calls."""
    for match in re.finditer(before + r"(\w+)\s*\(", source):
        if match.group(1) in functions:
            parts = _split(_balanced(source, match.end() - 1))
            yield from (parts[place] for place in functions[match.group(1)] if place < len(parts))


def _keys_of_bindings(source):
    for match in _BINDING.finditer(source):
        names = [name.strip() for name in match.group(1).split(",")]
        for element in _split(_balanced(source, match.end())):
            parts = _split(_balanced(element, element.find("("))) if "(" in element else []
            for name, part in zip(names, parts):
                if re.fullmatch(r"key|\w+Key", name):
                    yield from _literals(part)


def _keys_of_functions(source):
    for match in _KEY_FUNCTION.finditer(source):
        for returned in re.findall(r"\breturn ([^;]*);", _balanced(source, match.end())):
            yield from _literals(returned)


def _keys_of_rows(source, structs):
    for match in re.finditer(r"to_array<(\w+)>\(", source):
        rows = _balanced(source, match.end() - 1).strip()
        for row in _split(rows[1:-1]) if match.group(1) in structs else ():
            parts = _split(row.strip()[1:-1]) if row.strip().startswith("{") else []
            for place in structs[match.group(1)]:
                if place < len(parts) and not parts[place].strip().startswith("."):
                    yield from _literals(parts[place])


class _Tree:
    """The places of keys in the sources, a mapping of path -> text."""

    def __init__(self, sources):
        self.plain = {path: _without_comments(text) for path, text in sources.items()}
        self.functions, self.structs, self.constants = {}, {}, {}
        for path, text in self.plain.items():
            if path.endswith(".h"):
                self.structs.update(_key_members(text))
                self.constants.update(_constants(text))
                for function, places in _key_parameters(text).items():
                    self.functions.setdefault(function, set()).update(places)

    def arguments(self, path, text):
        """Returns the arguments that are keys, in one source."""
        if path.startswith(_WITHOUT_TEXTS):
            return list(_arguments(text, _CALLS, before=r"\btexts\."))
        return list(_arguments(text, {**self.functions, **_key_parameters(text), **_CALLS}))

    def keys(self, path, text):
        """Returns the keys in one source."""
        constants = {**self.constants, **_constants(text)}
        found = [key for argument in self.arguments(path, text) for key in _keys_in(argument, constants)]
        if path.startswith(_WITHOUT_TEXTS):
            return found
        found += _keys_of_rows(text, {**self.structs, **_key_members(text)})
        found += [key for value in _MEMBER.findall(text) for key in _keys_in(value, constants)]
        found += [key for initializer in _VARIABLE.findall(text) for key in _literals(initializer)]
        return found + list(_keys_of_bindings(text)) + list(_keys_of_functions(text))


def used(sources):
    """Returns the keys that the sources use, from a mapping of path -> text: key -> path."""
    tree, keys = _Tree(sources), {}
    for path, text in tree.plain.items():
        for key in tree.keys(path, text):
            keys.setdefault(key, path)
    return keys


def _sometimes_used(sources):
    """Returns the literals of members that are passed as keys somewhere, but are no keys in other rows."""
    tree = _Tree(sources)
    members = {name for path, text in tree.plain.items() for argument in tree.arguments(path, text)
               for name in re.findall(r"\.(\w+)\s*$", argument)}
    return {key for text in tree.plain.values() for name in members
            for key in re.findall(r"\." + name + r"\s*=\s*" + _LITERAL, text)}


def _suffixes(sources):
    return {suffix for text in sources.values() for part in _SUFFIX.findall(text) for suffix in _literals(part)} | {":one"}


def faults(table, sources):
    """Yields a sentence for each difference between the table of texts and the sources."""
    known, keys = texts(table), used(sources)
    for key, path in sorted(keys.items()):
        if key and key not in known:
            yield f"{path}: there is no text for the key \"{key}\""
    uses = set(keys) | _sometimes_used(sources)
    suffixes = _suffixes(sources)
    for key in sorted(known):
        stems = {key.removesuffix(suffix) for suffix in suffixes if key.endswith(suffix)}
        if key not in uses and not stems & uses:
            yield f"base/EnglishTexts.cpp: nothing uses the text of \"{key}\""
