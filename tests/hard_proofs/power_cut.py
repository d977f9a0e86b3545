"""Shuts a file system down in mid-write, as a power cut does, while the program stores values and
profiles on it: after the next mount each file is whole, and what was confirmed is there.

Needs root, loop devices, ext4 and XFS. What waits in the kernel's memory is lost: the log is written
out first at half of the cuts, at the other half it is not. Another writer flushes a file of its own all the
while, which makes the file system write out what it knows of names but not of contents."""
import fcntl
import json
import os
import plistlib
import random
import shutil
import struct
import subprocess
import tempfile
import threading
import time

from proof import Outcome, Skipped
from target import Target, whole

LONG_CYCLES, SHORT_CYCLES = 500, 3
SYSTEMS = {"ext4": (64, ["mkfs.ext4", "-q", "-F"]), "xfs": (320, ["mkfs.xfs", "-q", "-f"])}
SHUT_DOWN = 0x8004587D  # _IOR('X', 125, __u32), of both file systems
WITH_LOG, WITHOUT_LOG = 1, 2
TRIGGER = "20"
KEY = "hard number"
SEED = 500


def missing():
    if os.geteuid() != 0:
        return "needs root, for mounts"
    tools = [tool for tool in ("mkfs.ext4", "mkfs.xfs", "mount", "umount")
             if not shutil.which(tool, path=os.environ["PATH"] + ":/usr/sbin:/sbin")]
    if tools:
        return f"there is no {', '.join(tools)} (packages e2fsprogs, xfsprogs, mount)"
    return "" if os.path.exists("/dev/loop-control") else "there are no loop devices"


class Disk:
    def __init__(self, scratch, system):
        self.image, self.at = scratch / f"{system}.img", scratch / system
        self.at.mkdir()
        megabytes, make = SYSTEMS[system]
        with open(self.image, "wb") as file:
            file.truncate(megabytes << 20)
        environment = os.environ | {"PATH": os.environ["PATH"] + ":/usr/sbin:/sbin"}
        subprocess.run([*make, self.image], check=True, env=environment)

    def __enter__(self):
        done = subprocess.run(["mount", "-o", "loop", self.image, self.at], capture_output=True, check=False)
        if done.returncode != 0:
            raise Skipped(f"can't mount: {done.stderr.decode().strip()}")
        return self

    def __exit__(self, *_):
        # A process that still ends may keep it busy for a moment.
        for _ in range(200):
            if subprocess.run(["umount", self.at], capture_output=True, check=False).returncode == 0:
                return
            time.sleep(0.02)
        raise RuntimeError(f"{self.at} stays mounted")

    def cut(self, how):
        folder = os.open(self.at, os.O_RDONLY)
        try:
            fcntl.ioctl(folder, SHUT_DOWN, struct.pack("I", how))
        finally:
            os.close(folder)


class Cycle:
    """Numbers that are set and saved one after the other; 0 is before the first."""

    def __init__(self, program, folder):
        self.target = Target(program, folder / "commands")
        self.other = Target(program, folder / "conversation")
        self.number = 0
        self.stored = self.saved = 0  # confirmed
        self.ended = threading.Event()

    def write(self):
        while not self.ended.is_set():
            self.number += 1
            done = self.target.run("defaults", "write", KEY, "-int", self.number)
            if done.returncode == 0:
                self.stored = self.number
            if self.number % 4 == 0 and self.stored == self.number:
                # A profile holds only the settings' own keys.
                set_too = self.target.run("defaults", "write", "wifi", "-int", self.number)
                saved = self.target.run("profile", "save", TRIGGER, "--overwrite")
                if set_too.returncode == 0 == saved.returncode:
                    self.saved = self.number

    def flush_another(self):
        try:
            with open(self.target.folder / "another", "wb", buffering=0) as file:
                while not self.ended.wait(0.003):
                    file.write(b"x" * 512)
                    os.fsync(file.fileno())
        except OSError:  # the disk is gone
            pass

    def converse(self):
        """Many sets of one process, whose flush may wait: none of them may tear the file."""
        requests = [{"do": "launch"}, {"do": "open", "page": "PowerSavingListController"},
                    *({"do": "set", "row": "wifi", "value": number % 3} for number in range(5000))]
        lines = "".join(json.dumps(request) + "\n" for request in requests)
        with tempfile.TemporaryFile() as file:
            file.write(lines.encode())
            file.seek(0)
            process = subprocess.Popen(self.other.line("drive"), env=self.other.env, stdin=file,
                                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            self.ended.wait()
            process.kill()
            process.wait()


def saved_number(data):
    objects = plistlib.loads(data)["$objects"]
    root = next(each for each in objects if isinstance(each, dict) and "NS.keys" in each)
    return {objects[key.data]: objects[value.data]
            for key, value in zip(root["NS.keys"], root["NS.objects"], strict=True)}["wifi"]


def losses(cycle):
    domain, profiles = cycle.target.state()
    if domain is None or not whole(domain):
        if domain is not None or cycle.stored:
            yield f"the settings are {'gone' if domain is None else f'torn: {len(domain)} bytes'}"
    elif plistlib.loads(domain).get(KEY, 0) < cycle.stored:
        yield f"confirmed {cycle.stored}, stored {plistlib.loads(domain).get(KEY, 0)}"
    profile = profiles.get(f"profile_{TRIGGER}.qvx")
    if profile is None or not whole(profile):
        if profile is not None or cycle.saved:
            yield f"the profile is {'gone' if profile is None else f'torn: {len(profile)} bytes'}"
    elif saved_number(profile) < cycle.saved:
        yield f"confirmed profile {cycle.saved}, saved {saved_number(profile)}"
    conversed, _ = cycle.other.state()
    if conversed is not None and not whole(conversed):
        yield f"the settings of the conversation are torn: {len(conversed)} bytes"


def one(disk, program, chosen, system, number):
    """The losses of a cut, and how many sets and saves were confirmed before it."""
    how = chosen.choice((WITH_LOG, WITHOUT_LOG))
    with disk:
        shutil.rmtree(disk.at / "user", ignore_errors=True)
        cycle = Cycle(program, disk.at / "user")
        threads = [threading.Thread(target=work)
                   for work in (cycle.write, cycle.flush_another, cycle.converse)]
        for thread in threads:
            thread.start()
        try:
            time.sleep(chosen.uniform(0.02, 0.4))
            stored, saved = cycle.stored, cycle.saved
            disk.cut(how)
        finally:
            cycle.ended.set()
            for thread in threads:
                thread.join()
    # A flush that meets the kernel shutting the file system down may succeed; where the power is
    # really cut no program sees that.
    cycle.stored, cycle.saved = stored, saved
    with disk:
        return [f"{system}, cut {number}: {loss}" for loss in losses(cycle)], stored, saved


def prove(setting):
    if reason := missing():
        raise Skipped(reason)
    cycles = LONG_CYCLES if setting.long else SHORT_CYCLES
    faults, stored, saved = [], 0, 0
    chosen = random.Random(SEED)
    for system in SYSTEMS:
        disk = Disk(setting.scratch, system)
        for number in range(cycles):
            lost, sets, saves = one(disk, setting.program, chosen, system, number)
            faults, stored, saved = faults + lost, stored + sets, saved + saves
        disk.image.unlink()
    return Outcome(f"{cycles} cuts each of {' and '.join(SYSTEMS)}, {stored:,} sets and {saved:,} saves confirmed "
                   "before them", faults)
