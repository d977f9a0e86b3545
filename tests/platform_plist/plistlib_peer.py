"""plistlib_peer.py IN OUT - what plistlib makes of a batch of binary property lists.

For each of IN two entries go to OUT: the value as a line (see dump.h), and what plistlib writes
for it. A batch holds byte strings, each after its length (4 bytes, big-endian).
"""
import datetime
import plistlib
import struct
import sys

EPOCH = datetime.datetime(2001, 1, 1)


def dump(value):
    if value is None:
        return "n"
    if isinstance(value, bool):
        return "b1" if value else "b0"
    if isinstance(value, int):
        return "i%d" % value
    if isinstance(value, float):
        return "r" + struct.pack(">d", value).hex()
    if isinstance(value, str):
        return "t" + value.encode("utf-8").hex()
    if isinstance(value, bytes):
        return "x" + value.hex()
    if isinstance(value, datetime.datetime):
        return "d" + struct.pack(">d", (value - EPOCH).total_seconds()).hex()
    if isinstance(value, plistlib.UID):
        return "u%d" % value.data
    if isinstance(value, list):
        return "[" + "".join(dump(member) + "," for member in value) + "]"
    entries = sorted((key.encode("utf-8"), entry) for key, entry in value.items())
    return "{" + "".join(key.hex() + ":" + dump(entry) + "," for key, entry in entries) + "}"


def batch(path):
    with open(path, "rb") as file:
        while size := file.read(4):
            yield file.read(struct.unpack(">I", size)[0])


def main(source, target):
    with open(target, "wb") as file:
        for data in batch(source):
            value = plistlib.loads(data, fmt=plistlib.FMT_BINARY)
            written = plistlib.dumps(value, fmt=plistlib.FMT_BINARY, sort_keys=False)
            for entry in (dump(value).encode(), written):
                file.write(struct.pack(">I", len(entry)) + entry)


main(*sys.argv[1:])
