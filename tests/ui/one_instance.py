"""The real program started a second time, on a real message bus: one_instance.py TABULON TABULON_CLI."""

import os
import signal
import subprocess
import time

from session import check, end, run_session_tests, wait_for

HANG = "Tabulon is running, but does not answer"


def a_second_start_hands_its_files_over(session):
    a, b = session.document("a.tbln"), session.document("folder/b c ä.tbln")
    first = session.launch(a)
    session.wait_for_titles("a – Tabulon")
    status, seconds = session.second("b c ä.tbln", cwd=os.path.dirname(b))
    check(status == 0, f"the second start ends with 0 (after {seconds:.2f} s)")
    session.wait_for_titles("a – Tabulon", "b c ä – Tabulon")
    session.wait_for_front("b c ä – Tabulon")
    check(first.poll() is None, "a relative path with spaces and letters opens in the first one and is in front")
    for spelling in [a, "file://" + a, os.path.join(session.folder, "folder", "..", "a.tbln")]:
        check(session.second(b)[0] == 0, "another document comes to the front")
        session.wait_for_front("b c ä – Tabulon")
        check(session.second(spelling)[0] == 0, f"“{spelling}” is handed over")
        session.wait_for_front("a – Tabulon")
    link = os.path.join(session.folder, "link.tbln")
    os.symlink("folder/b c ä.tbln", link)
    session.second(link)
    session.wait_for_front("b c ä – Tabulon")
    check(session.titles() == ["a – Tabulon", "b c ä – Tabulon"], "a link to an open file brings its window to the front")
    check(end(first) == 0 and not session.bus_name_is_owned(), "the end gives the name back")


def a_name_of_any_bytes_is_handed_over(session):
    path = os.fsencode(session.folder) + b"/latin1-\xe9.tbln"
    with open(session.document("a.tbln"), "rb") as source, open(path, "wb") as target:
        target.write(source.read())
    session.launch()
    session.wait_for_titles("Untitled – Tabulon")
    check(session.second(path)[0] == 0, "a name that is not UTF-8 is handed over")
    session.wait_for_titles("latin1-\ufffd – Tabulon")


def a_start_without_files_shows_the_window(session):
    session.launch(session.document("a.tbln"))
    session.wait_for_titles("a – Tabulon")
    session.xdotool("search", "--onlyvisible", "--class", "tabulon", "windowminimize")
    wait_for("the window to go", lambda: session.titles() == [])
    check(session.second()[0] == 0, "a start without files ends with 0")
    session.wait_for_front("a – Tabulon")
    check(session.titles() == ["a – Tabulon"], "it brings the minimized window back and opens nothing")
    check(session.second("--new-document")[0] == 0, "a new document is asked for")
    session.wait_for_front("Untitled – Tabulon")


def files_that_cannot_be_opened_are_reported_by_the_first(session):
    first = session.launch(session.document("a.tbln"))
    session.wait_for_titles("a – Tabulon")
    status, seconds = session.second("/nowhere/x.tbln", session.folder, "http://example.org/")
    check(status == 0 and seconds < 2, "the second start does not wait for an alert to be answered")
    session.wait_for_front("Tabulon")
    check(session.second(session.document("b.tbln"))[0] == 0, "a file that comes while an alert is shown is taken")
    time.sleep(0.5)
    check("b – Tabulon" not in session.titles(), "and waits for the answer")
    session.press("Return")
    session.wait_for_titles("a – Tabulon", "b – Tabulon")
    session.wait_for_front("b – Tabulon")
    check(end(first) == 0, "the first one ends in peace")


def of_many_starts_at_once_one_runs(session):
    documents = [session.document(f"d{number}.tbln") for number in range(8)]
    processes = [session.launch(document) for document in documents]
    session.wait_for_titles(*(f"d{number} – Tabulon" for number in range(8)))
    wait_for("the others to end", lambda: sum(process.poll() is None for process in processes) == 1)
    check(sorted(process.poll() for process in processes if process.poll() is not None) == [0] * 7,
          "of eight starts at once one runs, seven end with 0, and all files are open")


def one_that_hangs_is_waited_for(session):
    a, b = session.document("a.tbln"), session.document("b.tbln")
    first = session.launch(a)
    session.wait_for_titles("a – Tabulon")
    first.send_signal(signal.SIGSTOP)
    second = session.launch(b)
    session.wait_for_front("Tabulon")
    check(second.poll() is None, "about one that does not answer the user is asked")
    session.press("Return")  # Wait
    time.sleep(0.5)
    check(second.poll() is None, "who waits goes on waiting")
    first.send_signal(signal.SIGCONT)
    check(second.wait(timeout=20) == 0, "when it answers after all, the second start ends")
    session.wait_for_titles("a – Tabulon", "b – Tabulon")


