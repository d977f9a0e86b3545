"""Files that are made to hurt their readers, by name; each of at most some 100 KB."""
import plistlib
import struct

from keyed_archive import archive

DEEP = 10_000
SAMPLE = {"profilepercentage": "20", "wifi": 1, "vibrate": True, "custbright": 41.5, "msgtext": "é"}


def binary(objects, offsets=None, offset_size=4, reference_size=2, top=0, count=None, table=None):
    """A binary property list of encoded objects; each part can be given another value than its own."""
    body, places = b"bplist00", []
    for each in objects:
        places.append(len(body))
        body += each
    places = places if offsets is None else offsets
    entries = b"".join(place.to_bytes(offset_size, "big") for place in places)
    return body + entries + struct.pack(
        ">6xBBQQQ", offset_size, reference_size, len(places) if count is None else count, top,
        len(body) if table is None else table)


def members(marker, *references):
    return bytes([marker | len(references)]) + b"".join(each.to_bytes(2, "big") for each in references)


def sized(marker, count, rest=b"", width=3):
    return bytes([marker | 15, 0x10 | width]) + count.to_bytes(1 << width, "big") + rest


def binary_files():
    sample = plistlib.dumps(SAMPLE, fmt=plistlib.FMT_BINARY)
    step = len(sample) // 30
    files = {f"cut at {at}": sample[:at] for at in range(0, len(sample), step)}
    for at in range(32):
        files[f"trailer byte {at}"] = sample[:-32 + at] + b"\xff" + sample[len(sample) - 31 + at:]
    huge = (1 << 31, 1 << 32, (1 << 63) - 1, (1 << 64) - 1)
    for name, marker in (("data", 0x40), ("ascii", 0x50), ("utf-16", 0x60), ("array", 0xA0),
                         ("set", 0xC0), ("dictionary", 0xD0)):
        for count in huge:
            files[f"{name} of {count}"] = binary([sized(marker, count)])
    for count in huge:
        files[f"{count} objects"] = binary([b"\x09"], count=count)
        files[f"top {count}"] = binary([b"\x09"], top=count)
        files[f"table at {count}"] = binary([b"\x09"], table=count)
    files["array of itself"] = binary([members(0xA0, 0)])
    files["array of itself, often"] = binary([members(0xA0, *[0] * 14)])
    files["dictionary of itself"] = binary([members(0xD0, 1, 0), b"\x51a"])
    files["dictionary as its key"] = binary([members(0xD0, 0, 0)])
    files["two in each other"] = binary([members(0xA0, 1), members(0xA0, 0)])
    files["deep"] = binary([members(0xA0, i + 1) for i in range(DEEP)] + [b"\x09"])
    files["deep in dictionaries"] = binary(
        [members(0xD0, 0xFFFF, i + 1) for i in range(DEEP)] + [b"\x09"])
    files["doubled 60 times"] = binary([members(0xA0, i + 1, i + 1) for i in range(60)] + [b"\x09"])
    files["multiplied 20 times"] = binary(
        [members(0xA0, *[i + 1] * 14) for i in range(20)] + [b"\x5e" + b"x" * 14])
    files["texts that overlap"] = binary(
        [sized(0xA0, 5000, b"".join(struct.pack(">H", i + 1) for i in range(5000))),
         sized(0x50, 20_000, b"x" * 20_000)], offsets=[8] + [8 + 10 + 10_000] * 5000)
    files["arrays that overlap"] = binary(
        [sized(0xA0, 9000, bytes(18_000))], offsets=[8] * 9000)
    files["offsets in the header"] = binary([b"\x09"], offsets=[0])
    files["offsets in the trailer"] = binary([b"\x09"], offsets=[20])
    files["offsets beyond"] = binary([b"\x09"], offsets=[1 << 31])
    files["reference to nothing"] = binary([members(0xA0, 77)])
    files["equal keys"] = binary([sized(0xD0, 9000, bytes([0, 1]) * 18_000), b"\x51a"])
    for marker in (0x00, 0x0F, 0x14, 0x17, 0x1F, 0x20, 0x27, 0x30, 0x32, 0x70, 0x8F, 0x90, 0xB0, 0xF0):
        files[f"marker {marker:#x}"] = binary([bytes([marker]) + b"\xff" * 16])
    files["half a surrogate pair"] = binary([b"\x62\xd8\x00\xdc"])
    files["length of a length"] = binary([b"\x5f\x5f\x5f\x5f"])
    return files


