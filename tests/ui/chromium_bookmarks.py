"""Bookmarks dragged between the real program and a real Chromium, to its bar and its bookmark manager and from them, and a selection of
a page copied there: chromium_bookmarks.py TABULON TABULON_CLI.

Chromium's manager accepts several at once, its bar a single one, with its contents. Ends with status 77 without a
display or a browser, unless TABULON_REQUIRE_BROWSER is set.
"""

import json
import os
import sys
import time
import urllib.parse

from browser_clipboard import PAGE, paste_page
from browser_dragging import BROWSER_PLACE, BROWSER_SIZE, CHROMIUM, arrives, chromium, window_of
from clipboard_bytes import A, ALL, B, C, FOLDER, given, open_many, paste_behind_all
from desktop_program import wait_for
from dragged_bytes import select
from dragging import drag, open_one, place, row
from session import check, run_session_tests

ONE, TWO = ["One, “日本” & <b>", "https://one.example/?a=1&b=2"], ["Two", "https://two.example/"]
# Returns the position of the page in the window, and of the rows of its list in the page.
GEOMETRY = """const list = document.querySelector("bookmarks-app")?.shadowRoot?.querySelector("bookmarks-list")?.shadowRoot;
const rows = [...list?.querySelectorAll("bookmarks-item") ?? []].map(item => item.getBoundingClientRect());
return [screenX + (outerWidth - innerWidth) / 2, screenY + outerHeight - innerHeight - (outerWidth - innerWidth) / 2,
        ...rows.map(row => [row.left, row.top, row.bottom])];"""
BAR = """const item = node => node.children ? [node.title, ...node.children.map(item)] : [node.title, node.url];
return item((await chrome.bookmarks.getSubTree('1'))[0]).slice(1);"""
BAR_HEIGHT = 37  # in pixels, directly above the page


class Manager:
    """The bookmark manager in the front of a browser, with two bookmarks in the bar."""

    def __init__(self, session, browser):
        browser.fill({"1": [ONE, TWO]})
        window = window_of(session, "Bookmarks - ")
        session.xdotool("windowmove", window, *map(str, BROWSER_PLACE), "windowsize", window, *map(str, BROWSER_SIZE))
        self.left, self.top, first, second = wait_for("two rows", lambda: self.geometry(browser))
        self.row = (self.left + first[0] + 90, self.top + (first[1] + first[2]) / 2)
        self.between = (self.row[0], self.top + first[2])
        self.below = (self.row[0], self.top + second[2] + 60)
        self.first_on_bar = (self.left + 110, self.top - BAR_HEIGHT / 2)
        self.end_of_bar = (self.left + BROWSER_SIZE[0] - 60, self.top - BAR_HEIGHT / 2)

    @staticmethod
    def geometry(browser):
        geometry = browser.run(GEOMETRY)
        return geometry if len(geometry) == 4 and geometry[0] > BROWSER_PLACE[0] else None


def point(place_on_screen):
    return tuple(map(round, place_on_screen))


def into_chromium(session, browser, manager):
    open_many(session)
    bar = [ONE, TWO]
    for what, rows, added, spot, index in [("a bookmark on the bar", [0], [A[::-1]], manager.end_of_bar, 2),
                                           ("a folder on the bar", [2], [FOLDER], manager.end_of_bar, 3),
                                           ("three in the manager", [0, 1, 3], [A[::-1], B[::-1], C[::-1]], manager.between, 1)]:
        def arrived():
            select(session, *rows)
            x, y = row(rows[0])
            drag(session, (x + 30, y), point(manager.below), point(spot), rest=0.3)
            time.sleep(0.5)
            return browser.run(BAR) != bar
        wait_for(what, arrived)
        bar[index:index] = json.loads(json.dumps(added))  # tuples are lists
        check(browser.run(BAR) == bar, f"{what} arrives in Chromium with titles and addresses ({browser.run(BAR)})")
    place(session, "many")
    session.xdotool("key", "ctrl+a", "ctrl+c")
    time.sleep(0.3)
    click(session, manager.below)

    def pasted():
        session.xdotool("key", "ctrl+v")
        time.sleep(0.5)
        return len(browser.run(BAR)) > len(bar)
    wait_for("what is pasted in the manager", pasted)
    all_of_it = json.loads(json.dumps(ALL))
    check(any(browser.run(BAR)[at:at + len(ALL)] == all_of_it for at in range(len(bar))), "everything is pasted in Chromium's manager")
    place(session, "many")
    session.xdotool("key", "ctrl+q")
    return browser.run(BAR)


def click(session, place_on_screen):
    session.xdotool("mousemove", *map(str, point(place_on_screen)), "click", "1")
    time.sleep(0.5)


def out_of_chromium(session, browser, manager):
    path = open_one(session)
    arrives(session, path, "a bookmark of Chromium's bar", point(manager.first_on_bar), *ONE)
    session.xdotool("key", "Home", "Delete")
    arrives(session, path, "a bookmark of Chromium's manager", point(manager.row), *ONE)
    click(session, manager.row)
    session.xdotool("key", "ctrl+a", "ctrl+c")
    wait_for("what Chromium copies", lambda: given(session, "chromium/x-bookmark-entries"))
    place(session, "one")
    expected = [tuples(node) for node in browser.run(BAR)]
    paste_behind_all(session, path, expected, f"{len(expected)} of Chromium's manager with their folders")
    browser.call("Target.createTarget", {"url": "data:text/html;charset=utf-8," + urllib.parse.quote(PAGE)})
    paste_page(session, path, "Chromium")


def tuples(node):
    """Returns items in the form of clipboard_bytes.py: a link as a tuple."""
    return [node[0], *map(tuples, node[1:])] if isinstance(node[-1], list) else tuple(node)


def entry(node):
    return [node["name"], *map(entry, node["children"])] if "children" in node else [node["name"], node["url"]]


def both_ways(session):
    with chromium.Chromium(CHROMIUM, environment=session.environment) as browser:
        manager = Manager(session, browser)
        bar = into_chromium(session, browser, manager)
        out_of_chromium(session, browser, manager)
        kept = json.loads(browser.bookmarks_file())["roots"]["bookmark_bar"]["children"]
        check([entry(node) for node in kept] == bar, "Chromium keeps what was dragged to it")


if __name__ == "__main__":
    if not CHROMIUM:
        print("there is no Chromium")
        sys.exit(1 if os.environ.get("TABULON_REQUIRE_BROWSER") else 77)
    run_session_tests([both_ways], needed=["xclip"])
