"""Measures how long programs take from their start until their window is on the screen, and their memory then: window.py
TABULON CLI BENCH EMPTY [LINKS]. Prints a table: Tabulon with a document and KDE's bookmark editor with the same tree,
Tabulon with an empty document and EMPTY, a program with an empty Qt window.

The programs run one after the other on a virtual display of their own, whose screen is a file. That file is read all the
time. The time of a program ends at the first moment at which the screen has its final contents.
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
from typing import NamedTuple
from xml.sax.saxutils import escape, quoteattr

REST = 3.0  # seconds without a change that count as rest
PATIENCE = 180.0  # seconds after which a program counts as hanging
RUNS = 3
RUNS_OF_EMPTY_WINDOWS = 7
FASTER_THAN_EDITOR = 2
LONGER_THAN_EMPTY_WINDOW = 1.3


class Shown(NamedTuple):
    """A program whose window is shown."""
    seconds: float
    megabytes: float  # its share of the memory in use (Pss), a second or more after that


def megabytes_of(pid):
    """Returns the proportional set size of a process in megabytes."""
    with open(f"/proc/{pid}/smaps_rollup", encoding="ascii") as numbers:
        return next(int(line.split()[1]) for line in numbers if line.startswith("Pss:")) * 1024 / 1e6


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
        # openbox never shows a window that is opened before it has started.
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

    def shown(self, command):
        """Starts the program, waits until the screen does not change any more, and ends the program. Returns None where
        no window was shown."""
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
                    seconds = next(when for when, picture in pictures if picture == pictures[-1][1])
                    return Shown(seconds, megabytes_of(program.pid))
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


def judged_row(work, ours, reference, ratio, target, met):
    print("|", " | ".join([work, ours, reference, ratio, target, "met" if met else "MISSED"]), "|", flush=True)
    return met


def row_of_document(screen, tabulon, cli, bench, links):
    """Prints the row of a window with a document. Returns whether the target is met."""
    work = f"window with {links} links on screen, from process start"
    target = f"{FASTER_THAN_EDITOR} × faster"
    if not shutil.which("keditbookmarks"):
        print(f"| {work} | | KDE's bookmark editor: not installed | | {target} | |")
        return False
    with tempfile.TemporaryDirectory(prefix="tabulon-window-") as folder:
        document, xbel = os.path.join(folder, "corpus.tbln"), os.path.join(folder, "corpus.xbel")
        subprocess.run([bench, "--write-corpus", links, document], check=True)
        write_xbel(json.loads(subprocess.run([cli, "show", "--json", document], check=True, capture_output=True).stdout),
                   xbel)
        ours = [screen.shown([tabulon, document]) for _ in range(RUNS)]
        theirs = [screen.shown(["dbus-run-session", "keditbookmarks", xbel]) for _ in range(RUNS)]
    if None in ours or None in theirs:
        print(f"a program showed no window: tabulon {ours}, keditbookmarks {theirs}", file=sys.stderr)
        return False
    our_time, their_time = min(ours).seconds, min(theirs).seconds
    ratio = their_time / our_time
    return judged_row(work, f"{our_time:.2f} s", f"KDE's bookmark editor on the same tree: {their_time:.2f} s",
                      f"{ratio:.1f} × faster", target, ratio >= FASTER_THAN_EDITOR)


def row_of_empty_window(screen, tabulon, empty):
    """Prints the row of a window with an empty document. The programs take turns. Returns whether the target is met."""
    runs = [(screen.shown([tabulon]), screen.shown([empty])) for _ in range(RUNS_OF_EMPTY_WINDOWS)]
    if any(None in pair for pair in runs):
        print(f"a program showed no window: {runs}", file=sys.stderr)
        return False
    ours, theirs = min(pair[0] for pair in runs), min(pair[1] for pair in runs)
    ratio = ours.seconds / theirs.seconds
    slowest = [max(pair[side] for pair in runs).seconds * 1000 for side in (0, 1)]
    return judged_row(
        "window of an empty document on screen, from process start",
        f"{ours.seconds * 1000:.0f} ms (slowest run {slowest[0]:.0f}), {ours.megabytes:.0f} MB",
        f"an empty Qt window: {theirs.seconds * 1000:.0f} ms (slowest run {slowest[1]:.0f}), {theirs.megabytes:.0f} MB",
        f"{ratio:.2f} × as long, {ours.megabytes / theirs.megabytes:.2f} × the memory",
        f"{LONGER_THAN_EMPTY_WINDOW} × as long", ratio <= LONGER_THAN_EMPTY_WINDOW)


def main():
    tabulon, cli, bench, empty = sys.argv[1:5]
    links = sys.argv[5] if len(sys.argv) > 5 else "100000"
    print("| Work | Tabulon | Reference in the same run | Ratio | Target | |\n|---|---|---|---|---|---|", flush=True)
    with Screen() as screen:
        met = row_of_document(screen, tabulon, cli, bench, links)
        met = row_of_empty_window(screen, tabulon, empty) and met
    return 0 if met else 1


if __name__ == "__main__":
    sys.exit(main())
