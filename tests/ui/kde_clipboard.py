"""Bookmarks copied between the real program and KDE's bookmark editor, both ways: kde_clipboard.py TABULON TABULON_CLI.

Ends with status 77 if the editor is missing.
"""

import os
import subprocess
import time
import xml.etree.ElementTree as ElementTree

from clipboard_bytes import A, INNER, copy, open_many, paste_behind_all
from desktop_program import wait_for
from dragging import open_one, place
from session import check, run_session_tests

BOOKMARKS = """<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE xbel>
<xbel><folder><title>Folder “日本”</title><bookmark href="https://in.example/?a&amp;b"><title>In &amp; out</title></bookmark></folder>
<bookmark href="https://last.example/"><title>Last</title></bookmark></xbel>"""


def open_editor(session):
    """Starts the editor with the first row selected and returns its file."""
    path = os.path.join(session.folder, "bookmarks.xml")
    with open(path, "w", encoding="utf-8") as file:
        file.write(BOOKMARKS)
    session.launch(path, program="keditbookmarks", stderr=subprocess.DEVNULL)
    in_front(session)
    time.sleep(1)
    return path


def in_front(session):
    window = wait_for("the editor", lambda: session.xdotool("search", "--onlyvisible", "--class", "keditbookmarks")).split()[-1]
    session.xdotool("windowactivate", "--sync", window)
    time.sleep(1)


def nodes(element):
    """Returns nodes in the form of clipboard_bytes.py."""
    return [[node.findtext("title"), *nodes(node)] if node.tag == "folder" else (node.findtext("title"), node.get("href"))
            for node in element if node.tag in ["folder", "bookmark"]]


def out_of_the_editor(session):
    path = open_one(session)
    open_editor(session)
    for key in ["Home", "Down", "ctrl+c"]:
        session.xdotool("key", key)
        time.sleep(0.3)
    wait_for("the editor's copy", lambda: "xbel" in session.run("xclip", "-selection", "clipboard", "-o", "-t", "TARGETS"))
    tree = nodes(ElementTree.fromstring(session.run("xclip", "-selection", "clipboard", "-o", "-t", "application/x-xbel")))
    link = ("In & out", "https://in.example/?a&b")
    check(tree == [link], f"the editor copies a bookmark ({tree})")
    place(session, "one")
    paste_behind_all(session, path, tree, "out of KDE's editor")


def into_the_editor(session):
    open_many(session)
    copy(session, 0)
    file = open_editor(session)

    def paste_in_editor():
        session.xdotool("key", "ctrl+v")
        time.sleep(0.5)
        session.xdotool("key", "ctrl+s")
        time.sleep(0.5)
        return str(nodes(ElementTree.parse(file).getroot()))
    check(str(A[::-1]) in paste_in_editor(), "into KDE's editor: a bookmark with its name")
    place(session, "many")
    copy(session, 2)
    in_front(session)
    pasted = paste_in_editor()
    check(str(["Folder", INNER[0][::-1], ["Inner", INNER[1][::-1]]]) in pasted, "into KDE's editor: a folder with what is in it")


if __name__ == "__main__":
    run_session_tests([out_of_the_editor, into_the_editor], needed=["xclip", "keditbookmarks"])
