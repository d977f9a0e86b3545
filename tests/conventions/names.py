#!/usr/bin/env python3
"""Names of tests: short, the same in every run, and those of parameters named too.

usage: names.py BUILD     prints each fault of the tests that are built there; 1 if there is one
"""
import json
import re
import subprocess
import sys

WIDEST = 120  # columns of a line of ctest


def faults(lines):
    """Of what ctest -N prints, and programs of GoogleTest with --gtest_list_tests."""
    for line in lines:
        # How GoogleTest shows what it can't print.
        if "-byte object <" in line:
            yield f"shows raw memory; its parameter needs a PrintTo: {line.strip()[:WIDEST]}"
        if re.search(r"/(\d+)  # GetParam\(\) = (?!\1$)", line):
            yield f"is named by a number; its suite needs a generator of names: {line.strip()}"
        if line.startswith("  Test ") and len(line) > WIDEST:
            yield f"is wider than {WIDEST} columns: {line.strip()}"


def lines_of(*command):
    done = subprocess.run(command, stdout=subprocess.PIPE, text=True, check=True)
    return done.stdout.splitlines()


def programs(build):
    """The programs of GoogleTest, of each of which every test is one of ctest."""
    listed = json.loads("\n".join(lines_of("ctest", "--test-dir", build, "--show-only=json-v1")))
    commands = [test.get("command", []) for test in listed["tests"]]
    return sorted({command[0] for command in commands
                   if any(word.startswith("--gtest_also_run_disabled_tests") for word in command)})


def main():
    build = sys.argv[1]
    found = list(faults(lines_of("ctest", "--test-dir", build, "-N")))
    for program in programs(build):
        found += faults(lines_of(program, "--gtest_list_tests"))
    print("\n".join(found))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
