"""Files dragged from another program onto a document's window: dropped_files.py TABULON TABULON_CLI DRAG_SOURCE."""

import os
import subprocess
import sys
import time

from session import check, run_session_tests, wait_for
from small_tree import damage


ROWS, URL_FIELD = 400, 535


def drag(session, actions, *uris, onto=ROWS):
    """Drags the files out of a program onto the window in front; returns the result that the program received."""
    source = session.launch(actions, *uris, program=sys.argv[3], stdout=subprocess.PIPE, text=True)
    wait_for("the source", lambda: session.xdotool("search", "--onlyvisible", "--name", "^drag source$"))
    time.sleep(0.5)
    session.xdotool("mousemove", "1100", "600", "mousedown", "1")
    time.sleep(0.2)
    for x in range(1080, 300, -60):  # a drag needs several movements
        session.xdotool("mousemove", str(x), str(onto))
        time.sleep(0.02)
    time.sleep(0.3)
    session.xdotool("mouseup", "1")
    return source.communicate(timeout=20)[0].strip()


def place_window(session):
    session.xdotool("search", "--onlyvisible", "--class", "tabulon", "windowmove", "50", "50", "windowsize", "700", "500")
    time.sleep(0.5)


def files_dropped_on_a_window_open(session):
    a, b = session.document("a.tbln"), session.document("b ä.tbln")
    session.launch()
    session.wait_for_titles("Untitled – Tabulon")
    place_window(session)
    check(drag(session, "copy", "file://" + a) == "copy", "the empty window takes a file")
    session.wait_for_titles("a – Tabulon")
    place_window(session)
    check(drag(session, "copy,move", "file://" + b.replace(" ", "%20").replace("ä", "%C3%A4"), onto=URL_FIELD) == "copy",
          "beside the rows a file that is offered to be moved is taken as a copy")
    session.wait_for_titles("a – Tabulon", "b ä – Tabulon")


def what_is_no_file_is_not_taken(session):
    session.launch(session.document("a.tbln"))
    session.wait_for_titles("a – Tabulon")
    place_window(session)
    check(drag(session, "copy", "http://example.org/", onto=URL_FIELD) == "nothing", "an address of the web is not taken beside the rows")
    check(session.titles() == ["a – Tabulon"], "and opens nothing")


def links_with_a_file_among_them_become_bookmarks(session):
    a, empty = "file://" + session.document("a.tbln"), os.path.join(session.folder, "empty.tbln")
    session.run(session.tool, "make", "-", "-o", empty, input='{"name": "Master", "folder": true, "children": []}')
    session.launch(empty)
    session.wait_for_titles("empty – Tabulon")
    place_window(session)
    links = ["https://first.example/", a, "https://last.example/"]
    check(drag(session, "copy", *links) == "copy", "the empty window takes links with a file among them")
    session.wait_for_titles("empty* – Tabulon")
    session.press("ctrl+s")
    session.wait_for_titles("empty – Tabulon")
    taken = [node["url"] for node in session.tree(empty)["children"]]
    check(taken == links, f"every link is a bookmark: {taken}")


def documents_that_cannot_be_read_become_no_bookmarks(session):
    session.launch()
    session.wait_for_titles("Untitled – Tabulon")
    place_window(session)
    drag(session, "copy", "file://" + session.folder + "/gone.tbln")
    session.wait_for_front("Tabulon")
    session.press("Return")
    session.wait_for_titles("Untitled – Tabulon")
    damaged = session.document("damaged.tbln")
    damage(damaged, b"Kitchen")
    drag(session, "copy", "file://" + damaged)
    session.wait_for_front("Tabulon")
    session.press("Return")  # Open What Is Left
    session.wait_for_titles("Untitled – Tabulon", "damaged* – Tabulon")


if __name__ == "__main__":
    run_session_tests([
        files_dropped_on_a_window_open,
        what_is_no_file_is_not_taken,
        links_with_a_file_among_them_become_bookmarks,
        documents_that_cannot_be_read_become_no_bookmarks,
    ])
