"""Keyed archives as Python's plistlib reads them: from the object table to the tree that `tabulon-cli show --json` prints,
and back in the ways of other writers. It is independent of the program.
"""

import plistlib
import random

UNIX_SECONDS_OF_2001 = 978307200.0
FILE_TYPE = 0x54626C6E

# JSON name, archive key, kind, in the order of the archive.
FIELDS = (
    ("name", "Name", "text"), ("url", "URL", "text"), ("note", "Note", "text"), ("tags", "Tags", "text"),
    ("dateAdded", "DateAdded", "date"), ("dateModified", "DateModified", "date"),
    ("lastChecked", "LastChecked", "date"), ("lastOpened", "LastOpened", "date"),
    ("type", "Type", "integer"), ("label", "Label", "integer"), ("flags", "Flags", "integer"),
    ("status", "Status", "integer"), ("browser", "Browser", "integer"),
    ("folder", "Folder", "boolean"), ("openFolder", "OpenFolder", "boolean"), ("autoTab", "AutoTab", "boolean"),
    ("children", "Children", "list"),
)
KEYS = [key for _, key, _ in FIELDS]


class Unreadable(Exception):
    pass


def read(path):
    """Returns the property list in a file, binary or XML."""
    with open(path, "rb") as file:
        return plistlib.load(file)


def decode(archive):
    """Returns the two objects of a document archive, as (version record, root node): plain values, the node as in JSON."""
    if archive["$archiver"] != "NSKeyedArchiver" or archive["$version"] != 100000:
        raise Unreadable(f"{archive['$archiver']} {archive['$version']}")
    root = _decoded_objects(archive["$objects"])[_index(archive["$top"]["root"])]
    version, node = root
    return version, node


def _decoded_objects(objects):
    """Returns every object of the table as its value. No recursion: the containers are made first and filled afterwards."""
    values = [_empty_value(objects, item) for item in objects]
    for item, value in zip(objects, values):
        if isinstance(value, list):
            value.extend(values[_index(reference)] for reference in item["NS.objects"])
        elif isinstance(value, dict):
            _fill_record(value, item, values)
    return values


def _empty_value(objects, item):
    if not isinstance(item, dict) or "$class" not in item:
        return None if item == "$null" else item
    name = objects[_index(item["$class"])]["$classname"]
    if name in ("NSString", "NSMutableString"):
        return item["NS.string"]
    if name == "NSDate":
        return item["NS.time"] + UNIX_SECONDS_OF_2001
    if name in ("NSArray", "NSMutableArray"):
        return []
    if name in ("Bookmark", "FileVersion"):
        return {}
    raise Unreadable(f"an object of the class {name}")


def _fill_record(record, item, values):
    names = {key: name for name, key, _ in FIELDS}
    for key, value in item.items():
        if key != "$class" and not key.startswith("$"):
            record[names.get(key, key)] = values[_index(value)] if _is_reference(value) else value


def _is_reference(value):
    return isinstance(value, plistlib.UID) or isinstance(value, dict) and "CF$UID" in value


def _index(reference):
    # In XML a reference is a dictionary of one number.
    return reference.data if isinstance(reference, plistlib.UID) else reference["CF$UID"]


