#!/usr/bin/env python3
"""A native-messaging host that measures its own round trips: started by a browser for the extension that bench/bridge.py makes,
which sends every message back. The environment has TABULON_ECHO, a folder with two pipes: "go" brings the number of round trips,
"times" takes the seconds of each.
"""

import json
import os
import struct
import sys
import time


def read(count):
    taken = b""
    while len(taken) < count:
        some = os.read(0, count - len(taken))
        if not some:
            sys.exit(0)
        taken += some
    return taken


def round_trip(message):
    begin = time.perf_counter()
    os.write(1, struct.pack("=I", len(message)) + message)
    answer = read(struct.unpack("=I", read(4))[0])
    seconds = time.perf_counter() - begin
    if json.loads(answer) != json.loads(message):
        sys.exit(f"the extension sent {answer} back")
    return seconds


folder = os.environ["TABULON_ECHO"]
while True:
    with open(os.path.join(folder, "go"), encoding="ascii") as pipe:
        count = int(pipe.read())
    # As long as a reply with a title and an address.
    message = json.dumps({"title": "A page with a title", "url": "http://127.0.0.1:12345/page"}).encode()
    times = [round_trip(message) for _ in range(count)]
    with open(os.path.join(folder, "times"), "w", encoding="ascii") as pipe:
        json.dump(times, pipe)
