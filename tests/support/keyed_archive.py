"""Keyed archives as another program writes them: by Python's own property list library."""
import plistlib


def archive(value):
    """A keyed archive of a dictionary of texts or of an array of texts."""
    uid, objects = plistlib.UID, ["$null", None]
    if isinstance(value, dict):
        keys = [uid(2 + i) for i in range(len(value))]
        values = [uid(2 + len(value) + i) for i in range(len(value))]
        objects += [*value.keys(), *value.values()]
        objects[1] = {"NS.keys": keys, "NS.objects": values, "$class": uid(len(objects))}
        names = ["NSMutableDictionary", "NSDictionary", "NSObject"]
    else:
        objects += value
        objects[1] = {"NS.objects": [uid(2 + i) for i in range(len(value))],
                      "$class": uid(len(objects))}
        names = ["NSArray", "NSObject"]
    objects.append({"$classname": names[0], "$classes": names})
    return plistlib.dumps({"$version": 100000, "$archiver": "NSKeyedArchiver",
                           "$top": {"root": uid(1)}, "$objects": objects},
                          fmt=plistlib.FMT_BINARY)
