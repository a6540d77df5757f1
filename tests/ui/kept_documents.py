"""The data that the real program preserves when it ends unexpectedly: kept_documents.py TABULON TABULON_CLI.

It is killed, another program changes its file, and its windows are restored to their places.
"""

import os
import signal
import subprocess
import time

from desktop_program import DEMO
from session import check, end, run_session_tests, wait_for
from small_tree import damage

UNSAVED = (".local", "state", "tabulon", "unsaved")


def copies(session):
    """Returns the copies of documents in the state folder."""
    found = []
    for folder, _, names in os.walk(os.path.join(session.environment["HOME"], *UNSAVED)):
        found += [os.path.join(folder, name) for name in names if name.endswith(".tbln")]
    return found


def close_without_saving(session, process, title):
    session.wait_for_front(title)
    session.press("ctrl+w")
    session.wait_for_front("Tabulon")
    session.press("Right", "Return")
    check(process.wait(timeout=20) == 0, "who does not want it saved is not asked again")


def what_a_killed_program_had_is_there_again(session):
    process = session.launch(DEMO)
    session.wait_for_front("demo-bookmarks* – Tabulon")
    wait_for("the copy in the state folder", lambda: copies(session))
    expected = session.tree(copies(session)[0])
    check(len(expected["children"]) == 9, "a document without a file is kept whole a few seconds after its change")
    for kill in range(3):
        process.send_signal(signal.SIGKILL)
        process.wait(timeout=20)
        process = session.launch()
        session.wait_for_front("demo-bookmarks* – Tabulon")
        check(session.titles() == ["demo-bookmarks* – Tabulon"], f"it is there again after kill {kill + 1}, and nothing else")
        wait_for("one copy", lambda: len(copies(session)) == 1)
        check(session.tree(copies(session)[0]) == expected, "with all that it had")
    close_without_saving(session, process, "demo-bookmarks* – Tabulon")
    check(copies(session) == [], "and its copy goes with it")
    process = session.launch()
    session.wait_for_front("Untitled – Tabulon")
    check(end(process) == 0, "the next start has nothing to bring back")


def a_changed_document_saves_itself(session):
    path = session.document("a.tbln")
    process = session.launch(path)
    session.wait_for_front("a – Tabulon")
    begin = time.monotonic()
    session.press("ctrl+shift+e")
    session.wait_for_front("a* – Tabulon")
    session.wait_for_front("a – Tabulon")
    check(time.monotonic() - begin > 2.5, "the edited mark shows for a few seconds, until the document has saved itself")
    process.send_signal(signal.SIGKILL)
    process.wait(timeout=20)
    check(session.tree(path)["children"][0]["openFolder"], "and a kill after that loses nothing")


def revert(session):
    session.press("alt+f")
    time.sleep(0.3)
    session.press("r")


def reverting_goes_back_to_what_was_opened(session):
    path = session.document("a.tbln")
    before = open(path, "rb").read()
    process = session.launch(path)
    session.wait_for_front("a – Tabulon")
    session.press("ctrl+shift+e")
    wait_for("the program to save by itself", lambda: open(path, "rb").read() != before)
    session.wait_for_front("a – Tabulon")
    session.press("ctrl+shift+l")
    session.wait_for_front("a* – Tabulon")
    revert(session)
    session.wait_for_front("Tabulon")
    saved = open(path, "rb").read()
    time.sleep(5)
    check(open(path, "rb").read() == saved, "while the question is up nothing is saved")
    session.press("Escape")
    wait_for("the changes to be saved after it was cancelled", lambda: open(path, "rb").read() != saved)
    session.wait_for_front("a – Tabulon")
    revert(session)
    session.wait_for_front("Tabulon")
    session.press("alt+r")
    wait_for("the file as it was opened", lambda: open(path, "rb").read() == before)
    session.wait_for_front("a – Tabulon")
    time.sleep(4)
    check(open(path, "rb").read() == before, "which stays so, whatever the program has saved in between")
    check(end(process) == 0 and open(path, "rb").read() == before, "also at the end")


