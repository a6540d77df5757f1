"""GLib's own reader and writer of XBEL, with which GTK stores its list of recent files. They are called through ctypes,
since scripts cannot call the constructor.

Run as a program it writes the file tests/corpus/xbel/glib again: glib_bookmarks.py FILE.
"""

import ctypes
import ctypes.util
import sys

# The same bookmarks as the file of the corpus: address, title, description, date added in seconds since 1970.
SAMPLE = [
    ("https://example.org/?a=1&b=<2>", "Ünïcödé 天気 🔖 \"twice\" & 'quoted'", "A note\nof two lines & more", 1588321230),
    ("file:///home/someone/notes%20of%20mine.txt", "notes of mine.txt", None, 1600000000),
    ("mailto:someone@example.org", None, None, 0),
    ("https://example.org/%C3%A4", "", "", 1100000000),
]


def find():
    """Returns the name of the library on this machine, or None."""
    return ctypes.util.find_library("glib-2.0")


class BookmarkFile:
    """A GBookmarkFile. Texts are str or None."""

    def __init__(self):
        self._glib = ctypes.CDLL(find())
        self._glib.g_bookmark_file_new.restype = ctypes.c_void_p
        self._glib.g_bookmark_file_to_data.restype = ctypes.c_void_p
        self._file = ctypes.c_void_p(self._glib.g_bookmark_file_new())

    def add(self, address, title, description, added):
        uri = address.encode()
        for setter, text in ((self._glib.g_bookmark_file_set_title, title),
                             (self._glib.g_bookmark_file_set_description, description)):
            if text is not None:
                setter(self._file, uri, text.encode())
        self._glib.g_bookmark_file_set_app_info(self._file, uri, b"editor", b"editor %u", 1, ctypes.c_long(added), None)
        self._glib.g_bookmark_file_set_mime_type(self._file, uri, b"text/plain")
        self._glib.g_bookmark_file_add_group(self._file, uri, b"Group & more")
        for setter in (self._glib.g_bookmark_file_set_added, self._glib.g_bookmark_file_set_visited,
                       self._glib.g_bookmark_file_set_modified):
            setter(self._file, uri, ctypes.c_long(added))

    def data(self):
        size = ctypes.c_size_t()
        text = self._glib.g_bookmark_file_to_data(self._file, ctypes.byref(size), None)
        if not text:
            raise RuntimeError("GLib makes no file of its bookmarks")
        return ctypes.string_at(text, size.value)


def sample():
    """Returns the bytes of a file with the sample."""
    file = BookmarkFile()
    for bookmark in SAMPLE:
        file.add(*bookmark)
    return file.data()


if __name__ == "__main__":
    with open(sys.argv[1], "wb") as out:
        out.write(sample())
