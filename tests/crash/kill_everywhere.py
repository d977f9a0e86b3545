#!/usr/bin/env python3
"""kill_everywhere.py COMMAND...: kills a save, an overwriting save, a load and a delete of a profile
at every one of their system calls, and looks at what is left.

COMMAND is the `quorvantis` program, with arguments to put first if need be. After each kill there
has to be the old file or the new one, whole, the old domain or the new one, whole, and no other
profile; and the same command has to go through then. Prints, for each operation, the points at
which it was killed and the losses found; ends with 0 if there were points and no loss.
"""
import collections
import concurrent.futures
import os
import plistlib
import re
import shutil
import subprocess
import sys
import tempfile

DOMAIN = "var/mobile/Library/Preferences/com.zorvek.quorvantis.plist"
DOCUMENTS = "var/mobile/Documents/Quorvantis"
PROFILE = "profile_20.qvx"
KILLED = (-9, 137)

# Commands that prepare the root, the one to kill, and the one to do afterwards. All are about the
# profile of Battery 20%.
Operation = collections.namedtuple("Operation", "name prepare command again")
WIFI = ["defaults", "write", "wifi", "-int"]
SAVE = ["profile", "save", "20"]
OPERATIONS = [
    Operation("save", [WIFI + ["1"]], SAVE, SAVE + ["--overwrite"]),
    Operation("overwrite", [WIFI + ["1"], SAVE, WIFI + ["2"]],
              SAVE + ["--overwrite"], SAVE + ["--overwrite"]),
    Operation("load", [WIFI + ["1"], SAVE, WIFI + ["2"]],
              ["profile", "load", "20"], ["profile", "load", "20"]),
    Operation("delete", [WIFI + ["1"], SAVE], ["profile", "delete", "20"], None),
]


class Torn(Exception):
    pass


def read(path, decode):
    """None when there is no such file."""
    try:
        with open(path, "rb") as file:
            return decode(plistlib.load(file))
    except FileNotFoundError:
        return None
    except Exception as error:
        raise Torn(f"{os.path.basename(path)} can't be read: {error!r}") from error


def unarchived(archive):
    objects = archive["$objects"]
    root = objects[archive["$top"]["root"].data]
    return {objects[key.data]: objects[value.data]
            for key, value in zip(root["NS.keys"], root["NS.objects"], strict=True)}


State = collections.namedtuple("State", "profile domain")


def state_of(root):
    folder = os.path.join(root, DOCUMENTS)
    names = os.listdir(folder) if os.path.isdir(folder) else []
    others = [name for name in names if name.endswith(".qvx") and name != PROFILE]
    if others:
        raise Torn(f"unknown profiles: {others}")
    return State(read(os.path.join(folder, PROFILE), unarchived),
                 read(os.path.join(root, DOMAIN), dict))


class Run:
    def __init__(self, command, operation, scratch):
        self.command, self.operation, self.scratch = command, operation, scratch
        self.template = os.path.join(scratch, operation.name)
        for arguments in operation.prepare:
            self.run(self.template, arguments)
        self.before = state_of(self.template)
        done = self.copy("done")
        self.run(done, operation.command)
        self.after = state_of(done)

    def line(self, root, arguments):
        return [*self.command, "--root", root, *arguments]

    def run(self, root, arguments, check=True):
        return subprocess.run(self.line(root, arguments), check=check, stdout=subprocess.DEVNULL,
                              stderr=subprocess.PIPE, text=True)

    def copy(self, name):
        root = os.path.join(self.scratch, f"{self.operation.name}-{name}")
        shutil.copytree(self.template, root)
        return root

    def points(self):
        """Each system call with how often it is made, but the one that starts the program."""
        root, log = self.copy("count"), os.path.join(self.scratch, "log")
        subprocess.run(["strace", "-f", "-o", log, *self.line(root, self.operation.command)],
                       check=True, stdout=subprocess.DEVNULL)
        with open(log, errors="replace") as lines:
            calls = collections.Counter(
                match[1] for match in (re.match(r"\d+ +(\w+)\(", line) for line in lines) if match)
        del calls["execve"]
        return [(call, time) for call, count in calls.items() for time in range(1, count + 1)]

    def kill(self, point):
        """Whether it was killed there, and what was lost; empty for nothing."""
        call, time = point
        root = self.copy(f"{call}-{time}")
        killed = subprocess.run(
            ["strace", "-f", "-o", "/dev/null", "-e", f"inject={call}:signal=KILL:when={time}",
             *self.line(root, self.operation.command)],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode in KILLED
        try:
            return killed, self.loss(root)
        finally:
            shutil.rmtree(root)

    def loss(self, root):
        try:
            found = state_of(root)
        except Torn as torn:
            return str(torn)
        if found.profile not in (self.before.profile, self.after.profile):
            return "the profile is neither the old nor the new one"
        if found.domain not in (self.before.domain, self.after.domain):
            return "the domain is neither the old nor the new one"
        if self.operation.command[1] == "save" and found.profile != self.after.profile \
                and found.domain != self.before.domain:
            return "the domain remembers a profile that wasn't written"
        return self.cannot_go_on(root, found)

    def cannot_go_on(self, root, found):
        again = self.operation.again
        if again is None:
            if found.profile is None:
                return ""
            again = self.operation.command
        ended = self.run(root, again, check=False)
        if ended.returncode != 0:
            return f"it doesn't go through any more: {ended.stderr.strip()}"
        if state_of(root) != self.after:
            return "done again it ends otherwise"
        return ""


def kill_everywhere(command, operation, scratch):
    run = Run(command, operation, scratch)
    points = run.points()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = list(pool.map(run.kill, points))
    losses = [(point, loss) for point, (_, loss) in zip(points, results) if loss]
    killed = sum(killed for killed, _ in results)
    print(f"{operation.name}: {killed} points, {len(losses)} lost", flush=True)
    for (call, time), loss in losses:
        print(f"  {call} {time}: {loss}")
    return killed > 0 and not losses


def main():
    command = sys.argv[1:]
    if not command:
        sys.exit(__doc__)
    with tempfile.TemporaryDirectory() as scratch:
        kept = [kill_everywhere(command, operation, scratch) for operation in OPERATIONS]
    sys.exit(0 if all(kept) else 1)


if __name__ == "__main__":
    main()
