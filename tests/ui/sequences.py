"""Commands in the real program during other operations, with real keys: each command of the main menu while a
name is being typed and a question is shown in another window, timers that are due, an info panel beside its window, a question that
stays open, another program's clipboard: sequences.py TABULON TABULON_CLI.
"""

import os
import re
import sys
import time

from clipboard_bytes import A, give, given, mozilla
from desktop_program import Failure, check, wait_for
from dragging import place, row
from menu_cases import CASES, TREE, shape, tree
from session import run_session_tests
from small_tree import make_document

PAUSE = 0.12  # seconds until a menu or a window has the keyboard


class Windows:
    """Documents of these trees, each in its own window."""

    def __init__(self, desktop, **sources):
        self.desktop = desktop
        self.paths = {name: make_document(desktop, name, source) for name, source in sources.items()}
        self.process = desktop.launch(*self.paths.values())
        wait_for("the windows", lambda: len(self.found()) == len(self.paths))
        self.windows = self.found()

    def found(self):
        ids = self.desktop.xdotool("search", "--onlyvisible", "--name", "^[a-z0-9]+.? – Tabulon$").split()
        names = {self.desktop.xdotool("getwindowname", window): window for window in ids}
        return {re.sub(r"\*? – Tabulon$", "", name): window for name, window in names.items()}

    def bring_to_front(self, name):
        window = self.windows[name]

        def has_keyboard():
            self.desktop.xdotool("windowactivate", window)
            return self.desktop.xdotool("getwindowfocus") == window
        wait_for(f"the window {name}", has_keyboard)

    def shape(self, name):
        return shape(self.desktop.tree(self.paths[name]))[1:]

    def wait_for_shape(self, name, expected, what):
        try:
            wait_for(what, lambda: self.shape(name) == expected)
        except Failure as failure:
            raise Failure(f"{what}: expected {expected}, the file holds {self.shape(name)}") from failure
        check(True, what)


def press(desktop, keys):
    if keys:
        desktop.xdotool("key", "--delay", "15", *keys.split())


def choose(desktop, keys):
    """Chooses a command of the main menu with keys, which each menu receives when it is shown."""
    desktop.xdotool("key", "--delay", "25", *keys.split())
    time.sleep(0.05)


def front(desktop):
    """Returns the title of the window that has the keyboard."""
    return desktop.xdotool("getwindowfocus", "getwindowname")


def wait_for_front(desktop, title):
    wait_for(f"“{title}” in front", lambda: re.search(title, front(desktop)))
    time.sleep(PAUSE)


def edit_row(desktop, number, text):
    desktop.xdotool("key", "--delay", "5", "Home", *["Down"] * number, "F2", "type", "--delay", "5", text)


def kept(desktop, *path):
    """Returns the file of settings or state, which is written a moment after the first change."""
    try:
        with open(os.path.join(desktop.environment["HOME"], *path), encoding="utf-8") as file:
            return file.read()
    except FileNotFoundError:
        return ""


def run_case(desktop, windows, name, case):
    windows.bring_to_front(name)
    edit_row(desktop, case.row, "typed")
    press(desktop, case.before)
    choose(desktop, case.keys)
    if case.window:
        wait_for_front(desktop, case.window)
    press(desktop, case.after)
    if case.window:
        wait_for(f"the end of “{case.window}”", lambda: not re.search(case.window, front(desktop)))
    if case.setting:
        wait_for(case.setting, lambda: case.setting in kept(desktop, ".config", "tabulon", "tabulon.ini"))
    if case.keys not in ["alt+f s", "alt+f c"]:
        windows.bring_to_front(name)
        press(desktop, "ctrl+s")


def every_command_while_a_name_is_typed(desktop):
    names = {f"case{number}": case for number, case in enumerate(CASES)}
    windows = Windows(desktop, asked=TREE, **{name: case.source for name, case in names.items()})
    windows.bring_to_front("asked")
    choose(desktop, "alt+c d")
    wait_for_front(desktop, "^Tabulon$")
    question = desktop.xdotool("getwindowfocus")
    for name, case in names.items():
        try:
            run_case(desktop, windows, name, case)
        except Failure as failure:
            raise Failure(f"{case.keys}: {failure}") from failure
    for name, case in names.items():
        windows.wait_for_shape(name, case.expected, f"{case.keys} keeps what was typed and works on its row")
    check(desktop.xdotool("search", "--onlyvisible", "--name", "^Tabulon$") == question and windows.shape("asked") == tree("mango"),
          "the document whose question is up has got none of these commands")
    desktop.xdotool("windowactivate", question)
    wait_for_front(desktop, "^Tabulon$")
    press(desktop, "Escape")
    windows.bring_to_front("asked")
    edit_row(desktop, 0, "typed")
    choose(desktop, "alt+f q")
    check(windows.process.wait(timeout=20) == 0 and windows.shape("asked") == tree("typed"), "and is quit with what was typed")


