"""The settings file of the real program: kept, shared, damaged, unreadable: settings_file.py TABULON TABULON_CLI."""

import os

from session import check, end, run_session_tests, wait_for


def settings(session):
    return os.path.join(session.environment["HOME"], ".config", "tabulon", "tabulon.ini")


def write(path, content):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w") as file:
        file.write(content)


def read(path):
    with open(path) as file:
        return file.read()


def what_people_write_is_read_and_stays(session):
    path = settings(session)
    write(path, "# mine\nOpenUntitled = NO\nNobodyKnows=x\n\n[Other]\na=b\n")
    process = session.launch()
    session.wait_for_front("Open a bookmark document or an HTML bookmark file")
    check(True, "OpenUntitled=NO brings the open panel")
    wait_for("the settings to be written", lambda: "NSInitialToolTipDelay=10" in read(path))
    check(read(path) == "# mine\nOpenUntitled = NO\nNobodyKnows=x\nNSInitialToolTipDelay=10\n\n[Other]\na=b\n",
          "everything else in the file stays as it was")
    session.press("Escape")
    check(process.wait(timeout=20) == 0, "cancelling the panel ends the program")


def a_damaged_file_is_renamed_and_reported(session):
    path = settings(session)
    damaged = "MakeBackups=NO\nthis is no setting\n"
    write(path, damaged)
    process = session.launch(session.document("a.tbln"))
    session.wait_for_front("Tabulon")
    check(read(path + ".damaged") == damaged, "the damaged file is kept as it was")
    check(read(path).startswith("MakeBackups=NO\n") and "no setting" not in read(path), "what can be read of it holds")
    session.press("Return")
    session.wait_for_front("a – Tabulon")
    check(end(process) == 0, "the program works on")
    process = session.launch(session.document("a.tbln"))
    session.wait_for_front("a – Tabulon")
    check(end(process) == 0 and not os.path.exists(path + ".damaged-2"), "the next start has nothing to report")


def settings_that_cannot_be_kept_are_reported(session):
    for what, folder in [("a folder that nobody may write", "/sys"), ("a file in the folder's place", None)]:
        if folder is None:
            folder = os.path.join(session.folder, "file")
            write(folder, "not a folder")
        process = session.launch("--new-document", environment={"XDG_CONFIG_HOME": folder})
        session.wait_for_front("Tabulon")
        session.press("Return")
        session.wait_for_front("Untitled – Tabulon")
        check(end(process) == 0, f"the program works without its settings: {what}")
    check(read(os.path.join(session.folder, "file")) == "not a folder", "and leaves the file alone")


def the_end_of_the_session_keeps_what_was_changed_last(session):
    state = os.path.join(session.environment["HOME"], ".local", "state", "tabulon", "state.ini")
    process = session.launch(session.document("a.tbln"))
    session.wait_for_titles("a – Tabulon")
    session.xdotool("search", "--onlyvisible", "--class", "tabulon", "windowsize", "777", "555")
    wait_for("the new size", lambda: "777" in session.xdotool("search", "--onlyvisible", "--class", "tabulon",
                                                              "getwindowgeometry", "--shell"))
    check(end(process) == 0, "the session ends right after the window was resized")
    check("WindowWidth=777\n" in read(state), "and its size is kept")


if __name__ == "__main__":
    run_session_tests([
        what_people_write_is_read_and_stays,
        a_damaged_file_is_renamed_and_reported,
        settings_that_cannot_be_kept_are_reported,
        the_end_of_the_session_keeps_what_was_changed_last,
    ])
