"""Measures how long a running browser needs to say which page is in front: bridge.py TABULON_HOST. Prints a table: the question over the
socket, the host and the extension, and, in the same run of the browser, a bare native-messaging round trip of a message that is as
long (bench/bridge_echo.py). The two take turns. Ends with status 1 when a target is missed.
"""

import contextlib
import glob
import hashlib
import http.server
import json
import os
import socket
import statistics
import struct
import subprocess
import sys
import tempfile
import threading
import time

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "tests", "system"))
import chromium  # noqa: E402
import firefox  # noqa: E402

EXTENSION = os.path.abspath(os.path.join(HERE, "..", "extension"))
ECHO = os.path.join(HERE, "bridge_echo.py")
OUR_IDENTIFIER, ECHO_IDENTIFIER = "bridge@tabulon.com", "echo@tabulon.com"
OUR_ORIGIN = "acmdlmfdkmlgnfaaobobgmmjabodbgde"
TURNS, COUNT = 6, 50
TARGET = 1.5
PATIENCE = 60
TITLE = "A page with a title"

BACKGROUND = """const port = (globalThis.browser ?? chrome).runtime.connectNative("com.tabulon.echo");
port.onMessage.addListener(message => port.postMessage(message));
"""


class Page(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        self.send_response(200)
        self.send_header("Content-Type", "text/html")
        self.end_headers()
        self.wfile.write(f"<!DOCTYPE html><title>{TITLE}</title>".encode())

    def log_message(self, *_):
        pass


def write_manifests(folder, host, our_caller, echo_caller):
    os.makedirs(folder, exist_ok=True)
    for name, path, caller in [("com.tabulon.tabulon", host, our_caller), ("com.tabulon.echo", ECHO, echo_caller)]:
        with open(os.path.join(folder, name + ".json"), "w", encoding="utf-8") as file:
            json.dump({"name": name, "description": name, "path": path, "type": "stdio", **caller}, file)


def write_echo_extension(folder):
    os.makedirs(folder)
    with open(os.path.join(folder, "background.js"), "w", encoding="utf-8") as file:
        file.write(BACKGROUND)
    with open(os.path.join(folder, "manifest.json"), "w", encoding="utf-8") as file:
        json.dump({"manifest_version": 3, "name": "Echo", "version": "1", "permissions": ["nativeMessaging"],
                   "background": {"service_worker": "background.js", "scripts": ["background.js"]},
                   "browser_specific_settings": {"gecko": {"id": ECHO_IDENTIFIER}}}, file)


@contextlib.contextmanager
def running_firefox(folder, environment, host, echo, address):
    with firefox.Firefox(firefox.find(), environment=dict(environment, MOZ_HEADLESS="1")) as browser:
        write_manifests(os.path.join(browser.home(), ".mozilla", "native-messaging-hosts"), host,
                        {"allowed_extensions": [OUR_IDENTIFIER]}, {"allowed_extensions": [ECHO_IDENTIFIER]})
        for extension in [EXTENSION, echo]:
            browser.call("Addon:Install", {"path": extension, "temporary": True})
        browser.run("gBrowser.fixupAndLoadURIString(args[0], "
                    "{triggeringPrincipal: Services.scriptSecurityManager.getSystemPrincipal()});", address)
        yield


@contextlib.contextmanager
def running_chromium(folder, environment, host, echo, address):
    profile = os.path.join(folder, "profile")
    digest = hashlib.sha256(echo.encode()).hexdigest()[:32]  # the identifier of an extension without a key
    echo_origin = "".join(chr(ord("a") + int(digit, 16)) for digit in digest)
    write_manifests(os.path.join(profile, "NativeMessagingHosts"), host,
                    *({"allowed_origins": [f"chrome-extension://{origin}/"]} for origin in [OUR_ORIGIN, echo_origin]))
    process = subprocess.Popen(
        [chromium.find(), "--headless=new", "--no-sandbox", "--no-first-run", "--disable-gpu", "--disable-background-networking",
         "--disable-component-update", "--disable-sync", "--disable-features=DisableLoadExtensionCommandLineSwitch",
         f"--user-data-dir={profile}", f"--load-extension={EXTENSION},{echo}", address],
        env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        yield
    finally:
        process.terminate()
        process.wait()


class Bridge:
    """A program that is connected to the host."""

    def __init__(self, runtime):
        pattern = os.path.join(runtime, "app", "com.tabulon.Tabulon", "bridge", "*.sock")
        self._socket = socket.socket(socket.AF_UNIX)
        self._socket.settimeout(PATIENCE)
        self._socket.connect(wait_for(lambda: glob.glob(pattern))[0])
        self._last_id = 0

    def front_page(self):
        self._last_id += 1
        message = json.dumps({"protocol": 1, "id": self._last_id, "operation": "frontTab"}).encode()
        self._socket.sendall(struct.pack("=I", len(message)) + message)
        return json.loads(self._read(struct.unpack("=I", self._read(4))[0])).get("result")

    def _read(self, count):
        taken = b""
        while len(taken) < count:
            some = self._socket.recv(count - len(taken))
            if not some:
                sys.exit("the host has ended")
            taken += some
        return taken


def wait_for(condition):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        if value := condition():
            return value
        time.sleep(0.05)
    sys.exit("the browser is not ready")


def measure(run_browser, host, address):
    """Returns the medians of the bridge and of the echo in seconds."""
    with tempfile.TemporaryDirectory(prefix="tabulon-bench-", ignore_cleanup_errors=True) as folder:
        runtime, echo = os.path.join(folder, "runtime"), os.path.join(folder, "echo")
        os.mkdir(runtime, mode=0o700)
        write_echo_extension(echo)
        go, times = os.path.join(folder, "go"), os.path.join(folder, "times")
        os.mkfifo(go)
        os.mkfifo(times)
        environment = dict(os.environ, HOME=folder, XDG_RUNTIME_DIR=runtime, TABULON_ECHO=folder)
        environment.pop("DISPLAY", None)
        expected = {"title": TITLE, "url": address}
        with run_browser(folder, environment, host, echo, address):
            bridge = Bridge(runtime)
            wait_for(lambda: bridge.front_page() == expected)
            asked, echoed = [], []
            for _ in range(TURNS):
                for _ in range(COUNT):
                    begin = time.perf_counter()
                    page = bridge.front_page()
                    asked.append(time.perf_counter() - begin)
                    if page != expected:
                        sys.exit(f"the page in front is {page}")
                with open(go, "w", encoding="ascii") as pipe:
                    pipe.write(str(COUNT))
                with open(times, encoding="ascii") as pipe:
                    echoed += json.load(pipe)
        return statistics.median(asked), statistics.median(echoed)


def main():
    host = os.path.abspath(sys.argv[1])
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Page)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    address = f"http://127.0.0.1:{server.server_port}/page"
    print("| Work | Tabulon | Reference in the same run | Ratio | Target | |\n|---|---|---|---|---|---|")
    is_missed = False
    for name, find, run_browser in [("Chromium", chromium.find, running_chromium), ("Firefox", firefox.find, running_firefox)]:
        if not find():
            print(f"| front page of {name} | not installed | | | | |")
            continue
        asked, echoed = measure(run_browser, host, address)
        ratio = asked / echoed
        is_missed |= ratio > TARGET
        print(f"| front page of {name}, asked and answered | {asked * 1000:.2f} ms | a bare native-messaging echo: "
              f"{echoed * 1000:.2f} ms | {ratio:.2f} × as long | {TARGET} × as long | {'MISSED' if ratio > TARGET else 'met'} |",
              flush=True)
    sys.exit(1 if is_missed else 0)


if __name__ == "__main__":
    main()
