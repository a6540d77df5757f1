"""What other programs get of the real program's clipboard under Wayland, and what it makes of theirs:
wayland_clipboard.py TABULON TABULON_CLI.

The compositor is sway without a screen. Ends with 77 where that is missing, unless TABULON_REQUIRE_BROWSER is set.
"""

import glob
import os
import shutil
import subprocess
import sys
import tempfile
import time

from clipboard_bytes import (A, B, C, FOLDER, FOLDER_ROWS, INNER, ROW_A, ROW_B, ROW_C, XBEL, bookmark_file, check_forms,
                             check_xbel, mozilla, nodes)
from desktop_program import wait_for
from dragging import document
from session import Session, check, run_session_tests

NOBODY = 65534
HTML = bookmark_file(ROW_A, ROW_B, ROW_C, FOLDER_ROWS)
TREE_OF_XBEL = [["Folder “日本”", ("In", "https://in.example/?a&b"), ["Inner", ("Deep", "https://deep.example/")]], None,
                ("Last", "https://last.example/")]


class WaylandSession(Session):
    def start_display(self):
        """Starts sway, which refuses to run as root, with a folder for its socket that its user owns."""
        self.sway_folder = tempfile.mkdtemp(prefix="tabulon-sway-")
        configuration = os.path.join(self.sway_folder, "configuration")
        with open(configuration, "w", encoding="utf-8") as file:
            file.write("xwayland disable\n")
        command = ["sway", "-c", configuration]
        if os.geteuid() == 0:
            os.chown(self.sway_folder, NOBODY, NOBODY)
            command = ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups", *command]
        environment = dict(self.environment, HOME=self.sway_folder, XDG_RUNTIME_DIR=self.sway_folder, WLR_BACKENDS="headless",
                           WLR_LIBINPUT_NO_DEVICES="1", WLR_RENDERER="pixman")
        self.manager = None
        self.server = subprocess.Popen(command, env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        sockets = wait_for("the compositor", lambda: glob.glob(os.path.join(self.sway_folder, "wayland-?")))
        self.environment.update(WAYLAND_DISPLAY=sockets[0], QT_QPA_PLATFORM="wayland")

    def close(self):
        super().close()
        shutil.rmtree(self.sway_folder, ignore_errors=True)

    def type(self, *arguments):
        """Presses keys in the window in front; each call is a keyboard of its own."""
        subprocess.run(["wtype", "-s", "50", *arguments, "-s", "50"], env=self.environment, check=True, timeout=20)

    def given(self, media_type):
        """The bytes that another program gets."""
        return subprocess.run(["wl-paste", "-n", "-t", media_type], env=self.environment, capture_output=True, timeout=20).stdout

    def give(self, media_type, content):
        """Another program owns the clipboard from now on, with one form."""
        subprocess.run(["wl-copy", "-t", media_type], env=self.environment, input=content, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, check=True, timeout=20)


def open_document(session, name, html):
    path = document(session, name, html)
    session.launch(path)

    def takes_keys():  # from the moment on that its window has the keyboard
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
    if os.environ.get("TABULON_REQUIRE_BROWSER") and not shutil.which("sway"):
        print("there is no sway")
        sys.exit(1)
    run_session_tests([what_is_given, what_is_taken], needed=["sway", "wl-copy", "wl-paste", "wtype"],
                      make_session=WaylandSession)
