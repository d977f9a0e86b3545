"""Builds the tests with the thread sanitizer and runs those of the store, of the host and of what has threads of
its own; each report of the sanitizer fails its test."""
import os
import re
import subprocess
from pathlib import Path

from proof import Outcome

SOURCE = Path(__file__).resolve().parents[2]
PRESET = "tsan"
TARGETS = ["quorvantis", "platform_foundation_test", "services_test", "services_media_test", "host_test",
           "host_profiles_test", "device_test", "prefs_profiles_test"]


def built():
    """The targets that there are: a test program may be of libraries that are not installed."""
    every = subprocess.run(["ninja", "-C", SOURCE / "build" / PRESET, "-t", "targets", "all"], capture_output=True,
                           text=True, check=True).stdout
    return [target for target in TARGETS if re.search(rf"^{target}: phony", every, re.MULTILINE)]


def done(*command, **options):
    ended = subprocess.run(command, cwd=SOURCE, capture_output=True, text=True, check=False, **options)
    return ended.returncode, ended.stdout + ended.stderr


def prove(_setting):
    code, said = done("cmake", "--preset", PRESET)
    targets = built() if code == 0 else []
    if code == 0:
        code, said = done("cmake", "--build", "--preset", PRESET, "--target", *targets)
    if code != 0:
        raise RuntimeError(said[-3000:])
    faults, tests = [], 0
    for target in targets[1:]:
        code, said = done(str(SOURCE / "build" / PRESET / "bin" / target), env=os.environ | {
            "TSAN_OPTIONS": "halt_on_error=0:exitcode=66", "QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8"})
        ran = re.search(r"\[==========\] (\d+) tests? .*ran", said)
        tests += int(ran[1]) if ran else 0
        summaries = sorted(set(re.findall(r"SUMMARY: ThreadSanitizer: .*", said)))
        faults += [f"{target}: {summary}" for summary in summaries]
        if code != 0 and not summaries:
            failed = re.findall(r"^\[  FAILED  \] (\S+)", said, re.MULTILINE)
            faults.append(f"{target} ends with {code}: {' '.join(dict.fromkeys(failed)) or said[-300:]}")
    return Outcome(f"{tests:,} tests of {len(targets) - 1} programs under the thread sanitizer", faults, "reported")
