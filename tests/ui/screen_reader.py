"""Reads the real program as a screen reader does: screen_reader.py TABULON TABULON_CLI.

Over AT-SPI, on a message bus of its own: the outline's rows, which of them is focused and selected, which folders are
expanded, the menus and the address field; and the events when keys are pressed.
"""

import os
import shutil
import subprocess
import sys
import tempfile

from desktop_program import DEMO, NEEDED, Desktop, Failure, check, wait_for

LAUNCHERS = ["/usr/libexec/at-spi-bus-launcher", "/usr/lib/at-spi2-core/at-spi-bus-launcher"]


def missing_programs():
    missing = [name for name in NEEDED + ["dbus-daemon"] if not shutil.which(name)]
    if not any(map(os.path.exists, LAUNCHERS)):
        missing.append("at-spi2-core")
    try:
        import gi
        gi.require_version("Atspi", "2.0")
    except (ImportError, ValueError):
        missing.append("gir1.2-atspi-2.0")
    return missing


class ScreenReaderDesktop(Desktop):
    def __init__(self, program, tool, folder):
        super().__init__(program, tool, folder)
        self.services = []
        bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address"], env=self.environment,
                               stdout=subprocess.PIPE, text=True)
        self.services.append(bus)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        self.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        launcher = next(filter(os.path.exists, LAUNCHERS))
        self.services.append(subprocess.Popen([launcher, "--launch-immediately"], env=self.environment,
                                              stderr=subprocess.DEVNULL))
        os.environ.update({name: self.environment[name] for name in ["DISPLAY", "DBUS_SESSION_BUS_ADDRESS"]})

    def close(self):
        super().close()
        for service in reversed(self.services):
            service.terminate()
            service.wait()


class Reader:
    def __init__(self):
        from gi.repository import Atspi, GLib
        self.atspi, self.glib = Atspi, GLib
        self.events = []
        self.listener = Atspi.EventListener.new(self.hear)
        for kind in ["object:state-changed:focused", "object:state-changed:selected"]:
            self.listener.register(kind)

    def hear(self, event):
        self.events.append((event.type.split(":")[2], event.detail1, event.source.get_name()))

    def heard(self, what, *event):
        def look():
            while self.glib.MainContext.default().iteration(False):
                pass
            return event in self.events

        wait_for(what, look)
        print("ok:", what, flush=True)

    def program(self):
        desktop = self.atspi.get_desktop(0)
        programs = [desktop.get_child_at_index(i) for i in range(desktop.get_child_count())]
        return next((program for program in programs if program and program.get_name() == "Tabulon"), None)

    def find(self, part, role):
        if part.get_role_name() == role:
            return part
        found = (self.find(part.get_child_at_index(i), role) for i in range(part.get_child_count()))
        return next(filter(None, found), None)


def states(part):
    return {state.value_nick for state in part.get_state_set().get_states()}


def read_the_outline(desktop, reader):
    desktop.start(DEMO)
    desktop.window("demo-bookmarks.* Tabulon")
    program = wait_for("the program on the accessibility bus", reader.program)
    outline = wait_for("the outline", lambda: reader.find(program, "tree"))
    check(outline.get_name() == "Bookmarks", "the outline is a tree with a name")
    check(program.get_child_at_index(0).get_name().startswith("demo-bookmarks"), "the window has its title")
    table = outline.get_table_iface()
    check(table.get_n_columns() == 2 and table.get_n_rows() == 9, "it has a row for each node shown")
    check([outline.get_child_at_index(i).get_name() for i in range(2)] == ["Name", "URL"], "columns have titles")
    folder = table.get_accessible_at(0, 0)
    check(folder.get_name() == "Bookmarks bar" and "expandable" in states(folder), "a folder can be expanded")
    check("expanded" not in states(folder), "it is collapsed at first")
    return outline, table


def follow_the_keys(desktop, reader, outline, table):
    desktop.press("Down")
    reader.heard("the first key reports which row has the focus", "focused", 1, "Bookmarks bar")
    reader.heard("and that it is selected", "selected", 1, "Bookmarks bar")
    desktop.press("Right")
    wait_for("the expanded folder", lambda: "expanded" in states(table.get_accessible_at(0, 0)))
    check(table.get_n_rows() > 9, "expanding by key brings the rows of the folder")
    inside = table.get_accessible_at(1, 0).get_name()
    desktop.press("Down")
    reader.heard("moving on is reported", "focused", 1, inside)
    check(table.get_accessible_at(1, 1).get_name().startswith("https://"), "the address of a link is read")
    check({"focused", "selected"} <= states(table.get_accessible_at(1, 0)), "the row is focused and selected")
    noted = [table.get_accessible_at(row, 0).get_description() for row in range(table.get_n_rows())]
    check(any(text.startswith("A ribbon") for text in noted), "notes are read as descriptions")
    action = table.get_accessible_at(0, 0).get_action_iface()
    names = [action.get_action_name(i) for i in range(action.get_n_actions())]
    check("Toggle" in names, f"a folder has an action to turn it: {names}")
    action.do_action(names.index("Toggle"))
    wait_for("the folder collapsed by the action", lambda: outline.get_table_iface().get_n_rows() == 9)


def main():
    missing = missing_programs()
    if missing:
        print("skipped: not installed:", ", ".join(missing))
        return 77
    program, tool = sys.argv[1:3]
    with tempfile.TemporaryDirectory(prefix="tabulon-reader-") as folder:
        desktop = ScreenReaderDesktop(program, tool, folder)
        try:
            reader = Reader()
            outline, table = read_the_outline(desktop, reader)
            follow_the_keys(desktop, reader, outline, table)
        except Failure as failure:
            print("failed:", failure)
            return 1
        finally:
            if desktop.running:
                desktop.running.kill()
            desktop.close()
    return 0


if __name__ == "__main__":
    sys.exit(main())
