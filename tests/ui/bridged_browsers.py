"""Real browsers that have the extension and reach the program's host: with a window on the display of a session, started by a
desktop entry, so that the program can start them, too. What they show is asked by their remote-control protocols.
"""

import base64
import json
import os
import re
import signal
import socket
import struct
import sys
import time

from desktop_program import Failure, check, wait_for

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "system"))
import chromium  # noqa: E402
import firefox  # noqa: E402

EXTENSION = os.path.join(HERE, "..", "..", "extension")
HOST = "com.tabulon.tabulon"
BLANK = {"about:blank", "about:home", "about:newtab", "about:privatebrowsing", "chrome://newtab/", "chrome://new-tab-page/"}

_ENTRY = """[Desktop Entry]
Type=Application
Name={name}
Exec={command} %U
MimeType=x-scheme-handler/http;x-scheme-handler/https;x-scheme-handler/file;text/html;
"""


def host_program(session):
    """Returns the host that was built with the program."""
    return os.path.join(os.path.dirname(session.program), "..", "host", "tabulon-host")


def write_manifest(folder, host, **allowed):
    """Allows the extension to start the host."""
    os.makedirs(folder, exist_ok=True)
    with open(os.path.join(folder, HOST + ".json"), "w", encoding="utf-8") as file:
        json.dump({"name": HOST, "description": "Tabulon", "path": os.path.abspath(host), "type": "stdio", **allowed}, file)


def bridge_folder(session):
    return os.path.join(session.environment["XDG_RUNTIME_DIR"], "app", "com.tabulon.Tabulon", "bridge")


class DevTools:
    """A connection to Chromium's remote-control protocol: WebSocket frames (RFC 6455) of JSON."""

    def __init__(self, port, path):
        self._socket = socket.create_connection(("127.0.0.1", port), timeout=30)
        self._last_id = 0
        self._sessions = {}
        key = base64.b64encode(os.urandom(16)).decode()
        self._socket.sendall(f"GET {path} HTTP/1.1\r\nHost: 127.0.0.1:{port}\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
                             f"Sec-WebSocket-Key: {key}\r\nSec-WebSocket-Version: 13\r\n\r\n".encode())
        self._input = self._socket.makefile("rb")
        while self._input.readline().strip():
            pass

    def call(self, method, parameters=None, **more):
        self._last_id += 1
        self._send(json.dumps({"id": self._last_id, "method": method, "params": parameters or {}, **more}).encode())
        while True:
            answer = self._receive()
            if answer.get("id") == self._last_id:
                if "error" in answer:
                    raise RuntimeError(f"{method}: {answer['error']}")
                return answer["result"]

    def is_visible(self, target):
        """Returns whether it is the current tab of its window."""
        if target not in self._sessions:
            attached = self.call("Target.attachToTarget", {"targetId": target, "flatten": True})
            self._sessions[target] = attached["sessionId"]
        result = self.call("Runtime.evaluate", {"expression": "document.visibilityState"}, sessionId=self._sessions[target])
        return result["result"].get("value") == "visible"

    def _send(self, payload):
        # A client masks what it sends; the mask may be zero.
        length = len(payload)
        size = bytes([0x80 | length]) if length < 126 else bytes([0x80 | 126]) + struct.pack(">H", length)
        self._socket.sendall(b"\x81" + size + bytes(4) + payload)

    def _receive(self):
        payload, is_last = b"", False
        while not is_last:
            first, length = self._input.read(2)
            if length >= 126:
                size = 2 if length == 126 else 8
                length = int.from_bytes(self._input.read(size), "big")
            payload += self._input.read(length)
            is_last = first & 0x80
        return json.loads(payload)


class BridgedBrowser:
    """A browser in a session. A class for each family has its others."""

    entry = title = ""

    def __init__(self, session, profile="profile"):
        self.session = session
        self.profile = os.path.join(session.folder, f"{self.entry}-{profile}")
        os.makedirs(self.profile)
        self.prepare(session)

    def write_entry(self):
        applications = os.path.join(self.session.environment["XDG_DATA_HOME"], "applications")
        os.makedirs(applications, exist_ok=True)
        with open(os.path.join(applications, self.entry + ".desktop"), "w", encoding="utf-8") as file:
            file.write(_ENTRY.format(name=self.title, command=" ".join(self.command())))

    def make_default(self):
        folder = os.path.join(self.session.environment["HOME"], ".config")
        os.makedirs(folder, exist_ok=True)
        with open(os.path.join(folder, "mimeapps.list"), "w", encoding="utf-8") as file:
            file.write("[Default Applications]\n" + "".join(
                f"x-scheme-handler/{scheme}={self.entry}.desktop\n" for scheme in ["http", "https", "file"]))

    def start(self, *arguments):
        before = set(self.sockets())
        self.launch(*arguments)
        self.start_remote()
        self.socket = wait_for(f"the host of {self.title}", lambda: set(self.sockets()) - before).pop()

    def launch(self, *arguments):
        """Starts the browser, or passes the arguments to the one that is running."""
        with open(os.path.join(self.session.folder, self.entry + ".log"), "a", encoding="utf-8") as log:
            return self.session.launch(*self.command()[1:], *arguments, program=self.command()[0], stdout=log, stderr=log)

    def sockets(self):
        try:
            return [name for name in os.listdir(bridge_folder(self.session)) if name.endswith(".sock")]
        except FileNotFoundError:
            return []

    def pid(self):
        return int(self.socket.split("-")[0])

    def host_pid(self):
        return int(re.split(r"[-.]", self.socket)[1])

    def kill(self, number=signal.SIGKILL):
        pid = self.pid()
        os.kill(pid, number)
        wait_for(f"the end of {self.title}", lambda: not is_running(pid))
        os.remove(self.port_file())

    def end(self):
        """Ends all its processes, also those that the program has started."""
        for signal_number in [signal.SIGTERM, signal.SIGKILL]:
            for pid in processes_with(self.profile):
                try:
                    os.kill(pid, signal_number)
                except ProcessLookupError:
                    pass
            deadline = time.monotonic() + 3
            while processes_with(self.profile) and time.monotonic() < deadline:
                time.sleep(0.05)

    def wait_for_new_host(self):
        before = self.socket
        names = wait_for("the host again", lambda: [name for name in self.sockets()
                                                    if name.startswith(f"{self.pid()}-") and name != before])
        self.socket = names[0]

    def tabs(self):
        return sum((window[1] for window in self.windows()), [])

    def wait_for_windows(self, what, expected):
        """Waits for these windows in any order: each is the address of its current tab, and the number of its tabs."""
        shown = []

        def are_shown():
            shown[:] = sorted((front or "", len(tabs)) for front, tabs in self.windows())
            return shown == sorted(expected)
        try:
            wait_for(what, are_shown)
        except Failure as failure:
            raise Failure(f"{what} in {self.title}: expected {expected}, it shows {shown}") from failure
        check(True, f"{self.title}: {what}")


