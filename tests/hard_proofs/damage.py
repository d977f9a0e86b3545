"""Flips every bit of a settings file and of a profile of about 2 KB, and cuts them at every length:
no crash; what can't be read is refused and left as it is; what can be read loses nothing, and `repair`
says that another program than this one has changed it."""
import json
import random

from proof import Outcome
from target import DOMAIN, HUNG, Target

SEED = 20
SHORT_FLIPS, SHORT_CUTS = 100, 15
# Most of a run may be spent on waiting for a writer that is not there.
THREADS = 48
DONE, FAILED = 0, 1
TRIGGER = "20"
SET = ["set", "enabled", "false"]
OUTSIDE = b"changed outside"


def filled(target):
    """A domain of about 2 KB, and its profile."""
    for key, value in (("wifi", "1"), ("mobiledata", "2"), ("custbrightenabled", "true"), ("custbright", "30"),
                       ("alertmsg", "Battery at %BAT%, für heute"), ("bannercolor", "#34495F")):
        target.do("set", key, value)
    values = target.values()
    values |= {f"kept by another program, number {number}": ["text", number, number / 7, b"\0\1\2" * number]
               for number in range(20)}
    target.write_domain(values)
    target.do("profile", "save", TRIGGER)


def damages(data, long):
    """(what, bytes)"""
    flips = [(f"bit {bit} of byte {at}", at, 1 << bit) for at in range(len(data)) for bit in range(8)]
    cuts = list(range(len(data)))
    if not long:
        chosen = random.Random(SEED)
        flips, cuts = chosen.sample(flips, SHORT_FLIPS), chosen.sample(cuts, SHORT_CUTS)
    yield from ((what, data[:at] + bytes([data[at] ^ mask]) + data[at + 1:]) for what, at, mask in flips)
    yield from ((f"cut at {length}", data[:length]) for length in cuts)


def crash(target, *arguments):
    """The ended program, and what is wrong with how it ended."""
    done = target.run(*arguments)
    name = " ".join(arguments)
    if done.returncode == HUNG:
        return done, f"{name} hangs"
    if done.returncode not in (DONE, FAILED):
        return done, f"{name} ends with {done.returncode}: {done.stderr.decode(errors='replace').strip()}"
    if done.returncode == FAILED and done.stderr.count(b"\n") != 1:
        return done, f"{name} fails with {done.stderr.count(b'%c' % 10)} lines on stderr"
    return done, ""


def domain_fault(target, data):
    target.domain.unlink(missing_ok=True)
    target.do(*SET)  # so that the program has made the last change before the damage
    target.domain.write_bytes(data)
    read, fault = crash(target, "defaults", "read", "--json")
    if fault:
        return fault
    if read.returncode == DONE and OUTSIDE not in target.do("repair"):
        return "repair doesn't say that it was changed outside"
    for command in (["page", "PowerSavingListController"], ["profile", "list"], ["get", "enabled"]):
        _, fault = crash(target, *command)
        if fault:
            return fault
    done, fault = crash(target, *SET)
    if fault:
        return fault
    now = target.domain.read_bytes()
    if read.returncode == FAILED and (done.returncode != FAILED or now != data):
        return "a set over settings that can't be read was not refused"
    if done.returncode == FAILED:
        return "" if now == data else "a set was refused and changed the file"
    before = set(json.loads(read.stdout))
    after = set(json.loads(target.do("defaults", "read", "--json")))
    return f"a set lost {sorted(before - after)}" if before - after else ""


def profile_fault(target, data):
    path = target.documents / f"profile_{TRIGGER}.qvx"
    path.write_bytes(data)
    before = target.domain.read_bytes()
    for command in (["profile", "show", TRIGGER], ["profile", "list"]):
        _, fault = crash(target, *command)
        if fault:
            return fault
    if OUTSIDE not in target.do("repair"):
        return "repair doesn't say that it was changed outside"
    done, fault = crash(target, "profile", "load", TRIGGER)
    if fault:
        return fault
    if path.read_bytes() != data:
        return "a load changed the profile"
    now = target.domain.read_bytes()
    if done.returncode == FAILED and now != before:
        return "a load was refused and changed the settings"
    target.domain.write_bytes(before)
    return ""


def prove(setting):
    template = Target(setting.program, setting.scratch / "template")
    filled(template)
    profile = (template.documents / f"profile_{TRIGGER}.qvx").read_bytes()
    faults, tried = [], 0
    for name, data, judge in ((DOMAIN.rsplit("/", 1)[1], template.domain.read_bytes(), domain_fault),
                              ("profile", profile, profile_fault)):
        every = list(damages(data, setting.long))
        shares = [every[at::THREADS] for at in range(THREADS)]

        def work(numbered, name=name, judge=judge):
            number, share = numbered
            target = template.copy(setting.scratch / f"{name} {number}")
            target.do("profile", "save", TRIGGER, "--overwrite")  # what is there is its own
            found = [(what, judge(target, data)) for what, data in share]
            target.remove()
            return [f"{name}, {what}: {fault}" for what, fault in found if fault]

        for found in setting.each(work, enumerate(shares), THREADS):
            faults += found
        tried += len(every)
    return Outcome(f"{tried:,} flips and cuts of {len(template.domain.read_bytes()):,} bytes of settings "
                   f"and {len(profile):,} of a profile", faults, "crashed or lost")
