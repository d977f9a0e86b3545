#!/usr/bin/env python3
"""Small rules about every file.

usage: tidy.py [ROOT]     prints each place that breaks one; 1 if there is one
"""
import os
import re
import sys
from pathlib import Path

SHARED = {"/", "/home", "/mnt", "/opt", "/srv", "/tmp", "/usr", "/usr/src", "/var", "/src"}


def machine_paths(root):
    """Matches a path that holds on one machine alone: a home, this checkout, the folder around it."""
    own = {str(root), str(root.parent), os.path.expanduser("~")} - SHARED
    names = "|".join(re.escape(name) for name in sorted(own))
    return re.compile(rf"(?<![\w.}}\])$/-])(?:/home/\w|(?:{names})(?![\w-]))")


def files_of(root):
    for folder, folders, names in os.walk(root):
        top = Path(folder) == root
        folders[:] = sorted(f for f in folders
                            if f not in (".git", "__pycache__") and not (top and f == "build"))
        yield from (Path(folder, name) for name in sorted(names))


def texts_with_markup(lines):
    """The numbers of the lines where a QML Text begins that doesn't say how its text is read."""
    for number, line in enumerate(lines):
        begin = re.fullmatch(r"( *)(?:\w+: )?Text \{", line)
        if begin:
            end = lines.index(begin[1] + "}", number)
            if not any("textFormat:" in inside for inside in lines[number:end]):
                yield number + 1


def faults(root):
    root = Path(root).resolve()
    machine = machine_paths(root)
    for file in files_of(root):
        path = file.relative_to(root).as_posix()
        try:
            text = file.read_text(encoding="utf-8")
        except UnicodeDecodeError:
            continue  # a picture, a binary property list
        lines = text.split("\n")
        for number, line in enumerate(lines, 1):
            if machine.search(line):
                yield f"{path}:{number}: holds a path of one machine"
        if file.suffix == ".h" and "#pragma once" not in lines:
            yield f"{path}: has no #pragma once"
        if file.suffix == ".qml":
            for number in texts_with_markup(lines):
                yield f"{path}:{number}: is a Text without textFormat"


def main():
    found = list(faults(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).parents[2]))
    print("\n".join(found))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
