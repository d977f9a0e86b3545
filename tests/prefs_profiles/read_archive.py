"""read_archive.py FILE: the dictionary of a keyed archive, as another implementation reads it.

One line for each entry: key, kind, value, separated by tabs and sorted by key.
"""
import plistlib
import sys


def main():
    with open(sys.argv[1], "rb") as file:
        archive = plistlib.load(file)
    assert archive["$archiver"] == "NSKeyedArchiver" and archive["$version"] == 100000
    objects = archive["$objects"]
    assert objects[0] == "$null"
    root = objects[archive["$top"]["root"].data]
    classes = objects[root["$class"].data]["$classes"]
    assert classes == ["NSMutableDictionary", "NSDictionary", "NSObject"], classes
    entries = [(objects[key.data], objects[value.data])
               for key, value in zip(root["NS.keys"], root["NS.objects"], strict=True)]
    for key, value in sorted(entries):
        print(key, type(value).__name__, value, sep="\t")


main()
