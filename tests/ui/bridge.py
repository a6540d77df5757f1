"""Links opened by the real program in a real Chromium and a real Firefox, with the extension and the host: bridge.py TABULON
TABULON_CLI. Every check looks at what the browser shows, or at what it has asked the server for.

Ends with status 77 without a display or a browser, unless TABULON_REQUIRE_BROWSER is set.
"""

import http.server
import os
import signal
import sys
import threading
import time

from bridged_browsers import BLANK, BridgedChromium, BridgedFirefox, chromium, firefox
from desktop_program import check, wait_for
from session import end, run_session_tests
from small_tree import make_document

PAGES = ["one", "two", "three"]
TABS = 5
MANY = 200
FOLDER, FOLDER_OF_MANY, FILE = 3, 4, 5  # rows after those of the pages


class Pages:
    """A server on loopback with a page for each path. `requests` has the path and the family of the browser of each request."""

    def __init__(self):
        self.requests = requests = []

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                self.send_response(200)
                self.send_header("Content-Type", "text/html")
                self.send_header("Cache-Control", "no-store")
                self.end_headers()
                self.wfile.write(f"<!DOCTYPE html><title>Page {self.path}</title>".encode())
                if "favicon" not in self.path:
                    requests.append((self.path, "Chromium" if "Chrome/" in self.headers["User-Agent"] else "Firefox"))

            def log_message(self, *_):
                pass

        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        threading.Thread(target=self.server.serve_forever, daemon=True).start()
        self.address = f"http://127.0.0.1:{self.server.server_port}/"

    def close(self):
        self.server.shutdown()
        self.server.server_close()


def link(name, url):
    return {"name": name, "url": url}


def folder(name, children):
    return {"name": name, "folder": True, "openFolder": False, "children": children}


class Bridge:
    """The program with a document of links, and the pages that they show."""

    def __init__(self, session):
        self.session = session
        self.pages = Pages()
        self.file = os.path.join(session.folder, "local.html")
        with open(self.file, "w", encoding="utf-8") as file:
            file.write("<!DOCTYPE html><title>Local page</title>")
        links = [link(name, self.url(name)) for name in PAGES]
        links.append(folder("Folder", [link(f"t{number}", self.url(f"t{number}")) for number in range(TABS)]))
        links.append(folder("Many", [link(f"m{number}", self.url(f"m{number}")) for number in range(MANY)]))
        links.append(link("local", "file://" + self.file))
        self.document = make_document(session, "links", {**folder("Master", links), "openFolder": True})
        self.start()

    def url(self, name):
        return self.pages.address + name

    def start(self):
        self.process = self.session.launch(self.document)
        self.session.window("links.*Tabulon")

    def select(self, *rows):
        """Brings the document to the front and selects these rows, which are neighbours."""
        self.session.window("links.*Tabulon")
        self.session.xdotool("key", "--delay", "10", "Home", *["Down"] * rows[0], *["shift+Down"] * (len(rows) - 1))

    def press(self, keys, *rows):
        self.select(*rows)
        self.session.xdotool("key", "--delay", "30", *keys.split())

    def answer(self, key):
        """Answers the question that the program shows."""
        self.session.window("^Tabulon$")
        self.session.press(key)

    def requested(self, *names):
        """Returns the families of the browsers that have asked for these pages."""
        paths = ["/" + name for name in names]
        return [family for path, family in self.pages.requests if path in paths]


def places(bridge, browser):
    """Every command, with a browser that is connected and in front of nothing."""
    one, two, three = (bridge.url(name) for name in PAGES)
    bridge.press("Return", 0)
    bridge.answer("Return")
    browser.wait_for_windows("Return shows a page in the current tab, after the permission", [(one, 1)])
    wait_for("the browser in front", lambda: "Page /one" in bridge.session.front_title())
    check(bridge.requested("one") == [browser.title], "one browser has asked for the page, once")
    bridge.press("Return", 1)
    browser.wait_for_windows("Return replaces the page, without another question", [(two, 1)])
    bridge.press("ctrl+shift+Return", 2)
    browser.wait_for_windows("Open in New Tab", [(three, 2)])
    bridge.press("ctrl+alt+Return", 0)
    browser.wait_for_windows("Open in New Window", [(three, 2), (one, 1)])
    bridge.press("Return", 1, 2)
    browser.wait_for_windows("several links in tabs of the window in front", [(three, 2), (three, 3)])