def processes_with(argument):
    """Returns the processes whose command line contains this path."""
    found = []
    for pid in filter(str.isdecimal, os.listdir("/proc")):
        try:
            with open(f"/proc/{pid}/cmdline", "rb") as file:
                if argument.encode() in file.read():
                    found.append(int(pid))
        except OSError:
            pass  # it has ended
    return found


def is_running(pid):
    try:
        with open(f"/proc/{pid}/stat", encoding="ascii", errors="replace") as file:
            return file.read().rpartition(")")[2].split()[0] != "Z"
    except FileNotFoundError:
        return False


class BridgedFirefox(BridgedBrowser):
    entry, title = "firefox", "Firefox"
    # Returns each window as its current address and those of all its tabs.
    _WINDOWS = """return [...Services.wm.getEnumerator("navigator:browser")].filter(each => !each.closed).map(each => [
        each.gBrowser.selectedBrowser.currentURI.displaySpec, each.gBrowser.browsers.map(tab => tab.currentURI.displaySpec)]);"""

    def prepare(self, session):
        with open(os.path.join(self.profile, "user.js"), "w", encoding="utf-8") as preferences:
            preferences.write(firefox.PREFERENCES + 'user_pref("browser.aboutwelcome.enabled", false);\n'
                              'user_pref("browser.tabs.warnOnOpen", false);\nuser_pref("browser.sessionstore.resume_from_crash", false);\n'
                              'user_pref("toolkit.startup.max_resumed_crashes", -1);\n')
        write_manifest(os.path.join(session.environment["HOME"], ".mozilla", "native-messaging-hosts"), host_program(session),
                       allowed_extensions=["bridge@tabulon.com"])

    def command(self):
        return [firefox.find(), "--marionette", "--remote-allow-system-access", "--profile", self.profile]

    def start_remote(self):
        self.attach()
        self.remote.call("Addon:Install", {"path": EXTENSION, "temporary": True})

    def attach(self):
        """Connects to the browser after its start."""
        self.remote = firefox.Remote(patience=30)
        self.remote.attach(self.port_file())

    def port_file(self):
        return os.path.join(self.profile, "MarionetteActivePort")

    def windows(self):
        return self.remote.run(self._WINDOWS)

    def private_arguments(self):
        return ["--private-window"]


class BridgedChromium(BridgedBrowser):
    entry, title = "chromium", "Chromium"

    def prepare(self, session):
        write_manifest(os.path.join(self.profile, "NativeMessagingHosts"), host_program(session),
                       allowed_origins=["chrome-extension://acmdlmfdkmlgnfaaobobgmmjabodbgde/"])

    def command(self):
        # Without its sandbox it runs as root as well; the pages are our own.
        return [chromium.find(), "--no-sandbox", "--no-first-run", "--disable-gpu", "--disable-background-networking",
                "--disable-component-update", "--disable-sync", "--password-store=basic", "--ozone-platform=x11",
                "--noerrdialogs", "--hide-crash-restore-bubble", "--test-type", "--disable-features=DisableLoadExtensionCommandLineSwitch",
                f"--load-extension={EXTENSION}", "--remote-debugging-port=0", f"--user-data-dir={self.profile}"]

    def start_remote(self):
        self.attach()

    def attach(self):
        wait_for("the port of Chromium", lambda: os.path.exists(self.port_file()) and os.path.getsize(self.port_file()))
        with open(self.port_file(), encoding="ascii") as file:
            port, path = file.read().split()
        self.remote = DevTools(int(port), path)

    def port_file(self):
        return os.path.join(self.profile, "DevToolsActivePort")

    def windows(self):
        windows = {}
        for target in self.remote.call("Target.getTargets")["targetInfos"]:
            if target["type"] != "page" or target["url"].startswith("devtools:"):
                continue
            window = self.remote.call("Browser.getWindowForTarget", {"targetId": target["targetId"]})["windowId"]
            windows.setdefault(window, []).append(target)
        return [[next((tab["url"] for tab in tabs if self.remote.is_visible(tab["targetId"])), None), [tab["url"] for tab in tabs]]
                for tabs in windows.values()]

    def private_arguments(self):
        return ["--incognito"]
