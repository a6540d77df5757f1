"""KDE's bookmark editor without a window, whose library reads and writes XBEL. Contains only what the bookmark tests need: the
editor imports a file, writes its own, and shows what it reads from a file.

Run as a program it writes the file tests/corpus/xbel/kde again: kde.py FILE.
"""

import os
import shutil
import subprocess
import sys
import tempfile
import urllib.parse

# The contents of the corpus file: bookmarks as a browser exports them, and as another XBEL program writes
# them.
_HTML = """<!DOCTYPE NETSCAPE-Bookmark-file-1>
<TITLE>Bookmarks</TITLE>
<H1>Bookmarks</H1>
<DL><p>
    <DT><H3 ADD_DATE="1000000000">Weather &amp; more</H3>
    <DL><p>
        <DT><A HREF="https://example.org/?a=1&b=2" ADD_DATE="1100000000">Ünïcödé 天気 🔖 "twice" 'quoted'</A>
        <HR>
        <DT><H3>Empty</H3>
        <DL><p>
        </DL><p>
    </DL><p>
    <DT><A HREF="mailto:someone@example.org">Mail</A>
    <DT><A HREF="ftp://ftp.example.org/pub/">&lt;FTP&gt;</A>
</DL><p>
"""
_XBEL = """<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE xbel>
<xbel version="1.0">
<folder folded="no"><title>Kept</title><desc>A note on a folder</desc>
<bookmark href="https://example.org/" added="2020-05-01T10:20:30+02:00" modified="2021-06-02T00:00:00Z"><title>Dated</title>
<desc>Two
lines &amp; an ampersand</desc></bookmark>
<bookmark href="https://example.org/tags"><title>Tagged</title>
<info><metadata owner="https://tags.example/tags">one, &lt;two&gt;</metadata></info></bookmark>
<bookmark href="javascript:alert(&quot;a&amp;b&quot;)"/>
<separator/>
</folder>
</xbel>
"""


def find():
    """Returns whether the editor, and the bus that it needs, are installed."""
    return bool(shutil.which("keditbookmarks") and shutil.which("dbus-run-session"))


class Editor:
    """A context with a home folder of its own, which is removed at its end."""

    def __enter__(self):
        self._folder = tempfile.TemporaryDirectory(prefix="tabulon-kde-")
        os.chmod(self._folder.name, 0o700)
        return self

    def __exit__(self, *_):
        self._folder.cleanup()

    def import_html(self, html, xbel):
        """Adds the bookmarks of a browser's file to the editor's own file `xbel`, which is created if it does not exist."""
        self._run("--importmoz", html, xbel)

    def import_xbel(self, other, xbel):
        """Does the same for another XBEL file."""
        self._run("--importkde3", other, xbel)

    def bookmarks_of(self, xbel):
        """Returns the bookmarks that the editor reads from a file, through another of its formats. Links are
        (name, address), folders are (name, [items]), and a separator is a link with a name of its own. Addresses are as
        the editor shows them, without percent-encoding."""
        listing = os.path.join(self._folder.name, "listing.adr")
        self._run("--exportopera", listing, xbel)
        with open(listing, encoding="utf-8") as file:
            return _items(iter(file.read().split("\n")[2:]))

    def _run(self, *arguments):
        environment = {"PATH": os.environ["PATH"], "HOME": self._folder.name, "XDG_RUNTIME_DIR": self._folder.name,
                       "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen", "QT_HASH_SEED": "0"}
        process = subprocess.run(["dbus-run-session", "--", "keditbookmarks", *arguments], env=environment,
                                 stdin=subprocess.DEVNULL, capture_output=True, timeout=120, check=False)
        if process.returncode != 0 or not os.path.exists(arguments[-1]):
            raise RuntimeError(f"keditbookmarks {arguments}: {process.returncode}, {process.stderr.decode()}")


def _items(lines):
    folders = [[]]
    kind = name = None
    for line in lines:
        if line in ("#FOLDER", "#URL"):
            kind = line
        elif line.startswith("\tNAME="):
            name = line.removeprefix("\tNAME=")
            if kind == "#FOLDER":
                folders[-1].append((name, []))
                folders.append(folders[-1][-1][1])
        elif line.startswith("\tURL="):
            folders[-1].append((name, urllib.parse.unquote(line.removeprefix("\tURL="))))
        elif line == "-":
            folders.pop()
    return folders[0]


if __name__ == "__main__":
    with Editor() as editor, tempfile.TemporaryDirectory(prefix="tabulon-kde-") as folder:
        result = os.path.join(folder, "result.xbel")
        for content, take in ((_HTML, editor.import_html), (_XBEL, editor.import_xbel)):
            source = os.path.join(folder, "source")
            with open(source, "w", encoding="utf-8") as file:
                file.write(content)
            take(source, result)
        shutil.copyfile(result, sys.argv[1])
