#!/usr/bin/env python3
"""Property lists and archives as others write them: by Python's plistlib, or byte for byte.

usage: make.py            writes the samples beside this file
       make.py --check    prints those that differ from what it writes; 1 if there is one

Each folder has a list VERDICTS, written by hand: how reading each of its files ends.
"""
import datetime
import plistlib
import sys
from pathlib import Path
from plistlib import UID

HERE = Path(__file__).resolve().parent


def raw(*objects, top=0, offset_size=1, reference_size=1, header=b"bplist00", gap=b"", count=None,
        more_offsets=()):
    """A binary property list as its fields say, right or wrong."""
    offsets, body = [], header
    for one in objects:
        offsets.append(len(body))
        body += one
    body += gap
    table = b"".join(offset.to_bytes(offset_size, "big") for offset in [*offsets, *more_offsets])
    number = len(objects) if count is None else count
    return (body + table + bytes(6) + bytes([offset_size, reference_size])
            + b"".join(field.to_bytes(8, "big") for field in (number, top, len(body))))


def nested(depth):
    """An array in an array ..., so many of them."""
    inner = [b"\xa1" + (i + 1).to_bytes(2, "big") for i in range(depth - 1)]
    return raw(*inner, b"\xa0", offset_size=2, reference_size=2)


def binary(value):
    return plistlib.dumps(value, fmt=plistlib.FMT_BINARY, sort_keys=False)


def xml(value):
    return plistlib.dumps(value, fmt=plistlib.FMT_XML, sort_keys=False)


def archive(*objects, top=None):
    """A keyed archive of these objects, "$null" before them; the first is the root."""
    return binary({"$version": 100000, "$archiver": "NSKeyedArchiver", "$objects": ["$null", *objects],
                   "$top": top or {"root": UID(1)}})


def named(*classes):
    return {"$classname": classes[0], "$classes": list(classes)}


def dictionary(keys, values, *classes):
    """The objects of a dictionary: itself, its keys and values, its class."""
    first = range(2, 2 + len(keys))
    return [{"NS.keys": [UID(i) for i in first],
             "NS.objects": [UID(i + len(keys)) for i in first],
             "$class": UID(2 + 2 * len(keys))}, *keys, *values, named(*classes)]


def collection(members, *classes):
    return [{"NS.objects": [UID(2 + i) for i in range(len(members))],
             "$class": UID(2 + len(members))}, *members, named(*classes)]


ANY = {"name": "Größe 😀", "on": True, "level": 20, "rate": 0.5, "data": b"\x00\xff",
       "when": datetime.datetime(2026, 1, 31, 12), "list": ["a", ["b"], {}], "empty": ""}
TEXT = b"\x51a"

BINARY = {
    "of-every-kind": binary(ANY),
    "of-one-text": binary("a"),
    "of-no-ascii": binary({"日本": "語", "é": ["ü"]}),
    "of-many": binary([f"item {i}" for i in range(300)]),
    "of-numbers": binary([0, 255, 256, -1, 2**31, -2**63, 2**63, 2**64 - 1, 1e300, -0.0]),
    "of-dates": binary([datetime.datetime(2001, 1, 1), datetime.datetime(1970, 1, 1)]),
    "gap-before-the-table": raw(TEXT, gap=b"\xff\xff\xff"),
    "version-01": raw(TEXT, header=b"bplist01"),
    "version-10": raw(TEXT, header=b"bplist10"),
    "two-equal-keys": raw(b"\xd2\x01\x01\x02\x03", TEXT, b"\x51b", b"\x51c"),
    "number-as-key": raw(b"\xd1\x01\x02", b"\x10\x05", TEXT),
    "null-in-an-array": raw(b"\xa1\x01", b"\x00"),
    "number-of-16-bits": raw(b"\x11\xff\xff"),
    "number-of-32-bytes": raw(b"\x15" + bytes(32)),
    "real-of-2-bytes": raw(b"\x21\x00\x00"),
    "real-of-4-bytes-not-a-number": raw(b"\x22\x7f\xc0\x00\x00"),
    "reference-to-an-object-of-3-bytes": raw(b"\x82\x00\x01\x02"),
    "text-of-utf-8": raw(b"\x71a"),
    "text-that-ends-early": raw(b"\x5fx"),
    "text-with-a-length-of-8-bytes": raw(b"\x5f\x13" + (2).to_bytes(8, "big") + b"ab"),
    "text-with-a-huge-length": raw(b"\x5f\x13" + b"\x7f" + b"\xff" * 7),
    "cycle": raw(b"\xa1\x00"),
    "cycle-of-two": raw(b"\xa1\x01", b"\xa1\x00"),
    "shared-object": raw(b"\xa2\x01\x01", b"\xa1\x02", TEXT),
    "reference-out-of-range": raw(b"\xa1\x05"),
    "references-of-3-bytes": raw(b"\xa1\x00\x00\x01", TEXT, reference_size=3),
    "references-of-no-bytes": raw(b"\xa1\x01", TEXT, reference_size=0),
    "offsets-of-9-bytes": raw(TEXT, offset_size=9),
    "offsets-of-no-bytes": raw(TEXT)[:-26] + b"\x00" + raw(TEXT)[-25:],
    "top-out-of-range": raw(TEXT, top=1),
    "no-objects": raw(count=0),
    "more-objects-than-bytes": raw(TEXT, count=2**40),
    "filler-as-top": raw(b"\x0f"),
    "url-of-a-later-version": raw(b"\x0c" + TEXT),
    "nested-500-deep": nested(500),
    "nested-600-deep": nested(600),
    "cut-off": binary(ANY)[:-7],
    "of-no-bytes": b"",
    "of-plain-text": b"hello",
    "of-xml": xml("a"),
}