def other_routes(bridge, browser):
    """A folder as tabs, an address that an extension may not show, a private window in front, and a browser that ends."""
    one, two, three = (bridge.url(name) for name in PAGES)
    bridge.press("Return", 0)
    bridge.answer("Return")
    browser.wait_for_windows("the page", [(one, 1)])
    names = [f"t{number}" for number in range(TABS)]
    bridge.press("alt+b f", FOLDER)
    expected = sorted([one, *(bridge.url(name) for name in names)])
    wait_for("the tabs", lambda: sorted(browser.tabs()) == expected)
    check(len(bridge.requested(*names)) == TABS, f"{browser.title}: a folder as tabs")
    bridge.press("Return", FILE)
    wait_for("the local page", lambda: "file://" + bridge.file in browser.tabs())
    check(len(browser.tabs()) == 2 + TABS, f"{browser.title}: a local file by the command line, in a tab of its own")
    os.kill(browser.host_pid(), signal.SIGKILL)
    browser.wait_for_new_host()
    bridge.press("Return", 1)
    wait_for("the page", lambda: two in browser.tabs())
    check(len(browser.tabs()) == 2 + TABS, f"{browser.title}: in the current tab after the host was killed")
    end(bridge.process)
    bridge.start()
    bridge.press("Return", 2)
    wait_for("the page", lambda: three in browser.tabs())
    check(len(browser.tabs()) == 2 + TABS and two not in browser.tabs(),
          f"{browser.title}: in the current tab after the program was started again, without a question")
    private_in_front(bridge, browser, three)


def private_in_front(bridge, browser, current):
    """Chromium hides a private window from the extension, which shows the page in the last other window, above the private one.
    Firefox refuses, and opens a tab by its command line.
    """
    def pages():
        return sorted(tab for tab in browser.tabs() if tab not in BLANK)
    before = [tab for tab in pages() if tab != current or browser.title == "Firefox"]
    windows = len(browser.windows())
    browser.launch(*browser.private_arguments())
    wait_for("the private window", lambda: len(browser.windows()) == windows + 1)
    wait_for("the private window in front", lambda: "Page" not in bridge.session.front_title())
    expected = sorted([*before, bridge.url("one")])
    bridge.press("Return", 0)
    wait_for("the page", lambda: pages() == expected)
    check(len(browser.tabs()) == len(expected) + 1, f"{browser.title}: shown once, and not in the private window in front")
    if browser.title == "Chromium":
        wait_for("the page in front", lambda: "Page /one" in bridge.session.front_title())


def ends(bridge, browser):
    """The browser is killed before it answers, and started with the address."""
    bridge.press("Return", 0)
    bridge.answer("Return")
    browser.wait_for_windows("the page", [(bridge.url("one"), 1)])
    os.kill(browser.pid(), signal.SIGSTOP)
    bridge.press("Return", 1)
    time.sleep(1)
    browser.kill()
    wait_for("the page", lambda: bridge.requested("two"))
    browser.attach()
    browser.wait_for_windows("killed while it is asked, it is started with the address", [(bridge.url("two"), 1)])


def denied(bridge, browser):
    """Without the permission the desktop's browser shows the page, and this one is sent nothing."""
    bridge.press("Return", 0)
    bridge.answer("Escape")
    wait_for("the page", lambda: bridge.requested("one"))
    wait_for("the tab", lambda: bridge.url("one") in browser.tabs())
    check(len(browser.tabs()) == 2, f"{browser.title}: without the permission, a tab of the default browser")
    bridge.press("Return", 1)
    wait_for("the tab", lambda: bridge.url("two") in browser.tabs())
    check(len(browser.tabs()) == 3, f"{browser.title}: the same the next time, without a question")


