"""The exact bytes that other programs read from the real program's clipboard, and that it reads from theirs:
clipboard_bytes.py TABULON TABULON_CLI.
"""

import os
import re
import signal
import subprocess
import time

from desktop_program import wait_for
from dragging import document, open_one, place, row
from session import check, run_session_tests

XBEL = """<!DOCTYPE xbel>
<xbel><folder folded="yes"><title>Folder “日本”</title><bookmark href="https://in.example/?a&amp;b"><title>In</title></bookmark>
<folder><title>Inner</title><bookmark href="https://deep.example/"><title>Deep</title></bookmark></folder></folder>
<separator/><bookmark href="https://last.example/"><title>Last</title></bookmark></xbel>"""
ROW_A = '    <DT><A HREF="https://a.example/?x=1&amp;y=2">A &amp; “日本”</A>\n'
ROW_B = '    <DT><A HREF="https://b.example/">B</A>\n'
ROW_C = '    <DT><A HREF="https://c.example/">C</A>\n'
FOLDER_ROWS = """    <DT><H3>Folder</H3>
    <DL><p>
        <DT><A HREF="https://in.example/">In</A>
        <DT><H3>Inner</H3>
        <DL><p>
            <DT><A HREF="https://deep.example/">Deep</A>
        </DL><p>
    </DL><p>
"""


def bookmark_file(*rows):
    return f"<!DOCTYPE NETSCAPE-Bookmark-file-1>\n<DL><p>\n{''.join(rows)}</DL><p>\n"


MANY = bookmark_file(ROW_A, ROW_B, FOLDER_ROWS, ROW_C)
PIECES = 17 << 20  # more than one request of the X server can hold


def given(session, target):
    """Returns the bytes that another program reads."""
    return subprocess.run(["xclip", "-selection", "clipboard", "-o", "-t", target], env=session.environment,
                          capture_output=True, timeout=30).stdout


def give(session, target, content):
    """Makes another program own the clipboard, with one form."""
    subprocess.run(["xclip", "-selection", "clipboard", "-i", "-t", target], env=session.environment, input=content,
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=30, check=True)


def mozilla(*links):
    return "\n".join(part for link in links for part in link).encode("utf-16-le")


def open_many(session):
    path = document(session, "many", MANY)
    session.launch(path)
    session.wait_for_titles("many – Tabulon")
    place(session, "many")
    return path


def copy(session, first, last=None):
    session.xdotool("mousemove", *map(str, row(first)), "click", "1")
    time.sleep(0.2)
    if last is not None:
        session.xdotool("mousemove", *map(str, row(last)), "keydown", "shift", "click", "1", "keyup", "shift")
    session.xdotool("key", "ctrl+c")
    time.sleep(0.5)


A, B, C = ("https://a.example/?x=1&y=2", "A & “日本”"), ("https://b.example/", "B"), ("https://c.example/", "C")
INNER = [("https://in.example/", "In"), ("https://deep.example/", "Deep")]
FOLDER = ["Folder", INNER[0][::-1], ["Inner", INNER[1][::-1]]]
ALL = [A[::-1], B[::-1], FOLDER, C[::-1]]


def check_forms(form, what, *links):
    """Checks that `form` contains the links for each media type, with titles where the type has them."""
    check(form("text/x-moz-url") == mozilla(*links), f"{what}: addresses and titles")
    check(form("text/uri-list") == "".join(url + "\r\n" for url, _ in links).encode(), f"{what}: list of addresses")
    anchors = re.findall(r'<a href="([^"]*)">([^<]*)</a>', form("text/html").decode())
    check([(url.replace("&amp;", "&"), title.replace("&amp;", "&")) for url, title in anchors] == list(links), f"{what}: anchors")


def check_xbel(session, xbel, expected, what):
    file = os.path.join(session.folder, "given.xbel")
    with open(file, "wb") as out:
        out.write(xbel)
    session.run(session.tool, "import", "--from", "xbel", file, "-o", file + ".tbln")
    check(nodes(session.tree(file + ".tbln")) == expected, f"{what}: the tree as XBEL")


