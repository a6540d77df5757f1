"""Trees for the system tests, in the form of `tabulon-cli show --json`: one that has every value of every field, and
random ones that resemble the bookmarks of users."""

import random


def node(**fields):
    values = {
        "name": None, "url": None, "note": None, "tags": None,
        "dateAdded": None, "dateModified": None, "lastChecked": None, "lastOpened": None,
        "type": 0, "label": 0, "flags": 0, "status": 0, "browser": 0,
        "folder": False, "openFolder": False, "autoTab": False, "children": None,
    }
    unknown = set(fields) - set(values)
    if unknown:
        raise KeyError(unknown)
    return values | fields


def folder(name, children, **fields):
    return node(name=name, folder=True, children=children, **fields)


def link(name, url, **fields):
    return node(name=name, url=url, **fields)


def separator(**fields):
    return node(type=10, **fields)


def master(children):
    return folder("Master", children, openFolder=True)


def every_value(control_characters=True):
    """Returns a tree in which every field has its ordinary, its empty, its null and its extreme values."""
    texts = ["", "plain", "a & b < c > d \" e ' f", "日本語", "Ελληνικά", "العربية", "naïve café", "🎈 non-BMP 𝄞",
             "x" * 15, "y" * 255, "z" * 256, "w" * 70000, "two\nlines\tand a tab"]
    if control_characters:
        texts += ["\u0001 control \u001f", "carriage\rreturn"]
    dates = [None, 0.0, 978307200.0, 978307199.5, 1355526400.0, 1355526400.123456, -62135596800.0, 4102444800.75]
    children = [link(text, text, note=text, tags=text) for text in texts]
    children += [node(), folder("no list", None), folder("empty list", []), node(name="list, no folder", children=[])]
    children += [node(name="date", dateAdded=a, dateModified=b, lastChecked=c, lastOpened=d)
                 for a, b, c, d in zip(dates, dates[1:] + dates, dates[2:] + dates, dates[3:] + dates)]
    children += [node(type=code, label=255 - code, flags=code, status=code) for code in (0, 1, 10, 11, 127, 128, 255)]
    children += [node(browser=index) for index in (1, 255, 256, 65536, 2**31, 2**32 + 1, 2**63 - 1, -1, -(2**63))]
    children += [node(folder=a, openFolder=b, autoTab=c) for a in (False, True) for b in (False, True)
                 for c in (False, True)]
    children += [link("link with children", "http://example.org/", children=[link("inside", "http://example.org/i")])]
    children += [_nested(60)]
    return master(children)


def _nested(depth):
    inner = link("bottom", "http://example.org/bottom")
    for level in range(depth, 0, -1):
        inner = folder(f"level {level}", [inner, separator()], openFolder=level % 2 == 0)
    return inner


_NAMES = ("Wetterbericht", "Ежедневные новости", "天気予報", "Καιρός", "أخبار اليوم", "Tom & Jerry", "a < b > c",
          "\"Zitat\" & 'quote'", "Émile à l'école", "עברית", "हिन्दी समाचार", "100 % Wolle", "C++ reference",
          "Ünïcödé 🎈")
_HOSTS = ("www.example.org", "news.example.com", "docs.example.net", "xn--bcher-kva.example")


def browsing(seed, links):
    """Returns a root whose tree contains only what a bookmark file can express, with whole seconds."""
    source = random.Random(seed)
    root = master([])
    path = [root]
    made = 0
    while made < links:
        here = path[-1]["children"]
        choice = source.random()
        added = float(source.randrange(978307200, 1700000000))
        modified = added + source.randrange(1, 10**7) if source.random() < 0.5 else None
        name = f"{source.choice(_NAMES)} {made}"
        note = f"Über {name}" if source.random() < 0.3 else None
        if choice < 0.08 and len(path) < 9:
            here.append(folder(name, [], dateAdded=added, dateModified=modified))
            if source.random() < 0.85:
                path.append(here[-1])
        elif choice < 0.14 and len(path) > 1:
            path.pop()
        elif choice < 0.20 and here:
            here.append(separator())
        else:
            url = f"https://{source.choice(_HOSTS)}/{made}?q={source.randrange(99)}&lang=de&x=%C3%A4#top"
            here.append(link(name, url, note=note, dateAdded=added, dateModified=modified))
            made += 1
    return root


def walk(root):
    """Yields every node below `root` with its depth, in document order."""
    stack = [(child, 1) for child in reversed(root["children"] or [])]
    while stack:
        current, depth = stack.pop()
        yield current, depth
        stack.extend((child, depth + 1) for child in reversed(current["children"] or []))
