"""Odd hosts: links, FIFOs, devices and huge files in place of the program's own, few descriptors, little
memory, a home that can't be written, no bus and one that never answers, a path with blanks; and the modes of
all files at every system call. Nothing hangs, nothing outside the device is touched, and the exit code is true."""
import os
import plistlib
import resource
import signal
import socket
import stat
import tempfile
import threading
from pathlib import Path

from operations import Prepared, small
from operations import operations as operations_of
from proof import Outcome
from target import DOCUMENTS, DOMAIN, HUNG, Target

TRIGGER = "20"
PROFILE = f"{DOCUMENTS}/profile_{TRIGGER}.qvx"
LOG = f"{DOCUMENTS}/quorvantis.log"
READS = [["defaults", "read"], ["page", "GeneralSettingsController"], ["get", "enabled"], ["log"],
         ["profile", "list"], ["profile", "show", TRIGGER]]
WRITES = [["set", "enabled", "false"], ["profile", "save", TRIGGER, "--overwrite"], ["profile", "load", TRIGGER],
          ["profile", "export", TRIGGER, "-"], ["profile", "delete", TRIGGER]]
SECONDS = 10
MEMORY = 256 << 20
NOBODY = 65534
DESCRIPTORS = 16


def filled(target):
    small(target)
    target.do("profile", "save", TRIGGER)
    return target


def limit(**limits):
    """For the program to begin with: resource.NAME by NAME."""
    def begin():
        for name, value in limits.items():
            resource.setrlimit(getattr(resource, name), (value, value))
    return begin


def ended(target, command, **options):
    """What is wrong with how it ended, for a command that may fail but not crash, hang or be silent."""
    done = target.run(*command, timeout=SECONDS, **options)
    name = " ".join(command)
    if done.returncode == HUNG:
        return f"{name} hangs"
    if done.returncode not in (0, 1, 2, 3, 4):
        return f"{name} ends with {done.returncode}: {done.stderr.decode(errors='replace').strip()}"
    if done.returncode != 0 and done.stderr.count(b"\n") != 1:
        return f"{name} fails with {done.stderr.decode(errors='replace')!r}"
    return ""


def instead(setting, name, put, file):
    """`put(path)` makes something odd where `file` was: every command ends well."""
    target = filled(Target(setting.program, setting.scratch / f"{name} {Path(file).name}"))
    path = target.root / file
    path.unlink(missing_ok=True)
    put(path)
    options = {} if setting.instrumented() else {"preexec_fn": limit(RLIMIT_AS=MEMORY)}
    for command in READS + WRITES:
        if fault := ended(target, command, **options):
            yield f"{name} as {file}: {fault}"
        if not os.path.lexists(path):
            put(path)  # it was deleted, rightly


def outside(setting):
    """A link out of the device is not followed: what it names is neither shown, changed nor made."""
    for file in (DOMAIN, PROFILE, LOG, DOCUMENTS, os.path.dirname(DOMAIN)):
        target = filled(Target(setting.program, setting.scratch / f"outside {file.replace('/', ' ')}"))
        elsewhere, path = target.folder / "elsewhere", target.root / file
        if path.is_dir():
            path.rename(elsewhere)
        else:
            elsewhere.write_bytes(plistlib.dumps({"secret": "do not show"}, fmt=plistlib.FMT_BINARY))
            path.unlink(missing_ok=True)
        path.symlink_to(elsewhere)

        def contents(elsewhere=elsewhere):
            files = [elsewhere] if elsewhere.is_file() else sorted(elsewhere.iterdir())
            return [(each, each.read_bytes()) for each in files]

        before = contents()
        for command in READS + WRITES:
            if fault := ended(target, command):
                yield f"a link out of the device as {file}: {fault}"
            if elsewhere.is_file() and b"do not show" in target.run(*command).stdout:
                yield f"{' '.join(command)} shows a file outside the device by a link as {file}"
        if contents() != before:
            yield f"a link out of the device as {file} was followed and written"
        dangling = target.folder / "made"
        if path.is_symlink():
            path.unlink()
            path.symlink_to(dangling)
            for command in WRITES:
                target.run(*command)
            if dangling.exists():
                yield f"a dangling link as {file} made a file outside the device"


def fifo(path):
    os.mkfifo(path, 0o600)


def zeros(path):
    os.mknod(path, 0o600 | stat.S_IFCHR, os.makedev(1, 5))


def sparse(path):
    with open(path, "wb") as file:
        file.truncate(1 << 40)


def folder(path):
    path.mkdir()
    (path / "kept").write_bytes(b"kept")


def odd_files(setting):
    kinds = [("a FIFO", fifo), ("a sparse file of 1 TB", sparse), ("a folder", folder)]
    if os.geteuid() == 0:
        kinds.append(("a device of zeros", zeros))
    for name, put in kinds:
        for file in (DOMAIN, PROFILE, LOG):
            yield from instead(setting, name, put, file)
    kept = setting.scratch / f"a folder {Path(PROFILE).name}" / "root" / PROFILE / "kept"
    if not kept.exists():
        yield "a folder named like a profile was emptied"


