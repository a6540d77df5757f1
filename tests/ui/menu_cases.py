"""The commands of the main menu, each with the contents of a document after it was chosen while the name of a row was being typed."""

from typing import NamedTuple


def link(name, url, **more):
    return {"name": name, "url": f"https://{url}.example/", **more}


def folder(name, *children, opened):
    return {"name": name, "folder": True, "openFolder": opened, "children": list(children)}


# Two addresses are equal, one link is marked as broken, and each kind of sorting puts "Sorted" into another
# order.
TREE = folder("Master", link("mango", "same"),
              folder("Folder", link("pear", "pear", status=3), folder("Sub", link("deep", "deep"), opened=False), opened=True),
              link("kiwi", "same", note="about quaggas"),
              folder("Sorted", link("b", "x", tags="l", dateAdded=3, dateModified=11, lastOpened=22),
                     link("d", "y", tags="n", dateAdded=2, dateModified=14, lastOpened=21),
                     link("a", "z", tags="m", dateAdded=4, dateModified=12, lastOpened=24),
                     link("c", "w", tags="o", dateAdded=1, dateModified=13, lastOpened=23), opened=False),
              link("last", "last"), opened=True)
ALL_OPEN = folder("Master", folder("Folder", folder("Sub", link("deep", "deep"), opened=True), opened=True),
                  folder("Other", link("else", "else"), opened=True), opened=True)
MANGO, FOLDER, PEAR, SUB, KIWI, SORTED, LAST = range(7)  # the rows of TREE
IN_FOLDER = ["pear!3", ["Sub-", "deep"]]


def shape(node):
    """Returns folders as lists that begin with the name and "+" or "-", links as names; with ":label" and "!status"."""
    marks = (f":{node['label']}" if node["label"] else "") + (f"!{node['status']}" if node["status"] else "")
    if node["folder"]:
        return [node["name"] + ("+" if node["openFolder"] else "-") + marks, *map(shape, node["children"])]
    return "---" if node["type"] == 10 else node["name"] + marks


def tree(*top, name="Folder+", inside=None, kiwi=("kiwi",), sorted_name="Sorted-", in_sorted="bdac", last="last"):
    """Returns the shape of TREE with these changes; `top` is before the first folder."""
    return [*top, [name, *(IN_FOLDER if inside is None else inside)], *kiwi, [sorted_name, *in_sorted], last]


TYPED = tree("typed")


class Case(NamedTuple):
    keys: str  # the keys that choose the command in the menus
    expected: list  # the shape of the tree that is saved then
    row: int = MANGO  # the row whose name is typed
    before: str = ""  # keys in the field after the name is typed
    after: str = ""  # keys after the command was chosen
    window: str = ""  # the title of a window that the command opens and `after` closes
    setting: str = ""  # a line of the settings file that the command writes
    source: dict = TREE


FILE = [
    Case("alt+f n", TYPED, after="ctrl+w", window="^Untitled"),
    Case("alt+f o", TYPED, after="Escape", window="^Open"),
    Case("alt+f s", TYPED),
    Case("alt+f a", TYPED, after="Escape", window="^Save the bookmarks"),
    Case("alt+f r", tree("typedtwice"), before="Return F2 End t w i c e", after="Escape", window="^Tabulon$"),
    Case("alt+f v", TYPED, after="Escape", window="^Versions of"),
    Case("alt+f e", TYPED, after="Escape", window="^Export the bookmarks"),
    Case("alt+f c", TYPED),
]

EDIT = [  # the first five work on the text of the field
    Case("alt+e c", tree("rest"), before="shift+Home", after="r e s t Return"),
    Case("alt+e o", tree("typedtyped"), before="shift+Home", after="End ctrl+v Return"),
    Case("alt+e p", tree("typedtyped"), before="shift+Home ctrl+c End", after="Return"),
    Case("alt+e d", tree("yped"), before="Home", after="Return"),
    Case("alt+e s", tree("all"), after="a l l Return"),
    Case("alt+e f", TYPED, after="k i w i Escape"),
]

