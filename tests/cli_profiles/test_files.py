import json
import os
import subprocess
import unittest

from profiles import DAMAGED, ProfileTest, path_of
from program import DOCUMENTS, PROGRAM


class Delete(ProfileTest):
    def test_removes_the_file_and_nothing_else(self):
        self.output("profile", "save", "20")
        self.output("profile", "save", "21")
        before = self.everything()
        self.output("profile", "delete", "Battery 20%")
        del before[str(self.root / path_of(20))]
        self.assertEqual(self.everything(), before)

    def test_removes_a_damaged_one(self):
        self.write(path_of(20), DAMAGED)
        self.output("profile", "delete", "20")
        self.assertFalse((self.root / path_of(20)).exists())

    def test_none(self):
        self.refuse(3, "profile", "delete", "20")
        self.output("profile", "save", "21")
        self.refuse(3, "profile", "delete", "20")

    def test_no_trigger(self):
        self.refuse(3, "profile", "delete", "nonsense")

    def delete_for_good(self, *arguments):
        """What is no file can't be put back, and that is said."""
        done = self.run_program("profile", "delete", *arguments)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn(b"can't be undone", done.stderr)

    def test_removes_a_folder_only_recursively(self):
        self.write(f"{path_of(20)}/inside", b"")
        self.write(f"{DOCUMENTS}/kept", b"")
        self.assertIn("--recursive", self.refuse(2, "profile", "delete", "20"))
        self.delete_for_good("20", "--recursive")
        self.assertEqual([file.name for file in (self.root / DOCUMENTS).iterdir()], ["kept"])

    def test_removes_a_link_not_what_it_leads_to(self):
        self.write(f"{DOCUMENTS}/kept", b"")
        (self.root / path_of(21)).symlink_to("kept")
        (self.root / path_of(22)).symlink_to("nowhere")
        for trigger in ("21", "22"):
            self.delete_for_good(trigger)
        self.assertEqual([file.name for file in (self.root / DOCUMENTS).iterdir()], ["kept"])


class FolderOnThePage(ProfileTest):
    """A folder that bears a profile's name is neither overwritten nor deleted from the page."""

    def converse(self, *requests, between=lambda: None):
        with subprocess.Popen([PROGRAM, "drive"], env=self.env, stdin=subprocess.PIPE,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True) as drive:
            for request in requests:
                if request is None:
                    between()
                    continue
                drive.stdin.write(json.dumps(request) + "\n")
                drive.stdin.flush()
                answer = json.loads(drive.stdout.readline())
                self.assertTrue(answer["ok"], (request, answer))
            drive.stdin.close()
            return drive.stderr.read()

    OPEN = ({"do": "launch"}, {"do": "open", "page": "ProfilesListController"}, {"do": "bar"})

    def test_overwrite(self):
        self.write(f"{path_of(20)}/inside", b"kept")
        reason = self.converse(*self.OPEN, {"do": "press", "button": "Save"}, {"do": "pick", "row": 19},
                               {"do": "press", "button": "Save"},
                               {"do": "press", "button": "Overwrite"})
        self.assertIn("Is a directory", reason)
        self.assertEqual((self.root / path_of(20) / "inside").read_bytes(), b"kept")

    def test_delete(self):
        self.output("profile", "save", "20")
        inside = self.root / path_of(20) / "inside"

        def replace():
            (self.root / path_of(20)).unlink()
            self.write(f"{path_of(20)}/inside", b"kept")
        reason = self.converse(*self.OPEN, {"do": "press", "button": "Delete"}, None,
                               {"do": "press", "button": "Delete"}, between=replace)
        self.assertIn("not deleted", reason)
        self.assertEqual(inside.read_bytes(), b"kept")


class Show(ProfileTest):
    def test_the_values_of_the_file(self):
        self.write_profile(20, {"profilepercentage": "20", "wifi": 1, "other": "x"})
        self.assertEqual(self.show("Battery 20%"),
                         {"profilepercentage": "20", "wifi": 1, "other": "x"})
        self.assertEqual(self.output("profile", "show", "20"),
                         'profilepercentage = "20"\nwifi = 1\nother = "x"\n')

    def test_archive_of_no_dictionary_is_empty(self):
        self.write_profile(20, ["a"])
        self.assertEqual(self.show("20"), {})

    def test_none(self):
        self.refuse(3, "profile", "show", "20")
        self.refuse(3, "profile", "show", "nonsense")

    def test_no_archive(self):
        for data in (DAMAGED, b"", b"bplist00"):
            self.write(path_of(20), data)
            self.refuse(1, "profile", "show", "20")

    def test_domain_is_not_needed(self):
        self.write_profile(20, {"wifi": 1})
        self.damage_domain()
        self.assertEqual(self.show("20"), {"wifi": 1})


