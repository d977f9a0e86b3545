import re
import shutil
import subprocess

from program import PROGRAM, ProgramTest

# The function, called as bash calls it, prints what it found.
CALL = """
COMP_LINE=$1
shift
COMP_WORDS=("$@")
COMP_CWORD=$(($# - 1))
_quorvantis
((${#COMPREPLY[@]})) && printf '%s\\n' "${COMPREPLY[@]}"
exit 0
"""


class Asked(ProgramTest):
    def words(self, *line):
        return [each.split("\t") for each in self.output("__complete", *line).splitlines()]

    def names(self, *line):
        return [word[0] for word in self.words(*line)]

    def test_commands_and_groups(self):
        self.assertIn(["set", "Change values, as a user would; all are stored or none"],
                      self.words(""))
        self.assertEqual(self.names("des"), ["describe"])
        self.assertEqual(self.names("prof"), ["profile"])
        self.assertEqual(self.names("profile", "l"), ["list", "load"])
        self.assertEqual(self.names("help", "profile", "d"), ["delete", "diff"])
        self.assertNotIn("__complete", self.names(""))

    def test_keys(self):
        self.assertEqual(self.words("get", "wi"), [["wifi", "Wi-Fi"]])
        self.assertEqual(len(self.names("describe", "")), len(self.document("list")))
        self.assertEqual(self.names("set", "wifi", "1", "vp"), ["vpn"])
        self.assertEqual(self.names("reset", "wifi", "vp"), ["vpn"])
        self.assertEqual(self.names("get", "wifi", ""), [])

    def test_values_of_a_key(self):
        self.assertEqual(self.words("set", "wifi", ""), [["Leave", "0"], ["On", "1"], ["Off", "2"]])
        self.assertEqual(self.names("set", "vibrate", ""), ["on", "off"])
        self.assertEqual(self.names("set", "wifi", "1", "bannercolor", "mid"), ["Midnight"])
        self.assertEqual(self.names("set", "alertmsg", ""), [])

    def test_every_value_that_is_offered_can_be_set(self):
        for key in ("wifi", "autolock", "tapaction", "vibrate", "bannercolor", "profilepercentage"):
            for word in self.names("set", key, "")[:12]:
                with self.subTest(key=key, word=word):
                    self.output("set", key, word)

    def test_triggers_and_saved_profiles(self):
        self.assertEqual(self.words("profile", "save", "Charg"),
                         [["Charging started", "101"], ["Charging stopped", "102"]])
        self.assertEqual(self.names("profile", "load", ""), [])
        self.output("profile", "save", "20%")
        self.assertEqual(self.words("profile", "load", ""),
                         [["20", "Battery 20%"], ["Battery 20%", "20"]])
        self.assertEqual(self.names("profile", "copy", "20", "10"), ["10", "100", "101", "102"])

    def test_pages_and_options(self):
        self.assertEqual(self.names("page", "so"), ["SoundsListController", "Sounds"])
        self.assertEqual(self.names("reset", "--page", "Ext"), ["ExtrasListController", "Extras"])
        self.assertEqual(self.names("list", "--ch"), ["--changed"])
        self.assertIn("--root", self.names("list", "--"))

    def test_levels_once_the_percent_is_typed(self):
        self.output("profile", "save", "20%")
        self.assertEqual(self.words("profile", "load", "20%"), [["20%", "Battery 20%"]])
        self.assertEqual(self.words("profile", "save", "55%"), [["55%", "Battery 55%"]])
        self.assertEqual(self.names("profile", "save", "101%"), [])

    def test_snapshots(self):
        self.output("set", "wifi", "1")
        self.output("reset", "--all")
        for command in ("show", "diff", "restore"):
            self.assertEqual(self.words("snapshot", command, ""),
                             [["1", "before the first change of the day"], ["2", 'before "reset"']])

    def test_colors_by_their_digits(self):
        self.assertEqual(self.words("set", "bannercolor", "#fffff"), [["#FFFFFF", "Snow"]])

    def test_idioms(self):
        self.assertEqual(self.names("drive", "--idiom", ""), ["phone", "tablet"])

    def test_keys_of_watch_are_those_of_values(self):
        self.assertEqual(self.names("watch", "wi"), [])
        self.assertEqual(self.names("watch", "--values", "wi"), ["wifi"])

    def test_files_and_shells(self):
        self.assertEqual(self.names("import", ""), [":files"])
        self.assertEqual(self.names("--root", ""), [":files"])
        self.assertEqual(self.names("completions", ""), ["bash", "zsh", "fish"])

    def test_root_of_the_line_counts(self):
        self.output("profile", "save", "30", "--root", "other")
        self.assertEqual(self.names("--root", "other", "profile", "load", "3"), ["30"])
        self.assertEqual(self.names("--root=other", "profile", "load", "3"), ["30"])

    def test_value_behind_its_option(self):
        self.assertEqual(self.names("reset", "--page=Ext"),
                         ["--page=ExtrasListController", "--page=Extras"])
        self.assertEqual(self.names("drive", "--idiom="), ["--idiom=phone", "--idiom=tablet"])
        self.assertEqual(self.names("--root=x"), [":files"])
        self.assertEqual(self.names("reset", "--", "--page=Ext"), [])
        self.assertEqual(self.names("list", "--changed="), [])

    def test_what_can_not_be_looked_up_is_silent(self):
        self.assertEqual(self.names("set", "nosuchkey", ""), [])
        self.assertEqual(self.names("bogus", ""), [])
        self.write("var/mobile/Documents/Quorvantis", b"")
        self.assertEqual(self.names("profile", "load", ""), [])


