import json
import os
import plistlib
import re

from program import DOCUMENTS, DOMAIN
from recovery import PROFILE, RecoveryTest


class Repair(RecoveryTest):
    def test_nothing_is_wrong(self):
        self.assertEqual(self.output("repair"), "the settings can be read: 0 values\n")

    def test_a_change_from_outside_is_said(self):
        self.output("set", "wifi", "1")
        self.assertNotIn("outside", self.output("repair"))
        data = (self.root / DOMAIN).read_bytes()
        self.write(DOMAIN, data.replace(b"wifi", b"wiwi"))
        self.assertIn("\nchanged outside since ", self.output("repair"))
        self.output("set", "wifi", "1")
        self.assertIn("\nchanged outside between ", self.output("repair"))

    def test_a_profile_that_was_changed_outside_is_named(self):
        self.output("profile", "save", "20")
        self.output("profile", "save", "30")
        self.assertNotIn("outside", self.output("repair"))
        data = (self.root / PROFILE).read_bytes()
        self.write(PROFILE, data.replace(b"Current battery", b"XXXrent battery"))
        self.assertIn("\nchanged outside: profile Battery 20%\n", self.output("repair"))
        self.assertEqual(self.document("repair")["profilesOutside"], ["/" + PROFILE])
        self.output("profile", "save", "20", "--overwrite")
        self.assertNotIn("outside:", self.output("repair"))

    def test_a_profile_that_this_program_changes_in_any_way_is_not_named(self):
        self.output("profile", "save", "20")
        self.output("profile", "save", "30")
        self.output("set", "wifi", "2")
        self.output("profile", "export", "20", "20.plist")
        for command in (["profile", "save", "20", "--overwrite"], ["undo"], ["redo"], ["profile", "load", "20"],
                        ["profile", "copy", "20", "30", "--overwrite"], ["profile", "delete", "20"], ["undo"],
                        ["profile", "import", "20.plist", "--overwrite"], ["snapshot", "restore", "1"], ["undo"]):
            self.output(*command)
            self.assertEqual(self.document("repair")["profilesOutside"], [], command)

    def test_damage_is_said_with_the_ways_out(self):
        self.damage()
        message = self.refuse(1, "repair")
        self.assertIn("com.zorvek.quorvantis.plist", message)
        self.assertNotIn("--restore", message)
        self.assertIn("quorvantis repair --start-anew", message)

    def test_restore(self):
        self.write_domain({"wifi": 1})
        self.output("set", "wifi", "2")
        self.damage()
        self.assertIn("quorvantis repair --restore", self.refuse(1, "repair"))
        self.output("repair", "--restore")
        self.assertEqual(self.domain(), {"wifi": 1})
        self.assertEqual((self.root / (DOMAIN + ".unreadable-1")).read_bytes(), b"garbage")
        self.output("repair")

    def test_restore_says_from_when_it_is_and_what_it_lacks(self):
        self.output("set", "wifi", "2")
        taken = self.output("snapshot", "list").split("  ")[1]
        self.output("set", "wifi", "1")
        self.damage()
        said = rf"{taken}.*before the first change of the day; what was changed from then until [-0-9: ]+ UTC is not in it"
        self.assertRegex(self.refuse(1, "repair"), said)
        self.assertRegex(self.output("repair", "--restore").splitlines()[0], said)

    def test_says_that_undo_does_not_take_it_back(self):
        self.damage()
        self.assertIn("undo doesn't take this back", self.output("repair", "--start-anew"))

    def test_undo_after_it_blames_nobody(self):
        self.output("set", "wifi", "2")
        self.output("set", "wifi", "1")
        self.damage()
        self.output("repair", "--restore")
        self.assertTrue(self.refuse(1, "undo").endswith(
            "wifi stays as it is, since it was changed after that"))

    def test_as_json(self):
        self.assertEqual(self.document("repair"),
                         {"settings": 0, "lastChanged": None, "outside": None, "profilesOutside": []})
        self.output("set", "wifi", "2")
        changed = self.document("repair")["lastChanged"]
        self.write_domain({"wifi": 1, "vpn": 1})
        self.assertEqual(self.document("repair"), {"settings": 2, "lastChanged": changed,
                                                   "outside": {"from": changed, "to": None},
                                                   "profilesOutside": []})
        self.damage()
        self.refuse(1, "repair", "--json")
        kept = self.document("snapshot", "list")
        self.assertEqual(self.document("repair", "--restore"), {"restored": kept[0]})
        self.damage()
        self.assertEqual(self.document("repair", "--start-anew"), {"restored": None})

    def test_restore_past_a_snapshot_that_can_not_be_read(self):
        self.write_domain({"wifi": 1})
        self.output("set", "wifi", "2")
        self.output("reset", "wifi")
        newest = max(self.state.rglob("snapshots/[0-9]*"))
        with newest.open("r+b") as file:
            file.truncate(1 << 30)
        listed = self.run_program("snapshot", "list", "--json")
        self.assertEqual(listed.returncode, 0)
        self.assertIn(b"File too large", listed.stderr)
        self.assertEqual([each["number"] for each in json.loads(listed.stdout)], [1])
        self.damage()
        self.output("repair", "--restore")
        self.assertEqual(self.domain(), {"wifi": 1})

    def test_restore_without_a_snapshot(self):
        self.damage()
        self.assertIn("--start-anew", self.refuse(1, "repair", "--restore"))

    def test_nothing_is_repaired_that_can_be_read(self):
        self.output("set", "wifi", "1")
        domain = self.domain()
        for way in ("--restore", "--start-anew"):
            self.assertIn("nothing to repair", self.refuse(2, "repair", way))
        self.assertEqual(self.domain(), domain)

    def test_start_anew(self):
        self.damage()
        self.output("repair", "--start-anew")
        self.assertEqual(self.document("defaults", "read"), {})
        self.assertEqual((self.root / (DOMAIN + ".unreadable-1")).read_bytes(), b"garbage")
        self.output("set", "wifi", "2")
        self.assertEqual(self.domain(), {"wifi": 2})

    def test_both_ways_at_once(self):
        self.damage()
        self.refuse(2, "repair", "--restore", "--start-anew")


