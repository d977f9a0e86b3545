"""Sixteen processes set values at once, most through `drive`, some by a command each; one is killed
every 10 ms, and one is stopped for 2 s while it holds the lock. A value whose set was confirmed has to
be there until that writer's next one, and no confirmed set may have waited over 5 s."""
import fcntl
import json
import os
import random
import signal
import subprocess
import threading
import time

from proof import Outcome
from target import Target

DRIVERS, SHELLS = 12, 4
LONG_SETS, SHORT_SETS = 336_000, 4_000
KILL_EVERY_SECONDS = 0.01
FROZEN_SECONDS = 2
PATIENCE_SECONDS = 5
LOOK_FOR_LOCK_SECONDS = 30
SEED = 16
ROWS = ["autobrightness", "airplanemode", "wifi", "bluetooth", "locationservices", "mobiledata",
        "mobiledatarate", "personalhotspot", "vpn", "bgapprefresh", "reducemotion", "grayscale"]
KEYS_OF_A_WRITER = 21


class Writer:
    """One key of its own (a shell 21, which take turns), and what must be stored in it: the last
    confirmed value, or one that was tried since."""

    def __init__(self, target, name):
        self.target, self.name = target, name
        self.confirmed, self.tried = {}, {}  # by key; None before the first
        self.number, self.done, self.longest, self.refused = 0, 0, 0.0, 0
        self.process, self.faults = None, []

    def next_value(self, key):
        self.number += 1
        value = f"{self.name} {self.number}"
        self.confirmed.setdefault(key, None)
        self.tried.setdefault(key, []).append(value)
        return value

    def confirm(self, key, started):
        self.confirmed[key], self.tried[key] = self.tried[key][-1], []
        self.done += 1
        self.longest = max(self.longest, time.monotonic() - started)

    def look(self):
        stored = self.target.values()
        for key, confirmed in self.confirmed.items():
            now = stored.get(key)
            if now != confirmed and now not in self.tried[key]:
                self.faults.append(f"{key}: confirmed {confirmed!r}, stored {now!r}")
            self.confirmed[key], self.tried[key] = now, []


class Driver(Writer):
    def turn(self, goes_on):
        """Until it is killed."""
        with open(self.target.folder / f"{self.name} complaints", "wb") as complaints:
            self.process = subprocess.Popen(
                self.target.line("drive"), env=self.target.env, stdin=subprocess.PIPE,
                stdout=subprocess.PIPE, stderr=complaints)
            try:
                self.ask({"do": "launch"})
                self.ask({"do": "open", "page": "PowerSavingListController"})
                while goes_on():
                    self.set(complaints)
            except (BrokenPipeError, EOFError):
                pass
            self.process.kill()
            self.process.communicate()

    def set(self, complaints):
        value, said = self.next_value(self.name), os.fstat(complaints.fileno()).st_size
        started = time.monotonic()
        answer = self.ask({"do": "call", "operation": "setPreferenceValue:specifier:",
                           "arguments": [value, self.name]})
        if answer["ok"] and os.fstat(complaints.fileno()).st_size == said:
            self.confirm(self.name, started)
        else:  # it was not stored, and said so; what it tried may be stored later
            self.refused += 1

    def ask(self, request):
        self.process.stdin.write(json.dumps(request).encode() + b"\n")
        self.process.stdin.flush()
        line = self.process.stdout.readline()
        if not line.endswith(b"\n"):
            raise EOFError
        return json.loads(line)


class Shell(Writer):
    def turn(self, goes_on):
        if goes_on():
            key = f"{self.name} {self.number % KEYS_OF_A_WRITER}"
            value = self.next_value(key)
            started = time.monotonic()
            self.process = subprocess.Popen(
                self.target.line("defaults", "write", key, value), env=self.target.env,
                stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            code = self.process.wait()
            if code in (0, 5):
                self.confirm(key, started)
            elif code != -signal.SIGKILL:
                self.refused += 1


class Disturbance:
    """Kills a writer every 10 ms; stops one once, while it has the lock."""

    def __init__(self, writers, target):
        self.writers, self.target = writers, target
        self.chosen = random.Random(SEED)
        self.kills, self.froze = 0, False
        self.frozen = None
        self.ended = threading.Event()

    def kill(self):
        while not self.ended.wait(KILL_EVERY_SECONDS):
            process = self.chosen.choice(self.writers).process
            if process and process.poll() is None and process is not self.frozen:
                process.kill()
                self.kills += 1

    def freeze(self):
        while not self.froze and not self.ended.is_set():
            process = self.chosen.choice(self.writers).process
            if not process or process.poll() is not None:
                continue
            self.frozen = process
            process.send_signal(signal.SIGSTOP)
            time.sleep(0.001)
            if process.poll() is None and self.locked():
                self.froze = True
                time.sleep(FROZEN_SECONDS)
            process.send_signal(signal.SIGCONT)
            self.frozen = None

    def locked(self):
        """Whether the lock stays taken, as it only does when the stopped process has it."""
        locks = list(self.target.domain.parent.glob(".*.lock"))
        if not locks:
            return False
        with open(locks[0], "rb") as file:
            for _ in range(100):
                try:
                    fcntl.flock(file, fcntl.LOCK_EX | fcntl.LOCK_NB)
                    return False
                except BlockingIOError:
                    time.sleep(0.0005)
        return True


def prove(setting):
    target = Target(setting.program, setting.scratch / "shared")
    target.write_domain({"first": "stays"})
    writers = [Driver(target, row) for row in ROWS] + [Shell(target, f"shell {n}") for n in range(SHELLS)]
    wanted = LONG_SETS if setting.long else SHORT_SETS

    disturbance = Disturbance(writers, target)
    started = time.monotonic()

    def goes_on():
        unfrozen = not disturbance.froze and time.monotonic() - started < LOOK_FOR_LOCK_SECONDS
        return unfrozen or sum(writer.done for writer in writers) < wanted

    def work(writer):
        while goes_on():
            writer.turn(goes_on)
            writer.look()

    threads = [threading.Thread(target=work, args=[writer]) for writer in writers]
    others = [threading.Thread(target=disturbance.kill), threading.Thread(target=disturbance.freeze)]
    for thread in threads + others:
        thread.start()
    for thread in threads:
        thread.join()
    disturbance.ended.set()
    for thread in others:
        thread.join()

    faults = [fault for writer in writers for fault in writer.faults]
    if target.values().get("first") != "stays":
        faults.append("the value of a program that wrote before is gone")
    longest = max(writer.longest for writer in writers)
    if longest > PATIENCE_SECONDS:
        faults.append(f"one waited {longest:.1f} s")
    if not disturbance.froze:
        faults.append("no process was stopped with the lock held")
    return Outcome(f"{sum(writer.done for writer in writers):,} confirmed sets of {len(writers)} processes, "
                   f"{disturbance.kills:,} killed, {sum(writer.refused for writer in writers):,} refused, "
                   f"the longest wait {longest:.2f} s", faults)
