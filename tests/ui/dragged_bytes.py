"""The exact bytes that another program receives when rows are dragged onto it:
dragged_bytes.py TABULON TABULON_CLI DRAG_TARGET.
"""

import subprocess
import sys
import time

from clipboard_bytes import A, ALL, B, C, FOLDER, INNER, check_forms, check_xbel, open_many
from dragging import drag, row
from session import check, run_session_tests, wait_for

TARGET = (1000, 500)


def select(session, *rows):
    session.xdotool("mousemove", *map(str, row(rows[0])), "click", "1")
    for number in rows[1:]:
        session.xdotool("mousemove", *map(str, row(number)), "keydown", "ctrl", "click", "1", "keyup", "ctrl")
    time.sleep(0.2)


def dragged(session, *rows):
    """Returns the forms that the target received, by their types."""
    target = session.launch(program=sys.argv[3], stdout=subprocess.PIPE, text=True)
    window = wait_for("the target", lambda: session.xdotool("search", "--onlyvisible", "--name", "^drag target$"))
    session.xdotool("windowmove", "--sync", window, *map(str, TARGET))
    time.sleep(0.2)
    select(session, *rows)
    x, y = row(rows[0])  # away from the previous click, so that it is not a double click
    drag(session, (x + 30, y), (TARGET[0] + 100, TARGET[1] + 100))
    lines = target.communicate(timeout=20)[0].splitlines()
    check(target.returncode == 0, "every form that is offered can be had")
    return {name: bytes.fromhex(content) for name, _, content in (line.partition(" ") for line in lines)}


def every_form_of_what_is_dragged(session):
    open_many(session)
    for what, rows, links, tree in [("one bookmark", [0], [A], [A[::-1]]),
                                    ("three bookmarks", [0, 1, 3], [A, B, C], [A[::-1], B[::-1], C[::-1]]),
                                    ("a folder", [2], INNER, [FOLDER]),
                                    ("bookmarks and a folder", [0, 1, 2, 3], [A, B, *INNER, C], ALL)]:
        forms = dragged(session, *rows)
        check_forms(forms.__getitem__, f"{what} dragged", *links)
        check_xbel(session, forms["application/x-xbel"], tree, f"{what} dragged")
        # For a folder, the toolkit adds a "text/plain" to the list of addresses.
        texts = "\n".join(item[1] for item in tree if isinstance(item, tuple))
        check(forms.get("UTF8_STRING", b"").decode() == texts, f"{what} dragged: text")


if __name__ == "__main__":
    run_session_tests([every_form_of_what_is_dragged])
