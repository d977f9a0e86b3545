"""Generated values, written by Python's plistlib as settings and as profiles: what the program says they
are, and what is read back of the files that it writes itself, is what was generated."""
import base64
import datetime
import json
import plistlib
import random

from proof import Outcome
from target import Target

LONG_VALUES, LONG_FILE, LONG_PROFILES = 10_000_000, 20_000, 20
SHORT_VALUES, SHORT_FILE, SHORT_PROFILES = 12_000, 3_000, 5
TRIGGER = "20"
DEPTH = 5
EDGES = [0, 1, -1, 127, 128, 255, 256, 32767, 32768, 65535, 65536, 2**31 - 1, 2**31, 2**32 - 1, 2**32, 2**53,
         2**63 - 1, 2**63, 2**64 - 1, -2**31, -2**31 - 1, -2**63]
# Not -0.0, which plistlib takes for the 0.0 that it has written already.
REALS = [0.0, 1.0, -1.0, 0.1, 1e300, -1e-300, 5e-324, 2.2250738585072014e-308, 1.7976931348623157e308, 1e16,
         123456789.125, 1 / 3]
# All but what XML can't hold.
LETTERS = "aZ09 _-.\\\"'/<>&\n\t\x7f\x80äßéŁ中文字🔋🏳️\u200d\u202e\ufffd\U0010ffff"
EPOCH = datetime.datetime(2001, 1, 1)


class Generator:
    def __init__(self, seed):
        self.random = random.Random(seed)
        self.count = 0

    def text(self):
        return "".join(self.random.choices(LETTERS, k=self.random.choice((0, 1, 3, 14, 15, 16, 40))))

    def integer(self):
        if self.random.random() < 0.3:
            return self.random.choice(EDGES)
        return self.random.randrange(-2**63, 2**64) >> self.random.randrange(64)

    def real(self):
        if self.random.random() < 0.3:
            return self.random.choice(REALS)
        return self.random.uniform(-1, 1) * 10.0 ** self.random.randrange(-300, 300)

    def number(self):
        return self.random.choice((self.integer, self.real))()

    def date(self):
        return EPOCH + datetime.timedelta(seconds=self.random.randrange(-3 * 10**9, 10**10))

    def value(self, depth=DEPTH):
        self.count += 1
        kind = self.random.randrange(8 if depth else 6)
        if kind == 6:
            return [self.value(depth - 1) for _ in range(self.random.randrange(8))]
        if kind == 7:
            return {self.text(): self.value(depth - 1) for _ in range(self.random.randrange(8))}
        return (self.integer, self.real, self.text, self.date, lambda: self.random.random() < 0.5,
                lambda: self.random.randbytes(self.random.randrange(20)))[kind]()

    def file(self, count):
        """A dictionary with at least so many values in all."""
        until, values = self.count + count, {}
        while self.count < until:
            values[f"{len(values)} {self.text()}"] = self.value()
        return values


def as_json(value):
    """By the rules of the command line."""
    if isinstance(value, bytes):
        return {"$data": base64.b64encode(value).decode()}
    if isinstance(value, datetime.datetime):
        return {"$date": value.strftime("%Y-%m-%dT%H:%M:%SZ").rjust(20, "0")}
    if isinstance(value, list):
        return [as_json(each) for each in value]
    if isinstance(value, dict):
        return {key: as_json(each) for key, each in value.items()}
    return value


def difference(wanted, found, path=""):
    """The first, where kinds and the sign of zero count; empty for none."""
    if type(wanted) is not type(found):
        return f"{path}: {wanted!r} became {found!r}"
    if isinstance(wanted, dict):
        if list(wanted) != list(found) and sorted(wanted) != sorted(found):
            return f"{path}: keys {set(wanted) ^ set(found)!r}"
        return next(filter(None, (difference(each, found[key], f"{path}/{key}")
                                  for key, each in wanted.items())), "")
    if isinstance(wanted, list) and len(wanted) == len(found):
        return next(filter(None, (difference(one, other, f"{path}/{at}")
                                  for at, (one, other) in enumerate(zip(wanted, found)))), "")
    return "" if repr(wanted) == repr(found) else f"{path}: {wanted!r} became {found!r}"


def settings_differ(target, values):
    target.write_domain(values)
    shown = json.loads(target.do("defaults", "read", "--json"))
    if fault := difference(as_json(values), shown):
        return f"as JSON {fault}"
    # A set writes the whole file anew.
    target.do("defaults", "write", "one more", "-int", "1")
    fault = difference(values | {"one more": 1}, target.values())
    return fault and f"written {fault}"


def profile_differs(target, defaults, generator):
    """Through a profile, a keyed archive: imported as XML or binary, shown, and exported as XML. Each
    setting takes numbers or texts, as its default is one."""
    generator.count += len(defaults)
    values = {key: generator.text() if isinstance(default, str) else generator.number()
              for key, default in defaults.items()} | {"profilepercentage": TRIGGER}
    source = target.folder / "in.plist"
    source.write_bytes(plistlib.dumps(values, fmt=generator.random.choice(list(plistlib.PlistFormat))))
    target.do("profile", "import", source, "--overwrite")
    for what, wanted, found in (
            ("shown", as_json(values), json.loads(target.do("profile", "show", TRIGGER, "--json"))),
            ("exported", values, plistlib.loads(target.do("profile", "export", TRIGGER, "-")))):
        if fault := difference(wanted, found):
            return f"{what} {fault}"
    return ""


def prove(setting):
    total, a_file, profiles = (LONG_VALUES, LONG_FILE, LONG_PROFILES) if setting.long else \
        (SHORT_VALUES, SHORT_FILE, SHORT_PROFILES)
    template = Target(setting.program, setting.scratch / "template")
    template.do("profile", "save", TRIGGER)
    defaults = json.loads(template.do("profile", "show", TRIGGER, "--json"))

    def compare(number):
        generator = Generator(number)
        target = Target(setting.program, setting.scratch / str(number))
        fault = settings_differ(target, generator.file(a_file))
        for _ in range(profiles):
            fault = fault or profile_differs(target, defaults, generator)
        target.remove()
        return generator.count, fault and f"file {number}, {fault[:300]}"

    results = setting.each(compare, range(total // a_file))
    return Outcome(f"{sum(count for count, _ in results):,} values in {len(results):,} settings files and "
                   f"{len(results) * profiles:,} profiles", [fault for _, fault in results if fault], "differ")
