"""The command-line tool as users run it: a process with arguments, files and an exit status."""

import json
import os
import subprocess
import tempfile
import unittest

TOOL = os.environ.get("TABULON_CLI", "")


def run(*arguments, stdin=b"", timeout=300):
    """Runs the tool and returns the finished process, with its output as bytes, for every status."""
    return subprocess.run([TOOL, *arguments], input=stdin, capture_output=True, timeout=timeout, check=False)


def done(*arguments, stdin=b""):
    """Runs the tool, which has to succeed, and returns its standard output."""
    process = run(*arguments, stdin=stdin)
    if process.returncode != 0:
        raise AssertionError(f"{arguments}: status {process.returncode}: {process.stderr.decode()}")
    return process.stdout


def is_sanitized():
    """Returns whether the tool was built with a sanitizer, which uses additional memory and address space."""
    with open(TOOL, "rb") as file:
        return b"__asan_init" in file.read()


def show(path):
    """Returns the tree of a document, as `show --json` prints it."""
    return json.loads(done("show", "--json", path))


class TestCase(unittest.TestCase):
    """A test with a folder of its own, which is removed at its end."""

    maxDiff = 2000

    def setUp(self):
        self._folder = tempfile.TemporaryDirectory(prefix="tabulon-test-")
        self.addCleanup(self._folder.cleanup)

    def path(self, name):
        return os.path.join(self._folder.name, name)

    def write(self, name, data):
        with open(self.path(name), "wb") as file:
            file.write(data)
        return self.path(name)

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def make(self, tree, name="made.tbln"):
        """Creates a document with the tree by the tool and returns its path."""
        source = self.write(f"{name}.json", json.dumps(tree).encode())
        done("make", source, "-o", self.path(name))
        return self.path(name)

    def assert_same_tree(self, found, expected):
        """Does the same as assertEqual, with a message that names the first node that differs instead of printing both trees."""
        pairs = [(found, expected, "")]
        while pairs:
            one, other, path = pairs.pop()
            ours, theirs = dict(one), dict(other)
            children, others = ours.pop("children"), theirs.pop("children")
            self.assertEqual(ours, theirs, f"at /{path}")
            self.assertEqual(None if children is None else len(children), None if others is None else len(others),
                             f"number of children of /{path}")
            pairs += [(a, b, f"{path}/{i}") for i, (a, b) in enumerate(zip(children or [], others or []))]
