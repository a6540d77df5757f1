"""Controls the real program in a virtual display with real keys: desktop_program.py TABULON TABULON_CLI.

Opens an HTML file, expands and collapses, saves as a document, opens that again, saves it, exports it, starts without
files, and opens a file that is no bookmark file. The results are read from the files, with the command-line tool.
"""

import json
import os
import plistlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time

NEEDED = ["Xvfb", "openbox", "xdotool"]
PATIENCE = 20.0
DEMO = os.path.join(os.path.dirname(os.path.abspath(__file__)), "demo-bookmarks.html")


class Failure(Exception):
    pass


def wait_for(what, condition):
    """Returns the first true value of `condition()`."""
    deadline = time.monotonic() + PATIENCE
    while time.monotonic() < deadline:
        value = condition()
        if value:
            return value
        time.sleep(0.05)
    raise Failure(f"waited in vain: {what}")


class Desktop:
    def __init__(self, program, tool, folder):
        self.program, self.tool, self.folder = program, tool, folder
        home = os.path.join(folder, "home")
        runtime = os.path.join(folder, "runtime")
        os.makedirs(home)
        os.makedirs(runtime, mode=0o700)
        self.environment = dict(os.environ, HOME=home, XDG_RUNTIME_DIR=runtime, LC_ALL="C.UTF-8")
        for name in ["DISPLAY", "WAYLAND_DISPLAY", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "QT_QPA_PLATFORMTHEME",
                     "QT_SCALE_FACTOR"]:
            self.environment.pop(name, None)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = "disabled:"
        self.running = None
        self.start_display()

    def start_display(self):
        reader, writer = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-screen", "0", "1280x800x24", "-nolisten", "tcp"],
            pass_fds=[writer], stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as numbers:
            display = numbers.readline().strip()
        self.environment.update(DISPLAY=f":{display}", QT_QPA_PLATFORM="xcb")
        # If a window is opened before the manager has started, it may never be shown.
        ready = os.path.join(self.folder, "manager-is-ready")
        self.manager = subprocess.Popen(["openbox", "--startup", f"touch {ready}"], env=self.environment,
                                        stderr=subprocess.DEVNULL)
        wait_for("the window manager", lambda: os.path.exists(ready))

    def close(self):
        for process in [self.running, self.manager, self.server]:
            if process and process.poll() is None:
                process.send_signal(signal.SIGTERM)
                process.wait()

    def start(self, *arguments):
        self.running = subprocess.Popen([self.program, *arguments], env=self.environment)

    def xdotool(self, *arguments):
        result = subprocess.run(["xdotool", *arguments], env=self.environment, capture_output=True, text=True)
        return result.stdout.strip()

    def window(self, title):
        """Waits for the window whose title matches, and for the keyboard to be in it."""
        found = wait_for(f"a window “{title}”", lambda: self.xdotool("search", "--onlyvisible", "--name", title))
        window = found.split()[-1]

        def in_front():
            self.xdotool("windowactivate", window)
            return self.xdotool("getactivewindow") == window

        wait_for(f"“{title}” in front", in_front)
        time.sleep(0.3)
        return window

    def gone(self, title):
        wait_for(f"the end of the window “{title}”",
                 lambda: not self.xdotool("search", "--onlyvisible", "--name", title))

    def press(self, *keys):
        for key in keys:
            self.xdotool("key", "--clearmodifiers", key)
            time.sleep(0.05)

    def type_path(self, path):
        self.press("ctrl+a")
        self.xdotool("type", "--delay", "5", path)
        self.press("Return")

    def ended(self):
        self.running.wait(timeout=PATIENCE)
        return self.running.returncode

    def tree(self, path):
        result = subprocess.run([self.tool, "show", "--json", path], capture_output=True, text=True)
        if result.returncode != 0:
            raise Failure(f"{path}: {result.stderr}")
        return json.loads(result.stdout)


def names(node):
    return [child["name"] for child in node["children"] or []]


def check(condition, what):
    if not condition:
        raise Failure(what)
    print("ok:", what, flush=True)


