"""Text that is being typed in the real program, with real keys, while something else happens: saving, closing, quitting, the end of
the session, another command, a timer, the pointer over another row.
"""

import os
import signal
import subprocess
import time

from desktop_program import check, wait_for
from session import end, run_session_tests
from small_tree import make_document


def open_document(desktop, name="links"):
    document = make_document(desktop, name)
    process = desktop.launch("--theme", os.environ.get("EDITING_THEME", "light"), document)
    desktop.window(f"{name} – Tabulon")
    return document, process


def write(desktop, text):
    desktop.xdotool("type", "--delay", "10", text)


def children(desktop, document):
    return desktop.tree(document)["children"]


def names(desktop, document):
    return [child["name"] for child in children(desktop, document)]


def rename_first_and(desktop, name, *keys):
    document, process = open_document(desktop, name)
    desktop.press("Home", "F2")
    write(desktop, "typed")
    desktop.press(*keys)
    return document, process


def every_way_to_save_or_to_leave(desktop):
    for number, keys in enumerate([["ctrl+s"], ["ctrl+w"], ["ctrl+q"], ["ctrl+shift+e", "ctrl+s"], ["ctrl+f", "ctrl+s"]]):
        document, process = rename_first_and(desktop, f"way{number}", *keys)
        wait_for(f"the name in the file after {keys}", lambda: names(desktop, document)[0] == "typed")
        if keys[0] in ["ctrl+w", "ctrl+q"]:
            check(process.wait(timeout=20) == 0, f"{keys} asks nothing")
        process.terminate()
        process.wait()
        check(names(desktop, document) == ["typed", "Folder", "last"], f"what was typed is kept by {keys}")


def the_close_button(desktop):
    document, process = rename_first_and(desktop, "closed")
    # As window managers close a window, without killing the client.
    subprocess.run(["xdotool", "key", "alt+F4"], env=desktop.environment, check=True)
    check(process.wait(timeout=20) == 0 and names(desktop, document)[0] == "typed",
          "what was typed is kept by the close button")


def the_end_of_the_session(desktop):
    document, process = rename_first_and(desktop, "ended")
    process.send_signal(signal.SIGTERM)
    check(process.wait(timeout=20) == 0 and names(desktop, document)[0] == "typed",
          "what was typed is kept at the end of the session")
    document, process = open_document(desktop, "panel")
    desktop.press("Home", "ctrl+i")
    desktop.window("first")
    desktop.press("ctrl+a")
    write(desktop, "typed in the panel")
    process.send_signal(signal.SIGTERM)
    check(process.wait(timeout=20) == 0 and names(desktop, document)[0] == "typed in the panel",
          "what was typed in the info panel is kept at the end of the session")


def a_timer_does_not_disturb(desktop):
    document, _ = open_document(desktop, "timer")
    desktop.press("ctrl+b")
    write(desktop, "half ")
    wait_for("the document saves itself", lambda: len(children(desktop, document)) == 4)
    write(desktop, "and half")
    desktop.press("Tab")
    write(desktop, "https://typed.example/")
    desktop.press("Return", "ctrl+s")
    wait_for("the new bookmark", lambda: children(desktop, document)[0]["url"] == "https://typed.example/")
    check(names(desktop, document)[0] == "half and half", "a document that saves itself leaves the field open")


def the_pointer_does_not_disturb(desktop):
    document, _ = open_document(desktop, "pointer")
    window = desktop.window("pointer – Tabulon")
    desktop.xdotool("mousemove", "--window", window, "700", "65")  # over the address of the first row
    desktop.press("ctrl+b")
    write(desktop, "new")
    time.sleep(0.8)
    write(desktop, "er")
    desktop.press("Tab")
    time.sleep(0.8)
    write(desktop, "https://typed.example/")
    desktop.press("Return", "ctrl+s")
    wait_for("the new bookmark", lambda: len(children(desktop, document)) == 4)
    wait_for("its name and address",
             lambda: (children(desktop, document)[0]["name"], children(desktop, document)[0]["url"])
             == ("newer", "https://typed.example/"))
    check(names(desktop, document)[1] == "first", "Tab reaches the address of the new bookmark wherever the pointer is")


def keys_stay_in_the_field(desktop):
    document, _ = open_document(desktop, "keys")
    desktop.press("Home", "Down", "F2")
    write(desktop, "two words")
    desktop.press("Up", "Down", "Return", "ctrl+s")
    wait_for("the new name", lambda: names(desktop, document)[1] == "two words")
    check(children(desktop, document)[1]["openFolder"], "Return ends the field and leaves the folder open")


def a_menu_works_on_the_text_of_the_field(desktop):
    document, _ = open_document(desktop, "menus")
    desktop.press("Home", "F2")
    write(desktop, "typed")
    desktop.press("ctrl+a", "ctrl+x")
    window = desktop.window("menus")
    desktop.xdotool("mousemove", "--window", window, "60", "12", "click", "1")  # the Edit menu
    time.sleep(0.5)
    desktop.press("p")
    desktop.press("ctrl+s")
    wait_for("the pasted name", lambda: names(desktop, document)[0] == "typed")
    check(len(children(desktop, document)) == 3, "Paste in the menu goes into the field that is open")


def a_menu_reached_by_keys_works_on_the_text_of_the_field(desktop):
    for number, keys in enumerate([["alt+e"], ["Alt_L", "Right", "Down"]]):
        document, process = open_document(desktop, f"keys{number}")
        desktop.press("Home", "F2")
        write(desktop, "typed")
        desktop.press("Home", *keys)
        time.sleep(0.5)
        desktop.press("d")
        desktop.press("ctrl+s")
        wait_for(f"the name without its first letter after {keys}", lambda: names(desktop, document)[0] == "yped")
        check(len(children(desktop, document)) == 3, "Delete in the menu goes into the field that was open")
        check(end(process) == 0, "the program ends")


def editing_does_not_begin_by_itself_behind_a_menu(desktop):
    document, _ = open_document(desktop, "popup")
    window = desktop.window("popup – Tabulon")
    desktop.press("End")
    desktop.xdotool("mousemove", "--window", window, "100", "48")  # over the name of the first row
    desktop.press("Home")
    time.sleep(1)
    write(desktop, "by itself")
    desktop.press("Return", "ctrl+s")
    wait_for("a name typed into the field that came up by itself", lambda: names(desktop, document)[0] == "by itself")
    desktop.press("End", "Home")
    # The File menu opens within the half second of the timer. The pointer moves to it without crossing the
    # rows.
    desktop.xdotool("mousemove", "--window", window, "20", "10", "click", "1")
    time.sleep(1)
    desktop.press("Escape", "Escape", "Delete", "ctrl+s")
    wait_for("the row is gone, not its text", lambda: names(desktop, document) == ["Folder", "last"])


if __name__ == "__main__":
    run_session_tests([every_way_to_save_or_to_leave, the_close_button, the_end_of_the_session, a_timer_does_not_disturb,
                       the_pointer_does_not_disturb, keys_stay_in_the_field, a_menu_works_on_the_text_of_the_field,
                       a_menu_reached_by_keys_works_on_the_text_of_the_field,
                       editing_does_not_begin_by_itself_behind_a_menu])
