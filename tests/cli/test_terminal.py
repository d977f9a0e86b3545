import fcntl
import json
import os
import pty
import re
import struct
import subprocess
import termios
import unittest

from keyed_archive import archive
from program import DOCUMENTS, DOMAIN, PROGRAM, TIMEOUT_SECONDS, ProgramTest

# Clears the screen by C0 and by C1, reverses the text by an override and an isolate, and so on.
EVIL = ("a\x1b[2J\x07\x08\r\x7fb\x9b2J\x80\x9fc\u202ed\u202a\u202b\u202c\u202de\u2066\u2067\u2068\u2069"
        "f\u200e\u200f\u061cg \u00e9\u20ac\U0001f600")
HARMFUL = (set(map(chr, range(0x20))) - set("\n\t")) | set(map(chr, range(0x7F, 0xA0)))
HARMFUL |= set("\u061c\u200e\u200f\u202a\u202b\u202c\u202d\u202e\u2066\u2067\u2068\u2069")


class Terminal(ProgramTest):
    """Text of others can't control a terminal, and is exact everywhere else."""

    def setUp(self):
        super().setUp()
        self.write_domain({"msgtext": EVIL, EVIL: 1, "wifi": 2})
        profile = archive({"profilepercentage": "20", "profiledescription": EVIL, "msgtext": EVIL})
        self.write(f"{DOCUMENTS}/profile_20.qvx", profile)
        self.write(f"{DOCUMENTS}/{EVIL}.qvx", b"no archive")
        self.write(f"{DOCUMENTS}/quorvantis.log", archive([EVIL, "plain"]))
        self.write("System/Library/Audio/UISounds/" + EVIL.replace("/", "") + ".caf", b"x")

    def on_terminal(self, *arguments, stdin=subprocess.DEVNULL, width=1000, **variables):
        """What reaches a terminal on which both outputs end, as text; raw, without "\\r\\n"."""
        leader, follower = pty.openpty()
        attributes = termios.tcgetattr(follower)
        attributes[1] = 0  # no output processing
        termios.tcsetattr(follower, 0, attributes)
        fcntl.ioctl(follower, termios.TIOCSWINSZ, struct.pack("HHHH", 25, width, 0, 0))
        running = subprocess.Popen([PROGRAM, *arguments], env=self.env | variables, cwd=self.scratch,
                                   stdin=stdin, stdout=follower, stderr=follower)
        os.close(follower)
        shown = b""
        try:
            while piece := os.read(leader, 65536):
                shown += piece
        except OSError:  # how the end is said
            pass
        os.close(leader)
        running.wait(timeout=TIMEOUT_SECONDS)
        return shown.decode()

    COMMANDS = (
        ("get", "msgtext"), ("get", "msgtext", "--json"), ("defaults", "read"),
        ("defaults", "read", "msgtext"), ("defaults", "read", "--json"), ("defaults", "read", EVIL),
        ("page", "UserNotificationListController"),
        ("page", "UserNotificationListController", "--json"), ("choices", "playsound"),
        ("choices", "playsound", "--json"), ("profile", "list"), ("profile", "list", "--json"),
        ("profile", "show", "20"), ("profile", "show", "20", "--json"), ("profile", "diff", "20"),
        ("profile", "diff", "20", "--json"), ("profile", "export", "20", "-"), ("log",),
        ("log", "--json"), ("get", EVIL), ("set", "wifi", EVIL), (EVIL,), ("profile", "show", EVIL),
        ("profile", "import", EVIL), ("page", EVIL), ("defaults", "delete", "no" + EVIL))

    def test_no_command_lets_control_characters_through(self):
        for command in self.COMMANDS:
            with self.subTest(command=command):
                shown = self.on_terminal(*command)
                self.assertTrue(shown)
                self.assertFalse(HARMFUL & set(shown), repr(shown))

    def test_they_are_shown_as_escapes(self):
        self.assertEqual(
            self.on_terminal("get", "msgtext"),
            "a\\u001b[2J\\u0007\\u0008\\u000d\\u007fb\\u009b2J\\u0080\\u009fc\\u202ed\\u202a\\u202b\\u202c"
            "\\u202de\\u2066\\u2067\\u2068\\u2069f\\u200e\\u200f\\u061cg \u00e9\u20ac\U0001f600\n")

    def test_stored_values_stand_beside_what_rows_show(self):
        self.write(f"{DOCUMENTS}/profile_30.qvx", archive({"profilepercentage": "30", "wifi": 2}))
        self.assertIn("wifi = 2  (Off)\n", self.on_terminal("profile", "show", "30"))
        self.assertIn("wifi = 2\n", self.output("profile", "show", "30"))

    def test_a_profile_in_another_file_is_listed_with_its_path(self):
        for name in ("profile_30", "mine"):
            self.write(f"{DOCUMENTS}/{name}.qvx", archive({"profilepercentage": "30"}))
        own, place = "30  Battery 30%", f"  /{DOCUMENTS}/mine.qvx"
        ends = [re.split(" active", line)[1] for line in self.on_terminal("profile", "list").splitlines()
                if line.startswith(own)]
        self.assertEqual(sorted(ends), ["", place])
        piped = [line for line in self.run_program("profile", "list").stdout.decode().splitlines() if own in line]
        self.assertEqual({line.split()[-1] for line in piped}, {"active"})

    def test_json_on_a_terminal_is_the_same_document(self):
        for command in (("get", "msgtext"), ("defaults", "read"), ("log",)):
            self.assertEqual(json.loads(self.on_terminal(*command, "--json")),
                             self.document(*command))

    def test_bytes_that_are_not_utf8_are_shown_as_bytes(self):
        shown = self.on_terminal("get", b"a\x9b2J\xe9")
        self.assertFalse(HARMFUL & set(shown), repr(shown))

    def test_newline_and_tab_stay(self):
        self.write_domain({"msgtext": "a\n\tb"})
        self.assertEqual(self.on_terminal("get", "msgtext"), "a\n\tb\n")

    def test_what_is_piped_is_exact(self):
        done = self.run_program("get", "msgtext")
        self.assertEqual(done.stdout, EVIL.encode() + b"\n")

    def test_choices_say_that_a_row_can_be_unset(self):
        unset = "(quorvantis set profile None unsets it)\n"
        self.assertTrue(self.on_terminal("choices", "profile").endswith(unset))
        self.assertNotIn("unsets", self.on_terminal("choices", "playsound"))
        self.assertNotIn(unset, self.output("choices", "profile"))

    def test_an_empty_list_says_why_on_a_terminal_only(self):
        self.root = self.scratch / "fresh"
        self.env |= {"QUORVANTIS_ROOT": str(self.root), "XDG_STATE_HOME": str(self.scratch / "state")}
        for command, why in ((("profile", "list"), "no profile is saved"),
                             (("search", "xyzzy"), "nothing matches"),
                             (("list", "--changed"), "no setting differs"),
                             (("log",), "the log is empty"),
                             (("choices", "profile"), "there is nothing to choose from"),
                             (("snapshot", "list"), "nothing is kept yet"),
                             (("reset", "--all", "--dry-run"), "nothing differs")):
            with self.subTest(command=command):
                self.assertTrue(self.on_terminal(*command).startswith(f"({why}"), command)
                self.assertEqual(self.output(*command), "")
                self.assertEqual(self.document(*command), [])

    def check_fits(self, width, command):
        shown = self.on_terminal(*command, width=width)
        self.assertLessEqual(max(map(len, shown.splitlines())), width)
        self.assertFalse([line for line in shown.splitlines() if line.endswith(" ")])
        piped = self.run_program(*command).stdout.decode()
        shown, piped = (sorted(re.sub(r"\s", "", text)) for text in (shown, piped))
        self.assertEqual(shown, piped)

    def test_tables_fit_the_width(self):
        os.remove(self.root / DOMAIN)  # no escapes
        (self.root / DOCUMENTS / f"{EVIL}.qvx").unlink()
        self.output("profile", "save", "20", "--overwrite")
        pages = [["page", page["class"]] for page in self.document("pages")]
        for width in (60, 80):
            for command in (["--help"], ["help", "defaults"], ["help", "profile", "load"], ["list"], ["where"],
                            ["search", "bright"], ["triggers"], ["profile", "list"], ["describe", "wifi"], ["pages"],
                            *pages):
                with self.subTest(width=width, command=command):
                    self.check_fits(width, command)

    def test_a_long_text_breaks_its_own_column_alone(self):
        self.write_domain({"msgtext": "word " * 60, "alertmsg": "x" * 300})
        for width in (40, 60, 80):
            self.check_fits(width, ["list"])
            self.check_fits(width, ["page", "Notifications"])
        lines = self.on_terminal("list", width=80).splitlines()
        self.assertTrue(any(re.fullmatch(r"wifi +Leave +Power Saving > Wi-Fi", line) for line in lines), lines)

    def test_a_very_long_word_is_shown_in_time(self):
        self.write_domain({"msgtext": "x" * 200_000})
        self.assertGreater(self.on_terminal("list", width=80).count("x"), 200_000 - 1)

    def test_escapes_take_their_room(self):
        lines = self.on_terminal("list", width=80).splitlines()
        self.assertLessEqual(max(map(len, lines)), 80)

    def test_a_table_that_fits_is_as_it_is_piped(self):
        self.write_domain({})
        for command in (["triggers"], ["page", "Conditions"], ["list"]):
            self.assertEqual(self.on_terminal(*command), self.output(*command))

    def test_a_terminal_without_room_gets_the_text_all_the_same(self):
        for width in (1, 5, 12):
            self.assertIn("wifi", self.on_terminal("page", "Power Saving", width=width))

    def test_columns_count_cells(self):
        self.write_domain({"alertmsg": "日本", "msgtext": "é"})
        lines = self.on_terminal("list", "--changed").splitlines()
        self.assertEqual(lines, ["msgtext   é     Notifications > Message",
                                 "alertmsg  日本  Notifications > Alert Text"])

    def colored(self, *arguments, **options):
        return self.on_terminal(*arguments, TERM="xterm-256color", **options)

    def test_a_page_has_bold_headings_dim_footers_and_dim_rows(self):
        shown = self.colored("page", "Low Power Mode").splitlines()
        plain = self.output("page", "Low Power Mode").splitlines()
        self.assertEqual(len(shown), len(plain))
        styles = {"\x1b[1m": 0, "\x1b[2m": 0, "": 0}
        for line, text in zip(shown, plain):
            heading = text and not text.startswith(" ")
            style = "\x1b[1m" if heading else "\x1b[2m" if "(dimmed by" in text else line[:line.find(text)]
            self.assertEqual(line, style + text + ("\x1b[0m" if style else ""))
            styles[style] += 1
        self.assertGreater(min(styles.values()), 0, styles)

    def test_a_footer_is_dim(self):
        self.assertRegex(self.colored("page", "Conditions"), r"(?m)^\x1b\[2m  [A-Z][^\x1b]*\.\x1b\[0m$")

    def test_what_is_changed_is_bold_in_the_list_of_all(self):
        shown = self.colored("list").splitlines()
        self.assertRegex("\n".join(shown), r"(?m)^\x1b\[1mwifi  [^\x1b]*\x1b\[0m$")
        self.assertTrue(any(line.startswith("vpn ") for line in shown))
        self.assertNotIn("\x1b", self.colored("list", "--changed"))

    def test_a_profile_that_is_not_active_is_dim(self):
        self.write(f"{DOCUMENTS}/profile_7.qvx", archive({"profilepercentage": "7"}))
        for line in self.colored("profile", "list").splitlines():
            self.assertEqual(line.startswith("\x1b[2m"), "not active" in line, line)

    def test_the_name_before_a_refusal_is_red(self):
        self.assertTrue(self.colored("get", "nosuchkey").startswith(
            "\x1b[31mquorvantis:\x1b[0m no setting "))
        self.assertNotIn(b"\x1b", self.run_program("get", "nosuchkey").stderr)

    def test_colors_change_no_text_and_let_no_control_through(self):
        for command in (*self.COMMANDS, ("list",), ("page", "Low Power Mode"), ("pages",)):
            with self.subTest(command=command):
                shown = re.sub(r"\x1b\[(0|1|2|31)m", "", self.colored(*command))
                self.assertEqual(shown, self.on_terminal(*command))
                self.assertFalse(HARMFUL & set(shown), repr(shown))

    def test_colors_leave_the_width_as_it_is(self):
        for width in (60, 80):
            shown = self.colored("page", "Conditions", width=width)
            self.assertIn("\x1b[2m", shown)
            self.assertEqual(re.sub(r"\x1b\[\dm", "", shown), self.on_terminal("page", "Conditions", width=width))

    def test_colors_are_for_terminals_that_have_them_alone(self):
        self.env["TERM"] = "xterm"
        for variables in ({"NO_COLOR": "1"}, {"NO_COLOR": "0"}, {"TERM": "dumb"}, {"TERM": ""}):
            for command in (("page", "Conditions"), ("get", "nosuchkey")):
                with self.subTest(variables=variables, command=command):
                    self.assertNotIn("\x1b", self.on_terminal(*command, **variables))
        self.assertIn("\x1b[", self.on_terminal("page", "Conditions", NO_COLOR=""))
        for command in (("page", "Conditions"), ("list",), ("profile", "list"), ("get", "nosuchkey")):
            piped = self.run_program(*command)
            self.assertNotIn(b"\x1b", piped.stdout + piped.stderr)
        self.assertNotIn("\x1b", self.on_terminal("page", "Conditions", "--json"))

    def test_a_message_that_is_piped_has_no_color_though_results_are_shown(self):
        leader, follower = pty.openpty()
        self.addCleanup(os.close, leader)
        self.addCleanup(os.close, follower)
        done = subprocess.run([PROGRAM, "get", "nosuchkey"], env=self.env | {"TERM": "xterm"}, stdout=follower,
                              stderr=subprocess.PIPE, timeout=TIMEOUT_SECONDS, check=False)
        self.assertTrue(done.stderr.startswith(b"quorvantis: no setting "), done.stderr)

    def test_drive(self):
        request = self.scratch / "requests"
        request.write_text('{"do":"prefs"}\n{"do":"\u202e\u009b"}\n')
        with open(request, "rb") as given:
            shown = self.on_terminal("drive", stdin=given)
        self.assertEqual(len(shown.splitlines()), 2)
        self.assertFalse(HARMFUL & set(shown), repr(shown))


if __name__ == "__main__":
    unittest.main()
