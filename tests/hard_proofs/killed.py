"""Ends the program at every system call of every operation that writes, and looks at what is left:
the old files or the new ones, whole; the same command succeeds then, and leaves nothing behind."""
import plistlib

from operations import DAMAGE, try_points
from proof import Outcome, some
from target import whole

KILLED = 137
SHORT_POINTS = 40  # of an operation, at most
CHANGES = ("openat", "openat2", "write", "pwrite64", "ftruncate", "mkdirat", "linkat", "unlinkat", "renameat",
           "renameat2")
# A setting that no profile holds.
OTHER_KEY = "batterylogenabled"


def parsed(state):
    """In one form, in which the integer 1 and the real 1.0 differ."""
    domain, profiles = state
    files = {"": domain, **profiles} if domain is not None else profiles
    return {name: plistlib.dumps(plistlib.loads(data), fmt=plistlib.FMT_BINARY)
            for name, data in files.items()}


def same(one, other):
    if one == other:
        return True
    try:
        return parsed(one) == parsed(other)
    except Exception:  # damaged on purpose, and so compared byte for byte
        return False


def known_state(prepared, copy):
    """The state before or after the operation that is found, also by its values; else what is found."""
    found = copy.state()
    return next((known for known in (prepared.before, prepared.after) if same(found, known)), found)


def after_next_start(prepared, copy):
    """What is found after the next start that changes something: it finishes or undoes what was under
    way. Its own change is taken out again."""
    found = known_state(prepared, copy)
    if found in (prepared.before, prepared.after):
        return found
    copy.run("set", OTHER_KEY, "false")
    values = copy.values()
    values.pop(OTHER_KEY, None)
    copy.write_domain(values)
    return known_state(prepared, copy)


def torn(prepared, found):
    """The files that are neither as before or after nor property lists."""
    domain, profiles = found
    files = {"settings": domain, **profiles}
    known = [prepared.before[0], *prepared.before[1].values()]
    return [name for name, data in files.items()
            if data is not None and data not in known and not whole(data)]


def neither(prepared, found):
    """What is neither old nor new. A profile may be there before the settings know of it."""
    domain, profiles = found
    before, after = prepared.before, prepared.after
    new_domain, old_domain = (same((domain, {}), (each[0], {})) for each in (after, before))
    new_profiles, old_profiles = (same((None, profiles), (None, each[1])) for each in (after, before))
    if not new_domain and not old_domain:
        return "the settings are neither old nor new"
    if not new_profiles and not old_profiles:
        return "the profiles are neither old nor new"
    if not old_domain and not new_profiles:
        return "the settings know of a profile that was not written"
    return ""


def cannot_go_on(prepared, copy, found):
    operation = prepared.operation
    command = list(operation.command)
    if not operation.again and not same(found, prepared.before):
        return ""
    if operation.name.startswith("save") and found[1]:
        command.append("--overwrite")
    done = copy.run(*command)
    if done.returncode != 0:
        return f"done again it ends with {done.returncode}: {done.stderr.decode().strip()}"
    if not same(copy.state(), prepared.after):
        return "done again it ends otherwise"
    # A second copy of damaged settings may be kept aside.
    left = [name for name in copy.names()
            if name not in prepared.names and (copy.root / name).read_bytes() != DAMAGE]
    return f"left behind: {left}" if left else ""


def loss(prepared, copy):
    found = copy.state()
    if bad := torn(prepared, found):
        return f"torn: {bad}"
    if prepared.operation.steps:
        found = after_next_start(prepared, copy)
    if DAMAGE == prepared.before[0] and found[0] != DAMAGE:
        aside = [path for path in copy.folder.rglob("*")
                 if path.is_file() and path.read_bytes() == DAMAGE]
        if not aside:
            return "the damaged file was not kept aside"
    return neither(prepared, found) or cannot_go_on(prepared, copy, found)


def points_of(setting, calls):
    """(number, kind) of the calls to be killed before. The short form takes some of those after a call
    that may have changed a file: nothing else leaves another state behind."""
    points = list(enumerate(calls, 1))
    if setting.long:
        return points
    return some([point for before, point in zip(calls, points[1:]) if before in CHANGES], SHORT_POINTS)


def prove(setting):
    every = ["--all"] if setting.long else []

    def kill(prepared, point):
        number, call = point
        copy = prepared.fresh(number)
        before, report = prepared.inject(copy, *every, "--at", number, "kill")
        done = copy.run(*prepared.operation.command, before=before)
        hit = "hit" in report.read_text()
        if hit and done.returncode == KILLED:
            fault = loss(prepared, copy)
        else:
            # A file that was written a moment ago is read once more, so that some runs have fewer calls.
            fault = "" if not hit and done.returncode == 0 else f"not killed: {done.returncode}"
        copy.remove()
        report.unlink()
        return hit, fault and f"call {number} ({call}): {fault}"

    tried, what, faults = try_points(
        setting, lambda prepared: points_of(setting, prepared.calls(*every)), kill)
    return Outcome(f"{tried:,} points of {what}", faults)
