"""A question of one document in the real program: the other windows stay usable, a second question is shown in one of them,
quitting waits, and changes in the meantime are kept. QUESTIONS_PICTURES names a folder for pictures of the screen.
"""

import os
import subprocess
import time

from desktop_program import check, wait_for
from session import run_session_tests
from small_tree import make_document

DUPLICATES = {"name": "Master", "folder": True, "openFolder": True, "children": [
    {"name": "kept", "url": "https://same.example/"}, {"name": "twice", "url": "https://same.example/"}]}


def picture(desktop, name):
    folder = os.environ.get("QUESTIONS_PICTURES")
    if folder:
        time.sleep(0.5)
        subprocess.run(["scrot", "--overwrite", os.path.join(folder, name + ".png")], env=desktop.environment,
                       check=True)


def names(desktop, document):
    return [child["name"] for child in desktop.tree(document)["children"]]


def alerts(desktop):
    return desktop.xdotool("search", "--onlyvisible", "--name", "^Tabulon$").split()


def ask(desktop, name, alerts_then):
    """Deletes the duplicates of the document, up to the question."""
    desktop.window(f"{name}.* Tabulon")
    desktop.press("alt+c", "Up", "Up", "Return")
    wait_for(f"the question of {name}", lambda: len(alerts(desktop)) == alerts_then)
    time.sleep(0.3)
    return desktop.xdotool("getactivewindow")


def answer(desktop, alert, key):
    desktop.xdotool("windowactivate", alert)
    wait_for("the question in front", lambda: desktop.xdotool("getactivewindow") == alert)
    time.sleep(0.3)
    desktop.press(key)


def the_other_windows_stay_usable(desktop):
    first = make_document(desktop, "one", DUPLICATES)
    second = make_document(desktop, "two", DUPLICATES)
    process = desktop.launch("--theme", os.environ.get("QUESTIONS_THEME", "light"), first, second)
    desktop.wait_for_titles("one – Tabulon", "two – Tabulon")
    of_one = ask(desktop, "one", 1)
    desktop.window("two – Tabulon")
    desktop.press("End", "F2")
    desktop.xdotool("type", "--delay", "10", "renamed")
    desktop.press("ctrl+s")
    wait_for("the name in the other file", lambda: names(desktop, second)[-1] == "renamed")
    check(names(desktop, first) == ["kept", "twice"], "another window is usable while a question is up")
    desktop.press("ctrl+q")
    time.sleep(1)
    check(process.poll() is None and len(alerts(desktop)) == 1, "quitting waits for the answer")
    of_two = ask(desktop, "two", 2)
    picture(desktop, "two-questions")
    answer(desktop, of_one, "alt+d")
    time.sleep(0.5)
    check(len(alerts(desktop)) == 2, "the question that came last is answered first")
    answer(desktop, of_two, "alt+d")
    summary = wait_for("what was deleted", lambda: [a for a in alerts(desktop) if a not in (of_one, of_two)])
    answer(desktop, summary[0], "Return")
    wait_for("the end of it", lambda: alerts(desktop) == [of_one])
    answer(desktop, of_one, "Escape")
    wait_for("the end of the first question", lambda: not alerts(desktop))
    desktop.window("two.* Tabulon")
    desktop.press("ctrl+q")
    check(process.wait(timeout=20) == 0, "then the program can be quit")
    check((names(desktop, first), names(desktop, second)) == (["kept", "twice"], ["kept"]),
          "each answer holds for its own document")


def what_was_deleted_is_put_back(desktop):
    document = make_document(desktop, "back")
    desktop.launch("--theme", os.environ.get("QUESTIONS_THEME", "light"), document)
    desktop.window("back – Tabulon")
    desktop.press("ctrl+a", "Delete", "ctrl+s")
    wait_for("the deletion in the file", lambda: names(desktop, document) == [])
    picture(desktop, "deleted")
    desktop.press("alt+p", "ctrl+s")
    wait_for("the bookmarks in the file", lambda: names(desktop, document) == ["first", "Folder", "last"])
    check(desktop.tree(document)["children"][1]["children"][0]["name"] == "inside", "Put Back restores what was deleted")
    desktop.press("alt+l", "Down", "Down", "Return")
    picture(desktop, "labelled")


if __name__ == "__main__":
    run_session_tests([the_other_windows_stay_usable, what_was_deleted_is_put_back])
