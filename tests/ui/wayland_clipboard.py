"""Copies between the real program's clipboard and those of other programs under Wayland, both ways:
wayland_clipboard.py TABULON TABULON_CLI.

Ends with status 77 if sway is missing, unless TABULON_REQUIRE_BROWSER is set.
"""

import time

from clipboard_bytes import (A, B, C, FOLDER, FOLDER_ROWS, INNER, ROW_A, ROW_B, ROW_C, XBEL, bookmark_file, check_forms,
                             check_xbel, mozilla, nodes)
from desktop_program import wait_for
from dragging import document
from session import check
from wayland_session import run_wayland_tests

HTML = bookmark_file(ROW_A, ROW_B, ROW_C, FOLDER_ROWS)
TREE_OF_XBEL = [["Folder “日本”", ("In", "https://in.example/?a&b"), ["Inner", ("Deep", "https://deep.example/")]], None,
                ("Last", "https://last.example/")]


def open_document(session, name, html):
    path = document(session, name, html)
    session.launch(path)

    def takes_keys():  # returns whether the window has received the keys
        session.type("-k", "Home", "-M", "ctrl", "-M", "shift", "-k", "e", "-m", "shift", "-k", "s", "-m", "ctrl")
        return session.tree(path)["children"][-1]["openFolder"]
    wait_for("the window", takes_keys)
    session.type("-M", "ctrl", "-M", "shift", "-k", "l", "-m", "shift", "-k", "s", "-m", "ctrl")
    wait_for("the folder closed again", lambda: not session.tree(path)["children"][-1]["openFolder"])
    return path


def what_is_given(session):
    open_document(session, "many", HTML)
    for what, keys, links, tree in [
            ("one bookmark", ["-k", "Home"], [A], [A[::-1]]),
            ("three bookmarks", ["-k", "Home", "-M", "shift", "-k", "Down", "-k", "Down", "-m", "shift"], [A, B, C],
             [A[::-1], B[::-1], C[::-1]]),
            ("a folder", ["-k", "End"], INNER, [FOLDER])]:
        session.type(*keys, "-M", "ctrl", "-k", "c", "-m", "ctrl")
        wait_for(f"{what} on the clipboard", lambda: session.given("text/x-moz-url") == mozilla(*links))
        check_forms(session.given, f"{what} under Wayland", *links)
        check_xbel(session, session.given("application/x-xbel"), tree, f"{what} under Wayland")
        text = "\n".join(url for url, _ in links) if what != "a folder" else ""
        check(session.given("text/plain;charset=utf-8").decode() == text, f"{what} under Wayland: text")


def what_is_taken(session):
    path = open_document(session, "taken", HTML)
    expected = nodes(session.tree(path))
    for media_type, content, added in [
            ("text/x-moz-url", mozilla(A), [A[::-1]]),
            ("text/x-moz-url", mozilla(A, B, C), [A[::-1], B[::-1], C[::-1]]),
            ("application/x-xbel", XBEL.encode(), TREE_OF_XBEL),
            ("text/uri-list", b"https://one.example/\r\nhttps://two.example/\r\n",
             [("Untitled", "https://one.example/"), ("Untitled", "https://two.example/")]),
            ("text/plain;charset=utf-8", "One “日本”\thttps://one.example/\r\nhttps://two.example/\r\n".encode(),
             [("One “日本”", "https://one.example/"), ("Untitled", "https://two.example/")])]:
        session.give(media_type, content)
        wait_for("the other program's clipboard", lambda: session.given(media_type) == content)
        time.sleep(0.2)
        session.type("-k", "End", "-M", "ctrl", "-k", "v", "-k", "s", "-m", "ctrl")
        expected = expected + added
        wait_for(f"{len(added)} of {media_type}", lambda: nodes(session.tree(path)) == expected)
        check(True, f"{len(added)} of {media_type} are pasted under Wayland")


if __name__ == "__main__":
    run_wayland_tests([what_is_given, what_is_taken])
