"""Bookmarks copied between the real program and the bookmark manager of a real Firefox, both ways, a selection of a page in it, and a
folder dragged to its toolbar: browser_clipboard.py TABULON TABULON_CLI.

Ends with status 77 without a display or a browser, unless TABULON_REQUIRE_BROWSER is set.
"""

import os
import sys
import time

from browser_dragging import BROWSER_PLACE, BROWSER_SIZE, CORNER_OF, OPEN, PREFERENCES, page, window_of
from clipboard_bytes import A, B, C, INNER, copy, given, nodes, open_many, paste_behind_all, saved
from desktop_program import wait_for
from dragging import drag, open_one, place, row
from session import check, run_session_tests

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "system"))
import firefox  # noqa: E402

FILL = """await PlacesUtils.bookmarks.insertTree({guid: PlacesUtils.bookmarks.toolbarGuid, children: [
    {url: "https://one.example/?a=1&b=2", title: "One, “日本” & <b>"},
    {url: "https://two.example/", title: "Two"},
    {title: "Folder", type: PlacesUtils.bookmarks.TYPE_FOLDER, children: [
        {url: "https://in.example/", title: "In"},
        {type: PlacesUtils.bookmarks.TYPE_SEPARATOR},
        {title: "Inner", type: PlacesUtils.bookmarks.TYPE_FOLDER, children: [{url: "https://deep.example/", title: "Deep"}]}]},
    {type: PlacesUtils.bookmarks.TYPE_SEPARATOR}]});
PlacesUtils.tagging.tagURI(Services.io.newURI("https://two.example/"), ["tag"]);"""
# Opens the library at the toolbar's folder, selects rows, and copies them or pastes.
IN_LIBRARY = """const library = window.openDialog("chrome://browser/content/places/places.xhtml", "", "chrome,dialog=no,resizable");
const rest = time => new Promise(resolve => window.setTimeout(resolve, time));
await new Promise(resolve => library.addEventListener("load", resolve, {once: true}));
await rest(1500);
library.PlacesOrganizer.selectLeftPaneContainerByHierarchy(args[1]);
await rest(700);
const tree = library.document.getElementById("placeContent");
tree.focus();
tree.view.selection.clearSelection();
for (const index of args[2]) tree.view.selection.toggleSelect(index);
if (args[0] == "copy") tree.controller.copy(); else await tree.controller.paste();
await rest(700);
library.close();"""
# Hides the hint that an empty toolbar shows.
NO_HINT = """const hint = document.getElementById("personal-toolbar-empty");
if (hint) hint.hidden = true;"""
CONTENT = """const item = node => node.children || node.type == "text/x-moz-place-container"
    ? [node.title, ...(node.children ?? []).map(item)] : node.uri ? [node.title, node.uri] : null;
return item(await PlacesUtils.promiseBookmarksTree(args[0])).slice(1);"""
ONE, TWO = ("One, “日本” & <b>", "https://one.example/?a=1&b=2"), ("Two", "https://two.example/")
FOLDER = ["Folder", ("In", "https://in.example/"), None, ["Inner", ("Deep", "https://deep.example/")]]
TOOLBAR, MENU = "toolbar_____", "menu________"


def start_firefox(session):
    return firefox.Firefox(firefox.find(), environment=session.environment, preferences=PREFERENCES)


# The links are in the HTML form of a copied selection. Its text form contains only the names.
PAGE = """<!DOCTYPE html><meta charset="utf-8"><title>Page of links</title><p>Before
<a href="https://one.example/?a=1&amp;b=2">One, “日本” &amp; &lt;b></a>, between,
<a href="https://two.example/">Two</a> and <b><a href="https://in.example/#x">Three</a></b> after</p>
"""
LINKS_OF_PAGE = [("One, “日本” & <b>", "https://one.example/?a=1&b=2"), ("Two", "https://two.example/"),
                 ("Three", "https://in.example/#x")]


def paste_page(session, path, browser):
    """Copies the whole front page of `browser`, and pastes it."""
    window = window_of(session, "Page of links")
    session.xdotool("windowactivate", "--sync", window, "mousemove", "--window", window, "300", "400", "click", "1")

    def selected():  # repeated: the page ignores keys before it is ready
        session.xdotool("key", "ctrl+a", "ctrl+c")
        time.sleep(0.3)
        return b"https://two.example/" in given(session, "text/html").replace(b"\0", b"")
    wait_for(f"a selection in {browser}", selected)
    check("://" not in given(session, "UTF8_STRING").decode(), f"the text that {browser} copies has no address")
    place(session, "one")
    paste_behind_all(session, path, LINKS_OF_PAGE, f"the links of a selection in {browser}, with their titles")


def out_of_firefoxs_library(session):
    path = open_one(session)
    with start_firefox(session) as browser:
        browser.run(FILL)
        for rows, expected in [([0], [ONE]), ([0, 1], [ONE, TWO]), ([2], [FOLDER]), ([1, 2, 3], [TWO, FOLDER, None])]:
            browser.run(IN_LIBRARY, "copy", TOOLBAR, rows)
            place(session, "one")
            paste_behind_all(session, path, expected, f"out of Firefox's library: {expected}")
        two = session.tree(path)["children"][-3]
        check(two["tags"] == "tag", f"with its tags ({two['tags']})")
        browser.run(OPEN, page(PAGE))
        paste_page(session, path, "Firefox")


def into_firefoxs_library(session):
    open_many(session)
    copy(session, 0, 3)
    with start_firefox(session) as browser:
        browser.run(IN_LIBRARY, "paste", MENU, [])
        arrived = [tuple(item) for item in browser.run(CONTENT, MENU)][:5]  # the browser's own folder is after these
        check(arrived == [link[::-1] for link in [A, B, *INNER, C]], f"into Firefox's library ({arrived})")


def a_folder_to_firefoxs_toolbar(session):
    open_many(session)
    with start_firefox(session) as browser:
        browser.run(FILL + NO_HINT)
        (x, y), (width, height) = BROWSER_PLACE, BROWSER_SIZE
        browser.call("WebDriver:SetWindowRect", {"x": x, "y": y, "width": width, "height": height})
        window_of(session, "Mozilla Firefox")
        time.sleep(1)
        place(session, "many")
        corner = browser.run(CORNER_OF, "#PlacesToolbarItems .bookmark-item")

        def dropped(number, links):
            drag(session, row(number), (corner[0] + 250, corner[1] + 40), (corner[0] + 2, corner[1] + 10), rest=0.3)
            time.sleep(0.5)
            toolbar = [tuple(item) if item and isinstance(item[1], str) else item for item in browser.run(CONTENT, TOOLBAR)]
            return toolbar[:len(links)] == [link[::-1] for link in links] or print(toolbar)
        wait_for("a bookmark on the toolbar", lambda: dropped(0, [A]))
        check(True, "a bookmark goes to Firefox's toolbar with its title")
        wait_for("the links of a folder on the toolbar", lambda: dropped(2, INNER))
        check(True, "a folder dragged to Firefox's toolbar hands over its links with their titles")


if __name__ == "__main__":
    if not firefox.find():
        print("there is no Firefox")
        sys.exit(1 if os.environ.get("TABULON_REQUIRE_BROWSER") else 77)
    run_session_tests([out_of_firefoxs_library, into_firefoxs_library, a_folder_to_firefoxs_toolbar], needed=["xclip"])
