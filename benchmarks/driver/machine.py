"""Where the programs of the benchmark are, and how they are run."""
import json
import os
import subprocess
import sys
import tempfile
from pathlib import Path

SOURCE = Path(__file__).resolve().parents[2]
BUILD = SOURCE / "build/bench"
BIN = BUILD / "bin"


class Missing(Exception):
    """This machine can't: its text says what is missing."""


def build(targets):
    """Builds them, or everything, in release mode."""
    for command in (["cmake", "--preset", "bench"],
                    ["cmake", "--build", "--preset", "bench", "-j", str(os.cpu_count()),
                     *(["--target", *targets] if targets else [])]):
        subprocess.run(command, cwd=SOURCE, stdout=sys.stderr, check=True)


def scratch():
    """A folder on the disk that the build is on; it is removed at the end of a `with`."""
    return tempfile.TemporaryDirectory(prefix="scratch-", dir=BUILD)


def environment(folder):
    """One in which nothing of the caller's desktop is seen."""
    return {"PATH": os.defpath, "LC_ALL": "C.UTF-8", "HOME": folder, "XDG_STATE_HOME": f"{folder}/state",
            "XDG_RUNTIME_DIR": folder, "TMPDIR": folder}


def output(command, folder, **variables):
    return subprocess.run([str(word) for word in command], cwd=folder, stdout=subprocess.PIPE, check=True,
                          text=True, env=environment(folder) | variables).stdout


def race(program, row, rounds, **variables):
    """{"samples": …, "notes": …} of benchmarks/race.h"""
    with scratch() as folder:
        return json.loads(output([BIN / program, row, rounds], folder, **variables))