class Scripts(ProgramTest):
    def script(self, shell):
        path = self.scratch / f"completion.{shell}"
        path.write_text(self.output("completions", shell))
        return path

    def bash(self, *line):
        """What bash's function offers for the last word, or for the part of it that bash completes."""
        parts = [part for word in line for part in re.findall("[=:]+|[^=:]+", word) or [""]]
        done = subprocess.run(["bash", "-c", f". {self.script('bash')}\n{CALL}", "bash",
                               " ".join([PROGRAM, *line]), PROGRAM, *parts],
                              env=self.env, cwd=self.scratch, capture_output=True, timeout=60,
                              check=True)
        self.assertEqual(done.stderr, b"")
        return done.stdout.decode().splitlines()

    def test_bash_completes_keys_values_and_triggers(self):
        self.assertEqual(self.bash("get", "wi"), ["wifi"])
        self.assertEqual(self.bash("set", "wifi", ""), ["Leave", "On", "Off"])
        self.output("profile", "save", "20%")
        self.assertEqual(self.bash("profile", "load", "2"), ["20"])

    def test_bash_quotes_what_has_blanks(self):
        self.assertEqual(self.bash("profile", "save", "Charging\\ sta"), ["Charging\\ started"])
        self.assertEqual(self.bash("profile", "save", '"Charging sta'), ["Charging started"])

    def test_bash_joins_what_it_has_split(self):
        self.output("profile", "save", "30", "--root", "other")
        self.assertEqual(self.bash("--root=other", "profile", "load", "3"), ["30"])
        self.assertEqual(self.bash("--root", "other", "profile", "load", "3"), ["30"])
        for typed in ("--page=", "--page=so"):
            self.assertIn("Sounds", self.bash("reset", typed))
        self.assertEqual(self.bash("reset", '--page="Power S'), ["Power Saving"])
        self.assertEqual(self.bash("get", "a:b", "="), [])

    def test_bash_leaves_files_to_the_shell(self):
        self.assertEqual(self.bash("import", ""), [])

    def test_scripts_parse(self):
        for shell in ("bash", "zsh", "fish"):
            with self.subTest(shell=shell):
                script = self.script(shell)
                if not shutil.which(shell):
                    self.skipTest(f"{shell} is not installed")
                subprocess.run([shell, "-n", str(script)], check=True)

    def test_unknown_shell(self):
        self.assertIn("bash, zsh or fish", self.refuse(2, "completions", "tcsh"))
        self.refuse(2, "completions")
