"""The manual pages: all that the programs know is in them, and their examples run as printed."""
import re
import shutil
import subprocess
import unittest

from manual import SOURCE, ManualTest, blocks, read
from program import TIMEOUT_SECONDS

COMMANDS = "packaging/man/quorvantis.1.scd"
WINDOW = "packaging/man/quorvantis-settings.1.scd"
FORMATS = "packaging/man/quorvantis.5.scd"


def section(page, heading):
    return read(page).split(f"\n# {heading}\n")[1].split("\n# ")[0]


def entries(page, heading):
    """What stands at the margin, in bold, with the text below it."""
    return re.findall(r"^(\*.*)\n((?:\t.*\n)+)", section(page, heading), re.MULTILINE)


class Commands(ManualTest):
    def listed(self, *words):
        """The names in the tables of a help page, by heading."""
        text = self.output("help", *words)
        return {heading: re.findall(r"^  (\S+(?: \S+)*)", table, re.MULTILINE)
                for heading, table in re.findall(r"^(\w+):\n((?:  .*\n?)+)", text, re.MULTILINE)}

    def described(self):
        """Each command's entries as one text."""
        texts = {}
        for head, text in entries(COMMANDS, "COMMANDS"):
            name = re.match(r"\*([a-z ]+)", head).group(1).strip()
            texts[name] = texts.get(name, "") + head + "\n" + text
        return texts

    def test_every_command_is_there(self):
        self.assertEqual(sorted(self.described()), sorted(self.listed()["Commands"]))

    def test_every_argument_and_option_is_there(self):
        common = set(self.listed()["Options"])
        for name, text in self.described().items():
            listed = self.listed(*name.split())
            for argument in listed.get("Arguments", []):
                self.assertIn(f"_{argument}_", text, name)
            for option in set(listed["Options"]) - common:
                for word in option.split():
                    self.assertIn(f"_{word}_" if word.isupper() else f"*{word}*", text, name)

    def test_no_other_option_is_there(self):
        common = {option.split()[0] for option in self.listed()["Options"]}
        for name, text in self.described().items():
            known = {option.split()[0] for option in self.listed(*name.split())["Options"]}
            named = set(re.findall(r"\*(?:[a-z]+ )?(--?[a-z-]+)\*", text))
            self.assertLessEqual(named, known | common, name)

    def test_common_options(self):
        named = [re.sub(r"[*_]|, .*", "", head) for head, _ in entries(COMMANDS, "OPTIONS")]
        self.assertEqual(named, self.listed()["Options"])

    def test_short_options(self):
        for long, short in (("--version", "-V"), ("--help", "-h")):
            self.assertEqual(self.output(short), self.output(long))
            self.assertRegex(self.output("help"), f"{long} .*{short}\\n")
            for page in (COMMANDS, WINDOW):
                self.assertIn(f"*{long}*, *{short}*\n", section(page, "OPTIONS"))

    def test_options_that_need_or_exclude_another(self):
        heads = [head for head, _ in entries(COMMANDS, "COMMANDS")]
        self.assertIn("*profile load* _TRIGGER_ [*--dry-run* [*--stored*]]", heads)
        self.assertIn("--dry-run", self.refuse(2, "profile", "load", "20", "--stored"))
        self.assertIn("*repair* [*--restore*|*--start-anew*]", heads)
        self.refuse(2, "repair", "--restore", "--start-anew")

    def test_nothing_to_go_back_to_has_its_exit_status(self):
        text = dict(entries(COMMANDS, "EXIT STATUS"))["*3*"]
        for command in ("undo", "redo"):
            self.refuse(3, command)
            self.assertIn(command, text)
        self.refuse(3, "snapshot", "show", "1")
        self.assertIn("snapshot", text)

    def test_every_variable_that_is_read_is_there(self):
        named = section(COMMANDS, "ENVIRONMENT")
        for source in ("host/device_options.cpp", "services/services.cpp",
                       "services/collation_locale.cpp"):
            for name in re.findall(r'"((?:[A-Z]+_)+[A-Z]+|HOME|LANG)"', read(source)):
                self.assertIn(f"*{name}*", named)

    def test_files_are_where_the_program_says(self):
        for name, path in self.document("where").items():
            if name in ("settings", "log", "profiles", "contacts"):
                below = path.removeprefix(f"{self.root}/")
                self.assertIn(f"_{below}", section(COMMANDS, "FILES"))

    def test_examples_run_as_printed(self):
        for number, text in enumerate(blocks(COMMANDS)):
            with self.subTest(number):
                self.run_console(text)

    def test_examples_of_the_formats_run_as_printed(self):
        for text in blocks(FORMATS):
            self.run_console(text)


class Window(unittest.TestCase):
    def test_every_option_is_there(self):
        usage = re.search(r"kUsage =(.*?);\n", read("apps/window/options.cpp"), re.DOTALL).group(1)
        named = [re.search(r"--[a-z]+", head).group() for head, _ in entries(WINDOW, "OPTIONS")]
        self.assertEqual(named, re.findall(r'^ *" +(--[a-z]+)', usage, re.MULTILINE))


@unittest.skipUnless(shutil.which("scdoc"), "needs scdoc")
class Form(unittest.TestCase):
    def test_pages_are_well_formed(self):
        for page in sorted((SOURCE / "packaging/man").glob("*.scd")):
            with page.open() as source:
                done = subprocess.run(["scdoc"], stdin=source, capture_output=True, check=False,
                                      text=True, timeout=TIMEOUT_SECONDS)
            self.assertEqual((done.returncode, done.stderr), (0, ""), page)
            name, number = page.stem.split(".")
            self.assertIn(f'.TH "{name}" "{number}"', done.stdout)
