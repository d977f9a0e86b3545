#!/usr/bin/env python3
"""Writes the device roots that conversations start with, NAME.root beside NAME.in; the files are
kept in the tree, so this runs only when one is to change.

Archives and domains are written by Python's own property list library, as another program's.
"""
import plistlib
import shutil
import sys
from pathlib import Path

HERE = Path(__file__).parent
sys.path.append(str(HERE.parent / "support"))

from keyed_archive import archive  # noqa: E402

DOCUMENTS = "var/mobile/Documents/Quorvantis"
DOMAIN = "var/mobile/Library/Preferences/com.zorvek.quorvantis.plist"


def profile(code, **more):
    return f"{DOCUMENTS}/profile_{code}.qvx", archive({"profilepercentage": code} | more)


def write(name, files):
    root = HERE / f"{name}.root"
    shutil.rmtree(root, ignore_errors=True)
    for path, data in files:
        (root / path).parent.mkdir(parents=True, exist_ok=True)
        (root / path).write_bytes(data)


def domain(**values):
    return DOMAIN, plistlib.dumps(values, fmt=plistlib.FMT_BINARY)


write("root_page", [
    profile("5", profiledescription="Night"),
    profile("10"),
    profile("101"),
    (f"{DOCUMENTS}/profile_7.QVX", b"not listed"),
    (f"{DOCUMENTS}/profile_7.qvx.bak", b"not listed"),
    (f"{DOCUMENTS}/quorvantis.log", archive(["A", "B", "C"])),
])
write("dimmed_rows", [domain(custbrightenabled=False, custbright=12.5)])
write("choices", [
    profile("5", profiledescription="Night"),
    profile("10"),
    domain(airplanemode=1.0),
])