class List(ProfileTest):
    def test_in_the_order_of_the_triggers_with_descriptions(self):
        self.write_profile(20, {"profilepercentage": "20", "profiledescription": "Night"})
        self.write_profile(101, {"profilepercentage": "101", "profiledescription": ""})
        self.write_profile(9, {"profilepercentage": "9"})
        self.assertEqual(self.document("profile", "list"), [
            {"path": f"/{path_of(9)}", "title": "Battery 9%", "trigger": "9", "active": True},
            {"path": f"/{path_of(20)}", "title": "Battery 20% - Night", "trigger": "20",
             "active": True},
            {"path": f"/{path_of(101)}", "title": "Charging started", "trigger": "101",
             "active": True}])

    def test_other_files_are_no_profiles(self):
        self.write(f"{DOCUMENTS}/quorvantis.log", DAMAGED)
        self.write(f"{DOCUMENTS}/profile_5.QVX", DAMAGED)
        self.assertEqual(self.document("profile", "list"), [])

    def test_without_a_folder_there_are_none(self):
        self.assertEqual(self.document("profile", "list"), [])
        self.assertEqual(self.output("profile", "list"), "")

    def test_folder_that_can_not_be_listed(self):
        self.write(DOCUMENTS, b"")
        self.assertIn("Not a directory", self.refuse(1, "profile", "list"))

    def test_one_line_each_whatever_they_hold(self):
        self.write_profile(9, {"profilepercentage": "9", "profiledescription": "a\nb\x1b[31m"})
        lines = self.output("profile", "list").splitlines()
        self.assertEqual(len(lines), 1)
        self.assertEqual(lines[0], "9  Battery 9% - a b [31m  active")

    def test_whether_active(self):
        for trigger, active in ((1, {}), (2, {"profileactive": False}), (3, {"profileactive": 1.0}),
                                (4, {"profileactive": 0})):
            self.write_profile(trigger, {"profilepercentage": str(trigger)} | active)
        self.assertEqual([each["active"] for each in self.document("profile", "list")],
                         [True, False, True, False])
        self.assertEqual([line.split("  ")[-1] for line in self.output("profile", "list").splitlines()],
                         ["active", "not active", "active", "not active"])

    def test_profile_without_a_trigger(self):
        self.write_profile(20, {"wifi": 1})
        self.assertEqual(self.document("profile", "list"),
                         [{"path": f"/{path_of(20)}", "title": "Battery (null)%", "trigger": None,
                           "active": True}])

    def test_events_are_in_the_order_of_their_codes_in_any_language(self):
        for code in (111, 101, 112):
            self.write_profile(code, {"profilepercentage": str(code)})
        self.env["LC_ALL"] = "cs_CZ.UTF-8"
        self.assertEqual(self.document("profile", "list"), [
            {"path": f"/{path_of(101)}", "title": "Charging started", "trigger": "101",
             "active": True},
            {"path": f"/{path_of(111)}", "title": "Device locked", "trigger": "111",
             "active": True},
            {"path": f"/{path_of(112)}", "title": "Device unlocked", "trigger": "112",
             "active": True}])

    def test_bytes_of_a_name_that_are_not_utf8(self):
        self.output("profile", "save", "20")
        (self.root / path_of(20)).rename(os.fsdecode(bytes(self.root / DOCUMENTS) + b"/a\xe9.qvx"))
        self.assertEqual(self.document("profile", "list")[0]["path"],
                         f"/{DOCUMENTS}/a\ufffd.qvx")

    def test_skipped_files_are_reported(self):
        self.write_profile(9, {"profilepercentage": "9"})
        self.write(path_of(20), DAMAGED)
        done = self.run_program("profile", "list")
        self.assertEqual(done.returncode, 0)
        self.assertEqual(done.stdout.decode().split(), ["9", "Battery", "9%", "active"])
        self.assertRegex(done.stderr.decode(), rf"^quorvantis: /{path_of(20)}: .+\n$")

    def test_skipped_files_are_reported_in_the_order_of_their_names(self):
        for trigger in (30, 9, 100, 21):
            self.write(path_of(trigger), DAMAGED)
        reported = self.run_program("profile", "list").stderr.decode().splitlines()
        self.assertEqual([line.split(": ")[1] for line in reported],
                         [f"/{path_of(trigger)}" for trigger in (9, 21, 30, 100)])


if __name__ == "__main__":
    unittest.main()