def what_is_left_of_a_damaged_file_is_offered_when_it_is_reverted_to(session):
    path = session.document("a.tbln")
    process = session.launch(path)
    session.wait_for_front("a – Tabulon")
    content = damage(path, b"Kitchen")
    session.press("Home", "Delete")
    revert(session)
    session.wait_for_front("Tabulon")
    session.press("alt+r")
    time.sleep(1)  # the next alert has the same title
    session.press("alt+o")  # Open What Is Left
    wait_for("a second document", lambda: session.titles().count("a* – Tabulon") == 2)
    with open(path, "rb") as file:
        check(file.read() == content, "the damaged file stays as it is")
    check(end(process) == 0, "and the end of the session asks nothing")


def the_end_of_the_session_comes_while_reverting_is_asked(session):
    path = session.document("a.tbln")
    process = session.launch(path)
    session.wait_for_front("a – Tabulon")
    session.press("ctrl+shift+e")
    session.wait_for_front("a* – Tabulon")
    revert(session)
    session.wait_for_front("Tabulon")
    begin = time.monotonic()
    check(end(process) == 0 and time.monotonic() - begin < 2, "the end is not held up")
    check(session.tree(path)["children"][0]["openFolder"], "and the changes, which nobody gave up, are saved")


def a_kill_while_reverting_is_asked_loses_nothing(session):
    path = session.document("a.tbln")
    before = open(path, "rb").read()
    process = session.launch(path)
    session.wait_for_front("a – Tabulon")
    session.press("ctrl+shift+e")
    session.wait_for_front("a* – Tabulon")
    revert(session)
    session.wait_for_front("Tabulon")
    wait_for("the copy of the changes", lambda: copies(session))
    process.send_signal(signal.SIGKILL)
    process.wait(timeout=20)
    check(open(path, "rb").read() == before, "the file is as it was")
    process = session.launch()
    session.wait_for_front("a* – Tabulon")
    check(session.tree(copies(session)[0])["children"][0]["openFolder"], "and the changes are there again")
    close_without_saving(session, process, "a* – Tabulon")


def a_pipe_in_the_place_of_the_file_does_not_stop_the_program(session):
    path = session.document("a.tbln")
    process = session.launch(path)
    session.wait_for_front("a – Tabulon")
    os.remove(path)
    os.mkfifo(path)
    session.press("ctrl+shift+e")
    session.wait_for_front("Tabulon")
    session.press("Escape")
    session.wait_for_front("a* – Tabulon")
    revert(session)
    session.wait_for_front("Tabulon")
    session.press("alt+r")
    time.sleep(0.5)
    session.wait_for_front("Tabulon")  # it cannot be read
    begin = time.monotonic()
    check(end(process) == 0 and time.monotonic() - begin < 2, "the program answers all the time")
    check(len(copies(session)) == 1, "and keeps the changes")


def the_log_never_ends_the_program(session):
    settings = os.path.join(session.environment["HOME"], ".config", "tabulon", "tabulon.ini")
    os.makedirs(os.path.dirname(settings), exist_ok=True)
    for what, redirection in [("closed", "2>&-"), ("on a full disk", "2>/dev/full"), ("without a reader", "2> >(exit)")]:
        with open(settings, "w") as file:
            file.write("this is no setting\n")
        path = session.document("a.tbln")
        process = session.launch("-c", f'exec "$0" "$@" {redirection}', session.program, path, program="bash")
        session.wait_for_front("Tabulon")  # the log and an alert report the problem with the settings
        session.press("Return")
        session.wait_for_front("a – Tabulon")
        check(end(process) == 0, f"standard error is {what}")


def a_flood_of_requests_is_one_alert(session):
    process = session.launch(session.document("a.tbln"))
    session.wait_for_front("a – Tabulon")
    session.second(*(f"/nowhere/{number}.tbln" for number in range(500)))
    session.wait_for_front("Tabulon")
    for number in range(5):
        session.second(f"/nowhere/more{number}.tbln")
    session.press("Return")
    time.sleep(0.5)
    session.wait_for_front("Tabulon")
    session.press("Return")
    session.wait_for_front("a – Tabulon")
    check(session.titles() == ["a – Tabulon"], "what came first is one alert, what came meanwhile another one")
    documents = [session.document(f"d{number}.tbln") for number in range(60)]
    session.second(*documents)
    begin = time.monotonic()
    check(end(process) == 0 and time.monotonic() - begin < 1.5, "the end of the session waits for no file")


