"""A Firefox, without a window or on a display, driven over Marionette, its own remote-control protocol: each message is a length, a
colon and a JSON array. Contains only what the bookmark tests need: start, run a script with the browser's own rights, stop.
"""

import json
import os
import shutil
import socket
import subprocess
import tempfile
import time

# The browser must not use the network, and must not open windows or pages before the test does.
PREFERENCES = """\
user_pref("marionette.port", 0);
user_pref("browser.bookmarks.restore_default_bookmarks", false);
user_pref("browser.places.importBookmarksHTML", false);
user_pref("browser.shell.checkDefaultBrowser", false);
user_pref("browser.startup.page", 0);
user_pref("browser.newtabpage.enabled", false);
user_pref("datareporting.policy.dataSubmissionEnabled", false);
user_pref("datareporting.policy.firstRunURL", "");
user_pref("app.normandy.enabled", false);
user_pref("app.update.auto", false);
user_pref("extensions.update.enabled", false);
user_pref("network.captive-portal-service.enabled", false);
user_pref("network.connectivity-service.enabled", false);
user_pref("network.dns.disabled", true);
user_pref("services.settings.server", "data:,");
user_pref("toolkit.telemetry.server", "data:,");
user_pref("browser.safebrowsing.malware.enabled", false);
user_pref("browser.safebrowsing.phishing.enabled", false);
"""


def find():
    """Returns the path of a Firefox on this machine, or None."""
    return shutil.which("firefox-esr") or shutil.which("firefox")


class Remote:
    """The connection to a browser that runs with Marionette."""

    def __init__(self, patience=120):
        self._patience = patience
        self._process = None
        self._socket = None
        self._last_id = 0

    def attach(self, port_file):
        """Connects to the browser that has written this file, or is about to."""
        self._connect(port_file)
        self.call("WebDriver:NewSession", {"capabilities": {}})
        self.call("Marionette:SetContext", {"value": "chrome"})
        self.call("WebDriver:SetTimeouts", {"script": self._patience * 1000})

    def run(self, script, *arguments):
        """Runs the body of an async function with `arguments` and returns its result."""
        body = f"""
            const [resolve, given] = [arguments[arguments.length - 1], Array.from(arguments).slice(0, -1)];
            (async (...args) => {{ {script} }})(...given).then(
                value => resolve({{value}}), error => resolve({{error: String(error)}}));
        """
        result = self.call("WebDriver:ExecuteAsyncScript", {"script": body, "args": list(arguments)})["value"]
        if "error" in result:
            raise RuntimeError(f"in Firefox: {result['error']}")
        return result["value"]

    def call(self, command, parameters):
        self._last_id += 1
        message = json.dumps([0, self._last_id, command, parameters]).encode()
        self._socket.sendall(b"%d:%s" % (len(message), message))
        _, answered, error, result = self._receive()
        if answered != self._last_id:
            raise RuntimeError(f"Firefox answered {answered} to {self._last_id}")
        if error:
            raise RuntimeError(f"{command}: {error}")
        return result

    def _connect(self, port_file):
        end = time.monotonic() + self._patience
        while time.monotonic() < end:
            if self._process and self._process.poll() is not None:
                raise RuntimeError(f"Firefox ended with {self._process.returncode}: {self._log_tail()}")
            try:
                with open(port_file, encoding="ascii") as file:
                    port = int(file.read())
                self._socket = socket.create_connection(("127.0.0.1", port), timeout=self._patience)
                self._receive()
                return
            except (OSError, ValueError):
                time.sleep(0.1)
        raise RuntimeError(f"Firefox did not come up: {self._log_tail()}")

    def _receive(self):
        length = b""
        while not length.endswith(b":"):
            length += self._receive_some(1)
        missing = int(length[:-1])
        parts = []
        while missing:
            parts.append(self._receive_some(missing))
            missing -= len(parts[-1])
        return json.loads(b"".join(parts))

    def _receive_some(self, count):
        some = self._socket.recv(count)
        if not some:
            raise RuntimeError(f"Firefox hung up: {self._log_tail()}")
        return some

    def _log_tail(self):
        return ""


class Firefox(Remote):
    """A context with a new profile, which is removed at its end. With the `environment` of a display it has a window there.
    `preferences` are more lines for the profile.
    """

    def __init__(self, program, patience=120, environment=None, preferences=""):
        super().__init__(patience)
        self._program = program
        self._environment = environment
        self._preferences = PREFERENCES + preferences

    def __enter__(self):
        self._folder = tempfile.TemporaryDirectory(prefix="tabulon-firefox-")
        profile = os.path.join(self._folder.name, "profile")
        os.mkdir(profile)
        with open(os.path.join(profile, "user.js"), "w", encoding="utf-8") as preferences:
            preferences.write(self._preferences)
        self._log = open(os.path.join(self._folder.name, "log"), "w+", encoding="utf-8", errors="replace")
        command = [self._program, "--no-remote", "--marionette", "--remote-allow-system-access", "--profile", profile]
        environment = dict(self._environment or os.environ, HOME=self._folder.name, MOZ_CRASHREPORTER_DISABLE="1")
        if not self._environment:
            command.append("--headless")
            environment.pop("DISPLAY", None)
        self._process = subprocess.Popen(command, env=environment, stdin=subprocess.DEVNULL, stdout=self._log,
                                         stderr=subprocess.STDOUT)
        try:
            self.attach(os.path.join(profile, "MarionetteActivePort"))
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        if self._socket:
            self._socket.close()
        self._process.terminate()
        try:
            self._process.wait(20)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()
        self._log.close()
        self._folder.cleanup()

    def home(self):
        """Returns the browser's home folder."""
        return self._folder.name

    def _log_tail(self):
        self._log.seek(0)
        return self._log.read()[-2000:]
