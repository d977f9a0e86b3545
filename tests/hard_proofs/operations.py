"""The operations that are killed and made to fail: what is stored before, and the command."""
import dataclasses
import plistlib
from collections.abc import Callable
from functools import partial

from target import Target, has_command

TRIGGER = "20"
PROFILE = f"profile_{TRIGGER}.qvx"
DAMAGE = b"bplist00 is how it begins, and no more"
BIG_TEXT = "0123456789" * 1_000_000


def small(target):
    target.do("defaults", "write", "wifi", "-int", "1")
    target.do("set", "custbrightenabled", "true")


def big(target):
    target.write_domain({"wifi": 1, "custbrightenabled": True, "profiledescription": BIG_TEXT})


def saved(fill):
    def prepare(target):
        fill(target)
        target.do("profile", "save", TRIGGER)
        target.do("defaults", "write", "wifi", "-int", "2")
    return prepare


def only_profile(target):
    saved(small)(target)
    target.domain.unlink()


def damaged(target):
    saved(small)(target)
    target.do("profile", "load", TRIGGER)  # a snapshot is taken before it
    target.domain.write_bytes(DAMAGE)


def importable(target):
    saved(small)(target)
    (target.folder / "in.plist").write_bytes(
        plistlib.dumps({"profilepercentage": "30", "wifi": 2, "custbrightenabled": False}))
    (target.folder / "settings.plist").write_bytes(
        plistlib.dumps({"wifi": 1, "custbrightenabled": False, "alertmsg": "imported"}))


def changed(target):
    small(target)
    target.do("set", "custbright", "30")


def after(prepare, *commands):
    def do_all(target):
        prepare(target)
        for command in commands:
            target.do(*command)
    return do_all


@dataclasses.dataclass
class Operation:
    name: str
    prepare: Callable
    command: list[str]
    needs: str = ""         # a command of the program that not every build has
    steps: bool = False     # changes several files or one twice: the next start finishes or undoes it
    again: bool = True      # done once more it ends the same
    remembers: bool = False # depends on what the host keeps elsewhere of this very root
    long: bool = False      # in the long form only


def nothing(_target):
    pass


SET = ["set", "custbright", "70"]
SET_SWITCH = ["set", "enabled", "false"]
WRITE = ["defaults", "write", "wifi", "-int", "3"]
SAVE = ["profile", "save", TRIGGER]
LOAD = ["profile", "load", TRIGGER]
DELETE = ["profile", "delete", TRIGGER]

OPERATIONS = [
    Operation("set", small, SET),
    Operation("set, no file", nothing, SET_SWITCH),
    Operation("set, 10 MB", big, SET, long=True),
    Operation("defaults write", small, WRITE, long=True),
    Operation("defaults delete", small, ["defaults", "delete", "wifi"], again=False),
    Operation("save", small, SAVE),
    Operation("save, no file", nothing, SAVE, long=True),
    Operation("save, 10 MB", big, SAVE, long=True),
    Operation("overwrite", saved(small), [*SAVE, "--overwrite"]),
    Operation("overwrite, 10 MB", saved(big), [*SAVE, "--overwrite"], long=True),
    Operation("load", saved(small), LOAD, steps=True),
    Operation("load, no file", only_profile, LOAD, steps=True, long=True),
    Operation("load, 10 MB", saved(big), LOAD, steps=True, long=True),
    Operation("delete", saved(small), DELETE, again=False),
    Operation("delete, 10 MB", saved(big), DELETE, again=False, long=True),
    Operation("profile import", importable,
              ["profile", "import", "in.plist"], again=False),
    Operation("profile copy", saved(small), ["profile", "copy", TRIGGER, "30"], "profile copy",
              again=False, long=True),
    Operation("import", importable, ["import", "settings.plist"], "import"),
    Operation("reset", changed, ["reset", "custbright"], "reset", long=True),
    Operation("repair --restore", damaged, ["repair", "--restore"], "repair", steps=True, again=False,
              remembers=True),
    Operation("repair --start-anew", damaged, ["repair", "--start-anew"], "repair", again=False),
    Operation("undo", changed, ["undo"], "undo", again=False, remembers=True),
    Operation("undo a save", after(small, SAVE), ["undo"], "undo", steps=True, again=False, remembers=True),
    Operation("redo a save", after(small, SAVE, ["undo"]), ["redo"], "redo", steps=True, again=False,
              remembers=True, long=True),
    Operation("undo a load", after(saved(small), LOAD), ["undo"], "undo", again=False, remembers=True,
              long=True),
    Operation("undo a delete", after(saved(small), DELETE), ["undo"], "undo", again=False, remembers=True,
              long=True),
    Operation("snapshot restore", after(saved(small), LOAD, DELETE, ["profile", "save", "30"]),
              ["snapshot", "restore", "2"], "snapshot restore", steps=True, again=False, remembers=True),
]


def operations(setting):
    """Those of this form that the program has, and the names of those that it lacks."""
    wanted = [each for each in OPERATIONS if setting.long or not each.long]
    there = [each for each in wanted if not each.needs or has_command(setting.program, each.needs)]
    return there, [each.name for each in wanted if each not in there]


class Prepared:
    """An operation's state before it, and after it has been done once without disturbance."""

    def __init__(self, setting, operation, target):
        self.setting, self.operation, self.template = setting, operation, target
        operation.prepare(target)
        self.before = target.state()
        done = self.fresh("done")
        done.do(*operation.command)
        self.after, self.names = done.state(), done.names()
        done.remove()
        if self.after == self.before:
            raise RuntimeError(f"{operation.name} changes nothing")

    def inject(self, copy, *options):
        """What to put before a command to have it injected into, and where the report is."""
        report = copy.folder.with_name(copy.folder.name + " report")
        return [str(self.setting.helper("inject")), "--below", str(copy.folder),
                "--report", str(report), *map(str, options)], report

    def fresh(self, number):
        """Another target in the state before."""
        folder = self.template.folder.with_name(f"{self.template.folder.name} {number}")
        if not self.operation.remembers:
            return self.template.copy(folder)
        target = Target(self.template.program, folder)
        self.operation.prepare(target)
        return target

    def calls(self, *options):
        """The kinds of its system calls in order."""
        copy = self.fresh("count")
        before, report = self.inject(copy, *options)
        done = copy.run(*self.operation.command, before=before)
        copy.remove()
        lines = report.read_text().splitlines()
        report.unlink()
        if done.returncode != 0 or not lines:
            raise RuntimeError(f"{self.operation.name} under the tracer: {done}")
        return [line.split(" ", 1)[1] for line in lines]


def try_points(setting, points_of, attempt):
    """attempt(prepared, point) gives whether the point was reached, and what is wrong or nothing. How many
    were reached of all points_of(prepared), of how many operations, and all that is wrong."""
    there, lacking = operations(setting)
    tried, faults = 0, []
    for operation in there:
        try:
            prepared = Prepared(setting, operation, Target(setting.program,
                                                           setting.scratch / operation.name))
        except RuntimeError as error:
            faults.append(f"{operation.name}, undisturbed: {error}")
            continue
        results = setting.each(partial(attempt, prepared), points_of(prepared))
        tried += sum(reached for reached, _ in results)
        faults += [f"{operation.name}, {fault}" for _, fault in results if fault]
        prepared.template.remove()
    lack = f" (this build lacks {', '.join(lacking)})" if lacking else ""
    return tried, f"{len(there)} operations{lack}", faults