def one_that_hangs_can_be_left_alone(session):
    first = session.launch(session.document("a.tbln"))
    session.wait_for_titles("a – Tabulon")
    first.send_signal(signal.SIGSTOP)
    second = session.launch(session.document("b.tbln"))
    session.wait_for_front("Tabulon")
    session.press("Escape")
    check(second.wait(timeout=20) == 1, "giving up ends with 1")
    second = session.launch(session.document("b.tbln"))
    session.wait_for_front("Tabulon")
    session.press("Right", "Return")  # Open Another
    session.wait_for_front("b – Tabulon")
    check(second.poll() is None, "another one can be opened beside it")
    check(end(second) == 0, "and ends as usual")
    first.kill()
    first.wait()
    third = session.launch(session.document("c.tbln"))
    session.wait_for_titles("c – Tabulon")
    check(third.poll() is None and session.bus_name_is_owned(), "after one was killed, the next start runs")


def nothing_is_lost_on_one_that_is_ending(session):
    a, b = session.document("a.tbln"), session.document("b.tbln")
    followed = 0
    for delay in [0, 0.005, 0.01, 0.02, 0.03, 0.04, 0.06, 0.08, 0.1, 0.15]:
        first = session.launch(a)
        session.wait_for_titles("a – Tabulon")
        wait_for("the name", session.bus_name_is_owned)
        first.send_signal(signal.SIGTERM)
        time.sleep(delay)
        second = session.launch(b)
        wait_for("the file", lambda: "b – Tabulon" in session.titles())
        first.wait(timeout=20)
        check(second.poll() is None and session.titles() == ["b – Tabulon"], f"the file opens {delay} s after the end began")
        followed += 1
        end(second)
    check(followed == 10, "none of ten was lost")


def without_a_bus_each_runs_for_itself(session):
    alone = {"DBUS_SESSION_BUS_ADDRESS": "disabled:"}
    first = session.launch(session.document("a.tbln"), environment=alone)
    second = session.launch(session.document("b.tbln"), environment=alone)
    session.wait_for_titles("a – Tabulon", "b – Tabulon")
    check(first.poll() is None and second.poll() is None, "without a session bus both run")
    check(end(first) == 0 and end(second) == 0, "and end as usual")


def the_desktop_learns_that_a_start_has_been_dealt_with(session):
    session.launch(session.document("a.tbln"))
    session.wait_for_titles("a – Tabulon")
    heard = os.path.join(session.folder, "heard")
    with open(heard, "w") as output:
        watcher = session.launch("-root", "-event", "property", program="xev", stdout=output)
        time.sleep(0.5)
        session.second(session.document("b.tbln"), environment={"DESKTOP_STARTUP_ID": "test-7_TIME0"})
        session.wait_for_front("b – Tabulon")
        wait_for("the message", lambda: "_NET_STARTUP_INFO" in open(heard).read())
        watcher.kill()
    check("_NET_STARTUP_INFO_BEGIN" in open(heard).read(), "the desktop is notified that the start is done")


def strangers_on_the_bus_do_no_harm(session):
    first = session.launch(session.document("a.tbln"))
    session.wait_for_titles("a – Tabulon")

    def call(method, *arguments):
        command = ["gdbus", "call", "--session", "-d", "com.tabulon.Tabulon", "-o", "/com/tabulon/Tabulon", "-m",
                   f"org.freedesktop.Application.{method}", *arguments]
        return subprocess.run(command, env=session.environment, capture_output=True).returncode

    check(call("ActivateAction", "no-such-action", "[]", "{}") == 0, "an unknown action is passed over")
    check(call("Activate", "{'activation-token': <7>, 'desktop-startup-id': <true>}") == 0, "odd tokens are passed over")
    check(call("Open", "[]", "{}") == 0, "no file is no harm")
    check(call("Frobnicate") != 0, "an unknown method is an error")
    time.sleep(0.5)
    check(first.poll() is None and session.titles() == ["a – Tabulon"], "and nothing has changed")
    check(call("Open", "['file:///dev/zero', 'file:///%00', '', '/']", "{}") == 0, "odd files are taken")
    session.wait_for_front("Tabulon")
    session.press("Return")
    session.wait_for_front("a – Tabulon")


if __name__ == "__main__":
    run_session_tests([
        a_second_start_hands_its_files_over,
        a_name_of_any_bytes_is_handed_over,
        a_start_without_files_shows_the_window,
        files_that_cannot_be_opened_are_reported_by_the_first,
        of_many_starts_at_once_one_runs,
        one_that_hangs_is_waited_for,
        one_that_hangs_can_be_left_alone,
        nothing_is_lost_on_one_that_is_ending,
        without_a_bus_each_runs_for_itself,
        the_desktop_learns_that_a_start_has_been_dealt_with,
        strangers_on_the_bus_do_no_harm,
    ], needed=["gdbus", "xev"])
