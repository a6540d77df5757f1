"""Links dragged out of a real Firefox and a real Chromium into the real program, where they keep their titles:
browser_dragging.py TABULON TABULON_CLI.

Ends with status 77 without a display or a browser, unless TABULON_REQUIRE_BROWSER is set.
"""

import http.server
import os
import subprocess
import sys
import threading
import time

from desktop_program import wait_for
from dragging import drag, open_one, place, row
from session import check, end, run_session_tests

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "system"))
import chromium  # noqa: E402
import firefox  # noqa: E402

CHROMIUM = chromium.find()
LINK, TITLE = "https://dragged.example/page?a=b", "The title: “日本” & more"
PAGE = f"""<!DOCTYPE html><meta charset="utf-8"><title>Page in the browser</title>
<body style="margin:0"><a href="{LINK}" style="display:block;font-size:40px;padding:40px">{TITLE.replace("&", "&amp;")}</a>
"""
PREFERENCES = """user_pref("browser.toolbars.bookmarks.visibility", "always");
user_pref("browser.aboutwelcome.enabled", false);
user_pref("browser.tabs.inTitlebar", 0);
"""
BROWSER_PLACE, BROWSER_SIZE = (640, 50), (620, 650)
# Returns the position on the screen of the first visible element of these in Firefox's own window.
CORNER_OF = """const boxes = [...document.querySelectorAll(args[0])].map(element => element.getBoundingClientRect());
const box = boxes.find(each => each.width > 0);
return [mozInnerScreenX + box.x, mozInnerScreenY + box.y].map(Math.round);"""
PAGE_IN_ADDRESS_BAR = "#trust-icon, #identity-icon"  # newer and older versions
OPEN = """await PlacesUtils.bookmarks.insert(
    {parentGuid: PlacesUtils.bookmarks.toolbarGuid, url: "https://kept.example/", title: "Kept & dragged"});
gBrowser.fixupAndLoadURIString(args[0], {triggeringPrincipal: Services.scriptSecurityManager.getSystemPrincipal()});"""


def page(html=PAGE):
    """Returns the address of the page, which is served as long as the test runs."""
    class Page(http.server.BaseHTTPRequestHandler):
        def do_GET(self):
            self.send_response(200)
            self.send_header("Content-Type", "text/html")
            self.end_headers()
            self.wfile.write(html.encode())

        def log_message(self, *_):
            pass

    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Page)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    return f"http://127.0.0.1:{server.server_port}/page"


def window_of(session, name):
    return wait_for("the browser", lambda: session.xdotool("search", "--onlyvisible", "--name", name)).split()[-1]


def first_child(session, path):
    place(session, "one")
    session.xdotool("key", "ctrl+s")
    node = session.tree(path)["children"][0]
    return node["name"], node["url"]


def arrives(session, path, what, start, title, url):
    """Checks that a drag from `start` to the top of the outline becomes a bookmark of that name and address."""
    def dragged():  # repeated: a slow browser may not be ready for the first drag
        drag(session, start, row(1), row(0, 0.1))
        time.sleep(0.3)
        return first_child(session, path) == (title, url)
    wait_for(what, dragged)
    check(True, f"{what} keeps its title")


def firefox_gives_titles(session):
    path = open_one(session)
    address = page()
    with firefox.Firefox(firefox.find(), environment=session.environment, preferences=PREFERENCES) as browser:
        browser.run(OPEN, address)
        (x, y), (width, height) = BROWSER_PLACE, BROWSER_SIZE
        browser.call("WebDriver:SetWindowRect", {"x": x, "y": y, "width": width, "height": height})
        window_of(session, "Page in the browser")
        time.sleep(0.5)

        def inside(selector, right, down):
            corner = browser.run(CORNER_OF, selector)
            return corner[0] + right, corner[1] + down
        arrives(session, path, "a link of a page in Firefox", inside("#tabbrowser-tabpanels", 60, 65), TITLE, LINK)
        arrives(session, path, "the page in Firefox's address bar", inside(PAGE_IN_ADDRESS_BAR, 8, 8),
                "Page in the browser", address)
        arrives(session, path, "a bookmark of Firefox", inside("#PlacesToolbarItems .bookmark-item", 20, 10), "Kept & dragged",
                "https://kept.example/")


def chromium_gives_titles(session):
    path = open_one(session)
    profile = os.path.join(session.folder, "chromium")
    # Without its sandbox it runs as root as well; the page is our own.
    browser = session.launch(f"--app={page()}", f"--user-data-dir={profile}", "--no-sandbox", "--no-first-run", "--disable-gpu",
                             "--disable-background-networking", "--password-store=basic", "--ozone-platform=x11",
                             f"--window-size={BROWSER_SIZE[0]},{BROWSER_SIZE[1]}", program=CHROMIUM, stderr=subprocess.DEVNULL)
    x, y = BROWSER_PLACE
    session.xdotool("windowmove", window_of(session, "Page in the browser"), str(x), str(y))
    time.sleep(0.7)
    arrives(session, path, "a link of a page in Chromium", (x + 60, y + 100), TITLE, LINK)
    end(browser)  # with all its processes, which write to the session's folder


if __name__ == "__main__":
    tests = [firefox_gives_titles] * bool(firefox.find()) + [chromium_gives_titles] * bool(CHROMIUM)
    if len(tests) < 2:
        print("there is no Firefox" if not firefox.find() else "there is no Chromium")
        if not tests or os.environ.get("TABULON_REQUIRE_BROWSER"):
            sys.exit(1 if os.environ.get("TABULON_REQUIRE_BROWSER") else 77)
    run_session_tests(tests)
