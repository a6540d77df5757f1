"""Rows dragged, copied and pasted in the real program with a real mouse and clipboard: dragging.py TABULON TABULON_CLI DRAG_SOURCE.

Within a window, between two windows, into a folder that is expanded during the drag, and to and from other programs. The
results are read from the saved files, with the command-line tool.
"""

import os
import subprocess
import sys
import time

from desktop_program import Failure
from session import check, run_session_tests, wait_for

DOCUMENT = """<!DOCTYPE NETSCAPE-Bookmark-file-1>
<DL><p>
    <DT><A HREF="https://a/">A</A>
    <DT><A HREF="https://b/">B</A>
    <DT><H3>Folder</H3>
    <DL><p>
        <DT><A HREF="https://inside/">Inside</A>
    </DL><p>
    <DT><A HREF="https://c/">C</A>
</DL><p>
"""
FIRST_PLACE = (50, 50)
FIRST_ROW = 37  # below the top of the window, with the menu bar and the header above it
ROW_HEIGHT = 23


def document(session, name, html=DOCUMENT):
    source = os.path.join(session.folder, name + ".html")
    with open(source, "w") as file:
        file.write(html)
    path = os.path.join(session.folder, name + ".tbln")
    subprocess.run([session.tool, "import", "--from", "html", source, "-o", path], check=True)
    return path


def outline(session, path):
    """Returns the saved tree as nested lists of names."""
    def names(node):
        return [node["name"], [names(child) for child in node["children"]]] if node["folder"] else node["name"]
    return names(session.tree(path))[1]


def saved_outline(session, path, expected):
    """Saves the document in front until its file contains the expected tree."""
    def saved():
        session.xdotool("key", "ctrl+s")
        time.sleep(0.2)
        return outline(session, path) == expected
    try:
        wait_for("the tree", saved)
    except Failure as failure:
        raise Failure(f"expected {expected}, the file holds {outline(session, path)}") from failure


def place(session, title, x=FIRST_PLACE[0], y=FIRST_PLACE[1]):
    window = session.xdotool("search", "--onlyvisible", "--name", f"^{title}.? – Tabulon$").split()[-1]
    session.xdotool("windowmove", window, str(x), str(y), "windowsize", window, "560", "330", "windowactivate", "--sync", window)
    time.sleep(0.4)


def row(number, fraction=0.5, x=FIRST_PLACE[0], y=FIRST_PLACE[1]):
    """Returns a point in the name of a row of a window that was placed."""
    return x + 100, y + FIRST_ROW + int(ROW_HEIGHT * (number + fraction))