def open_html_and_save(desktop):
    path = os.path.join(desktop.folder, "saved.tbln")
    desktop.start(DEMO)
    desktop.window("demo-bookmarks.* Tabulon")
    desktop.press("Home", "Right", "Down", "Down")  # expand the first folder
    desktop.press("End", "Home", "Down", "Down")
    desktop.press("ctrl+s")
    desktop.window("Save the bookmarks as a document")
    desktop.type_path(path)
    wait_for("the saved file", lambda: os.path.exists(path))
    desktop.window("saved .*Tabulon")
    tree = desktop.tree(path)
    check(tree["name"] == "Master" and len(tree["children"]) == 9, "the whole tree is saved")
    check(tree["children"][0]["openFolder"] and not tree["children"][1]["openFolder"],
          "the folder expanded by key is saved as expanded, the others are not")
    check(tree["children"][0]["children"][4]["note"].startswith("A ribbon"), "notes are saved")
    desktop.press("ctrl+q")
    check(desktop.ended() == 0, "quitting without changes asks nothing and ends with 0")
    return path


def open_again_change_and_close(desktop, path):
    desktop.start(path)
    desktop.window("saved .*Tabulon")
    desktop.press("ctrl+shift+e")  # expand all
    desktop.window(r"saved\* .*Tabulon")
    desktop.press("ctrl+s")
    wait_for("the expanded state in the file", lambda: desktop.tree(path)["children"][1]["openFolder"])
    check(desktop.tree(path)["children"][1]["children"][0]["openFolder"], "expand all reaches inner folders")
    desktop.window("saved .*Tabulon")
    desktop.press("ctrl+shift+l")  # collapse all
    desktop.window(r"saved\* .*Tabulon")
    desktop.press("ctrl+w")
    check(desktop.ended() == 0, "closing the last window ends the program")
    check(not desktop.tree(path)["children"][1]["openFolder"], "a document with a file is saved as it closes")


def close_a_document_without_a_file(desktop):
    desktop.start(DEMO)
    desktop.window(r"demo-bookmarks\* .*Tabulon")
    desktop.press("ctrl+w")
    desktop.window("^Tabulon$")
    desktop.press("Escape")
    desktop.window(r"demo-bookmarks\* .*Tabulon")
    check(desktop.running.poll() is None, "Escape keeps the window open")
    desktop.press("ctrl+w")
    desktop.window("^Tabulon$")
    desktop.press("Right", "Return")
    check(desktop.ended() == 0, "Don't Save gives the changes up")


def end_by_a_signal(desktop):
    for before in [[], ["alt+v"], ["ctrl+w"]]:  # without a menu or a question, with a menu, with a question
        desktop.start(DEMO)
        desktop.window(r"demo-bookmarks\* .*Tabulon")
        desktop.press(*before)
        time.sleep(0.5)
        desktop.running.send_signal(signal.SIGTERM)
        check(desktop.ended() == 0, f"the session's end is not held up after {before}")
        desktop.start()
        desktop.window(r"demo-bookmarks\* .*Tabulon")
        desktop.press("ctrl+w")
        desktop.window("^Tabulon$")
        desktop.press("Right", "Return")
        check(desktop.ended() == 0, "what was not saved came back")


def export_html(desktop, path):
    exported = os.path.join(desktop.folder, "exported.html")
    desktop.start(path)
    desktop.window("saved .*Tabulon")
    desktop.press("alt+f", "Down", "Down", "Down", "Down", "Down", "Down", "Return")
    desktop.window("Export the bookmarks to a file")
    desktop.type_path(exported)
    wait_for("the exported file", lambda: os.path.exists(exported))
    with open(exported, encoding="utf-8") as file:
        text = file.read()
    check(text.startswith("<!DOCTYPE NETSCAPE-Bookmark-file-1>") and "麻婆豆腐" in text and text.count("<HR>") == 2,
          "the exported file has the links and separators")
    desktop.window("saved .*Tabulon")
    desktop.press("ctrl+q")
    check(desktop.ended() == 0, "exporting leaves the document unchanged")


