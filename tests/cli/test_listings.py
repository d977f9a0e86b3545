"""What every listing command has in common, whatever it lists."""
import json
import plistlib

from keyed_archive import archive
from program import DOCUMENTS, ProgramTest

# Of the commands that print a list: what each item of the JSON document holds.
LISTS = {
    ("pages",): ["class", "title", "rows"],
    ("search", "night"): ["class", "id", "label", "where"],
    ("list",): ["key", "value", "default", "shown", "class", "label"],
    ("list", "--changed"): ["key", "value", "default", "shown", "class", "label"],
    ("choices", "playsound"): ["value", "title"],
    ("profile", "list"): ["path", "title", "trigger", "active"],
    ("triggers",): ["value", "title"],
    ("snapshot", "list"): ["number", "time", "before"],
    ("profile", "diff", "20", "21", "--stored"): ["key", "from", "to"],
    ("snapshot", "diff", "1"): ["key", "from", "to"],
    ("reset", "--all", "--dry-run"): ["key", "from", "to"],
}
OBJECTS = [("defaults", "read"), ("profile", "show", "20"), ("snapshot", "show", "1"),
           ("describe", "msgtext"), ("where",)]
TEXTS = [("log",)]


class Listings(ProgramTest):
    def setUp(self):
        super().setUp()
        self.env["XDG_STATE_HOME"] = str(self.scratch / "state")

    def fill(self):
        """Something for each of them to list, and a newline in whatever may hold one."""
        self.write_domain({"msgtext": "a\nb", "their\nkey": "c\nd", "wifi": 2})
        for trigger, more in (("20", {"profiledescription": "Night\nshift", "their\nkey": 1}),
                              ("21", {"wifi": 1})):
            self.write(f"{DOCUMENTS}/profile_{trigger}.qvx",
                       archive({"profilepercentage": trigger} | more))
        self.write(f"{DOCUMENTS}/quorvantis.log", archive(["first\nentry", "second"]))
        self.write("System/Library/Audio/UISounds/a\nb.caf", b"x")
        self.output("set", "wifi", "1")
        (self.scratch / "given").write_bytes(plistlib.dumps({"wifi": 2, "vpn": 1}))

    def test_members_of_each_item(self):
        self.fill()
        for command, members in LISTS.items():
            with self.subTest(command=command):
                items = self.document(*command)
                self.assertTrue(items)
                for item in items:
                    self.assertEqual(list(item), members)

    def test_json_is_one_document_on_one_line(self):
        self.fill()
        for command in [*LISTS, *OBJECTS, *TEXTS, ("page", "Sounds")]:
            with self.subTest(command=command):
                text = self.output(*command, "--json")
                self.assertEqual(text.count("\n"), 1)
                self.assertIsInstance(json.loads(text), dict if command in OBJECTS else list)

    def test_one_item_a_line_whatever_it_holds(self):
        self.fill()
        for command in [*LISTS, *OBJECTS, *TEXTS]:
            with self.subTest(command=command):
                self.assertEqual(len(self.output(*command).splitlines()),
                                 len(self.document(*command)))

    def test_differences_of_an_import_are_listed_like_those_of_a_profile(self):
        self.fill()
        self.assertEqual(self.document("import", "given", "--dry-run"),
                         [{"key": "wifi", "from": 1, "to": 2}, {"key": "vpn", "from": None, "to": 1}])

    def test_reading_a_missing_root_is_no_error_and_makes_nothing(self):
        for command in (("pages",), ("page", "Sounds"), ("get", "wifi"), ("list",), ("describe", "wifi"),
                        ("export", "-"), ("where",), ("search", "wifi"), ("choices", "playsound"),
                        ("choices", "adressbook"), ("profile", "list"), ("triggers",), ("log",),
                        ("snapshot", "list"), ("defaults", "read"), ("reset", "--all", "--dry-run"),
                        ("repair",)):
            with self.subTest(command=command):
                self.output(*command)
        self.assertEqual(list(self.scratch.iterdir()), [])

    def test_paths_are_those_of_the_platform(self):
        self.fill()
        self.output("profile", "copy", "20", "22")
        damaged = self.write(f"{DOCUMENTS}/profile_23.qvx", b"no archive")
        self.output("set", "profile", f"/{DOCUMENTS}/profile_22.qvx")
        for command in [*LISTS, *TEXTS, ("defaults", "read"), ("profile", "show", "20"),
                        ("get", "profile"), ("choices", "profile"), ("describe", "profile"),
                        ("profile", "show", "23"), ("profile", "load", "23"),
                        ("profile", "save", "23"), ("profile", "load", "24")]:
            for more in ([], ["--json"]):
                with self.subTest(command=command, more=more):
                    done = self.run_program(*command, *more)
                    self.assertNotIn(str(self.scratch).encode(), done.stdout + done.stderr)
        self.assertIn(f"/{DOCUMENTS}/{damaged.name}", self.refuse(1, "profile", "show", "23"))
