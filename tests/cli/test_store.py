import datetime
import fcntl
import os
import stat
import time

from program import DOMAIN, ProgramTest


class Defaults(ProgramTest):
    def test_kinds_are_kept(self):
        for kind, text, stored in (("-int", "1", 1), ("-float", "1", 1.0), ("-bool", "true", True),
                                   ("-string", "1", "1"), ("-int", "-9223372036854775808", -2**63),
                                   ("-float", "-0.5", -0.5), ("-bool", "NO", False)):
            with self.subTest(kind=kind, text=text):
                self.output("defaults", "write", "key", kind, text)
                value = self.domain()["key"]
                self.assertEqual((value, type(value)), (stored, type(stored)))

    def test_text_without_a_kind(self):
        self.output("defaults", "write", "key", "1.5")
        self.assertEqual(self.domain(), {"key": "1.5"})

    def test_wrong_numbers(self):
        for kind, text in (("-int", "1.0"), ("-int", "9223372036854775808"), ("-int", "x"),
                           ("-int", ""), ("-int", "1 "), ("-float", "1,5"), ("-float", "nan"),
                           ("-float", "1e999"), ("-bool", "2"), ("-bool", "maybe")):
            with self.subTest(kind=kind, text=text):
                self.refuse(2, "defaults", "write", "key", kind, text)

    def test_two_kinds(self):
        self.refuse(2, "defaults", "write", "-int", "-float", "key", "1")

    def test_bytes_that_are_not_utf8(self):
        self.refuse(2, "defaults", "write", "key", b"\xff")
        self.refuse(2, "defaults", "write", b"\xff", "value")

    def test_read_of_the_whole_domain(self):
        self.write_domain({"a": 50.0, "b": 50, "c": datetime.datetime(2026, 1, 31, 12)})
        self.assertEqual(self.output("defaults", "read", "--json"),
                         '{"a":50.0,"b":50,"c":{"$date":"2026-01-31T12:00:00Z"}}\n')

    def test_read_of_one_key(self):
        self.write_domain({"a": "x"})
        self.assertEqual(self.output("defaults", "read", "a"), "x\n")
        self.assertEqual(self.output("defaults", "read", "a", "--json"), '"x"\n')
        self.assertEqual(self.refuse(3, "defaults", "read", "b"), '"b" is not stored')

    def test_read_of_nothing(self):
        self.assertEqual(self.document("defaults", "read"), {})

    def test_delete(self):
        self.write_domain({"a": 1, "b": 2})
        self.output("defaults", "delete", "a")
        self.assertEqual(self.domain(), {"b": 2})
        self.refuse(3, "defaults", "delete", "a")

    def test_damaged_domain(self):
        self.write(DOMAIN, b"garbage")
        self.refuse(1, "defaults", "read")
        self.refuse(1, "defaults", "read", "a")
        for change in (("delete", "a"), ("write", "a", "1")):
            self.assertIn("repair --restore", self.refuse(1, "defaults", *change))

    def test_unreadable_domain(self):
        (self.root / DOMAIN).mkdir(parents=True)
        self.refuse(1, "defaults", "read")
        self.refuse(1, "defaults", "write", "a", "1")

    def test_domain_in_xml(self):
        self.write(DOMAIN, b'<plist version="1.0"><dict><key>a</key><real>2</real></dict></plist>')
        self.assertEqual(self.output("defaults", "read", "a"), "2.0\n")

    def test_file_is_private(self):
        self.output("defaults", "write", "a", "1")
        mode = stat.S_IMODE(os.stat(self.root / DOMAIN).st_mode)
        self.assertEqual(mode, 0o600)


class Lock(ProgramTest):
    def test_a_held_lock_is_waited_for_five_seconds_and_its_holder_named(self):
        self.output("set", "wifi", "1")
        with open((self.root / DOMAIN).parent / f".{(self.root / DOMAIN).name}.lock") as lock:
            fcntl.flock(lock, fcntl.LOCK_EX)
            before = time.monotonic()
            message = self.refuse(1, "set", "wifi", "2")
            waited = time.monotonic() - before
        self.assertIn("another program holds the settings", message)
        self.assertIn(str(os.getpid()), message)
        self.assertGreaterEqual(waited, 5)
        self.assertEqual(self.domain(), {"wifi": 1})


