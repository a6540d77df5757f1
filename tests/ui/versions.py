"""The versions of a document in the real window: versions.py TABULON TABULON_CLI.

Saves with real keys, opens the panel of versions from the menu, restores what was deleted, and does so with an open
editor, a document without a file, a renamed document, and versions that were removed from the disk.
"""

import glob
import os
import signal

from session import check, end, run_session_tests, wait_for

STORE = (".local", "state", "tabulon", "versions")


def kept(session):
    return glob.glob(os.path.join(session.environment["HOME"], *STORE, "*.tbln.zst"))


def names(session, path):
    return [child["name"] for child in session.tree(path)["children"]]


def open_panel(session, title):
    session.press("alt+f")
    session.press("v")
    session.wait_for_front(f"Versions of “{title}”")


def what_was_deleted_is_put_back(session):
    path = session.document("a.tbln")
    before = session.tree(path)
    process = session.launch(path)
    session.wait_for_front("a – Tabulon")
    session.press("Home", "Delete", "ctrl+s")
    wait_for("a saved file", lambda: len(names(session, path)) == len(before["children"]) - 1)
    wait_for("a kept version", lambda: len(kept(session)) == 1)
    open_panel(session, "a")
    session.press("alt+u")  # Put Back Checked Items
    session.wait_for_front("a* – Tabulon")
    session.press("ctrl+s")
    wait_for("the put back folder", lambda: names(session, path) == [child["name"] for child in before["children"]])
    check(session.tree(path)["children"] == before["children"], "what was deleted is back with everything in it")
    check(end(process) == 0, "the program ends")


def the_panel_closes_with_escape_and_changes_nothing(session):
    path = session.document("a.tbln")
    process = session.launch(path)
    session.wait_for_front("a – Tabulon")
    session.press("Home", "Delete", "ctrl+s")
    wait_for("a kept version", lambda: kept(session))
    after = session.tree(path)
    open_panel(session, "a")
    session.press("Escape")
    session.wait_for_front("a – Tabulon")
    check(session.tree(path) == after, "nothing was put back")
    open_panel(session, "a")
    session.press("alt+o")  # Open as Untitled
    wait_for("a version under its date", lambda: any(title.startswith("a (2") for title in session.titles()))
    process.send_signal(signal.SIGTERM)
    check(process.wait(timeout=20) == 0, "and the end of the session asks nothing")


def a_renamed_document_keeps_its_versions(session):
    path = session.document("a.tbln")
    process = session.launch(path)
    session.wait_for_front("a – Tabulon")
    session.press("Home", "Delete", "ctrl+s")
    wait_for("a kept version", lambda: kept(session))
    check(end(process) == 0, "the program ends")
    moved = os.path.join(os.path.dirname(path), "other", "b.tbln")
    os.makedirs(os.path.dirname(moved))
    os.rename(path, moved)
    listing = session.run(session.tool, "versions", moved)
    check(len(listing.splitlines()) == 1, f"the tool lists the version of the renamed file: {listing!r}")
    restored = os.path.join(session.folder, "restored.tbln")
    session.run(session.tool, "versions", moved, "--restore", "1", "-o", restored)
    changes = session.run(session.tool, "compare", restored, moved)
    check(changes and all(line.startswith("removed\t") for line in changes.splitlines()), "and writes it")


def a_store_that_was_removed_is_no_error(session):
    path = session.document("a.tbln")
    process = session.launch(path)
    session.wait_for_front("a – Tabulon")
    open_panel(session, "a")
    session.press("Escape")
    session.wait_for_front("a – Tabulon")
    session.press("Home", "Delete", "ctrl+s")
    wait_for("a kept version", lambda: kept(session))
    for version in kept(session):
        os.remove(version)
    open_panel(session, "a")
    session.press("Escape")
    session.wait_for_front("a – Tabulon")
    check(end(process) == 0, "the program ends")


if __name__ == "__main__":
    run_session_tests([
        what_was_deleted_is_put_back,
        the_panel_closes_with_escape_and_changes_nothing,
        a_renamed_document_keeps_its_versions,
        a_store_that_was_removed_is_no_error,
    ])
