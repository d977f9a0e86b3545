"""Reads an XML property list and writes its value again with Python's own reader and writer."""
import plistlib
import sys

with open(sys.argv[1], "rb") as source:
    value = plistlib.load(source)
with open(sys.argv[2], "wb") as target:
    plistlib.dump(value, target, sort_keys=False)