def the_document_saves_itself_meanwhile(desktop):
    chosen = [case for case in CASES if case.keys in ["alt+b o", "alt+s s b"]]
    windows = Windows(desktop, **{f"case{number}": case.source for number, case in enumerate(chosen)})
    for number, case in enumerate(chosen):
        name = f"case{number}"
        windows.bring_to_front(name)
        press(desktop, "End")
        choose(desktop, "alt+l r")
        time.sleep(2)
        edit_row(desktop, case.row, "ty")
        wait_for("the document to save itself", lambda: windows.shape(name)[-1] == "last:2")
        desktop.xdotool("type", "--delay", "5", "ped")
        choose(desktop, case.keys)
        press(desktop, "ctrl+s")
        windows.wait_for_shape(name, [*case.expected[:-1], "last:2"], f"{case.keys} after a save by itself, with a field open")


def a_click_is_about_to_edit(desktop):
    windows = Windows(desktop, one=TREE)
    place(desktop, "one")
    for number, keys, then in [
            (0, "ctrl+Down", tree(inside=["mango", "pear!3", ["Sub-", "deep"]])),
            (1, "ctrl+Up", tree("mango")),
            (0, "ctrl+shift+k", tree("mango", "---")),
            (0, "Delete", tree("---")),
            (5, "ctrl+shift+e", tree("---", inside=["pear!3", ["Sub+", "deep"]], sorted_name="Sorted+")),
            (2, "Shift_L", tree("---", inside=["x!3", ["Sub+", "deep"]], sorted_name="Sorted+"))]:
        press(desktop, "End")
        desktop.xdotool("mousemove", *map(str, row(number)), "click", "1", "key", keys)
        time.sleep(0.7)
        press(desktop, "x ctrl+s")
        what = "a click alone edits after a moment" if keys == "Shift_L" else f"{keys} right after a click edits nothing by itself"
        windows.wait_for_shape("one", then, what)


def panel_of(desktop, name):
    return wait_for(f"the panel of {name}", lambda: desktop.xdotool("search", "--onlyvisible", "--name", f"^{name}$"))


def find(desktop, text):
    desktop.xdotool("key", "ctrl+f", "type", "--delay", "5", text)
    time.sleep(0.4)  # the search begins after a pause in typing


def an_info_panel_is_beside_the_window(desktop):
    windows = Windows(desktop, one=TREE)
    windows.bring_to_front("one")
    find(desktop, "quagga")  # only the panel shows notes
    panel = panel_of(desktop, "kiwi")
    press(desktop, "ctrl+Up ctrl+s")
    moved = tree("mango", inside=["pear!3", "kiwi", ["Sub-", "deep"]], kiwi=())
    windows.wait_for_shape("one", moved, "a row moves while the panel that shows it is beside")
    press(desktop, "ctrl+i")
    time.sleep(0.3)
    check(front(desktop).startswith("one"), "Ctrl+I leaves the keyboard to the find field")
    press(desktop, "Escape ctrl+i")
    wait_for_front(desktop, "^kiwi$")
    check(desktop.xdotool("getwindowfocus") == panel, "without the find field Ctrl+I brings the same panel to the front")
    desktop.xdotool("key", "--delay", "15", "alt+n", "ctrl+a", "type", "renamed")
    windows.bring_to_front("one")
    press(desktop, "ctrl+Up ctrl+s")
    renamed = tree("mango", inside=["renamed", "pear!3", ["Sub-", "deep"]], kiwi=())
    windows.wait_for_shape("one", renamed, "what was typed in the panel is its row's, wherever that moved")
    press(desktop, "Delete ctrl+s")
    windows.wait_for_shape("one", tree("mango", kiwi=()), "a row is deleted while the panel shows it")
    check(not desktop.xdotool("search", "--onlyvisible", "--name", "^(kiwi|renamed)$"), "and the panel goes with it")


