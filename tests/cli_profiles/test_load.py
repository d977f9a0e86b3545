import plistlib
import unittest

from keyed_archive import archive
from profiles import DAMAGED, DEFAULTS, ProfileTest, path_of
from program import DOMAIN


class Load(ProfileTest):
    def test_sets_every_setting(self):
        self.write_domain({"wifi": 1, "bluetooth": 2, "msgtext": "Old", "tapaction": 201})
        self.write_profile(20, {"profilepercentage": "20", "wifi": 2, "vibrate": True})
        self.output("profile", "load", "20")
        self.assertEqual(self.domain(), {**DEFAULTS, "profilepercentage": "20", "wifi": 2,
                                         "vibrate": True, "tapaction": 201})

    def test_undoes_what_was_set_since_the_save(self):
        self.output("set", "wifi", "1")
        self.output("profile", "save", "Device locked")
        self.output("set", "wifi", "2")
        self.output("profile", "load", "111")
        self.assertEqual(self.output("get", "wifi"), "1\n")

    def test_leaves_what_has_no_default(self):
        self.write_domain({"autoupdates": 2, "profilepercentage": "7"})
        self.write_profile(20, {})
        self.output("profile", "load", "20")
        self.assertEqual(self.domain(), {**DEFAULTS, "autoupdates": 2, "profilepercentage": "7"})

    def test_switch_of_the_page_becomes_a_real(self):
        self.write_profile(20, {"profilepercentage": "20", "profileactive": 0})
        self.output("profile", "load", "20")
        self.assertEqual(self.output("defaults", "read", "profileactive"), "0.0\n")
        self.write_profile(20, {"profilepercentage": "20", "profileactive": 3})
        self.output("profile", "load", "20")
        self.assertEqual(self.output("defaults", "read", "profileactive"), "1.0\n")

    def test_archive_of_no_dictionary_is_an_empty_profile(self):
        self.write_profile(20, ["a"])
        self.output("profile", "load", "20")
        self.assertEqual(self.domain(), DEFAULTS)

    def test_none(self):
        self.assertIn("profile_20.qvx", self.refuse(3, "profile", "load", "20"))

    def test_no_trigger(self):
        self.refuse(3, "profile", "load", "140")

    def test_no_archive(self):
        self.write_domain({"wifi": 2})
        self.write(path_of(20), DAMAGED)
        self.assertIn("profile_20.qvx", self.refuse(1, "profile", "load", "20"))

    def test_folder_in_its_place(self):
        (self.root / path_of(20)).mkdir(parents=True)
        self.refuse(1, "profile", "load", "20")

    def test_link_that_leaves_the_folder(self):
        outside = self.write("outside.qvx", archive({"profilepercentage": "20"}))
        self.write_profile(5, {})
        (self.root / path_of(20)).symlink_to(outside)
        self.refuse(1, "profile", "load", "20")

    def test_link_that_leads_nowhere(self):
        self.write_profile(5, {})
        (self.root / path_of(20)).symlink_to("nowhere")
        self.assertIn("a link that leads nowhere", self.refuse(1, "profile", "load", "20"))

    def test_foreign_values_leave_a_domain_that_others_read(self):
        foreign = plistlib.loads(archive({"profilepercentage": "20", "wifi": "a set"}))
        objects = foreign["$objects"]
        objects[objects.index("a set")] = {"NS.objects": [plistlib.UID(objects.index("20"))],
                                           "$class": plistlib.UID(len(objects))}
        objects.append({"$classname": "NSSet", "$classes": ["NSSet", "NSObject"]})
        self.write(path_of(20), plistlib.dumps(foreign, fmt=plistlib.FMT_BINARY))
        self.output("profile", "load", "20")
        self.assertEqual(self.domain()["wifi"], 0)
        self.output("profile", "save", "21")
        self.assertEqual(self.domain()["profilepercentage"], "21")

    def test_domain_that_can_not_be_written(self):
        self.write_profile(20, {"profilepercentage": "20", "wifi": 2})
        self.write_domain({"wifi": 1})
        self.lock_store()
        self.refuse(1, "profile", "load", "20")

    def test_damaged_domain_is_left_alone_and_the_way_out_said(self):
        self.damage_domain()
        self.write_profile(20, {"profilepercentage": "20", "wifi": 2})
        reason = self.refuse(1, "profile", "load", "20")
        self.assertTrue(reason.startswith("not loaded: "), reason)
        self.assertIn("repair --restore", reason)