class Unreadable(RecoveryTest):
    """While the settings can't be read nothing is changed, and every refusal leads to the way out."""

    def setUp(self):
        super().setUp()
        self.write_profile({"wifi": 2})
        (self.scratch / "settings.plist").write_bytes(plistlib.dumps({"wifi": 2}))
        (self.scratch / "profile.plist").write_bytes(plistlib.dumps({"profilepercentage": "30"}))
        self.output("profile", "save", "21")
        self.output("profile", "delete", "21")
        self.damage()

    CHANGES = (
        ("set", "wifi", "1"), ("set", "wifi", "1", "vpn", "1"), ("set", "bannercolor", "Snow"),
        ("reset", "wifi"), ("reset", "--page", "Sounds"), ("reset", "--all"),
        ("import", "settings.plist"), ("defaults", "write", "wifi", "1"), ("defaults", "delete", "wifi"),
        ("profile", "save", "30"), ("profile", "save", "20", "--overwrite"), ("profile", "load", "20"),
        ("profile", "delete", "20"), ("profile", "copy", "20", "30"), ("profile", "import", "profile.plist"),
        ("snapshot", "restore", "1"), ("undo",))

    def test_every_change_is_refused(self):
        for command in self.CHANGES:
            with self.subTest(command=command):
                reason = self.refuse(1, *command)
                self.assertIn("com.zorvek.quorvantis.plist: not a readable property list", reason)
                self.assertIn("quorvantis repair --restore", reason)
                self.assertIn("--start-anew", reason)

    def test_what_was_undone_is_not_done_again(self):
        self.output("repair", "--start-anew")
        self.output("undo")
        self.damage()
        self.assertIn("quorvantis repair --restore", self.refuse(1, "redo"))

    def test_every_change_is_done_once_it_is_repaired(self):
        self.output("repair", "--start-anew")
        for command in (("undo",), ("profile", "delete", "20"), ("profile", "import", "profile.plist")):
            self.output(*command)
        self.assertEqual(sorted(os.listdir(self.root / DOCUMENTS)),
                         ["profile_21.qvx", "profile_30.qvx"])

    def test_profiles_can_be_looked_at(self):
        self.assertEqual(self.document("profile", "show", "20"), {"profilepercentage": "20", "wifi": 2})
        self.output("profile", "export", "20", "-")
        self.assertEqual(len(self.document("profile", "list")), 1)

    def test_a_folder_in_place_of_the_file_has_to_be_moved_away(self):
        (self.root / DOMAIN).unlink()
        (self.root / DOMAIN).mkdir()
        reason = self.refuse(1, "repair")
        self.assertNotIn("repair --", reason)
        found = re.search("it has to be moved away, then quorvantis (snapshot restore [0-9]+) puts",
                          reason)
        (self.root / DOMAIN).rmdir()
        self.output(*found[1].split())

    def test_a_folder_in_place_of_the_file_is_as_bad(self):
        (self.root / DOMAIN).unlink()
        (self.root / DOMAIN).mkdir()
        for command in self.CHANGES:
            with self.subTest(command=command):
                self.refuse(1, *command)
