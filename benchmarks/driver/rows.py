"""The rows: how each is measured, what it is compared with, and what is wanted of it."""
import dataclasses
import re
from collections.abc import Callable

import calls
import processes
from lines import Line
from machine import BIN, Missing, output, race, scratch

PROFILES = 108


@dataclasses.dataclass
class Row:
    name: str
    rounds: int
    targets: list      # of the build
    measure: Callable  # measure(rounds) gives lines


def raced(name, title, rounds, program, **what):
    """A row of one line that a program of benchmarks/race.h measures."""
    def measure(many):
        return [Line(title, race(program, name, many)["samples"], **what)]
    return Row(name, rounds, [program], measure)


def root(_):
    found = calls.opens("bench_listing", "root", r"\.qvx")
    logs = calls.opens("bench_listing", "root", r"quorvantis\.log")
    return [Line("first page: opens of 108 profiles", {"ours": [found], "one each": [PROFILES]}, "opens",
                 floor="one each", most=PROFILES),
            Line("first page: opens of the log", {"ours": [logs], "once": [1]}, "opens", floor="once", most=1)]


def set_calls(_):
    return [Line("system calls of a durable set", {"ours": [len(calls.calls("bench_store", "set-once"))],
                                                   "bare": [len(calls.calls("bench_store", "replace-once"))]},
                 "calls", floor="bare", most=14)]


def low_power(rounds):
    measured = race("bench_rules", "lowpower", rounds)
    allocations = measured["notes"]["allocations"]
    return [Line("evaluate the low-power page", measured["samples"], floor="38 flags", wanted={"38 flags": 2}),
            Line("allocations of an evaluation", {"ours": [allocations]}, "allocations", most=0.5)]


BARE = "bare static program"


def get(rounds):
    times, faults, peaks = processes.get(rounds)
    return [Line("`quorvantis get`, of 200 keys", times, floor=BARE, wanted={BARE: 1.4}),
            Line("`quorvantis get`: page faults", faults, "faults", floor=BARE),
            Line("`quorvantis get`: peak memory", peaks, "KiB", floor=BARE, most=2560)]


def set_one(rounds):
    times, _, peaks = processes.set_one(rounds)
    return [Line("`quorvantis set`, and its signal", times, floor=BARE, wanted={BARE: 1.5}),
            Line("`quorvantis set`: peak memory", peaks, "KiB", floor=BARE)]


def first_frame(_):
    if not (BIN / "first_frame").exists():
        raise Missing("the window: build/bench was configured without it")
    with scratch() as folder:
        said = output([BIN / "first_frame"], folder)

    def figures(name):
        found = re.search(rf"^ *{name} +([\d.]+) \w* *\(([\d.]+) to ([\d.]+)", said, re.MULTILINE)
        return float(found[2]), float(found[1]), float(found[3])
    other = "30 switches"
    return [Line("first frame of the window",
                 {"ours": [figures("first frame, Settings")[1] * 1e6],
                  other: [figures("first frame, thirty switches")[1] * 1e6]},
                 floor=other, wanted={other: 1.1}, quartiles=figures("ratio"))]


BARE_SET = "write, fsync, rename, fsync"

ROWS = [
    raced("decode", "decode a profile of 51 keys", 201, "bench_codec", floor="copy of the pairs",
          wanted={"Rust plist": 0.15, "copy of the pairs": 4}),
    raced("encode", "encode a profile of 51 keys", 201, "bench_codec", floor="copy of the bytes",
          wanted={"Rust plist": 0.08}),
    raced("list", "list 108 profiles", 201, "bench_listing", floor="open, read, close",
          wanted={"open, read, close": 2}),
    Row("root", 1, ["bench_listing"], root),
    raced("set", "durable set of one key of 200", 301, "bench_store", floor=BARE_SET, wanted={BARE_SET: 1.1}),
    Row("set-calls", 1, ["bench_store"], set_calls),
    raced("read", "read one key, checked for freshness", 301, "bench_store", floor="one stat",
          wanted={"one stat": 1.2}),
    raced("read-changed", "the same within a second of a change", 601, "bench_store", floor="one stat",
          wanted={"one stat": 1.2}),
    raced("copy", "copy all 200 keys", 301, "bench_store", floor="copy of the pairs",
          wanted={"SQLite select": 0.9}),
    Row("get", 401, ["quorvantis", "bare_get", "turns"], get),
    Row("process-set", 151, ["quorvantis", "bare_set", "turns"], set_one),
    Row("first-frame", 1, ["first_frame"], first_frame),
    raced("sort", "sort 108 titles", 301, "bench_titles", floor="bare ASCII compare",
          wanted={"ICU strcoll": 0.25, "bare ASCII compare": 1.5}),
    raced("sort-accents", "sort 108 titles, some with accents", 301, "bench_titles", floor="bare ASCII compare",
          wanted={"ICU sort keys": 1.2}),
    raced("walk", "walk of 10,000 sounds", 81, "bench_walk", floor="getdents64", wanted={"getdents64": 1.15}),
    raced("people", "people of 5,000 vCards, sorted", 21, "bench_vcards", floor="reading only"),
    Row("lowpower", 501, ["bench_rules"], low_power),
]
