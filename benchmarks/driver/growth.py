"""How work grows with what it is done on: the time of each doubling, at most 2.2 times that before."""
import math
import os
import statistics

from machine import race

MOST = 2.2
SUBJECTS = {"decode": "decode an archive of n entries", "encode": "encode an archive of n entries",
            "get": "get one key of n, a store's first", "set": "set one key of n",
            "list": "list n profiles", "log": "read a log of n entries"}
MEMORY = "/dev/shm"  # where there is one: a flush takes no time there


def measure(name, rounds):
    """[(size, nanoseconds)]"""
    memory = {"TMPDIR": MEMORY} if os.access(MEMORY, os.W_OK) else {}
    samples = race("bench_growth", name, rounds, **memory)["samples"]
    return [(int(size), statistics.median(times)) for size, times in samples.items()]


def doublings(points):
    """[(size, how many times the time of half of it)]; a last step that is shorter counts as what it
    would be for a whole one."""
    for (small, before), (large, after) in zip(points, points[1:]):
        yield large, (after / before) ** (1 / math.log2(large / small))


def worst(points):
    return max(doublings(points), key=lambda doubling: doubling[1])


def text(name, points):
    size, most = worst(points)
    yield f"{SUBJECTS[name]}: at most {most:.2f} times, at {size:,}" + (" !" if most > MOST else "")
    for at in range(0, len(points), 6):
        yield "    " + "   ".join(f"{size:,}: {time / 1e3:.4g} µs" for size, time in points[at:at + 6])