VIEW = [
    Case("alt+v e", tree("mango", inside=["pear!3", ["typed+", "deep"]]), SUB),
    Case("alt+v x", tree("mango", name="typed+", inside=["pear!3", ["Sub+", "deep"]]), FOLDER),
    Case("alt+v p", tree("typed", inside=["pear!3", ["Sub+", "deep"]], sorted_name="Sorted+")),
    Case("alt+v c", [["typed-", ["Sub+", "deep"]], ["Other+", "else"]], 0, source=ALL_OPEN),
    Case("alt+v o", [["typed-", ["Sub-", "deep"]], ["Other+", "else"]], 0, source=ALL_OPEN),
    Case("alt+v l", [["typed-", ["Sub-", "deep"]], ["Other-", "else"]], 0, source=ALL_OPEN),
    Case("alt+v z", TYPED, setting="FontSize=12"),
    Case("alt+v m", TYPED, setting="FontSize=11"),
]

BOOKMARK = [
    Case("alt+b n", tree("typed", "new"), after="n e w Return"),
    Case("alt+b e", tree("mango", inside=["pear!3", ["typed+", "new", "deep"]]), SUB, after="n e w Return"),
    Case("alt+b w", tree("typed", ["new-"]), after="n e w Return"),
    Case("alt+b i", tree("typed", "---")),
    Case("alt+b g", TYPED, after="Escape", window="^typed"),
    Case("alt+b r", tree("again"), after="a g a i n Return"),
    Case("alt+b m", tree("mango", inside=["pear!3", "typed", ["Sub-", "deep"]], kiwi=()), KIWI),
    Case("alt+b o", tree(inside=["typed", *IN_FOLDER])),
    Case("alt+b s", TYPED, after="Escape", window="^Save the link"),
]

CLEAN_UP = [
    Case("alt+c s", TYPED, setting="ShowMarks=YES"),
    Case("alt+c c", tree("typed", inside=["pear", ["Sub-", "deep"]])),
    Case("alt+c w", TYPED, after="Escape", window="^What the Marks Mean"),
    Case("alt+c f", tree("typed", kiwi=["kiwi!5"])),
    Case("alt+c d", TYPED, after="Escape", window="^Tabulon$"),
    Case("alt+c r", TYPED, after="Escape", window="^Remove Marked"),
]

OTHERS = [
    Case("alt+i k", TYPED, after="Escape", window="^Select a bookmark file in HTML"),
    Case("alt+i l", TYPED, after="Escape", window="^Select a web page"),
    Case("alt+i x", TYPED, after="Escape", window="^Select a bookmark file in XBEL"),
    Case("alt+i n", TYPED, after="Escape", window="^Select a text file"),
    Case("alt+i f", TYPED, after="Return", window="^Tabulon$"),
    Case("alt+h a", TYPED, after="Return", window="^Tabulon$"),
]


def labels():
    """Returns a case for each label; the first one removes that of the row."""
    for label in range(12):
        yield Case(f"alt+l {'Down ' * label}Return", tree(f"typed:{label}" if label else "typed"))


def imports():
    """Returns a case for each browser: a panel, or a sentence for two of them."""
    for browser in range(10):
        yield Case(f"alt+i {'Down ' * browser}Return", TYPED, after="Escape", window="^(Please select|Tabulon$)")


def sorts():
    """Returns a case for each field, in both directions."""
    for letter, order in [("b", "abcd"), ("y", "cbda"), ("t", "badc"), ("d", "cdba"), ("a", "bacd"), ("e", "dbca")]:
        yield Case(f"alt+s {letter}", tree("mango", sorted_name="typed-", in_sorted=order), SORTED)
        yield Case(f"alt+s s {letter}", tree("mango", sorted_name="typed-", in_sorted=order[::-1]), SORTED)


CASES = [*FILE, *EDIT, *VIEW, *BOOKMARK, *CLEAN_UP, *OTHERS, *labels(), *imports(), *sorts()]
