"""Duplicates, removing, sorting and finding against their definitions, on random trees: every pair of links compared,
Python's own sort, a search of every text of every node."""

import json
import random
import unicodedata
import unittest

import cli
import trees

ROUNDS = 40
DUPLICATE, BROKEN, UNKNOWN = 5, 3, 4
WASTE_BASKET = "Waste Basket"
WORDS = ("hit", "HIT", "Hït", "h\u0301it", "b", "B", "aB", "zebra", "", "x1", "x10", "a hit b", "hi", None, None)
URLS = ("http://a/", "HTTP://A/", "http://a", "http://é/", "http://É/", "", "u\x00a", "U\x00A", "u\x00b", None, None)


def random_tree(source):
    root = trees.master([])
    parents = [root]
    for _ in range(source.randrange(60)):
        made = trees.node(name=source.choice(WORDS), url=source.choice(URLS), tags=source.choice(WORDS),
                          note=source.choice(WORDS), status=source.randrange(7),
                          type=10 if source.random() < 0.1 else 0)
        for date in ("dateAdded", "dateModified", "lastOpened"):
            made[date] = source.choice((None, 0.0, -5.0, 978307200.0, 1e9 + source.randrange(5)))
        kind = source.random()
        if kind < 0.25:
            made.update(folder=True, children=[])
        elif kind < 0.3:  # nodes below a link are neither scanned nor sorted
            made.update(children=[trees.link("hit", "http://a/", status=DUPLICATE)])
        source.choice(parents)["children"].append(made)
        if made["folder"]:
            parents.append(made)
    return root


def places(root, prefix=""):
    """Returns the nodes that commands visit, with their paths, in document order."""
    for index, child in enumerate(root["children"]):
        yield f"{prefix}{index}", child
        if child["folder"]:
            yield from places(child, f"{prefix}{index}/")


def links(root):
    return [(path, node) for path, node in places(root) if not node["folder"]]


def small_letters(url):
    return bytes(byte + 32 if 65 <= byte <= 90 else byte for byte in url.encode())


def duplicates(root):
    found = []
    every = [(path, node) for path, node in links(root) if node["url"] is not None]
    for later, (path, node) in enumerate(every):
        if any(small_letters(node["url"]) == small_letters(every[earlier][1]["url"]) for earlier in range(later)):
            found.append(path)
    return found


def without(root, statuses, removed):
    """Returns a copy of the tree without the links of these statuses, which are added to `removed`."""
    children = []
    for child in root["children"] or []:
        if root["folder"] and not child["folder"] and child["status"] in statuses:
            removed.append(child)
        else:
            children.append(without(child, statuses, removed))
    return root | {"children": None if root["children"] is None else children}


def ordered(root, field, descending):
    def key(node):
        value = node[field]
        return (value is None, value.lower() if isinstance(value, str) else value or 0.0)

    children = [ordered(child, field, descending) if child["folder"] else child for child in root["children"]]
    children.sort(key=key, reverse=descending)
    return root | {"children": [c for c in children if c["folder"]] + [c for c in children if not c["folder"]]}


def folded(text):
    plain = "".join(c for c in unicodedata.normalize("NFD", text) if unicodedata.category(c) != "Mn")
    return unicodedata.normalize("NFC", plain).casefold()


def matches(children, part, prefix=""):
    """Returns the number of matches and the path of every visit. Nodes below a link do not count, but are visited right
    after a match in its tags or its note."""
    count, visits = 0, []
    for index, node in enumerate(children):
        path = f"{prefix}{index}"
        name, url, tags, note = (node[field] is not None and folded(part) in folded(node[field])
                                 for field in ("name", "url", "tags", "note"))
        count += (name or url) + tags + note
        visits += [path] * ((name or url) + (tags or note))
        below, visits_below = matches(node["children"] or [], part, path + "/")
        count += below if node["folder"] else 0
        visits += visits_below if node["folder"] or tags or note else []
    return count, visits


class Finding(cli.TestCase):
    def each_tree(self, seed):
        source = random.Random(seed)
        for _ in range(ROUNDS):
            root = random_tree(source)
            yield root, self.make(root)

    def test_duplicates_are_those_of_comparing_every_pair(self):
        marked = self.path("marked.tbln")
        for root, document in self.each_tree(1):
            lines = cli.done("duplicates", "--json", document).decode().splitlines()
            expected = duplicates(root)
            self.assertEqual([json.loads(line)["path"] for line in lines], expected)
            cli.done("duplicates", "--mark", document, "-o", marked)
            for path, node in links(root):
                if path in expected:
                    node["status"] = DUPLICATE
                elif node["status"] == DUPLICATE:
                    node["status"] = 0
            self.assert_same_tree(cli.show(marked), root)
            gone = []
            cli.done("duplicates", "--delete", document, "-o", marked)
            self.assert_same_tree(cli.show(marked), without(root, {DUPLICATE}, gone))
            self.assertEqual(len(gone), len(expected))

    def test_removal_takes_the_statuses_alone_and_moves_them_in_turn(self):
        names = {"duplicate": DUPLICATE, "broken": BROKEN, "unknown": UNKNOWN}
        changed = self.path("changed.tbln")
        source = random.Random(2)
        for root, document in self.each_tree(2):
            asked = source.sample(sorted(names), source.randrange(1, 4))
            removed = []
            left = without(root, {names[name] for name in asked}, removed)
            cli.done("remove", "--status", ",".join(asked), document, "-o", changed)
            self.assert_same_tree(cli.show(changed), left)
            cli.done("remove", "--status", ",".join(asked), "--move", document, "-o", changed)
            found = cli.show(changed)
            if removed:
                basket = found["children"].pop()
                self.assertEqual((basket["name"], basket["folder"], basket["label"]), (WASTE_BASKET, True, 2))
                self.assertEqual(basket["children"], removed[::-1])
            self.assert_same_tree(found, left)

    def test_sorting_is_that_of_python(self):
        keys = {"name": "name", "url": "url", "tags": "tags", "added": "dateAdded", "modified": "dateModified",
                "opened": "lastOpened"}
        changed = self.path("changed.tbln")
        for root, document in self.each_tree(3):
            for _, node in places(root):
                for field in ("name", "url", "tags"):  # letters and digits alone are in the order of their codes
                    node[field] = node[field] and "".join(filter(str.isalnum, folded(node[field])))
            document = self.make(root)
            for key, field in keys.items():
                for options in ([], ["--descending"]):
                    cli.done("--locale", "en_US", "sort", "--by", key, *options, document, "-o", changed)
                    self.assert_same_tree(cli.show(changed), ordered(root, field, bool(options)))

    def test_finding_is_a_look_at_every_text(self):
        for root, document in self.each_tree(4):
            for part in ("hit", "ÍT", "b", "http", "a hit b", "none"):
                lines = [json.loads(line) for line in cli.done("find", "--json", part, document).splitlines()]
                found = lines[0]["matches"], [line["path"] for line in lines[1:]]
                self.assertEqual(found, matches(root["children"], part))


if __name__ == "__main__":
    unittest.main()
