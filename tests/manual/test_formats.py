"""docs/formats.md: its tables are today's, and its examples read what the program writes."""
import importlib.machinery
import importlib.util
import plistlib
import re
import select
import subprocess
import sys

from keyed_archive import archive
from manual import SOURCE, ManualTest, blocks, read
from program import DOCUMENTS, PROGRAM, TIMEOUT_SECONDS
from session_bus import needs_bus, start_session_bus

PAGE = "docs/formats.md"
LIBRARIES = {"read_setting.c": "libplist-2.0", "read_profile.c": "libplist-2.0",
             "listen.c": "libsystemd"}


def setting_table():
    loader = importlib.machinery.SourceFileLoader("setting_table",
                                                  str(SOURCE / "scripts/setting-table"))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader(loader.name, loader))
    loader.exec_module(module)
    return module


class Tables(ManualTest):
    def test_settings_are_as_the_program_describes_them(self):
        self.assertEqual(read(PAGE), setting_table().page_with_tables(read(PAGE), PROGRAM),
                         "scripts/setting-table writes them anew")

    def test_every_setting_is_there(self):
        keys = [row["key"] for row in self.document("list")]
        self.assertEqual(re.findall(r"^\| `([a-z]+)` \|", read(PAGE), re.MULTILINE), keys)

    def test_profile_keys_are_marked(self):
        self.output("defaults", "write", "autoupdates", "-int", "0")
        self.output("profile", "save", "55")
        marked = re.findall(r"^\| `([a-z]+)` \|.*\| yes \|$", read(PAGE), re.MULTILINE)
        self.assertEqual(sorted(marked), sorted(self.document("profile", "show", "55")))
        self.assertEqual(len(marked), 51)

    def test_events_are_the_triggers_beyond_100(self):
        events = re.findall(r"\| (\d{3}) \| ([^|]+) (?=\|)", read(PAGE))
        triggers = [(row["value"], row["title"]) for row in self.document("triggers")]
        self.assertEqual(sorted(events), triggers[100:])


class ExampleTest(ManualTest):
    def example(self, name):
        """The command that runs an example of the page."""
        language = "python" if name.endswith(".py") else "c"
        (text,) = (block for block in blocks(PAGE, language) if name in block.split("\n")[0])
        source = self.scratch / name
        source.write_text(text)
        if language == "python":
            return [sys.executable, "-B", str(source)]
        program = self.scratch / "example"
        flags = subprocess.run(["pkg-config", "--cflags", "--libs", LIBRARIES[name]], check=True,
                               stdout=subprocess.PIPE, text=True).stdout.split()
        subprocess.run(["cc", "-Wall", "-Wextra", "-Werror", source, "-o", program, *flags],
                       check=True, timeout=TIMEOUT_SECONDS)
        return [str(program)]

    def shown(self, command, *words):
        return subprocess.run([*command, *map(str, words)], env=self.env, check=True, text=True,
                              stdout=subprocess.PIPE, timeout=TIMEOUT_SECONDS).stdout


class Examples(ExampleTest):
    def test_setting_in_python(self):
        read_setting = self.example("read_setting.py")
        self.assertEqual(self.shown(read_setting, self.root, "wifi"),
                         "not stored: it has its default\n")
        self.output("set", "wifi", "Off")
        self.assertEqual(self.shown(read_setting, self.root, "wifi"), "2\n")

    def test_setting_in_c(self):
        read_setting = self.example("read_setting.c")
        self.assertEqual(self.shown(read_setting, self.root, "wifi"),
                         "not stored: it has its default\n")
        self.output("set", "wifi", "Off")
        self.assertEqual(plistlib.loads(self.shown(read_setting, self.root, "wifi").encode()), 2)

    def save_profile(self):
        self.output("set", "custbrightenabled", "on", "custbright", "30", "wifi", "Off",
                    "profiledescription", "Night")
        self.output("profile", "save", "20%")
        return self.root / DOCUMENTS / "profile_20.qvx"

    def test_profile_in_python(self):
        profile = self.save_profile()
        shown = self.shown(self.example("read_profile.py"), profile)
        values = {key: str(value)
                  for key, value in self.document("profile", "show", "20").items()}
        self.assertEqual(dict(line.split(" ", 1) for line in shown.splitlines()), values)

    def test_profile_in_c(self):
        profile = self.save_profile()
        read_profile = self.example("read_profile.c")
        for key, value in (("wifi", 2), ("custbright", 30.0), ("profiledescription", "Night"),
                           ("profilepercentage", "20"), ("custbrightenabled", True)):
            shown = self.shown(read_profile, profile, key)
            self.assertEqual(plistlib.loads(shown.encode()), value, key)

    def test_profile_of_another_writer(self):
        profile = self.scratch / "profile"
        profile.write_bytes(archive({"profilepercentage": "7", "profiledescription": "Tag"}))
        self.assertEqual(self.shown(self.example("read_profile.py"), profile),
                         "profilepercentage 7\nprofiledescription Tag\n")


@needs_bus
class Listening(ExampleTest):
    def names_that_it_prints(self, command):
        start_session_bus(self)
        listener = subprocess.Popen(command, env=self.env, stdout=subprocess.PIPE, text=True)
        self.addCleanup(listener.communicate)
        self.addCleanup(listener.kill)
        while not select.select([listener.stdout], [], [], 0.2)[0]:
            self.output("set", "profileactive", "on")
        return listener.stdout.readline()

    def test_listening_in_python(self):
        self.assertEqual(self.names_that_it_prints(self.example("listen.py")),
                         "com.zorvek.quorvantis.profile\n")

    def test_listening_in_c(self):
        self.assertEqual(self.names_that_it_prints(self.example("listen.c")),
                         "com.zorvek.quorvantis.profile\n")
