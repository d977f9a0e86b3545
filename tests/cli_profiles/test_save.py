import os
import unittest

from profiles import DAMAGED, DEFAULTS, ProfileTest, path_of
from program import DOCUMENTS


class Save(ProfileTest):
    def test_holds_the_settings_and_defaults_for_the_rest(self):
        self.write_domain({"wifi": 2, "msgtext": "Low", "tapaction": 201})
        self.output("profile", "save", "20")
        self.assertEqual(self.show("20"),
                         {"profilepercentage": "20", **DEFAULTS, "wifi": 2, "msgtext": "Low"})

    def test_holds_no_setting_without_value_and_default(self):
        self.output("profile", "save", "20")
        self.assertNotIn("autoupdates", self.show("20"))

    def test_holds_that_setting_where_it_has_a_value(self):
        self.write_domain({"autoupdates": 2})
        self.output("profile", "save", "20")
        self.assertEqual(self.show("20")["autoupdates"], 2)

    def test_values_keep_their_kind(self):
        self.write_domain({"wifi": 1, "vibrate": True, "custbright": 41.0})
        self.output("profile", "save", "20")
        text = self.output("profile", "show", "20", "--json")
        for part in ('"wifi":1,', '"vibrate":true,', '"custbright":41.0,'):
            self.assertIn(part, text)

    def test_changes_only_the_trigger_in_the_domain(self):
        self.write_domain({"wifi": 2})
        self.output("profile", "save", "101")
        self.assertEqual(self.domain(), {"wifi": 2, "profilepercentage": "101"})

    def test_trigger_by_its_title(self):
        self.output("profile", "save", "Charging started")
        self.output("profile", "save", "Battery 7%")
        self.assertTrue((self.root / path_of(101)).is_file())
        self.assertTrue((self.root / path_of(7)).is_file())

    def test_all_triggers(self):
        for trigger in self.document("triggers"):
            self.output("profile", "save", trigger["value"])
            self.assertTrue((self.root / path_of(trigger["value"])).is_file())
        self.assertEqual(len(self.document("profile", "list")), 108)

    def test_what_is_not_a_trigger(self):
        for trigger in ("0", "103", "020", "-1", "20 ", "Battery 0%", "Battery 20",
                        "charging", "%", "0%"):
            self.assertIn("no trigger", self.refuse(3, "profile", "save", trigger))

    def test_existing_one_is_kept(self):
        self.output("profile", "save", "20")
        self.write_domain({"wifi": 2})
        self.assertIn("--overwrite", self.refuse(4, "profile", "save", "20"))

    def test_overwrite_replaces_it(self):
        self.output("profile", "save", "20")
        self.write_domain({"wifi": 2})
        self.output("profile", "save", "--overwrite", "20")
        self.assertEqual(self.show("20")["wifi"], 2)

    def test_overwrite_without_one_saves(self):
        self.output("profile", "save", "20", "--overwrite")
        self.assertEqual(self.show("20")["wifi"], 0)

    def test_damaged_one_is_kept_or_overwritten(self):
        self.write(path_of(20), DAMAGED)
        self.refuse(4, "profile", "save", "20")
        self.output("profile", "save", "20", "--overwrite")
        self.assertEqual(self.show("20")["wifi"], 0)

    def test_folders_and_file_are_the_users_alone(self):
        self.output("profile", "save", "20")
        self.assertEqual((self.root / path_of(20)).stat().st_mode & 0o777, 0o600)
        self.assertEqual((self.root / DOCUMENTS).stat().st_mode & 0o777, 0o700)

    def test_damaged_domain_is_not_saved_as_defaults(self):
        self.damage_domain()
        self.refuse(1, "profile", "save", "20")
        self.write_profile(20, {"profilepercentage": "20", "wifi": 2})
        self.assertIn("repair --restore", self.refuse(1, "profile", "save", "20", "--overwrite"))

    def test_folder_of_that_name_is_never_overwritten(self):
        self.write(f"{path_of(20)}/inside", b"")
        self.refuse(4, "profile", "save", "20")
        self.assertIn("Is a directory", self.refuse(1, "profile", "save", "20", "--overwrite"))

    def test_links_of_that_name_are_kept_or_overwritten(self):
        self.write(f"{DOCUMENTS}/kept", b"kept")
        (self.root / path_of(21)).symlink_to("kept")
        (self.root / path_of(22)).symlink_to("../../nowhere")
        (self.root / path_of(23)).symlink_to("profile_23.qvx")
        for trigger in ("21", "22", "23"):
            self.refuse(4, "profile", "save", trigger)
            self.output("profile", "save", trigger, "--overwrite")
            self.assertEqual(self.show(trigger)["profilepercentage"], trigger)
        self.assertEqual((self.root / DOCUMENTS / "kept").read_bytes(), b"kept")

    def test_file_that_can_not_be_written(self):
        self.write("var/mobile/Documents", b"")
        self.refuse(1, "profile", "save", "20", "--overwrite")

    def test_folder_that_is_a_file(self):
        self.write(DOCUMENTS, b"")
        self.refuse(1, "profile", "save", "20")

    def test_new_file_goes_when_the_domain_can_not_be_written(self):
        self.write_profile(5, {"profilepercentage": "5"})
        self.lock_store()
        self.refuse(1, "profile", "save", "20")

    def test_old_file_stays_when_the_domain_can_not_be_written(self):
        self.write_profile(20, {"profilepercentage": "20", "wifi": 2})
        self.lock_store()
        self.refuse(1, "profile", "save", "20", "--overwrite")

    def test_whatever_is_there_stays_when_the_domain_can_not_be_written(self):
        self.write(f"{path_of(20)}/inside", b"")
        self.write(f"{DOCUMENTS}/kept", b"kept")
        (self.root / path_of(21)).symlink_to("kept")
        (self.root / path_of(22)).symlink_to("nowhere")
        os.mkfifo(self.root / path_of(23))
        self.write_domain({"wifi": 2})
        self.lock_store()
        for trigger in ("20", "21", "22", "23"):
            self.refuse(1, "profile", "save", trigger, "--overwrite")
        self.assertTrue((self.root / path_of(21)).is_symlink())
        self.assertTrue((self.root / path_of(22)).is_symlink())
        self.assertTrue((self.root / path_of(23)).is_fifo())

    def test_wrong_use(self):
        self.refuse(2, "profile", "save")
        self.refuse(2, "profile", "save", "20", "21")
        self.refuse(2, "profile", "save", "")
        self.refuse(2, "profile", "save", "20", "--force")
        self.refuse(2, "profile")
        self.refuse(2, "profile", "rename", "20")


if __name__ == "__main__":
    unittest.main()