def move_along(session, start, end):
    for step in range(1, 13):  # a drag needs several movements
        session.xdotool("mousemove", str(start[0] + (end[0] - start[0]) * step // 12),
                        str(start[1] + (end[1] - start[1]) * step // 12))
        time.sleep(0.03)
    time.sleep(0.2)


def drag(session, start, *places, rest=0.0, key=None):
    """Drags from one point over others, with a pause at each. The key is held when the button is released."""
    session.xdotool("mousemove", str(start[0]), str(start[1]), "mousedown", "1")
    time.sleep(0.1)
    for end in places:
        move_along(session, start, end)
        start = end
        time.sleep(rest)
    if key:
        session.xdotool("keydown", key)
        session.xdotool("mousemove", str(start[0] + 1), str(start[1]))
        time.sleep(0.3)
    session.xdotool("mouseup", "1")
    time.sleep(0.3)
    if key:
        session.xdotool("keyup", key)


def open_one(session, name="one"):
    path = document(session, name)
    session.launch(path)
    session.wait_for_titles(f"{name} – Tabulon")
    place(session, name)
    return path


def rows_move_in_their_window(session):
    path = open_one(session)
    drag(session, row(0), row(1, 0.9))
    saved_outline(session, path, ["B", "A", ["Folder", ["Inside"]], "C"])
    check(True, "a row goes below the next one")
    drag(session, row(0), row(2))
    saved_outline(session, path, ["A", ["Folder", ["B", "Inside"]], "C"])
    check(True, "a row goes onto a collapsed folder, as its first child")
    session.xdotool("mousemove", *map(str, row(0)), "click", "1", "keydown", "shift",
                    "mousemove", *map(str, row(1)), "click", "1", "keyup", "shift")
    drag(session, row(0), row(8))
    saved_outline(session, path, ["C", "A", ["Folder", ["B", "Inside"]]])
    check(True, "several rows dropped below all rows keep their order")


def a_key_makes_a_copy(session):
    path = open_one(session)
    drag(session, row(0), row(8), key="ctrl")
    saved_outline(session, path, ["A", "B", ["Folder", ["Inside"]], "C", "A"])
    check(True, "with Ctrl a row is copied")


def a_folder_opens_under_the_drag(session):
    path = open_one(session)
    drag(session, row(0), row(2), row(3, 0.9), rest=1.2)
    saved_outline(session, path, ["B", ["Folder", ["Inside", "A"]], "C"])
    check(True, "a row goes into the folder that opened")


def a_folder_does_not_go_into_itself(session):
    path = open_one(session)
    session.xdotool("key", "ctrl+shift+e")
    drag(session, row(2), row(3, 0.9))
    saved_outline(session, path, ["A", "B", ["Folder", ["Inside"]], "C"])
    check(True, "a folder stays where it is")


def between_two_windows_rows_are_copied(session):
    first, second = open_one(session), document(session, "two")
    session.launch(second)
    session.wait_for_titles("one – Tabulon", "two – Tabulon")
    place(session, "two", 650, 50)
    place(session, "one")
    drag(session, row(2), row(0, 0.1, 650, 50))
    place(session, "two", 650, 50)
    saved_outline(session, second, [["Folder", ["Inside"]], "A", "B", ["Folder", ["Inside"]], "C"])
    check(outline(session, first) == ["A", "B", ["Folder", ["Inside"]], "C"], "the folder was copied with what is in it")


def links_and_files_of_other_programs_are_taken(session):
    path = open_one(session)
    source = session.launch("copy,move", "https://dragged/", program=sys.argv[3], stdout=subprocess.PIPE, text=True)
    wait_for("the source", lambda: session.xdotool("search", "--onlyvisible", "--name", "^drag source$"))
    time.sleep(0.5)
    drag(session, (1100, 600), row(1, 0.1))
    check(source.communicate(timeout=20)[0].strip() == "copy", "the source is notified of a copy")
    place(session, "one")
    saved_outline(session, path, ["A", "Untitled", "B", ["Folder", ["Inside"]], "C"])
    source = session.launch("copy", "file:///tmp/a%20file.txt", program=sys.argv[3],
                            stdout=subprocess.DEVNULL)
    wait_for("the source", lambda: session.xdotool("search", "--onlyvisible", "--name", "^drag source$"))
    time.sleep(0.5)
    drag(session, (1100, 600), row(8))
    source.wait(timeout=20)
    place(session, "one")
    saved_outline(session, path, ["A", "Untitled", "B", ["Folder", ["Inside"]], "C", "a file.txt"])
    check(session.tree(path)["children"][5]["url"] == "file:///tmp/a file.txt", "a file is a bookmark with its path")


def the_clipboard_goes_between_programs(session):
    path = open_one(session)
    session.xdotool("mousemove", *map(str, row(2)), "click", "1", "key", "ctrl+c")
    session.xdotool("mousemove", *map(str, row(3)), "click", "1", "key", "ctrl+v")
    saved_outline(session, path, ["A", "B", ["Folder", ["Inside"]], "C", ["Folder", ["Inside"]]])
    check(True, "a folder is copied and pasted whole")
    session.xdotool("mousemove", *map(str, row(0)), "click", "1", "key", "ctrl+x")
    saved_outline(session, path, ["B", ["Folder", ["Inside"]], "C", ["Folder", ["Inside"]]])
    text = session.run("xclip", "-selection", "clipboard", "-o")
    check(text == "https://a/", f"other programs are given the address ({text})")
    targets = session.run("xclip", "-selection", "clipboard", "-o", "-t", "TARGETS").split()
    check({"text/uri-list", "text/html", "text/x-moz-url", "UTF8_STRING"} <= set(targets), f"and the other forms ({targets})")
    session.run("xclip", "-selection", "clipboard", "-i", stdout=subprocess.DEVNULL, input="Pasted\thttps://pasted/\nhttps://bare/\n")
    session.xdotool("mousemove", *map(str, row(0)), "click", "1", "key", "ctrl+v")
    saved_outline(session, path, ["B", "Pasted", "Untitled", ["Folder", ["Inside"]], "C", ["Folder", ["Inside"]]])
    check(True, "lines of another program are bookmarks")


if __name__ == "__main__":
    run_session_tests([rows_move_in_their_window, a_key_makes_a_copy, a_folder_opens_under_the_drag,
                       a_folder_does_not_go_into_itself, between_two_windows_rows_are_copied,
                       links_and_files_of_other_programs_are_taken, the_clipboard_goes_between_programs], needed=["xclip"])