def a_document_is_saved_when_another_program_comes_to_the_front(session):
    path = session.document("a.tbln")
    process = session.launch(path)
    session.wait_for_front("a – Tabulon")
    other = session.launch(program="xev", stdout=subprocess.DEVNULL)
    session.wait_for_front("Event Tester")
    session.xdotool("search", "--name", "a – Tabulon", "windowactivate")
    session.wait_for_front("a – Tabulon")
    changed = time.time()
    session.press("ctrl+shift+e")
    session.wait_for_front("a* – Tabulon")
    session.xdotool("search", "--name", "Event Tester", "windowactivate")
    wait_for("the saved file", lambda: session.tree(path)["children"][0]["openFolder"])
    check(os.stat(path).st_mtime - changed < 3, "at once, without waiting for the pause")
    other.kill()
    check(end(process) == 0, "and it works on")


def a_file_that_another_program_changed_is_not_overwritten(session):
    path, theirs = session.document("a.tbln"), session.document("theirs.tbln")
    process = session.launch(path)
    session.wait_for_front("a – Tabulon")
    os.replace(theirs, path)
    before = open(path, "rb").read()
    session.press("ctrl+shift+e")
    session.wait_for_front("Tabulon")
    check(open(path, "rb").read() == before, "the user is asked first")
    check([os.path.basename(copy) for copy in copies(session)] == ["1 a.tbln"], "and a copy keeps the changes until then")
    process.send_signal(signal.SIGTERM)
    check(process.wait(timeout=20) == 0, "the end of the session is not held up by the question")
    check(open(path, "rb").read() == before, "and overwrites nothing")
    process = session.launch()
    session.wait_for_front("a* – Tabulon")
    check(session.tree(copies(session)[0])["children"][0]["openFolder"], "the changes are there again")
    close_without_saving(session, process, "a* – Tabulon")


def frame_of(session, title):
    window = [window for window in session.xdotool("search", "--onlyvisible", "--class", "tabulon").split()
              if session.xdotool("getwindowname", window) == title][0]
    lines = session.xdotool("getwindowgeometry", "--shell", window).splitlines()
    values = dict(line.split("=") for line in lines)
    return window, (values["WIDTH"], values["HEIGHT"])


def each_file_has_its_window_back(session):
    sizes = {"a": ("640", "420"), "b": ("880", "560")}
    paths = {name: session.document(f"{name}.tbln") for name in sizes}
    for name, size in sizes.items():
        process = session.launch(paths[name])
        session.wait_for_front(f"{name} – Tabulon")
        session.xdotool("windowsize", frame_of(session, f"{name} – Tabulon")[0], *size)
        wait_for("the new size", lambda: frame_of(session, f"{name} – Tabulon")[1] == size)
        session.press("ctrl+s", "ctrl+q")
        check(process.wait(timeout=20) == 0, f"the window of “{name}” is kept as its document is saved")
    process = session.launch(*paths.values())
    session.wait_for_titles("a – Tabulon", "b – Tabulon")
    for name, size in sizes.items():
        check(frame_of(session, f"{name} – Tabulon")[1] == size, f"“{name}” has its own size again")
    check(end(process) == 0, "and all is well")


if __name__ == "__main__":
    run_session_tests([
        what_a_killed_program_had_is_there_again,
        a_changed_document_saves_itself,
        reverting_goes_back_to_what_was_opened,
        what_is_left_of_a_damaged_file_is_offered_when_it_is_reverted_to,
        the_end_of_the_session_comes_while_reverting_is_asked,
        a_kill_while_reverting_is_asked_loses_nothing,
        a_pipe_in_the_place_of_the_file_does_not_stop_the_program,
        the_log_never_ends_the_program,
        a_flood_of_requests_is_one_alert,
        a_document_is_saved_when_another_program_comes_to_the_front,
        a_file_that_another_program_changed_is_not_overwritten,
        each_file_has_its_window_back,
    ], needed=["xev"])
