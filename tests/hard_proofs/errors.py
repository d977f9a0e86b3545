"""Fails every system call on a file of every operation that writes: the files are the old ones or
the new ones, byte for byte, and what the program says is true."""
import errno
import itertools

from killed import after_next_start
from operations import try_points
from proof import Outcome, some
from target import HUNG

NUMBERS = ["EIO", "ENOSPC", "EDQUOT", "EROFS", "EACCES", "EMFILE"]
# A call is interrupted again and again, but not for ever.
INTERRUPTIONS = 100
FAILURES = [
    *((f"{name} once", f"error:{getattr(errno, name)}") for name in NUMBERS),
    *((f"{name} from there on", f"forever:{getattr(errno, name)}") for name in NUMBERS),
    ("EINTR once", f"error:{errno.EINTR}"),
    (f"EINTR {INTERRUPTIONS} times", f"forever:{errno.EINTR}:{INTERRUPTIONS}"),
    ("half a transfer", "short"),
    ("half a transfer from there on", "short-forever"),
]
SHORT_POINTS = 60  # of an operation, at most
TRANSFERS = ("read", "pread64", "write", "pwrite64")
DONE, FAILED, UNCONFIRMED = 0, 1, 5
# Said where a later file can't be written, nor an earlier one be taken back.
HALF_DONE = ("; the new profile stays at /var/mobile/Documents/Quorvantis/",
             "; changed all the same, since it can't be taken back: /var/mobile/Documents/Quorvantis/")


def half_done(prepared, said, found):
    """Whether that is said, and each file by itself is the old one or the new one."""
    (domain, profiles), states = found, (prepared.before, prepared.after)
    names = {name for state in (found, *states) for name in state[1]}
    return (any(words in said for words in HALF_DONE) and any(domain == state[0] for state in states)
            and all(any(profiles.get(name) == state[1].get(name) for state in states) for name in names))


def lie(prepared, done, found, first):
    """What the exit code says about the files, before the next start and after it, and whether stderr has its
    line."""
    old, new = found == prepared.before, found == prepared.after
    code, said = done.returncode, done.stderr.decode(errors="replace").strip()
    if code == HUNG:
        return "hangs"
    if code not in (DONE, FAILED, UNCONFIRMED):
        return f"exit {code}: {said}"
    if code == UNCONFIRMED and half_done(prepared, said, first):
        return ""
    if not old and not new:
        return f"exit {code}, and the files are neither old nor new"
    if code == FAILED and not old:
        return f"exit 1, and the new state is stored: {said}"
    if code != FAILED and not new:
        return f"exit {code}, and nothing is stored"
    if code != DONE and (len(said.splitlines()) != 1 or not said.startswith("quorvantis: ")):
        return f"exit {code} with {len(said.splitlines())} lines on stderr: {said!r}"
    return ""


def points_of(setting, calls):
    points = [(number, call, failure) for number, call in enumerate(calls, 1) for failure in FAILURES
              if call in TRANSFERS or not failure[1].startswith("short")]
    if setting.long:
        return points
    # One failure a call, another one for each.
    by_call = [list(group) for _, group in itertools.groupby(points, key=lambda point: point[0])]
    return [options[number * 5 % len(options)]
            for number, options in enumerate(some(by_call, SHORT_POINTS))]


def fail(prepared, point):
    number, call, (what, action) = point
    copy = prepared.fresh(f"{number} {what}")
    before, report = prepared.inject(copy, "--at", number, action)
    done = copy.run(*prepared.operation.command, before=before)
    hit = "hit" in report.read_text()
    found = first = copy.state()
    if prepared.operation.steps and "forever" in action and found not in (prepared.before, prepared.after):
        # What can't be undone while each try fails is undone by the next start.
        found = after_next_start(prepared, copy)
    fault = lie(prepared, done, found, first)
    copy.remove()
    report.unlink()
    return hit, fault and f"call {number} ({call}) {what}: {fault}"


def prove(setting):
    tried, what, faults = try_points(setting, lambda prepared: points_of(setting, prepared.calls()), fail)
    return Outcome(f"{tried:,} failures of {what}", faults, "untrue or torn")
