"""The native-messaging host with a browser and programs that this script plays: test_host.py TABULON_HOST."""

import json
import os
import select
import shutil
import socket
import stat
import struct
import subprocess
import sys
import tempfile
import time
import unittest

HOST = os.path.abspath(sys.argv.pop())
PATIENCE = 10
NOBODY = 65534
MOST_CLIENTS = 16
MOST_REQUEST = 512 * 1024
MOST_REPLY = 1024 * 1024
# The host keeps 64 MiB for a client. A build with sanitizers needs more memory for the same.
MOST_KILOBYTES = 1024 * (400 if "TABULON_SANITIZE" in os.environ else 200)


def frame(message):
    text = message if isinstance(message, bytes) else json.dumps(message, ensure_ascii=False).encode()
    return struct.pack("=I", len(text)) + text


def read_frame(read):
    """Reads one message with `read(count)`; returns None at the end."""
    header = read_all(read, 4)
    return json.loads(read_all(read, struct.unpack("=I", header)[0])) if len(header) == 4 else None


def read_all(read, count):
    taken = b""
    while len(taken) < count:
        some = read(count - len(taken))
        if not some:
            break
        taken += some
    return taken


class HostTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="tabulon-host-")
        self.addCleanup(shutil.rmtree, self.folder)
        self.browser = subprocess.Popen([HOST], stdin=subprocess.PIPE, stdout=subprocess.PIPE, bufsize=0,
                                        env={"XDG_RUNTIME_DIR": self.folder})
        self.addCleanup(self.end_browser)
        self.bridge = os.path.join(self.folder, "app", "com.tabulon.Tabulon", "bridge")
        self.path = os.path.join(self.bridge, f"{os.getpid()}-{self.browser.pid}.sock")
        self.wait_for(lambda: os.path.exists(self.path))

    def end_browser(self):
        self.browser.stdin.close()
        self.browser.stdout.close()
        self.assertEqual(self.browser.wait(PATIENCE), 0)

    def wait_for(self, condition):
        end = time.monotonic() + PATIENCE
        while not condition():
            self.assertLess(time.monotonic(), end)
            time.sleep(0.01)

    def client(self):
        client = socket.socket(socket.AF_UNIX)
        self.addCleanup(client.close)
        client.settimeout(PATIENCE)
        client.connect(self.path)
        return client

    def request(self):
        """Returns the next message for the browser, as its client and the request."""
        ready, _, _ = select.select([self.browser.stdout], [], [], PATIENCE)
        self.assertTrue(ready)
        message = read_frame(self.browser.stdout.read)
        return message["client"], message["request"]

    def reply(self, client, reply):
        rest = frame({"client": client, "reply": reply})
        while rest:
            rest = rest[self.browser.stdin.write(rest):]

    def answers(self, client):
        """Returns whether a request of this client reaches the browser, and the reply the client."""
        client.sendall(frame({"id": 7}))
        number, request = self.request()
        self.reply(number, {"id": 7, "result": {"title": "“日本”"}})
        return request == {"id": 7} and read_frame(client.recv) == {"id": 7, "result": {"title": "“日本”"}}

    def has_ended(self, client):
        try:
            return client.recv(1) == b""
        except ConnectionResetError:
            return True

    def test_only_this_user_can_open_the_socket(self):
        self.assertEqual(stat.S_IMODE(os.stat(self.path).st_mode), 0o600)
        self.assertEqual(stat.S_IMODE(os.stat(self.bridge).st_mode), 0o700)

    def test_each_client_receives_its_own_replies(self):
        clients = [self.client() for _ in range(5)]
        numbers = {}
        for index, client in enumerate(clients):
            client.sendall(frame({"id": index}))
            number, request = self.request()
            self.assertEqual(request, {"id": index})
            numbers[index] = number
        self.assertEqual(len(set(numbers.values())), len(clients))
        for index in reversed(range(len(clients))):
            self.reply(numbers[index], {"id": index, "result": {}})
        for index, client in enumerate(clients):
            self.assertEqual(read_frame(client.recv), {"id": index, "result": {}})

    def test_a_message_may_come_in_pieces(self):
        client = self.client()
        for byte in frame({"id": 1}):
            client.sendall(bytes([byte]))
        self.assertEqual(self.request()[1], {"id": 1})

    def test_a_client_that_sends_no_messages_loses_its_connection_alone(self):
        other = self.client()
        for garbage in [frame(b"{"), frame(b"[1]"), frame(b'"a"'), frame(b"\xff\xfe"), frame(b"")]:
            client = self.client()
            client.sendall(garbage)
            self.assertTrue(self.has_ended(client), garbage)
        self.assertTrue(self.answers(other))

    def test_a_request_that_is_too_long_ends_its_connection_alone(self):
        other = self.client()
        client = self.client()
        client.sendall(struct.pack("=I", MOST_REQUEST + 1))
        self.assertTrue(self.has_ended(client))
        self.assertTrue(self.answers(other))

    def test_a_request_of_the_most_bytes_reaches_the_browser(self):
        client = self.client()
        text = "x" * (MOST_REQUEST - len(json.dumps({"url": ""})))
        client.sendall(frame({"url": text}))
        self.assertEqual(self.request()[1], {"url": text})

    def test_a_client_that_does_not_read_is_dropped(self):
        other, idle = self.client(), self.client()
        idle.sendall(frame({"id": 1}))
        number, _ = self.request()
        text = "x" * (MOST_REPLY - 200)
        for part in range(80):  # more than the host keeps for a client
            self.reply(number, {"id": 1, "part": text})
        self.assertTrue(self.answers(other))
        received = 0
        while some := idle.recv(1 << 20):
            received += len(some)
        self.assertLess(received, 80 * len(text))
        with open(f"/proc/{self.browser.pid}/status", encoding="ascii") as file:
            peak = next(int(line.split()[1]) for line in file if line.startswith("VmHWM:"))
        self.assertLess(peak, MOST_KILOBYTES)

    def test_a_reply_for_a_client_that_has_ended_is_dropped(self):
        client = self.client()
        client.sendall(frame({"id": 1}))
        number, _ = self.request()
        client.close()
        self.reply(number, {"id": 1, "result": {}})
        self.assertTrue(self.answers(self.client()))

    def test_messages_of_the_browser_that_are_none_are_skipped(self):
        client = self.client()
        for garbage in [b"{", b"[]", b'{"client": "1", "reply": {}}', b'{"client": 99, "reply": {}}', b'{"client": 1}']:
            self.browser.stdin.write(frame(garbage))
        self.assertTrue(self.answers(client))

    def test_a_message_of_the_browser_that_is_too_long_ends_the_host(self):
        client = self.client()
        self.browser.stdin.write(struct.pack("=I", MOST_REPLY + 1))
        self.assertEqual(self.browser.wait(PATIENCE), 0)
        self.assertTrue(self.has_ended(client))
        self.assertFalse(os.path.exists(self.path))

    def test_the_end_of_the_browser_removes_the_socket(self):
        client = self.client()
        self.browser.stdin.close()
        self.assertEqual(self.browser.wait(PATIENCE), 0)
        self.assertTrue(self.has_ended(client))
        self.assertFalse(os.path.exists(self.path))

    def test_more_than_sixteen_clients_are_refused(self):
        clients = [self.client() for _ in range(MOST_CLIENTS)]
        self.assertTrue(self.answers(clients[-1]))
        self.assertTrue(self.has_ended(self.client()))
        clients[0].close()
        self.assertTrue(self.answers(clients[1]))
        self.assertTrue(self.answers(self.client()))

    @unittest.skipIf(os.geteuid() != 0, "needs root")
    def test_a_client_of_another_user_is_refused(self):
        for folder in [self.folder, os.path.join(self.folder, "app"), os.path.dirname(self.bridge), self.bridge]:
            os.chmod(folder, 0o755)
        os.chmod(self.path, 0o666)
        script = ("import socket, sys; s = socket.socket(socket.AF_UNIX); s.settimeout(10); s.connect(sys.argv[1]);"
                  "sys.exit(3 if s.recv(1) == b'' else 4)")
        stranger = ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups", "/usr/bin/python3", "-c", script, self.path]
        self.assertEqual(subprocess.run(stranger, timeout=PATIENCE).returncode, 3)
        self.assertTrue(self.answers(self.client()))

    def test_a_held_connection_costs_no_processor_time(self):
        clients = [self.client() for _ in range(3)]
        for client in clients:
            self.assertTrue(self.answers(client))

        def schedules():
            # How often the process ran; finer than its times, which count in ticks of 10 ms.
            with open(f"/proc/{self.browser.pid}/status", encoding="ascii") as file:
                switches = [int(line.split()[1]) for line in file if "ctxt_switches" in line]
            with open(f"/proc/{self.browser.pid}/stat", encoding="ascii") as file:
                return switches, file.read().rpartition(")")[2].split()[11:13]
        time.sleep(0.2)
        before = schedules()
        time.sleep(3)
        self.assertEqual(schedules(), before)


class PlaceTest(unittest.TestCase):
    def run_host(self, **environment):
        return subprocess.run([HOST], env=environment, stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=PATIENCE)

    def test_without_a_folder_for_the_socket_it_fails(self):
        for environment in [{}, {"XDG_RUNTIME_DIR": ""}, {"XDG_RUNTIME_DIR": "relative"}]:
            ended = self.run_host(**environment)
            self.assertEqual((ended.returncode, ended.stdout), (1, ""))
            self.assertIn("no folder for runtime files", ended.stderr)

    def test_a_path_that_is_too_long_for_a_socket_fails(self):
        with tempfile.TemporaryDirectory() as folder:
            ended = self.run_host(XDG_RUNTIME_DIR=os.path.join(folder, "x" * 100))
        self.assertEqual((ended.returncode, ended.stdout), (1, ""))
        self.assertIn("too long", ended.stderr)


if __name__ == "__main__":
    unittest.main()