class Diff(ProfileTest):
    def test_what_a_load_would_change(self):
        self.write_domain({**DEFAULTS, "profilepercentage": "20", "wifi": 1})
        self.write_profile(20, {"profilepercentage": "20", "wifi": 2})
        self.assertEqual(self.document("profile", "diff", "20"),
                         [{"key": "wifi", "from": 1, "to": 2}])
        self.assertEqual(self.output("profile", "diff", "20"), "wifi: On -> Off\n")

    def test_nothing_after_the_load(self):
        self.write_domain({"wifi": 1})
        self.write_profile(20, {"profilepercentage": "20", "wifi": 2, "profileactive": 0})
        self.output("profile", "load", "20")
        self.assertEqual(self.document("profile", "diff", "20"), [])
        self.assertEqual(self.output("profile", "diff", "20"), "")

    def test_is_just_what_the_load_changes(self):
        before = {"wifi": 1, "autoupdates": 1, "custbright": 50.0, "tapaction": 201}
        self.write_domain(before)
        self.write_profile(20, {"wifi": 2, "vibrate": 1})
        predicted = self.document("profile", "diff", "20")
        self.output("profile", "load", "20")
        after = self.domain()
        self.assertEqual({each["key"]: each["to"] for each in predicted},
                         {key: after[key] for key in after if after[key] != before.get(key)})

    def test_absent_is_null(self):
        self.write_profile(20, {})
        self.assertIn({"key": "wifi", "from": None, "to": 0},
                      self.document("profile", "diff", "20"))

    def test_numbers_are_compared_by_value(self):
        self.write_domain({**DEFAULTS, "wifi": 1.0, "vibrate": True, "profileactive": 1})
        self.write_profile(20, {"wifi": 1, "vibrate": 1})
        self.assertEqual(self.document("profile", "diff", "20"), [])

    def test_two_profiles(self):
        self.write_profile(20, {"profilepercentage": "20", "wifi": 1, "vpn": 1, "dnd": 1})
        self.write_profile(101, {"profilepercentage": "101", "wifi": 1.0, "vpn": 2, "siri": 1})
        self.assertEqual(self.document("profile", "diff", "20", "Charging started"), [
            {"key": "profilepercentage", "from": "20", "to": "101"},
            {"key": "vpn", "from": 1, "to": 2},
            {"key": "dnd", "from": 1, "to": None},
            {"key": "siri", "from": None, "to": 1}])

    def test_changes_nothing(self):
        self.write_domain({"wifi": 1})
        self.write_profile(20, {"profilepercentage": "20", "wifi": 2})
        before = self.everything()
        self.output("profile", "diff", "20")
        self.output("profile", "diff", "20", "20")
        self.assertEqual(self.everything(), before)

    def test_none(self):
        self.write_profile(20, {})
        self.refuse(3, "profile", "diff", "21")
        self.refuse(3, "profile", "diff", "20", "21")
        self.refuse(3, "profile", "diff", "nonsense")
        self.refuse(3, "profile", "diff", "20", "nonsense")

    def test_no_archive(self):
        self.write_profile(20, {})
        self.write(path_of(21), DAMAGED)
        self.refuse(1, "profile", "diff", "21")
        self.refuse(1, "profile", "diff", "20", "21")

    def test_damaged_domain(self):
        self.write_profile(20, {})
        self.damage_domain()
        self.refuse(1, "profile", "diff", "20")


if __name__ == "__main__":
    unittest.main()