def what_is_given(session):
    def form(target):
        return given(session, target)

    open_many(session)
    copy(session, 0)
    check_forms(form, "one bookmark", A)
    check(given(session, "UTF8_STRING").decode() == A[0], "one bookmark: text")
    copy(session, 0, 1)
    check_forms(form, "two bookmarks", A, B)
    copy(session, 2)
    check_forms(form, "a folder", *INNER)
    check("UTF8_STRING" not in given(session, "TARGETS").decode().split(), "a folder has no text")
    copy(session, 0, 3)
    check_forms(form, "bookmarks and a folder", A, B, *INNER, C)
    check_xbel(session, given(session, "application/x-xbel"), ALL, "bookmarks and a folder")


def nodes(folder):
    """Returns the contents of a folder: links as (name, address), folders as [name, …], separators as None."""
    return [[node["name"], *nodes(node)] if node["folder"] else (node["name"], node["url"]) if node["url"] else None
            for node in folder["children"] or []]


def saved(session, path):
    session.xdotool("key", "ctrl+s")
    time.sleep(0.4)
    return nodes(session.tree(path))


def paste_behind_all(session, path, expected, what):
    before = saved(session, path)
    session.xdotool("key", "End", "ctrl+v")
    wait_for(what, lambda: saved(session, path) == before + expected)
    check(True, what)


def what_is_taken(session):
    path = open_one(session)
    give(session, "text/x-moz-url", mozilla(A))
    paste_behind_all(session, path, [A[::-1]], "one link with its title")
    give(session, "text/x-moz-url", mozilla(A, B, C))
    paste_behind_all(session, path, [A[::-1], B[::-1], C[::-1]], "three links with their titles")
    give(session, "application/x-xbel", XBEL.encode())
    paste_behind_all(session, path, [["Folder “日本”", ("In", "https://in.example/?a&b"), ["Inner", ("Deep", "https://deep.example/")]],
                                     None, ("Last", "https://last.example/")], "a tree of XBEL with its folders")
    give(session, "UTF8_STRING", "One\thttps://one.example/\r\nhttps://two.example/\r\n".encode())
    paste_behind_all(session, path, [("One", "https://one.example/"), ("Untitled", "https://two.example/")],
                     "lines that end with a carriage return and a line feed")


def in_pieces(session):
    path = open_one(session)
    title = "T" * (PIECES // 2)
    give(session, "text/x-moz-url", mozilla((A[0], title)))
    paste_behind_all(session, path, [(title, A[0])], "a list of 17 MiB is taken in pieces")
    session.xdotool("key", "End", "ctrl+c")
    wait_for("the large list", lambda: given(session, "text/x-moz-url") == mozilla((A[0], title)))
    check(True, "and given in pieces")


def an_owner_that_does_not_answer(session):
    path = open_one(session)
    before = saved(session, path)
    owner = session.launch("-selection", "clipboard", "-i", "-quiet", "-t", "text/x-moz-url", program="xclip",
                           stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    owner.stdin.write(mozilla(A))
    owner.stdin.close()
    wait_for("the owner", lambda: given(session, "text/x-moz-url"))
    owner.send_signal(signal.SIGSTOP)
    begin = time.monotonic()
    session.xdotool("key", "End", "ctrl+v", "Home", "F2")
    session.xdotool("type", "Renamed")
    session.xdotool("key", "Return", "ctrl+s")
    wait_for("the window again", lambda: session.tree(path)["children"][0]["name"] == "Renamed")
    seconds = time.monotonic() - begin
    check(seconds < 12, f"the window goes on after {seconds:.1f} s")
    check(len(saved(session, path)) == len(before), "nothing was pasted")


if __name__ == "__main__":
    run_session_tests([what_is_given, what_is_taken, in_pieces, an_owner_that_does_not_answer], needed=["xclip"])