UTF_16 = '<?xml version="1.0" encoding="UTF-16"?>\n<plist version="1.0"><dict><key>é</key><string>語</string></dict></plist>\n'


def bare(text):
    return f"<plist>{text}</plist>\n".encode()


XML = {
    "of-every-kind": xml(ANY),
    "of-one-text": xml("a"),
    "of-numbers": xml([0, -1, 2**63, 1e300, 0.1]),
    "of-many": xml([f"item {i}" for i in range(50)]),
    "of-lines": xml({"text": "a\n\tb & <c>", "": "no name"}),
    "utf-8": UTF_16.replace("UTF-16", "UTF-8").encode(),
    "utf-16-big-endian": b"\xfe\xff" + UTF_16.encode("utf-16-be"),
    "utf-16-little-endian": b"\xff\xfe" + UTF_16.encode("utf-16-le"),
    "no-header": bare("<string>x</string>"),
    "two-equal-keys": bare("<dict><key>a</key><true/><key>a</key><false/></dict>"),
    "entities": bare("<string>&lt;A&#x1F600;&apos;</string>"),
    "character-data": bare("<string><![CDATA[<a> & b]]></string>"),
    "negative-hexadecimal": bare("<integer>-0x1F</integer>"),
    "empty-key": bare("<dict><key/><true/></dict>"),
    "comments": bare("<!-- a --><array><!-- b --><true/></array>"),
    "space-behind-a-number": bare("<integer>5 </integer>"),
    "real-with-a-comma": bare("<real>1,5</real>"),
    "date-without-a-time": bare("<date>2026-01-31</date>"),
    "key-without-a-value": bare("<dict><key>a</key></dict>"),
    "value-without-a-key": bare("<dict><true/></dict>"),
    "missing-end": b"<plist><dict><key>a</key><true/>",
    "broken-utf-8": bare("<string>?</string>").replace(b"?", b"\xc3("),
    "unknown-element": bare("<set/>"),
    "of-no-bytes": b"",
}

PROFILE = ["profilepercentage", "wifi", "custbright", "profiledescription"]
MUTABLE_DICTIONARY = ("NSMutableDictionary", "NSDictionary", "NSObject")

ARCHIVES = {
    "profile": archive(*dictionary(PROFILE, ["55", 1, 50.0, ""], *MUTABLE_DICTIONARY)),
    "empty-dictionary": archive(*dictionary([], [], "NSDictionary", "NSObject")),
    "array": archive(*collection(["a", "b"], "NSMutableArray", "NSArray", "NSObject")),
    "empty-set": archive(*collection([], "NSSet", "NSObject")),
    "set-of-numbers": archive(*collection([1, 2, 3.5], "NSMutableSet", "NSSet", "NSObject")),
    "text": archive("a"),
    "date": archive({"NS.time": 791553600.0, "$class": UID(2)}, named("NSDate", "NSObject")),
    "url": archive({"NS.base": UID(0), "NS.relative": UID(3), "$class": UID(2)},
                   named("NSURL", "NSObject"), "a:b"),
    "index-set": archive({"NSRangeCount": 0, "$class": UID(2)}, named("NSIndexSet", "NSObject")),
    "url-in-a-dictionary": archive(
        *dictionary(["a"], [{"NS.base": UID(0), "NS.relative": UID(2), "$class": UID(5)}],
                    *MUTABLE_DICTIONARY), named("NSURL", "NSObject")),
    "no-root": archive(*dictionary(["a"], ["b"], *MUTABLE_DICTIONARY), top={"$0": UID(1)}),
    "another-archiver": archive("a").replace(b"NSKeyedArchiver", b"NSOtherArchiver"),
}


def samples():
    for folder, files in (("binary", BINARY), ("xml", XML), ("archives", ARCHIVES)):
        for name, data in files.items():
            yield HERE / folder / f"{name}.plist", data


def main():
    if sys.argv[1:] == ["--check"]:
        wrong = [path for path, data in samples() if not path.is_file() or path.read_bytes() != data]
        print("\n".join(map(str, wrong)))
        return 1 if wrong else 0
    for path, data in samples():
        path.parent.mkdir(exist_ok=True)
        path.write_bytes(data)
    return 0


if __name__ == "__main__":
    sys.exit(main())
