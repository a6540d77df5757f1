"""Finding and sorting in the real program, with real keys: the find bar, the info panel, duplicates, sorting, a
click on a column's title. FINDING_PICTURES names a folder for pictures of the screen.
"""

import json
import os
import subprocess
import time

from desktop_program import check, wait_for
from session import run_session_tests

TREE = {"name": "Master", "folder": True, "openFolder": True, "children": [
    {"name": "Checked", "url": "https://valid.example/", "status": 1},
    {"name": "Moved", "url": "https://moved.example/", "status": 2, "label": 5},
    {"name": "Folder", "folder": True, "openFolder": True, "children": [
        {"name": "zebra", "url": "https://z.example/", "note": "a note about quaggas"},
        {"name": "Ape", "url": "HTTPS://valid.example/"}]},
    {"name": "Gone", "url": "https://broken.example/", "status": 3},
    {"name": "Perhaps", "url": "https://unknown.example/", "status": 4}]}


def picture(desktop, name):
    folder = os.environ.get("FINDING_PICTURES")
    if folder:
        time.sleep(0.5)
        subprocess.run(["scrot", "--overwrite", os.path.join(folder, name + ".png")], env=desktop.environment,
                       check=True)


def open_tree(desktop):
    source = os.path.join(desktop.folder, "tree.json")
    document = os.path.join(desktop.folder, "links.tbln")
    with open(source, "w", encoding="utf-8") as file:
        json.dump(TREE, file)
    subprocess.run([desktop.tool, "make", source, "-o", document], check=True)
    desktop.launch("--theme", os.environ.get("FINDING_THEME", "light"), document)
    desktop.window("links – Tabulon")
    return document


def saved(desktop, document, condition):
    desktop.press("ctrl+s")

    def is_so():
        shown = subprocess.run([desktop.tool, "show", "--json", document], capture_output=True, text=True, check=True)
        return condition(json.loads(shown.stdout)["children"])

    wait_for("the change in the file", is_so)


def answer(desktop, *keys):
    """Waits for an alert, answers it with the keys, and waits until it is closed."""
    alert = desktop.window("^Tabulon$")
    desktop.press(*keys)
    wait_for("the end of the alert",
             lambda: alert not in desktop.xdotool("search", "--onlyvisible", "--name", "^Tabulon$").split())


def names(children):
    return [child["name"] for child in children]


def find_a_note(desktop):
    document = open_tree(desktop)
    desktop.press("ctrl+f")
    desktop.xdotool("type", "--delay", "5", "QUAGGA")
    wait_for("the panel", lambda: desktop.xdotool("search", "--onlyvisible", "--name", "zebra"))
    time.sleep(0.5)
    return document


def find_a_note_and_rename_its_link(desktop):
    document = find_a_note(desktop)
    check(desktop.front_title() == "links – Tabulon", "the panel leaves the keyboard to the find field")
    desktop.xdotool("type", "--delay", "5", "S")  # the panel was shown before the word was complete
    time.sleep(0.5)
    check(desktop.front_title() == "links – Tabulon", "so the word is typed to its end")
    desktop.window("zebra")
    picture(desktop, "info")
    desktop.press("alt+n", "ctrl+a")
    desktop.xdotool("type", "--delay", "5", "plains zebra")
    desktop.press("Return")
    desktop.gone("zebra")
    desktop.window("links")
    saved(desktop, document, lambda tree: names(tree[2]["children"]) == ["plains zebra", "Ape"]
          and tree[2]["children"][0]["note"] == "a note about quaggas"
          and tree[2]["children"][0]["dateModified"] is not None)
    desktop.press("Escape")


def rename_a_row_beside_its_panel(desktop):
    document = find_a_note(desktop)
    desktop.press("Escape", "F2")
    desktop.xdotool("type", "--delay", "5", "okapi")
    desktop.press("Return")
    desktop.window("okapi")  # the panel shows the new name
    picture(desktop, "beside")
    desktop.press("alt+n", "Return")
    desktop.gone("okapi")
    desktop.window("links")
    saved(desktop, document, lambda tree: names(tree[2]["children"])[0] == "okapi")


def delete_duplicates(desktop):
    document = open_tree(desktop)
    desktop.press("alt+c", "Up", "Up", "Return")
    desktop.window("^Tabulon$")
    picture(desktop, "delete")
    answer(desktop, "alt+d")
    answer(desktop, "Return")
    desktop.window("links")
    saved(desktop, document, lambda tree: names(tree[2]["children"]) == ["zebra"])


def move_broken_links(desktop):
    document = open_tree(desktop)
    desktop.press("alt+c", "Up", "Return")
    desktop.window("Remove Marked Links")
    desktop.press("alt+b")
    time.sleep(0.5)  # a check box is drawn as pressed for a moment before it changes
    picture(desktop, "remove")
    desktop.press("Return")
    desktop.window("^Tabulon$")
    picture(desktop, "marks")
    answer(desktop, "Return")
    desktop.window("links")
    saved(desktop, document, lambda tree: names(tree) == ["Checked", "Moved", "Folder", "Perhaps", "Waste Basket"]
          and names(tree[-1]["children"]) == ["Gone"])


def read_the_legend(desktop):
    open_tree(desktop)
    desktop.press("alt+c", "Up", "Up", "Up", "Up", "Return")
    desktop.window("What the Marks Mean")
    picture(desktop, "legend")
    desktop.press("Escape")
    desktop.gone("What the Marks Mean")
    check("*" not in desktop.front_title(), "the legend changes nothing")


def sort_a_folder(desktop):
    document = open_tree(desktop)
    desktop.press("Home", "Down", "Down", "alt+s", "Down", "Return")
    saved(desktop, document, lambda tree: names(tree[2]["children"]) == ["Ape", "zebra"]
          and names(tree)[0] == "Checked")


def sort_by_a_title(desktop):
    document = open_tree(desktop)
    window = desktop.window("links – Tabulon")

    def click_title():
        desktop.xdotool("mousemove", "--window", window, "120", "28")
        desktop.xdotool("click", "1")

    click_title()
    desktop.window("^Tabulon$")
    picture(desktop, "question")
    answer(desktop, "alt+y")
    desktop.window("links")
    check("*" not in desktop.front_title(), "the first click sorts nothing")
    click_title()
    saved(desktop, document, lambda tree: names(tree) == ["Folder", "Checked", "Gone", "Moved", "Perhaps"])


if __name__ == "__main__":
    run_session_tests([find_a_note_and_rename_its_link, rename_a_row_beside_its_panel, delete_duplicates,
                       move_broken_links, read_the_legend, sort_a_folder, sort_by_a_title])
