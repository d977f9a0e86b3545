"""Builds the fuzz targets with the address and undefined-behavior sanitizers and lets each run for 20 million
executions, or 10 million where one takes over 100 microseconds. What it finds is kept in build/fuzz/failing."""
import os
import re
import shutil
import subprocess
from pathlib import Path

from proof import Outcome, Skipped

SOURCE = Path(__file__).resolve().parents[2]
EXECUTIONS, SLOW_EXECUTIONS = 20_000_000, 10_000_000
SLOW_SECONDS = 100e-6
TRIAL = 20_000


def build():
    if not shutil.which("clang++-14"):
        raise Skipped("needs the packages clang-14 and libclang-rt-14-dev")
    for command in (["cmake", "--preset", "fuzz"], ["cmake", "--build", "--preset", "fuzz"]):
        done = subprocess.run(command, cwd=SOURCE, capture_output=True, text=True, check=False)
        if done.returncode != 0:
            raise RuntimeError(f"{' '.join(command)}: {done.stdout[-2000:]}{done.stderr[-2000:]}")
    return sorted((SOURCE / "build" / "fuzz" / "bin").glob("fuzz_*"))


def run(name, executions):
    """Executions, seconds, and the report of what it found. The corpus grows."""
    done = subprocess.run(
        [SOURCE / "scripts" / "fuzz", name, f"-runs={executions}", "-verbosity=1", "-timeout=10", "-rss_limit_mb=2048"],
        capture_output=True, text=True, errors="replace", check=False,
        env=os.environ | {"UBSAN_OPTIONS": "print_stacktrace=1:halt_on_error=1"})
    if done.returncode != 0:
        lines = [line for line in done.stderr.splitlines()
                 if re.search(r"ERROR: |runtime error|SUMMARY|Test unit written", line)]
        return 0, 0, " | ".join(lines or done.stderr.splitlines()[-3:])
    count, seconds = re.search(r"Done (\d+) runs in (\d+) second", done.stderr).groups()
    return int(count), int(seconds), ""


def executions_of(name):
    """By the processor's time, whatever else runs. What this finds, the run does as well."""
    before = os.times()
    run(name, TRIAL)
    after = os.times()
    used = after.children_user + after.children_system - before.children_user - before.children_system
    return SLOW_EXECUTIONS if used / TRIAL > SLOW_SECONDS else EXECUTIONS


def fuzz(job):
    name, executions = job
    count, seconds, found = run(name, executions)
    text = f"{name}: {count:,} executions, {seconds:,} s, {found or 'nothing found'}"
    print(f"  {text}", flush=True)
    return count, found and text


def prove(setting):
    names = [target.name.removeprefix("fuzz_") for target in build()]
    results = setting.each(fuzz, [(name, executions_of(name)) for name in names])
    return Outcome(f"{sum(count for count, _ in results):,} executions of {len(names)} fuzz targets",
                   [found for _, found in results if found], "found")