def reverting_takes_its_time(desktop):
    windows = Windows(desktop, one=TREE)
    with open(windows.paths["one"], "rb") as file:
        before = file.read()
    windows.bring_to_front("one")
    edit_row(desktop, 0, "typed")
    press(desktop, "Return End Delete")
    choose(desktop, "alt+f r")
    wait_for_front(desktop, "^Tabulon$")
    time.sleep(3.5)
    press(desktop, "alt+r")
    wait_for_front(desktop, "^one – Tabulon$")
    press(desktop, "ctrl+a ctrl+c")
    names = ["mango", "pear", "deep", "kiwi", "b", "d", "a", "c", "last"]

    def shown():  # the contents of a selected folder may be selected as well
        return list(dict.fromkeys(given(desktop, "text/x-moz-url").decode("utf-16-le").split("\n")[1::2]))
    wait_for("the old content in the window", lambda: shown() == names)
    with open(windows.paths["one"], "rb") as file:
        check(file.read() == before, "Revert has the old content back in window and file, however late it was answered")


def another_program_has_the_clipboard(desktop):
    windows = Windows(desktop, one=TREE)
    windows.bring_to_front("one")
    give(desktop, "text/x-moz-url", mozilla(A))
    edit_row(desktop, 0, "typed")
    press(desktop, "ctrl+v Return ctrl+v ctrl+s")
    windows.wait_for_shape("one", tree("typed" + A[0], A[1]), "another program's link goes between the rows, its address into a field")
    press(desktop, "Home ctrl+x")
    give(desktop, "UTF8_STRING", b"theirs\thttps://theirs.example/\n")
    press(desktop, "ctrl+v ctrl+s")
    windows.wait_for_shape("one", tree("theirs", A[1]), "what another program copies after Cut is what is pasted")
    edit_row(desktop, 0, "ours")
    press(desktop, "shift+Home ctrl+x")
    check(given(desktop, "UTF8_STRING") == b"ours", "Cut in a field takes the clipboard over with its text alone")
    give(desktop, "UTF8_STRING", b"two\r\nlines")
    press(desktop, "ctrl+v Return ctrl+s")
    windows.wait_for_shape("one", tree("two lines", A[1]), "lines of another program are one line in a field")


def the_find_field_has_the_keyboard(desktop):
    windows = Windows(desktop, one=TREE, two=TREE)
    windows.bring_to_front("one")
    find(desktop, "same.example")
    choose(desktop, "alt+e i")
    press(desktop, "Escape")
    desktop.xdotool("key", "F2", "type", "--delay", "5", "found")
    press(desktop, "Return ctrl+s")
    windows.wait_for_shape("one", tree("mango", kiwi=["found"]), "Find Next goes to the second match")
    find(desktop, "words")
    press(desktop, "shift+Home")
    choose(desktop, "alt+e c")
    wait_for("the words on the clipboard", lambda: given(desktop, "UTF8_STRING") == b"words")
    press(desktop, "ctrl+s")
    windows.wait_for_shape("one", tree("mango", kiwi=["found"]), "Cut in the menu is for the find field")


def windows_come_and_go(desktop):
    windows = Windows(desktop, one=TREE, two=TREE)
    windows.bring_to_front("one")
    edit_row(desktop, 0, "typed")
    choose(desktop, "alt+w t")
    wait_for_front(desktop, "^two – Tabulon$")
    edit_row(desktop, 0, "typed")
    choose(desktop, "alt+w m")
    wait_for("the window put away", lambda: list(windows.found()) == ["one"])
    windows.bring_to_front("two")
    def recent():
        return "one.tbln" in kept(desktop, ".local", "state", "tabulon", "state.ini")
    wait_for("the list of recent documents", recent)
    choose(desktop, "alt+f p Up Return")
    wait_for("the end of that list", lambda: not recent())
    for name in windows.paths:
        windows.wait_for_shape(name, tree("typed"), f"what was typed in {name} is kept when another window comes to the front")


if __name__ == "__main__":
    tests = [every_command_while_a_name_is_typed, the_document_saves_itself_meanwhile, a_click_is_about_to_edit,
             an_info_panel_is_beside_the_window, reverting_takes_its_time, another_program_has_the_clipboard,
             the_find_field_has_the_keyboard, windows_come_and_go]
    run_session_tests([test for test in tests if not sys.argv[3:] or test.__name__ in sys.argv[3:]], needed=["xclip"])
