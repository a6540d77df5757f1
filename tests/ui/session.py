"""A desktop session for tests: the virtual display of desktop_program.py with a message bus of its own, on which programs
find each other and which starts services from `data_folders`.
"""

import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time

from desktop_program import Desktop, Failure, PATIENCE, check, wait_for

NEEDED = ["Xvfb", "openbox", "xdotool", "dbus-daemon"]


class Session(Desktop):
    def __init__(self, program, tool, folder, data_folders=()):
        super().__init__(program, tool, folder)
        self.started = []
        if data_folders:
            self.environment["XDG_DATA_DIRS"] = ":".join([*data_folders, "/usr/local/share", "/usr/share"])
        self.environment["XDG_DATA_HOME"] = os.path.join(folder, "home", "data")
        self.environment.pop("DBUS_SESSION_BUS_ADDRESS")
        for name in ["XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"]:
            self.environment.pop(name, None)
        self.bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address"], env=self.environment,
                                    stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self.bus.stdout.readline().strip()

    def close(self):
        for process in self.started + [self.bus]:
            if process.poll() is None:
                process.send_signal(signal.SIGCONT)
                process.kill()
            process.wait()
        super().close()

    def launch(self, *arguments, program=None, **options):
        environment = dict(self.environment, **options.pop("environment", {}))
        process = subprocess.Popen([program or self.program, *arguments], env=environment, **options)
        self.started.append(process)
        return process

    def run(self, *command, **options):
        """Runs another program in this session and returns its output."""
        options = {"stdout": subprocess.PIPE, **options}
        return subprocess.run(command, env=self.environment, stderr=subprocess.DEVNULL, text=True, timeout=PATIENCE,
                              **options).stdout

    def second(self, *arguments, **options):
        """Starts the program again and returns its exit status and the seconds until it ended."""
        begin = time.monotonic()
        process = self.launch(*arguments, **options)
        return process.wait(timeout=PATIENCE), time.monotonic() - begin

    def bus_name_is_owned(self):
        call = ["gdbus", "call", "--session", "-d", "org.freedesktop.DBus", "-o", "/org/freedesktop/DBus",
                "-m", "org.freedesktop.DBus.NameHasOwner", "com.tabulon.Tabulon"]
        return "true" in subprocess.run(call, env=self.environment, capture_output=True, text=True).stdout

    def titles(self):
        windows = self.xdotool("search", "--onlyvisible", "--class", "tabulon").split()
        return sorted(title for title in (self.xdotool("getwindowname", window) for window in windows) if title)

    def wait_for_titles(self, *titles):
        try:
            wait_for(f"the windows {titles}", lambda: self.titles() == sorted(titles))
        except Failure as failure:
            raise Failure(f"{failure}; there are {self.titles()}") from failure

    def front_title(self):
        return self.xdotool("getactivewindow", "getwindowname")

    def wait_for_front(self, title):
        try:
            wait_for(f"“{title}” in front", lambda: self.front_title() == title)
        except Failure as failure:
            raise Failure(f"{failure}; in front is “{self.front_title()}”") from failure
        # A window is at the front a moment before it has the keyboard.
        wait_for(f"“{title}” with the keyboard",
                 lambda: self.front_title() != title or self.xdotool("getwindowfocus", "getwindowname") == title)

    def document(self, name, source=None):
        """Creates a document at `name` in the session's folder: of the demo bookmarks, or a copy of `source`."""
        from desktop_program import DEMO
        path = os.path.join(self.folder, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        if source:
            shutil.copy(source, path)
        else:
            subprocess.run([self.tool, "import", "--from", "html", DEMO, "-o", path], check=True)
        return path


def end(process):
    """Ends a program as a session does."""
    process.send_signal(signal.SIGTERM)
    return process.wait(timeout=PATIENCE)


def run_session_tests(tests, needed=(), make_session=None):
    """Runs each of `tests` with a session of its own: SCRIPT TABULON TABULON_CLI …. Ends the process."""
    missing = [name for name in [*NEEDED, *needed] if not shutil.which(name)]
    if missing:
        print("skipped: not installed:", ", ".join(missing))
        sys.exit(77)
    failed = 0
    for test in tests:
        with tempfile.TemporaryDirectory(prefix="tabulon-session-") as folder:
            session = (make_session or Session)(sys.argv[1], sys.argv[2], folder)
            try:
                test(session)
            except (Failure, subprocess.SubprocessError) as failure:
                failed += 1
                print(f"failed: {test.__name__}: {failure}", flush=True)
            finally:
                session.close()
    sys.exit(1 if failed else 0)
