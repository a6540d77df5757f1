"""Measures how long a program takes from its start until its window shows a document: window.py TABULON CLI BENCH
[LINKS]. Prints a table of one row, Tabulon's `tabulon` against KDE's bookmark editor on the same tree.

Both run on a virtual display of their own whose screen is a file. That file is read all the time; a program counts as
ready at the first moment at which the screen looked as it did when it had come to rest.
"""

import json
import mmap
import os
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time
from xml.sax.saxutils import escape, quoteattr

REST = 3.0  # seconds without a change that count as rest
PATIENCE = 180.0  # seconds after which a program counts as hanging
RUNS = 3
TARGET = 2


class Screen:
    """A virtual display with a window manager, as a context."""

    def __enter__(self):
        self._folder = tempfile.TemporaryDirectory(prefix="tabulon-screen-")
        reader, writer = os.pipe()
        self._server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-screen", "0", "1280x800x24", "-nolisten", "tcp",
             "-fbdir", self._folder.name], pass_fds=[writer], stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as numbers:
            display = numbers.readline().strip()
        self.environment = dict(
            os.environ, DISPLAY=f":{display}", HOME=self._folder.name, XDG_CONFIG_HOME=f"{self._folder.name}/config",
            XDG_CACHE_HOME=f"{self._folder.name}/cache", XDG_RUNTIME_DIR=self._folder.name, QT_QPA_PLATFORM="xcb",
            LC_ALL="C.UTF-8")
        self.environment.pop("WAYLAND_DISPLAY", None)
        # A window that comes while openbox is still starting is never shown.
        managed = os.path.join(self._folder.name, "managed")
        self._manager = subprocess.Popen(["openbox", "--startup", f"touch {managed}"], env=self.environment,
                                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        end = time.monotonic() + 20
        while not os.path.exists(managed):
            if time.monotonic() > end:
                raise RuntimeError("openbox does not start")
            time.sleep(0.05)
        self._file = open(os.path.join(self._folder.name, "Xvfb_screen0"), "rb")
        self._pixels = mmap.mmap(self._file.fileno(), 0, access=mmap.ACCESS_READ)
        header_size, colours = struct.unpack(">I", self._pixels[:4])[0], struct.unpack(">I", self._pixels[76:80])[0]
        self._start = header_size + colours * 12
        return self

    def __exit__(self, *_):
        for process in (self._manager, self._server):
            process.terminate()
            process.wait()
        self._pixels.close()
        self._file.close()
        self._folder.cleanup()

    def picture(self):
        return self._pixels[self._start:]

    def seconds_until_shown(self, command):
        """Starts the program, waits until the screen has come to rest, ends the program. None when nothing came."""
        empty = self.picture()
        pictures = [(0.0, hash(empty))]
        begin = time.perf_counter()
        program = subprocess.Popen(command, env=self.environment, start_new_session=True, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            while True:
                time.sleep(0.004)
                now = time.perf_counter() - begin
                current = hash(self.picture())
                if current != pictures[-1][1]:
                    pictures.append((now, current))
                at_rest = len(pictures) > 1 and now - pictures[-1][0] > max(REST, pictures[-1][0])
                if at_rest and pictures[-1][1] != pictures[0][1]:
                    return next(when for when, picture in pictures if picture == pictures[-1][1])
                if now > PATIENCE or program.poll() is not None:
                    return None
        finally:
            os.killpg(program.pid, signal.SIGKILL)
            program.wait()
            self._wait_until_empty(empty)

    def _wait_until_empty(self, empty):
        end = time.monotonic() + 5
        while self.picture() != empty and time.monotonic() < end:
            time.sleep(0.05)


def write_xbel(root, path):
    """The tree as XBEL; written here, without our own exporter, so that both programs get the same tree."""
    with open(path, "w", encoding="utf-8") as out:
        out.write('<?xml version="1.0" encoding="UTF-8"?>\n<!DOCTYPE xbel>\n<xbel>\n')
        stack = list(reversed(root["children"]))
        while stack:
            node = stack.pop()
            if isinstance(node, str):
                out.write(node)
            elif node["type"] == 10:
                out.write("<separator/>\n")
            elif node["folder"]:
                folded = "no" if node["openFolder"] else "yes"
                out.write(f'<folder folded="{folded}"><title>{escape(node["name"])}</title>\n')
                stack.append("</folder>\n")
                stack.extend(reversed(node["children"] or []))
            else:
                out.write(f'<bookmark href={quoteattr(node["url"])}><title>{escape(node["name"])}</title></bookmark>\n')
        out.write("</xbel>\n")


def main():
    tabulon, cli, bench = sys.argv[1:4]
    links = sys.argv[4] if len(sys.argv) > 4 else "100000"
    print("| Work | Tabulon | Reference in the same run | Ratio | Target | |\n|---|---|---|---|---|---|")
    row = [f"window with {links} links on screen, from process start"]
    if not shutil.which("keditbookmarks"):
        print("|", *row, "| | KDE's bookmark editor: not installed | | 2 × faster | |")
        return 1
    with tempfile.TemporaryDirectory(prefix="tabulon-window-") as folder, Screen() as screen:
        document, xbel = os.path.join(folder, "corpus.tbln"), os.path.join(folder, "corpus.xbel")
        subprocess.run([bench, "--write-corpus", links, document], check=True)
        write_xbel(json.loads(subprocess.run([cli, "show", "--json", document], check=True, capture_output=True).stdout),
                   xbel)
        ours = [screen.seconds_until_shown([tabulon, document]) for _ in range(RUNS)]
        theirs = [screen.seconds_until_shown(["dbus-run-session", "keditbookmarks", xbel]) for _ in range(RUNS)]
    if None in ours or None in theirs:
        print(f"a program showed no window: tabulon {ours}, keditbookmarks {theirs}", file=sys.stderr)
        return 1
    ratio = min(theirs) / min(ours)
    row += [f"{min(ours):.2f} s", f"KDE's bookmark editor on the same tree: {min(theirs):.2f} s", f"{ratio:.1f} × faster",
            f"{TARGET} × faster", "met" if ratio >= TARGET else "MISSED"]
    print("|", " | ".join(row), "|")
    return 0 if ratio >= TARGET else 1


if __name__ == "__main__":
    sys.exit(main())
