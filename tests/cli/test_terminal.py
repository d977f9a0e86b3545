import fcntl
import json
import os
import pty
import struct
import subprocess
import termios
import unittest

from keyed_archive import archive
from program import DOCUMENTS, PROGRAM, TIMEOUT_SECONDS, ProgramTest

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

    def on_terminal(self, *arguments, stdin=subprocess.DEVNULL, width=1000):
        """What reaches a terminal on which both outputs end, as text; raw, without "\\r\\n"."""
        leader, follower = pty.openpty()
        attributes = termios.tcgetattr(follower)
        attributes[1] = 0  # no output processing
        termios.tcsetattr(follower, 0, attributes)
        fcntl.ioctl(follower, termios.TIOCSWINSZ, struct.pack("HHHH", 25, width, 0, 0))
        running = subprocess.Popen([PROGRAM, *arguments], env=self.env, cwd=self.scratch,
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

    def test_tables_fit_the_width(self):
        for width in (60, 80):
            for command in (("--help",), ("help", "profile", "load"), ("page", "Conditions")):
                with self.subTest(width=width, command=command):
                    shown = self.on_terminal(*command, width=width)
                    self.assertLessEqual(max(map(len, shown.splitlines()[3:])), width)
                    self.assertEqual(shown.split(), self.output(*command).split())

    def test_columns_count_cells(self):
        self.write_domain({"alertmsg": "日本", "msgtext": "é"})
        lines = self.on_terminal("list", "--changed").splitlines()
        self.assertEqual(lines, ["msgtext   é     Notifications > Message",
                                 "alertmsg  日本  Notifications > Alert Text"])

    def test_drive(self):
        request = self.scratch / "requests"
        request.write_text('{"do":"prefs"}\n{"do":"\u202e\u009b"}\n')
        with open(request, "rb") as given:
            shown = self.on_terminal("drive", stdin=given)
        self.assertEqual(len(shown.splitlines()), 2)
        self.assertFalse(HARMFUL & set(shown), repr(shown))


if __name__ == "__main__":
    unittest.main()
