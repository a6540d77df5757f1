"""Inputs of the command-line tool that are not ordinary files: pipes, devices and folders."""

import os
import resource
import subprocess
import threading
import unittest

import cli
import trees

MOST_MEMORY = 1 << 30  # bytes of address space; far less than an endless input would fill


class Streams(cli.TestCase):
    def setUp(self):
        super().setUp()
        self.document = self.make(trees.master([trees.link("n", "http://example.org/")]))
        self.expected = cli.done("show", self.document)
        with open(self.document, "rb") as file:
            self.bytes = file.read()

    def test_a_document_comes_through_standard_input_by_either_of_its_names(self):
        for name in ("-", "/dev/stdin", "/proc/self/fd/0"):
            self.assertEqual(cli.done("show", name, stdin=self.bytes), self.expected, name)

    def test_a_document_comes_through_a_named_pipe(self):
        pipe = self.path("pipe")
        os.mkfifo(pipe)

        def write():
            with open(pipe, "wb") as file:
                file.write(self.bytes)

        writer = threading.Thread(target=write)
        writer.start()
        self.assertEqual(cli.done("show", pipe), self.expected)
        writer.join()

    def test_a_document_comes_through_a_substituted_process(self):
        shown = subprocess.run(["bash", "-c", '"$0" show <(cat "$1")', cli.TOOL, self.document], capture_output=True,
                               timeout=60, check=True)
        self.assertEqual(shown.stdout, self.expected)

    def assert_refused(self, arguments, reason, stdin=subprocess.DEVNULL):
        def bound_memory():
            resource.setrlimit(resource.RLIMIT_AS, (MOST_MEMORY, MOST_MEMORY))

        process = subprocess.run([cli.TOOL, *arguments], stdin=stdin, capture_output=True, timeout=60, check=False,
                                 preexec_fn=bound_memory if not cli.is_sanitized() else None)
        self.assertEqual((process.returncode, process.stderr.decode(), process.stdout),
                         (1, f"tabulon-cli: {reason}\n", b""), arguments)

    def test_devices_without_an_end_are_refused(self):
        output = self.path("out")
        too_large = "Cannot read “/dev/zero”: File too large."
        self.assert_refused(["show", "/dev/zero"], too_large)
        self.assert_refused(["make", "/dev/zero", "-o", output], too_large)
        for name in ("html", "xbel", "chrome", "safari", "text", "html-links"):
            self.assert_refused(["import", "--from", name, "/dev/zero", "-o", output], too_large)
        with open("/dev/zero", "rb") as zero:
            self.assert_refused(["show", "-"], "Cannot read the standard input: File too large.", stdin=zero)
        self.assertFalse(os.path.exists(output))

    def test_folders_and_the_empty_device_are_refused(self):
        folder = self.path("")
        self.assert_refused(["show", folder], f"Cannot read “{folder}”: Is a directory.")
        self.assert_refused(["import", "--from", "html", folder], f"Cannot read “{folder}”: Is a directory.")
        self.assert_refused(["show", "/dev/null"], "/dev/null: The file is empty.")


if __name__ == "__main__":
    unittest.main()
