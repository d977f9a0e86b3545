"""Two commands make a profile for one trigger at once: one of them ends with 0 and the profile is its own,
the other one is refused, since there is a profile."""
import functools
import json
import plistlib
import threading

from proof import Outcome
from target import Target

DONE, EXISTS = 0, 4
LONG_RACES, SHORT_RACES = 1_000, 12  # of each kind
TRIGGER, OTHER = "30", "20"
# What each command makes differs in this setting.
KEY = "wifi"
VALUES = {"save": 1, "copy": 2, "import": 3}
COMMANDS = {"save": ["profile", "save", TRIGGER],
            "copy": ["profile", "copy", OTHER, TRIGGER],
            "import": ["profile", "import", "in.plist"]}
KINDS = [("save", "save"), ("save", "copy"), ("save", "import"), ("import", "import"), ("copy", "import")]


def prepared(target):
    target.do("defaults", "write", KEY, "-int", str(VALUES["copy"]))
    target.do("profile", "save", OTHER)
    target.do("defaults", "write", KEY, "-int", str(VALUES["save"]))
    (target.folder / "in.plist").write_bytes(
        plistlib.dumps({"profilepercentage": TRIGGER, KEY: VALUES["import"]}))
    return target


def at_once(target, names):
    """The exit code of each command; each thread waits for the others before it starts its own."""
    codes = [0] * len(names)
    start = threading.Barrier(len(names))

    def run(number):
        start.wait()
        codes[number] = target.run(*COMMANDS[names[number]]).returncode
    threads = [threading.Thread(target=run, args=[number]) for number in range(len(names))]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    return codes


def value_of_profile(target):
    return json.loads(target.do("profile", "show", TRIGGER, "--json")).get(KEY)


def race(target, names):
    """What is wrong, or nothing."""
    target.run("profile", "delete", TRIGGER)  # of the race before
    codes = at_once(target, names)
    if sorted(codes) != [DONE, EXISTS]:
        return f"{' and '.join(names)}: ended with {codes}"
    made, winner = value_of_profile(target), names[codes.index(DONE)]
    return "" if made == VALUES[winner] else f"{' and '.join(names)}: {winner} ended with 0, {KEY} is {made}"


def races(setting, names):
    target = prepared(Target(setting.program, setting.scratch / " and ".join(names)))
    count = LONG_RACES if setting.long else SHORT_RACES
    return [fault for _ in range(count) if (fault := race(target, names))]


def prove(setting):
    faults = setting.each(functools.partial(races, setting), KINDS)
    count = (LONG_RACES if setting.long else SHORT_RACES) * len(KINDS)
    return Outcome(f"{count:,} races of two commands for one trigger", sum(faults, []))