def must(target, commands, what, **options):
    """All of them end with 0."""
    for command in commands:
        done = target.run(*command, timeout=SECONDS, **options)
        if done.returncode != 0:
            yield f"{what}: {' '.join(command)} ends with {done.returncode}: {done.stderr.decode().strip()}"


def few_descriptors(setting):
    target = filled(Target(setting.program, setting.scratch / "descriptors"))
    yield from must(target, READS[:3] + READS[4:] + WRITES, f"{DESCRIPTORS} descriptors",
                    preexec_fn=limit(RLIMIT_NOFILE=DESCRIPTORS))


def blanks(setting):
    target = filled(Target(setting.program, setting.scratch / " a path  with blanks\tand $(quotes) '\""))
    yield from must(target, READS[:3] + READS[4:] + WRITES, "a path with blanks")


def little_memory(setting):
    if setting.instrumented():
        return
    target = filled(Target(setting.program, setting.scratch / "memory"))
    target.write_domain({"text": "x" * (16 << 20)})
    before = target.domain.read_bytes()
    done = target.run(*WRITES[0], preexec_fn=limit(RLIMIT_AS=24 << 20))
    if done.returncode != 1 or done.stderr.count(b"\n") != 1:
        yield f"out of memory: ends with {done.returncode}, {done.stderr.decode(errors='replace')!r}"
    if target.domain.read_bytes() != before:
        yield "out of memory: the settings changed"


def read_only(setting):
    """As a user who may not write there, since root may everywhere."""
    if os.geteuid() != 0:
        return
    with tempfile.TemporaryDirectory(prefix="hard-") as parent:
        os.chmod(parent, 0o755)
        target = filled(Target(setting.program, Path(parent) / "user"))
        for path in [target.folder, *target.folder.rglob("*")]:
            os.chmod(path, 0o555 if path.is_dir() else 0o444)
        before = target.state()
        program = Path(parent) / "quorvantis"
        program.write_bytes(setting.program.read_bytes())
        program.chmod(0o755)
        target.program = str(program)
        as_nobody = {"user": NOBODY, "group": NOBODY, "extra_groups": []}
        yield from must(target, READS[:3] + READS[4:], "a home that can't be written", **as_nobody)
        for command in WRITES[:3] + WRITES[4:]:
            done = target.run(*command, timeout=SECONDS, **as_nobody)
            if done.returncode != 1 or done.stderr.count(b"\n") != 1:
                yield (f"a home that can't be written: {' '.join(command)} ends with {done.returncode}: "
                       f"{done.stderr.decode().strip()}")
        if target.state() != before:
            yield "a home that can't be written: the files changed"


def no_bus(setting):
    target = filled(Target(setting.program, setting.scratch / "no bus"))
    del target.env["DBUS_SESSION_BUS_ADDRESS"]
    yield from must(target, WRITES, "no bus")


def hanging_bus(setting):
    """A socket that takes every connection and never answers."""
    target = filled(Target(setting.program, setting.scratch / "hanging bus"))
    with tempfile.TemporaryDirectory(prefix="hard-") as parent, \
         socket.socket(socket.AF_UNIX, socket.SOCK_STREAM) as listener:
        listener.bind(f"{parent}/bus")
        listener.listen(64)
        held = []

        def accept():
            try:
                while True:
                    held.append(listener.accept()[0])
            except OSError:
                pass

        threading.Thread(target=accept, daemon=True).start()
        target.env["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={parent}/bus"
        yield from must(target, WRITES, "a bus that never answers")
        listener.shutdown(socket.SHUT_RDWR)


def modes(setting):
    """0600 and 0700, whatever the mask, after each system call of each operation."""
    there, _ = operations_of(setting)
    for operation in there:
        if operation.long:
            continue
        target = Target(setting.program, setting.scratch / f"modes {operation.name}")
        prepared = Prepared(setting, operation, target)
        for mask in (0, 0o027):
            copy = prepared.fresh(f"mask {mask:o}")
            for path in [copy.folder, *copy.folder.rglob("*")]:
                path.chmod(0o700 if path.is_dir() else 0o600)
            before, report = prepared.inject(copy, "--modes")
            copy.run(*operation.command, before=before, umask=mask)
            for line in report.read_text().splitlines():
                if line.startswith("mode "):
                    yield f"{operation.name}, mask {mask:04o}: {line.removeprefix('mode ')}"


HOSTS = [outside, odd_files, few_descriptors, blanks, little_memory, read_only, no_bus, hanging_bus, modes]


def prove(setting):
    signal.signal(signal.SIGPIPE, signal.SIG_DFL)
    faults = [fault for found in setting.each(lambda host: list(host(setting)), HOSTS) for fault in found]
    return Outcome(f"{Target.runs:,} commands on {len(HOSTS)} odd hosts", faults, "wrong")
