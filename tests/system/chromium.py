"""A Chromium, without a window or on a display, driven over a pipe by the DevTools protocol: messages are JSON ended by a null
byte. Contains only what the bookmark tests need: start, run a script in the bookmark manager's page, stop, keep the profile's file.

Run as a program it writes the file tests/corpus/chromium-json/chromium again: chromium.py FILE.
"""

import fcntl
import json
import os
import select
import shutil
import subprocess
import sys
import tempfile
import time

# Nested arrays are folders: [name, [items]] or [name, address].
_SAMPLE = {
    "1": [
        ["Example", "https://example.org/"],
        ["<b>&amp; \"quoted\" \\ 'twice'", "https://example.org/?a=1&b=<x>&copy=2#%20"],
        ["Ünïcödé 天気予報 🔖 \u2028 שלום", "https://例え.example/ä?ö=ü"],
        ["", "https://example.org/no-name"],
        ["Empty folder", []],
        ["Folder", [["Inside", [["Deep", "ftp://ftp.example.org/pub/"]]], ["Mail", "mailto:someone@example.org"]]],
        ["Script", "javascript:void(\"a\\u003Cb\")"],
        ["File", "file:///tmp/notes.html"],
    ],
    "2": [["Other", "http://example.com/"], ["Twice", "http://example.com/"]],
}

_FILL = """
    const put = (parentId, items) => items.reduce(async (before, [title, what]) => {
        await before;
        const made = await chrome.bookmarks.create(
            typeof what == "string" ? {parentId, title, url: what} : {parentId, title});
        if (typeof what != "string")
            await put(made.id, what);
    }, Promise.resolve());
    for (const [id, items] of Object.entries(given))
        await put(id, items);
    return await chrome.bookmarks.getTree();
"""


def find():
    """Returns the path of a Chromium on this machine, or None."""
    return shutil.which("chromium") or shutil.which("chromium-browser")


class Chromium:
    """A context with a new profile, which is removed at its end. With the `environment` of an X display it has a window there,
    with its bar of bookmarks.
    """

    def __init__(self, program, patience=120, page="chrome://bookmarks/", environment=None):
        self._program = program
        self._page = page
        self._patience = patience
        self._environment = environment
        self._last_id = 0
        self._session = None
        self._received = b""

    def __enter__(self):
        self._folder = tempfile.TemporaryDirectory(prefix="tabulon-chromium-", ignore_cleanup_errors=True)
        self._log = open(os.path.join(self._folder.name, "log"), "w+", encoding="utf-8", errors="replace")
        read_end, self._write = os.pipe()
        self._read, write_end = os.pipe()
        # The browser expects the pipe at the descriptors 3 and 4. Copies at 10 and above are not overwritten
        # when they are duplicated to these.
        ends = [fcntl.fcntl(end, fcntl.F_DUPFD, 10) for end in (read_end, write_end)]
        profile = os.path.join(self._folder.name, "profile")
        os.makedirs(os.path.join(profile, "Default"))
        with open(os.path.join(profile, "Default", "Preferences"), "w", encoding="utf-8") as preferences:
            json.dump({"bookmark_bar": {"show_on_all_tabs": True}}, preferences)
        display = ["--ozone-platform=x11", "--password-store=basic"] if self._environment else ["--headless=new"]
        command = [self._program, *display, "--no-sandbox", "--no-first-run", "--disable-gpu",
                   "--disable-background-networking", "--disable-component-update", "--disable-sync",
                   "--host-resolver-rules=MAP * ~NOTFOUND", "--remote-debugging-pipe",
                   f"--user-data-dir={profile}", "about:blank"]
        environment = dict(self._environment or os.environ, HOME=self._folder.name)
        if not self._environment:
            environment.pop("DISPLAY", None)
        self._process = subprocess.Popen(
            command, env=environment, stdin=subprocess.DEVNULL, stdout=self._log, stderr=subprocess.STDOUT,
            pass_fds=(3, 4), preexec_fn=lambda: (os.dup2(ends[0], 3), os.dup2(ends[1], 4)))
        for end in (read_end, write_end, *ends):
            os.close(end)
        try:
            target = self.call("Target.createTarget", {"url": self._page})["targetId"]
            self._session = self.call("Target.attachToTarget", {"targetId": target, "flatten": True})["sessionId"]
            if self._page == "chrome://bookmarks/":
                self._await_bookmarks()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for end in (self._write, self._read):
            try:
                os.close(end)
            except OSError:
                pass
        self._process.terminate()
        try:
            self._process.wait(20)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()
        self._log.close()
        self._folder.cleanup()

    def fill(self, roots):
        """Inserts items (see above) into the roots of these identifiers and returns the browser's tree."""
        return self.run(_FILL, roots)

    def bookmarks_file(self):
        """Ends the browser, which writes the file by then, and returns its bytes."""
        self.call("Browser.close", {})
        self._process.wait(self._patience)
        with open(os.path.join(self._folder.name, "profile", "Default", "Bookmarks"), "rb") as file:
            return file.read()

    def run(self, script, given=None):
        """Runs the body of an async function with `given` and returns its result."""
        result = self.call("Runtime.evaluate", {
            "expression": f"(async given => {{ {script} }})({json.dumps(given)})",
            "awaitPromise": True, "returnByValue": True})
        if "exceptionDetails" in result:
            raise RuntimeError(f"in Chromium: {result['exceptionDetails']}")
        return result["result"].get("value")

    def call(self, method, parameters):
        self._last_id += 1
        message = {"id": self._last_id, "method": method, "params": parameters}
        if self._session and not method.startswith("Browser."):
            message["sessionId"] = self._session
        rest = json.dumps(message).encode() + b"\0"
        while rest:
            rest = rest[os.write(self._write, rest):]
        while True:
            answer = self._receive()
            if answer.get("id") == self._last_id:
                if "error" in answer:
                    raise RuntimeError(f"{method}: {answer['error']}")
                return answer["result"]

    def _await_bookmarks(self):
        end = time.monotonic() + self._patience
        while time.monotonic() < end:
            if self.run("return typeof chrome == 'object' && typeof chrome.bookmarks == 'object'"):
                return
            time.sleep(0.1)
        raise RuntimeError(f"Chromium's bookmark manager did not come up: {self._log_tail()}")

    def _receive(self):
        end = time.monotonic() + self._patience
        while b"\0" not in self._received:
            ready, _, _ = select.select([self._read], [], [], max(0, end - time.monotonic()))
            some = os.read(self._read, 1 << 16) if ready else b""
            if not some:
                raise RuntimeError(f"Chromium does not answer: {self._log_tail()}")
            self._received += some
        message, _, self._received = self._received.partition(b"\0")
        return json.loads(message)

    def _log_tail(self):
        self._log.seek(0)
        return self._log.read()[-2000:]


if __name__ == "__main__":
    with Chromium(find()) as browser, open(sys.argv[1], "wb") as out:
        browser.fill(_SAMPLE)
        out.write(browser.bookmarks_file())