def archived(objects, top=None):
    return plistlib.dumps({"$version": 100000, "$archiver": "NSKeyedArchiver",
                           "$top": {"root": plistlib.UID(1)} if top is None else top,
                           "$objects": ["$null"] + objects}, fmt=plistlib.FMT_BINARY)


def archive_files():
    uid = plistlib.UID
    kind = {"$classname": "NSArray", "$classes": ["NSArray", "NSObject"]}
    pairs = {"$classname": "NSDictionary", "$classes": ["NSDictionary", "NSObject"]}

    def array(place, *uids):
        return {"NS.objects": [uid(each) for each in uids], "$class": uid(place)}
    whole = archive(SAMPLE)
    step = len(whole) // 30
    files = {f"cut at {at}": whole[:at] for at in range(0, len(whole), step)}
    files["of itself"] = archived([array(2, 1), kind])
    files["two in each other"] = archived([array(3, 2), array(3, 1), kind])
    files["deep"] = archived([array(3001, i + 2) for i in range(2999)] + ["end", kind])
    files["doubled"] = archived([array(62, i + 2, i + 2) for i in range(60)] + ["end", kind])
    files["multiplied"] = archived([array(12, *[i + 2] * 200) for i in range(10)] + ["end", kind])
    files["reference beyond"] = archived([array(2, 7000), kind])
    files["root beyond"] = archived(["a"], {"root": uid((1 << 32) - 1)})
    files["root is a number"] = archived(["a"], {"root": 1})
    files["no root"] = archived(["a"], {})
    files["class of itself"] = archived([{"NS.objects": [], "$class": uid(1)}])
    files["class is a text"] = archived([array(2), "NSArray"])
    files["class without names"] = archived([array(2), {"$classes": []}])
    files["names of a thousand classes"] = archived(
        [array(2), {"$classname": "X", "$classes": ["X"] * 9000}])
    files["more keys than objects"] = archived(
        [{"NS.keys": [uid(3)] * 5000, "NS.objects": [], "$class": uid(2)}, pairs, "a"])
    files["equal keys"] = archived([{"NS.keys": [uid(3)] * 5000, "NS.objects": [uid(3)] * 5000,
                                     "$class": uid(2)}, pairs, "a"])
    files["itself as a key"] = archived(
        [{"NS.keys": [uid(1)], "NS.objects": [uid(1)], "$class": uid(2)}, pairs])
    files["objects is a dictionary"] = plistlib.dumps(
        {"$archiver": "NSKeyedArchiver", "$top": {"root": uid(1)}, "$objects": {"a": 1}},
        fmt=plistlib.FMT_BINARY)
    return files


def xml_files():
    laughs = b"".join(b'<!ENTITY a%d "%s">' % (i + 1, b"&a%d;" % i * 10) for i in range(9))
    def typed(text, root=b"<plist><true/></plist>"):
        return b"<!DOCTYPE plist [" + text + b"]>" + root

    def defaults(count):
        return b"<!ATTLIST array " + b" ".join(b"a%d CDATA ''" % i for i in range(count)) + b">"
    files = {
        "laughs": typed(b'<!ENTITY a0 "ha">' + laughs, b"<plist><string>&a9;</string></plist>"),
        "quadratic": typed(b'<!ENTITY a "' + b"x" * 40_000 + b'">',
                           b"<plist><string>" + b"&a;" * 9000 + b"</string></plist>"),
        "entity of a file": typed(b'<!ENTITY a SYSTEM "file:///etc/passwd">',
                                  b"<plist><string>&a;</string></plist>"),
        "parameter entity": typed(b'<!ENTITY % a SYSTEM "file:///dev/zero"> %a;'),
        "unknown entity": b"<plist><string>&a;</string></plist>",
        "attributes by default": typed(defaults(4000), b"<plist><array>" + b"<array/>" * 5000),
        "many attributes": b"<plist " + b" ".join(b"a%d=''" % i for i in range(9000)) + b"><true/>",
        "equal attributes": b"<plist " + b"a='' " * 9000 + b"><true/></plist>",
        "element model": typed(b"<!ELEMENT a (" + b"b|" * 40_000 + b"b)>"),
        "nested element model": typed(b"<!ELEMENT a " + b"(" * 90_000),
        "notations": typed(b"".join(b'<!NOTATION a%d PUBLIC "">' % i for i in range(3000))),
        "long comment": b"<!--" + b"x" * 90_000, "long name": b"<" + b"x" * 90_000,
        "long attribute": b"<plist a='" + b"x" * 90_000, "long instruction": b"<?a " + b"x" * 90_000,
        "no end": b"<plist><dict>", "second root": b"<plist><true/><true/></plist>",
        "key without value": b"<plist><dict><key>a</key></dict></plist>",
        "value without key": b"<plist><dict><true/></dict></plist>",
        "long integer": b"<plist><integer>" + b"9" * 90_000 + b"</integer></plist>",
        "long real": b"<plist><real>1." + b"9" * 90_000 + b"e" + b"9" * 900 + b"</real></plist>",
        "bad Base64": b"<plist><data>" + b"=" * 90_000 + b"</data></plist>",
        "bad date": b"<plist><date>99999999999-99-99T99:99:99Z</date></plist>",
        "a zero byte": b"<plist><string>\0</string></plist>", "half of UTF-16": b"\xff\xfe<\0p",
        "other encoding": b'<?xml version="1.0" encoding="x-none"?><plist><true/></plist>',
        "not UTF-8": b"<plist><string>\xff\xc0\x80</string></plist>",
        "equal keys": b"<plist><dict>" + b"<key>a</key><true/>" * 5000 + b"</dict></plist>",
        "empty values": b"<plist><array>" + b"<dict/>" * 14_000 + b"</array></plist>",
    }
    for name in ("array", "dict><key>a</key", "string", "plist"):
        files[f"deep in {name}"] = b"<plist>" + f"<{name}>".encode() * DEEP
    return files


