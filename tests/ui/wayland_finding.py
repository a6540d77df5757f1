"""The keyboard stays in the find field of the real program under Wayland: wayland_finding.py TABULON TABULON_CLI.

Ends with status 77 if sway is missing, unless TABULON_REQUIRE_BROWSER is set.
"""

from clipboard_bytes import bookmark_file
from desktop_program import wait_for
from dragging import document
from session import check
from wayland_session import run_wayland_tests

HTML = bookmark_file('<DT><A HREF="https://a.example/">First</A>\n',
                     '<DT><A HREF="https://b.example/">Second</A>\n<DD>a note with a hit here\n')


def find_in_notes(session, name):
    """Opens a document, types a text of a note into the find field, and continues when the panel is shown."""
    path = document(session, name, HTML)
    session.launch(path)
    wait_for("the window", lambda: session.windows()[1] == f"{name} – Tabulon")
    session.type("-M", "ctrl", "-k", "f", "-m", "ctrl", "hit", "-s", "1000", " here", "-M", "ctrl", "-k", "a", "-k", "c", "-m", "ctrl")
    wait_for("what was typed", lambda: session.given("text/plain;charset=utf-8") == b"hit here")
    return path


def typing_goes_on_in_the_find_field(session):
    path = find_in_notes(session, "found")
    check(session.windows()[0] == ["found – Tabulon"], "no window comes up over the find field")
    session.type("-k", "Escape", "-M", "ctrl", "-k", "i", "-m", "ctrl", "named in the panel", "-k", "Return")
    session.type("-k", "Home", "-M", "ctrl", "-k", "s", "-m", "ctrl")
    wait_for("the name of the panel", lambda: session.tree(path)["children"][1]["name"] == "named in the panel")
    check(True, "the panel takes the keyboard when it is asked for")


def what_is_typed_in_the_panel_is_kept_when_it_is_left(session):
    path = find_in_notes(session, "left")
    session.type("-k", "Escape", "-M", "ctrl", "-k", "i", "-m", "ctrl", "typed", "-M", "ctrl", "-k", "f", "-k", "s", "-m", "ctrl")
    wait_for("the name", lambda: session.tree(path)["children"][1]["name"] == "typed")
    check(True, "what is typed in the panel is kept when the keyboard leaves it")


if __name__ == "__main__":
    run_wayland_tests([typing_goes_on_in_the_find_field, what_is_typed_in_the_panel_is_kept_when_it_is_left])
