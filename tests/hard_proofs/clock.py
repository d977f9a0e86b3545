"""A wall clock in 1970, 2038 and 2106 and one that jumps back, files dated likewise, and a log that is
rewritten while it is read: changes are stored, seen by others at once, and a log is shown whole."""
import json
import os
import subprocess
import sys
import threading
import time
from pathlib import Path

from operations import small
from proof import Outcome
from target import DOCUMENTS, Target, has_command

sys.path.append(str(Path(__file__).resolve().parents[1] / "support"))
import keyed_archive  # noqa: E402

TRIGGER = "20"
HOUR = 3600
CLOCKS = {"1970": (0, 0), "the end of 31 bits in 2038": ((1 << 31) - 1, 0), "after it": (1 << 31, 0),
          "the end of 32 bits in 2106": ((1 << 32) - 1, 0), "after that": (1 << 32, 0),
          "jumping back an hour at each look": (1 << 30, HOUR), "jumping back to before 1970": (2 * HOUR, HOUR)}
LONG_ROUNDS, SHORT_ROUNDS = 200, 4
LONG_LOG_SECONDS, SHORT_LOG_SECONDS = 60, 1


class Conversation:
    def __init__(self, target):
        self.process = subprocess.Popen(target.line("drive"), env=target.env, stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.communicate()

    def ask(self, **request):
        self.process.stdin.write(json.dumps(request).encode() + b"\n")
        self.process.stdin.flush()
        return json.loads(self.process.stdout.readline())


def dated(target, second):
    for path in target.root.rglob("*"):
        os.utime(path, (second, second))


def at(setting, name, second, back):
    target = Target(setting.program, setting.scratch / name)
    target.env |= {"LD_PRELOAD": str(setting.helper("clock.so")), "HARD_CLOCK": str(second),
                   "HARD_CLOCK_BACK": str(back), "ASAN_OPTIONS": "verify_asan_link_order=0:detect_leaks=0"}
    small(target)
    target.do("profile", "save", TRIGGER)
    before = target.values()
    rounds = LONG_ROUNDS if setting.long else SHORT_ROUNDS
    with Conversation(target) as conversation:
        conversation.ask(do="launch")
        for number in range(10, 10 + rounds):  # of one size in the file
            target.do("defaults", "write", "number", "-int", number)
            if number % 2:
                dated(target, second)
            if target.values()["number"] != number:
                yield f"{name}: {number} was not stored"
            seen = conversation.ask(do="prefs")["prefs"].get("number")
            if seen != number:
                yield f"{name}: another process sees {seen} instead of {number}"
    target.do("set", "custbright", "70")
    target.do("profile", "load", TRIGGER)
    if target.values()["custbrightenabled"] != before["custbrightenabled"]:
        yield f"{name}: a load restores {target.values()['custbrightenabled']}"
    if has_command(setting.program, "undo"):
        target.do("set", "custbright", "60")
        target.do("undo")
    target.do("profile", "delete", TRIGGER)


def generations():
    """Two logs; each line says of which it is, and the first how many there are."""
    for letter, count in (("a", 100), ("b", 1500)):
        yield letter, count, keyed_archive.archive([f"{letter} {number}" for number in range(count)])


def rewritten(setting, how, write):
    """What is shown of a log that write(path, bytes) replaces again and again."""
    target = Target(setting.program, setting.scratch / how)
    path = target.root / DOCUMENTS / "quorvantis.log"
    path.parent.mkdir(parents=True)
    logs = list(generations())
    path.write_bytes(logs[0][2])
    wanted = [[f"{letter} {number}" for number in reversed(range(count))] for letter, count, _ in logs]
    ended = threading.Event()

    def rewrite():
        while not ended.is_set():
            for _, _, data in logs:
                write(path, data)

    thread = threading.Thread(target=rewrite)
    thread.start()
    until = time.monotonic() + (LONG_LOG_SECONDS if setting.long else SHORT_LOG_SECONDS)
    shown = 0
    while time.monotonic() < until:
        done = target.run("log")
        lines = done.stdout.decode().splitlines()
        if done.returncode == 0 and lines in wanted:
            shown += 1
        elif done.returncode != 1 or lines:
            yield f"{how}: ends with {done.returncode} and shows {len(lines)} lines"
    ended.set()
    thread.join()
    if shown == 0:
        yield f"{how}: never shown"


def renamed(path, data):
    new = path.with_name("new")
    new.write_bytes(data)
    new.rename(path)


def in_place(path, data):
    """Emptied, written in two halves, and left alone for a moment."""
    with open(path, "wb", buffering=0) as file:
        file.write(data[:len(data) // 2])
        file.write(data[len(data) // 2:])
    time.sleep(0.002)


def prove(setting):
    faults = [fault for name, (second, back) in CLOCKS.items() for fault in at(setting, name, second, back)]
    faults += rewritten(setting, "a log that is renamed", renamed)
    faults += rewritten(setting, "a log that is written in place", in_place)
    return Outcome(f"{len(CLOCKS)} clocks, {Target.runs:,} commands, 2 logs that are rewritten", faults, "wrong")