def vcard_files():
    card = b"BEGIN:VCARD\r\nFN:Ann\r\nTEL:1\r\nEND:VCARD\r\n"
    return {
        "long line": b"BEGIN:VCARD\nFN:" + b"x" * 90_000, "folded": b"BEGIN:VCARD\nFN:" + b"x\n " * 30_000,
        "soft breaks": b"BEGIN:VCARD\nFN;QUOTED-PRINTABLE:" + b"=41=\n" * 18_000,
        "agents": b"BEGIN:VCARD\nAGENT:\n" * 4000, "begins": b"BEGIN:VCARD\n" * 8000,
        "ends": b"END:VCARD\n" * 9000, "no end": b"BEGIN:VCARD\nFN:a\n" * 5000,
        "parameters": b"BEGIN:VCARD\nFN" + b";A=B" * 20_000 + b":x\nEND:VCARD\n",
        "quotes": b"BEGIN:VCARD\nFN;A=\"" + b'"' * 50_000 + b":x\nEND:VCARD\n",
        "colons": b"BEGIN:VCARD\n" + b":" * 90_000 + b"\nEND:VCARD\n",
        "zero bytes": b"BEGIN:VCARD\nFN:" + bytes(900) + b"\nEND:VCARD\n",
        "not UTF-8": b"BEGIN:VCARD\nFN:\xff\xfe\x9b\nTEL:\x80\nEND:VCARD\n",
        "other charset": b"BEGIN:VCARD\nFN;CHARSET=\xff:\xe9\nEND:VCARD\n",
        "many semicolons": b"BEGIN:VCARD\nN:" + b";" * 900 + b"\nEND:VCARD\n",
        "blank lines": b"\n" * 90_000, "blanks": b" " * 90_000, "cards": card * 1500,
        "groups": b"BEGIN:VCARD\n" + b"a." * 400 + b"TEL:1\nEND:VCARD\n",
    }


def drive_lines():
    return {
        "arrays": b"[" * 90_000, "objects": b'{"a":' * 18_000, "closed": b"[" * 40_000 + b"]" * 40_000,
        "long number": b'{"do":' + b"9" * 90_000 + b"}", "exponent": b'{"do":1e999999999}',
        "long text": b'{"do":"' + b"x" * 90_000 + b'"}', "no end": b'{"do":"',
        "equal names": b'{"do":"page",' + b'"a":1,' * 14_000 + b'"a":1}',
        "half a pair": b'{"do":"\\ud800"}', "not UTF-8": b'{"do":"\xff"}', "a zero byte": b'{"do":"\0"}',
        "deep value": b'{"do":"call","operation":"x","arguments":' + b"[" * 9000 + b"]" * 9000 + b"}",
        "data": b'{"do":"set","row":0,"value":{"$data":"' + b"A" * 90_000 + b'"}}',
    }
