#!/usr/bin/env python3
"""Runs a conversation with `quorvantis drive` and compares it with its golden file.

usage: run_golden.py [--accept] QUORVANTIS TRANSCRIPT.in...

NAME.in      one request a line; a line "# args: --viewport 6" gives drive its options, any other
             line that starts with # is a remark
NAME.root/   the device root that the conversation starts with; empty without it
NAME.golden  each request after "> ", below it the answer in the form that golden_text.py
             describes; then what was written to stderr, each line after "! "

Every conversation has a copy of its root, so they can run side by side. Exit code 1 with the
difference if the text isn't the golden one; --accept writes the golden file instead. Exit code 1,
and nothing is accepted, if the program didn't answer each request with one JSON object and end
with 0.
"""
import argparse
import difflib
import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

from golden_text import Conversation, parse

TIMEOUT_SECONDS = 60


def requests_of(transcript):
    """The requests, and drive's options."""
    requests, options = [], []
    for line in transcript.read_text(encoding="utf-8").splitlines():
        if line.startswith("# args:"):
            options += line.removeprefix("# args:").split()
        elif line.strip() and not line.startswith("#"):
            requests.append(line)
    return requests, options


def converse(program, transcript, requests, options):
    with tempfile.TemporaryDirectory() as scratch:
        root = Path(scratch, "root")
        seed = transcript.with_suffix(".root")
        if seed.is_dir():
            shutil.copytree(seed, root)
        # An address that leads nowhere, or libraries would look for the user's session bus.
        env = {"PATH": os.defpath, "LC_ALL": "C.UTF-8", "TZ": "UTC", "HOME": scratch,
               "XDG_DATA_HOME": scratch, "XDG_RUNTIME_DIR": scratch,
               "DBUS_SESSION_BUS_ADDRESS": f"unix:path={scratch}/none"}
        # The sanitizers of an instrumented build are set from outside.
        env |= {name: text for name, text in os.environ.items() if name.endswith("SAN_OPTIONS")}
        return subprocess.run([program, "--root", root, "drive", *options], env=env, cwd=scratch,
                              input="".join(f"{line}\n" for line in requests).encode(),
                              capture_output=True, timeout=TIMEOUT_SECONDS, check=False)


def transcribe(requests, outcome):
    """The golden text of a conversation, and what is wrong with it whatever the golden file says."""
    faults = []
    answers = outcome.stdout.decode("utf-8", "backslashreplace").split("\n")
    if answers.pop() != "":
        faults.append("the last answer doesn't end with a newline")
    if outcome.returncode != 0:
        faults.append(f"drive ended with {outcome.returncode}")
    if len(answers) != len(requests):
        faults.append(f"{len(requests)} requests, {len(answers)} answers")
    conversation, lines = Conversation(), []
    for number in range(max(len(requests), len(answers))):
        if number < len(requests):
            lines.append("> " + requests[number])
        if number < len(answers):
            try:
                answer = parse(answers[number])
                lines += conversation.lines(answer)
                if not isinstance(answer, tuple):
                    faults.append(f"answer {number + 1} is not a JSON object")
            except ValueError:
                lines.append(answers[number])
                faults.append(f"answer {number + 1} is not JSON")
    errors = outcome.stderr.decode("utf-8", "backslashreplace").splitlines()
    return "".join(f"{line}\n" for line in lines + ["! " + error for error in errors]), faults


def check(program, transcript, accept):
    """True if the conversation is the golden one, or has become it."""
    requests, options = requests_of(transcript)
    try:
        text, faults = transcribe(requests, converse(program, transcript, requests, options))
    except subprocess.TimeoutExpired:
        text, faults = "", [f"no end after {TIMEOUT_SECONDS} s"]
    if not requests:
        faults.append("no requests")

    golden = transcript.with_suffix(".golden")
    before = golden.read_text(encoding="utf-8") if golden.exists() else ""
    if text != before:
        if accept and not faults:
            golden.write_text(text, encoding="utf-8")
            print(f"accepted {golden.name}")
            return True
        sys.stdout.writelines(difflib.unified_diff(
            before.splitlines(True), text.splitlines(True), golden.name, "now", n=5))
    for fault in faults:
        print(f"{transcript.name}: {fault}")
    return text == before and not faults


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--accept", action="store_true")
    parser.add_argument("program", type=lambda name: Path(name).resolve())
    parser.add_argument("transcripts", nargs="+", type=Path)
    arguments = parser.parse_args()
    return 0 if all([check(arguments.program, transcript, arguments.accept)
                     for transcript in arguments.transcripts]) else 1


if __name__ == "__main__":
    sys.exit(main())
