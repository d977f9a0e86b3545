"""What a proof is given, and what it hands back."""
import concurrent.futures
import dataclasses
import os
from pathlib import Path


class Skipped(Exception):
    """This machine can't: its text says what is missing."""


@dataclasses.dataclass
class Setting:
    program: Path   # the command line
    long: bool
    scratch: Path   # a folder in memory where there is one, so that a flush takes no time
    helper: object  # helper("inject") is the path of a compiled helper

    def instrumented(self):
        """Whether it has a sanitizer, which reserves more memory than there is."""
        return any(name in self.program.read_bytes() for name in (b"__asan_init", b"__tsan_init"))

    def each(self, work, items, threads=os.cpu_count()):
        """The results of work(item), in order."""
        with concurrent.futures.ThreadPoolExecutor(threads) as pool:
            return list(pool.map(work, items))


@dataclasses.dataclass
class Outcome:
    tried: str           # what, and how many points
    faults: list[str]    # one text for each
    fault: str = "lost"  # what a fault is called


def some(items, most):
    """At most so many of them, spread evenly, with the first and the last."""
    if len(items) <= most:
        return items
    return [items[number * (len(items) - 1) // (most - 1)] for number in range(most)]