def many(bridge, browser):
    """A folder with more pages than are opened without a question."""
    names = [f"m{number}" for number in range(MANY)]
    bridge.press("alt+b f", FOLDER_OF_MANY)
    bridge.answer("Return")
    wait_for("the pages", lambda: len(bridge.requested(*names)) >= MANY)
    wait_for("the tabs", lambda: {bridge.url(name) for name in names} <= set(browser.tabs()))
    check(sorted(path for path, _ in bridge.pages.requests) == sorted("/" + name for name in names),
          f"{browser.title}: each of {MANY} pages once")
    count = len(browser.tabs())
    bridge.press("Return", 0)
    bridge.answer("Return")
    wait_for("the page", lambda: bridge.url("one") in browser.tabs())
    check(len(browser.tabs()) == count, f"{browser.title}: the current one of {count} tabs")


def front_browser(session):
    """Two profiles of Chromium and a Firefox: the one in front shows the page, or the chosen one."""
    first, second, other = BridgedChromium(session), BridgedChromium(session, "second"), BridgedFirefox(session)
    for browser in [first, other]:
        browser.write_entry()
    first.make_default()
    for browser in [first, second, other]:
        browser.start()
    bridge = Bridge(session)
    try:
        check_front_browser(bridge, first, second, other)
    finally:
        bridge.pages.close()
        for browser in [first, second, other]:
            browser.end()


def check_front_browser(bridge, first, second, other):
    session = bridge.session
    one, two, three = (bridge.url(name) for name in PAGES)
    bring_to_front(session, first)
    bridge.press("Return", 0)
    bridge.answer("Return")
    first.wait_for_windows("the profile in front", [(one, 1)])
    bring_to_front(session, second)
    bridge.press("Return", 1)
    second.wait_for_windows("the other profile in front, without another question", [(two, 1)])
    check(other.tabs() == ["about:blank"] and first.tabs() == [one], "the other browsers show what they did")
    bridge.press("alt+b h Down Down Down Down Return", 2)
    bridge.answer("Return")
    other.wait_for_windows("Open With another browser, after its permission", [(three, 1)])
    check(first.tabs() == [one] and second.tabs() == [two], "and only that one")


def bring_to_front(session, browser):
    window = session.xdotool("search", "--all", "--onlyvisible", "--pid", str(browser.pid()), "--class", browser.entry).split()[-1]

    def in_front():
        session.xdotool("windowactivate", window)
        return session.xdotool("getactivewindow") == window
    wait_for(f"{browser.title} in front", in_front)


def run(kind, test):
    """Returns the test for the browser of this kind, which is the default browser and runs."""
    def tested(session):
        browser = kind(session)
        browser.write_entry()
        browser.make_default()
        begin = time.monotonic()
        browser.start()
        bridge = Bridge(session)
        try:
            test(bridge, browser)
        finally:
            bridge.pages.close()
            browser.end()
            print(f"{kind.title}: {test.__name__}: {time.monotonic() - begin:.1f} s", flush=True)
    tested.__name__ = f"{test.__name__} ({kind.title})"
    return tested


TESTS = [places, other_routes, ends, denied, many]  # each with a new profile

if __name__ == "__main__":
    kinds = [BridgedFirefox] * bool(firefox.find()) + [BridgedChromium] * bool(chromium.find())
    if len(kinds) < 2:
        print("there is no Firefox" if not firefox.find() else "there is no Chromium")
        if not kinds or os.environ.get("TABULON_REQUIRE_BROWSER"):
            sys.exit(1 if os.environ.get("TABULON_REQUIRE_BROWSER") else 77)
    run_session_tests([run(kind, test) for kind in kinds for test in TESTS] + [front_browser] * (len(kinds) == 2))
