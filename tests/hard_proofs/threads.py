"""Builds the program and its tests with the thread sanitizer and passes them: a report of the sanitizer fails
its test."""
import os
import re
import subprocess
from pathlib import Path

from proof import Outcome

SOURCE = Path(__file__).resolve().parents[2]
PRESET = "tsan"
# These proofs themselves, the sources' form, and what is built anew.
OTHERS = r"^(hard|conventions|fuzz|check)\."


def run(*command, **options):
    ended = subprocess.run(command, cwd=SOURCE, capture_output=True, text=True, errors="replace", check=False,
                           **options)
    return ended.returncode, ended.stdout + ended.stderr


def prove(_setting):
    for command in (["cmake", "--preset", PRESET], ["cmake", "--build", "--preset", PRESET]):
        code, said = run(*command)
        if code != 0:
            raise RuntimeError(f"{' '.join(command)}: {said[-3000:]}")
    # Without random addresses, for which this sanitizer has too little room on some kernels.
    _, said = run("setarch", "-R", "ctest", "--test-dir", f"build/{PRESET}", "-E", OTHERS, "-j", str(os.cpu_count()),
                  "--output-on-failure", "--no-tests=error", env=os.environ | {
                      "QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8", "TSAN_OPTIONS": "exitcode=66"})
    total = re.search(r"tests passed, \d+ tests? failed out of (\d+)", said)
    if not total:
        raise RuntimeError(said[-3000:])
    reports = sorted(set(re.findall(r"SUMMARY: ThreadSanitizer: .*", said)))
    failed = re.findall(r"^\s*\d+ - (\S+) \((?:Failed|Timeout|SEGFAULT|Subprocess aborted)", said, re.MULTILINE)
    return Outcome(f"{int(total[1]):,} tests under the thread sanitizer, {len(reports)} reports",
                   reports + [f"failed: {name}" for name in failed], "wrong")