def export_text_with_options(desktop, path):
    """Uses mnemonics only: the format, sorted by name, without addresses, with folders."""
    exported = os.path.join(desktop.folder, "saved.txt")
    desktop.start(path)
    desktop.window("saved .*Tabulon")
    desktop.press("alt+f", "e")
    desktop.window("Export the bookmarks to a file")
    desktop.press("alt+f", "End", "alt+s", "alt+u", "alt+l", "alt+e")
    wait_for("the exported file", lambda: os.path.exists(exported))
    with open(exported, encoding="utf-8") as file:
        lines = file.read().splitlines()
    tops = [line.split("\t")[0] for line in lines]
    sorted_with_folders = "Kitchen" in tops and tops.index("Kitchen") < tops.index("Reading")
    check(sorted_with_folders and not any("://" in line for line in lines),
          "the exported text follows the options chosen by letters")
    desktop.window("saved .*Tabulon")
    desktop.press("ctrl+q")
    check(desktop.ended() == 0, "the options are settings")
    with open(os.path.join(desktop.environment["HOME"], ".config", "tabulon", "tabulon.ini"), encoding="utf-8") as file:
        settings = file.read()
    check("ExportSortName=YES" in settings and "ExportURL=NO" in settings and "SkipFolders=NO" in settings,
          "the settings file has what was ticked")


def save_a_link_as_a_file(desktop, path):
    saved = os.path.join(desktop.folder, "a link.webloc")
    desktop.start(path)
    desktop.window("saved .*Tabulon")
    desktop.press("End", "alt+b", "Up", "Return")
    desktop.window("Save the link as a file")
    desktop.type_path(saved)
    wait_for("the link's file", lambda: os.path.exists(saved))
    with open(saved, "rb") as file:
        content = plistlib.load(file)
    last = desktop.tree(path)["children"][-1]
    check(content == {"URL": last["url"]}, "the link's file has its URL")
    desktop.window("saved .*Tabulon")
    desktop.press("ctrl+q")
    check(desktop.ended() == 0, "saving a link leaves the document unchanged")


def refuse_a_picture_and_start_empty(desktop):
    picture = os.path.join(desktop.folder, "picture.png")
    with open(picture, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n" + bytes(100))
    desktop.start(picture)
    desktop.window("^Tabulon$")
    desktop.press("Return")
    desktop.window("Untitled .*Tabulon")
    check(desktop.running.poll() is None, "a file that cannot be opened leaves an empty document")
    desktop.press("ctrl+w")
    check(desktop.ended() == 0, "an untouched empty document closes without a question")


def refuse_without_a_display(desktop):
    environment = {name: value for name, value in desktop.environment.items()
                   if name not in ["DISPLAY", "QT_QPA_PLATFORM"]}
    for variables in [{}, {"DISPLAY": ":99999"}]:
        result = subprocess.run([desktop.program], env=environment | variables, capture_output=True, text=True)
        check(result.returncode == 1 and "no display" in result.stderr, f"no display is reported in a sentence {variables}")


def main():
    missing = [name for name in NEEDED if not shutil.which(name)]
    if missing:
        print("skipped: not installed:", ", ".join(missing))
        return 77
    program, tool = sys.argv[1:3]
    with tempfile.TemporaryDirectory(prefix="tabulon-desktop-") as folder:
        desktop = Desktop(program, tool, folder)
        try:
            path = open_html_and_save(desktop)
            open_again_change_and_close(desktop, path)
            close_a_document_without_a_file(desktop)
            end_by_a_signal(desktop)
            export_html(desktop, path)
            export_text_with_options(desktop, path)
            save_a_link_as_a_file(desktop, path)
            refuse_a_picture_and_start_empty(desktop)
            refuse_without_a_display(desktop)
        except Failure as failure:
            windows = desktop.xdotool("search", "--name", "").split()
            print("failed:", failure)
            print("the program ended with", desktop.running.poll(), "and the windows are",
                  [desktop.xdotool("getwindowname", window) for window in windows])
            return 1
        finally:
            desktop.close()
    return 0


if __name__ == "__main__":
    sys.exit(main())
