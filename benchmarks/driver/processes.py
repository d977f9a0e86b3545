"""Whole processes: the command line against what it can't do without."""
import contextlib
import plistlib
import shutil
import subprocess
import tempfile
from pathlib import Path

from machine import BIN, Missing, environment, scratch

DOMAIN = "com.zorvek.quorvantis"
KEYS = 200
BUS = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>session</type><listen>unix:path={socket}</listen><auth>EXTERNAL</auth>
<policy context="default"><allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/>
<allow own="*"/></policy></busconfig>
"""


def turns(rounds, commands, variables):
    """{name: runs}, each (nanoseconds, minor faults, peak KiB); of (name, command) in turn."""
    line = [str(BIN / "turns"), str(rounds)]
    for _, command in commands:
        line += [str(word) for word in command] + ["--"]
    done = subprocess.run(line[:-1], env=variables, stdout=subprocess.PIPE, check=True, text=True)
    runs = {name: [] for name, _ in commands}
    for each in done.stdout.splitlines():
        which, *figures = map(int, each.split())
        runs[commands[which][0]].append(figures)
    return runs


def columns(runs):
    """{name: values} for each of the three figures."""
    return [{name: [run[figure] for run in each] for name, each in runs.items()} for figure in range(3)]


def domain_file(folder):
    file = Path(folder, "root/var/mobile/Library/Preferences", f"{DOMAIN}.plist")
    file.parent.mkdir(parents=True)
    values = {f"lowpower_option_{number}": f"Some text value {number}" for number in range(KEYS - 1)}
    file.write_bytes(plistlib.dumps(values | {"wifi": 2}, fmt=plistlib.FMT_BINARY))
    return file


def quorvantis(folder, *words):
    return [BIN / "quorvantis", "--root", f"{folder}/root", *words]


def get(rounds):
    with scratch() as folder:
        file = domain_file(folder)
        return columns(turns(rounds, [("ours", quorvantis(folder, "get", "wifi")),
                                      ("bare static program", [BIN / "bare_get", file])],
                             environment(folder)))


@contextlib.contextmanager
def session_bus():
    """The path of its socket, whose length is bounded: not below the scratch folder."""
    if not shutil.which("dbus-daemon"):
        raise Missing("dbus-daemon")
    with tempfile.TemporaryDirectory() as folder:
        socket = Path(folder, "bus")
        configuration = Path(folder, "bus.conf")
        configuration.write_text(BUS.format(socket=socket))
        daemon = subprocess.Popen(["dbus-daemon", f"--config-file={configuration}", "--nofork",
                                   "--print-address"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        try:
            daemon.stdout.readline()  # it listens by now
            yield socket
        finally:
            daemon.terminate()
            daemon.communicate()


def set_one(rounds):
    with scratch() as folder, session_bus() as socket:
        size = domain_file(folder).stat().st_size
        bare = ("bare static program", [BIN / "bare_set", folder, size, socket])
        variables = environment(folder) | {"DBUS_SESSION_BUS_ADDRESS": f"unix:path={socket}"}
        # Two values, so that each set changes something.
        return columns(turns(rounds, [("ours", quorvantis(folder, "set", "wifi", "1")), bare,
                                      ("ours", quorvantis(folder, "set", "wifi", "2")), bare], variables))
