import re
import shlex

from program import ProgramTest

GROUPS = ("profile", "defaults")


class Help(ProgramTest):
    def commands(self):
        """The names of all commands, as the help lists them."""
        listed = self.output("--help").partition("Commands:\n")[2].partition("\n\n")[0]
        return [re.split("  +", line.strip())[0].split() for line in listed.splitlines()]

    def test_help_is_a_command_and_an_option(self):
        self.assertEqual(self.output("help"), self.output("--help"))
        self.assertEqual(self.output("-h"), self.output("--help"))
        for words in self.commands() + [[group] for group in GROUPS]:
            with self.subTest(words=words):
                self.assertEqual(self.output("help", *words), self.output(*words, "--help"))

    def test_every_command_has_an_example_that_is_a_line_of_its_own(self):
        self.assertGreater(len(self.commands()), 25)
        for words in self.commands():
            with self.subTest(words=words):
                example = re.search("^Example: quorvantis (.*)$", self.output("help", *words), re.M)
                self.assertEqual(shlex.split(example[1])[:len(words)], words)

    def test_common_options_and_default_root(self):
        for words in self.commands():
            text = self.output("help", *words)
            for part in ("--root DIR", "--json", "QUORVANTIS_ROOT", "~/.local/share/quorvantis"):
                self.assertIn(part, text)

    def test_usage_shows_what_repeats(self):
        self.assertIn("set KEY VALUE [KEY VALUE…]", self.output("help", "set"))
        self.assertIn("search WORD…", self.output("help", "search"))
        self.assertIn("reset [KEY…]", self.output("help", "reset"))

    def test_unknown_command(self):
        for words in (["help", "bogus"], ["help", "profile", "bogus"], ["bogus", "--help"],
                      ["profile", "bogus", "--help"]):
            with self.subTest(words=words):
                self.assertIn("bogus", self.refuse(2, *words))

    def test_command_that_could_be_meant(self):
        for words, meant in ((["lsit"], "list"), (["profle", "list"], "profile"),
                             (["profile", "lod", "5"], "load"), (["help", "sarch"], "search")):
            with self.subTest(words=words):
                self.assertTrue(self.refuse(2, *words).endswith(f'did you mean "{meant}"?'))

    def test_option_that_could_be_meant(self):
        self.assertIn('did you mean "--changed"?', self.refuse(2, "list", "--chnged"))

    def test_version(self):
        self.assertRegex(self.output("-V"), r"^quorvantis \d+\.\d+\.\d+\n$")
        self.assertEqual(self.output("-V"), self.output("--version"))

    def test_options_stand_anywhere_in_new_commands_too(self):
        root = str(self.scratch / "other")
        for words in (["--root", root, "where", "--json"], ["--json", "where", "--root", root]):
            self.assertIn(f'"root":"{root}"', self.output(*words))