class Writer:
    """Builds archives in the ways that the options name, for plistlib."""

    def __init__(self, *, seed=0, shuffle_keys=False, shuffle_objects=False, share=False, boxed_texts=False,
                 list_class="NSMutableArray", ancestry=("NSObject",), numbers_for_booleans=False, unknown_keys=False,
                 leave_out_nulls=False, filler=0, xml=False):
        self._random = random.Random(seed)
        self._options = dict(shuffle_keys=shuffle_keys, boxed_texts=boxed_texts, list_class=list_class,
                             numbers_for_booleans=numbers_for_booleans, unknown_keys=unknown_keys,
                             leave_out_nulls=leave_out_nulls)
        self._shuffle_objects = shuffle_objects
        self._shared = {} if share else None
        self._ancestry = list(ancestry)
        self._classes = {}
        self._xml = xml
        self._objects = ["$null"] + [f"filler {number}" for number in range(filler)]

    def document(self, root, version=1, file_type=FILE_TYPE, extra_elements=0):
        record = {"$class": self._class("FileVersion"), "Version": version, "SortOrder": 7, "FileType": file_type}
        elements = [self._add(self._in_order(record)), self._node(root)] + [self._add("x")] * extra_elements
        top = self._list(elements, "NSArray")
        return self._finished(top)

    def _node(self, node):
        """Adds the nodes of a tree without recursion, children before their parent: references point backwards and forwards."""
        finished = {}
        stack = [(node, False)]
        while stack:
            current, ready = stack.pop()
            children = current["children"] or []
            if not ready:
                stack.append((current, True))
                stack.extend((child, False) for child in children)
                continue
            references = [finished.pop(id(child)) for child in children]
            finished[id(current)] = self._add(self._record(current, references))
        return finished[id(node)]

    def _record(self, node, child_references):
        record = {"$class": self._class("Bookmark")}
        for name, key, kind in FIELDS:
            value = node[name]
            if value is None and self._options["leave_out_nulls"]:
                continue
            record[key] = self._value(kind, value, child_references)
        if self._options["unknown_keys"]:
            record["Colour"] = self._add("mauve")
            record["Weight"] = 12
        return self._in_order(record)

    def _value(self, kind, value, child_references):
        if kind == "integer":
            return value
        if kind == "boolean":
            return int(value) if self._options["numbers_for_booleans"] else value
        if value is None:
            return self._reference(0)
        if kind == "text":
            return self._text(value)
        if kind == "date":
            return self._date(value)
        return self._list(child_references, self._options["list_class"])

    def _text(self, value):
        if not self._options["boxed_texts"]:
            return self._once(("text", value), lambda: value)
        return self._once(("text", value), lambda: {"$class": self._class("NSMutableString"), "NS.string": value})

    def _date(self, value):
        return self._once(("date", value), lambda: {"$class": self._class("NSDate"),
                                                    "NS.time": value - UNIX_SECONDS_OF_2001})

    def _list(self, references, name):
        return self._add(self._in_order({"$class": self._class(name), "NS.objects": references}))

    def _once(self, what, make):
        if self._shared is None:
            return self._add(make())
        if what not in self._shared:
            self._shared[what] = self._add(make())
        return self._shared[what]

    def _class(self, name):
        if name not in self._classes:
            self._classes[name] = self._add({"$classname": name, "$classes": [name] + self._ancestry})
        return self._classes[name]

    def _in_order(self, record):
        if not self._options["shuffle_keys"]:
            return record
        items = list(record.items())
        self._random.shuffle(items)
        return dict(items)

    def _add(self, item):
        self._objects.append(item)
        return self._reference(len(self._objects) - 1)

    def _reference(self, index):
        return {"CF$UID": index} if self._xml else plistlib.UID(index)

    def _finished(self, top):
        objects = self._objects
        if self._shuffle_objects:
            objects, top = self._shuffled(top)
        return {"$version": 100000, "$archiver": "NSKeyedArchiver", "$top": {"root": top}, "$objects": objects}

    def _shuffled(self, top):
        """Returns the table in another order, in which only "$null" has the same place."""
        old_places = list(range(1, len(self._objects)))
        self._random.shuffle(old_places)
        old_places.insert(0, 0)
        new_place = {old: new for new, old in enumerate(old_places)}

        def moved(value):
            if _is_reference(value):
                return self._reference(new_place[_index(value)])
            if isinstance(value, list):
                return [moved(element) for element in value]
            if isinstance(value, dict):
                return {key: moved(element) for key, element in value.items()}
            return value

        return [moved(self._objects[old]) for old in old_places], moved(top)
