"""The real program under Wayland: sway without a screen, wtype as its keyboard, wl-clipboard as other programs."""

import glob
import json
import os
import shutil
import subprocess
import sys
import tempfile

from desktop_program import wait_for
from session import Session, run_session_tests

NOBODY = 65534


class WaylandSession(Session):
    def start_display(self):
        """Starts sway, which refuses to run as root, with a folder for its socket that its user owns."""
        self.sway_folder = tempfile.mkdtemp(prefix="tabulon-sway-")
        configuration = os.path.join(self.sway_folder, "configuration")
        with open(configuration, "w", encoding="utf-8") as file:
            file.write("xwayland disable\n")
        command = ["sway", "-c", configuration]
        if os.geteuid() == 0:
            os.chown(self.sway_folder, NOBODY, NOBODY)
            command = ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups", *command]
        environment = dict(self.environment, HOME=self.sway_folder, XDG_RUNTIME_DIR=self.sway_folder, WLR_BACKENDS="headless",
                           WLR_LIBINPUT_NO_DEVICES="1", WLR_RENDERER="pixman")
        self.manager = None
        self.server = subprocess.Popen(command, env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        sockets = wait_for("the compositor", lambda: glob.glob(os.path.join(self.sway_folder, "wayland-?")))
        self.environment.update(WAYLAND_DISPLAY=sockets[0], QT_QPA_PLATFORM="wayland")

    def close(self):
        super().close()
        shutil.rmtree(self.sway_folder, ignore_errors=True)

    def type(self, *arguments):
        """Presses keys in the front window. Each call uses a new keyboard."""
        subprocess.run(["wtype", "-s", "50", *arguments, "-s", "50"], env=self.environment, check=True, timeout=20)

    def given(self, media_type):
        """Returns the bytes that another program reads."""
        return subprocess.run(["wl-paste", "-n", "-t", media_type], env=self.environment, capture_output=True, timeout=20).stdout

    def give(self, media_type, content):
        """Makes another program own the clipboard, with one form."""
        subprocess.run(["wl-copy", "-t", media_type], env=self.environment, input=content, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, check=True, timeout=20)

    def windows(self):
        """Returns the titles of all windows, and the title of the one that has the keyboard."""
        socket = glob.glob(os.path.join(self.sway_folder, "sway-ipc.*.sock"))[0]
        tree = subprocess.run(["swaymsg", "-s", socket, "-t", "get_tree", "-r"], env=self.environment, capture_output=True,
                              check=True, timeout=20).stdout
        titles, focused, nodes = [], None, [json.loads(tree)]
        while nodes:
            node = nodes.pop()
            if node.get("pid"):
                titles.append(node["name"])
                focused = node["name"] if node["focused"] else focused
            nodes += node["nodes"] + node["floating_nodes"]
        return titles, focused


def run_wayland_tests(tests):
    """Runs the tests as `run_session_tests` does. Ends with status 77 if sway is missing, unless TABULON_REQUIRE_BROWSER is set."""
    if os.environ.get("TABULON_REQUIRE_BROWSER") and not shutil.which("sway"):
        print("there is no sway")
        sys.exit(1)
    run_session_tests(tests, needed=["sway", "wl-copy", "wl-paste", "wtype"], make_session=WaylandSession)
