from profiles import DEFAULTS, DAMAGED, ProfileTest, path_of
from program import DOCUMENTS


class Names(ProfileTest):
    def test_id_title_level_and_path(self):
        self.write_profile(20, {"wifi": 1})
        self.write_profile(101, {"wifi": 2})
        for name in ("20", "Battery 20%", "battery 20%", "20%", f"/{path_of(20)}"):
            self.assertEqual(self.show(name), {"wifi": 1})
        for name in ("101", "Charging started", "CHARGING STARTED", f"/{path_of(101)}"):
            self.assertEqual(self.show(name), {"wifi": 2})

    def test_hyphens_make_no_difference(self):
        self.write_profile(131, {"wifi": 1})
        for name in ("Wi-Fi connected", "wi-fi connected", "WIFI CONNECTED"):
            self.assertEqual(self.show(name), {"wifi": 1})

    def test_what_is_no_trigger(self):
        self.write_profile(20, {})
        for name in ("0%", "101%", "020", "20%%", "%", "103", "Battery", f"/{DOCUMENTS}/x.qvx/y.qvx",
                     f"/{DOCUMENTS}/../x.qvx", f"/{DOCUMENTS}/x"):
            with self.subTest(name=name):
                self.assertIn("quorvantis triggers", self.refuse(3, "profile", "show", name))

    def test_trigger_that_could_be_meant(self):
        self.assertIn('did you mean "Charging started"?',
                      self.refuse(3, "profile", "load", "chargin started"))

    def test_path_of_a_profile_that_is_named_otherwise(self):
        path = f"/{DOCUMENTS}/mine.qvx"
        self.write_profile(20, {"profilepercentage": "20", "wifi": 2})
        (self.root / path_of(20)).rename(self.root / path[1:])
        self.assertEqual(self.document("profile", "list")[0]["path"], path)
        self.assertEqual(self.show(path)["wifi"], 2)
        self.output("profile", "load", path)
        self.assertEqual(self.domain()["wifi"], 2)
        self.refuse(3, "profile", "save", path)
        self.output("profile", "copy", path, "30")
        self.assertEqual(self.show("30"), {"profilepercentage": "30", "wifi": 2})
        self.output("profile", "delete", path)
        self.refuse(3, "profile", "show", path)


    def test_path_on_this_machine(self):
        self.write_profile(20, {"wifi": 1})
        path = f"{self.document('where')['profiles']}/profile_20.qvx"
        self.assertEqual(self.show(path), {"wifi": 1})
        self.output("profile", "load", path)
        self.refuse(3, "profile", "show", f"{self.scratch}/profile_20.qvx")


class Copy(ProfileTest):
    def test_binds_a_copy_to_another_trigger(self):
        self.write_domain({"theirs": 1})
        self.write_profile(20, {"profilepercentage": "20", "wifi": 2, "theirs": 5})
        self.output("profile", "copy", "20%", "Charging started")
        self.assertEqual(self.show("101"), {"profilepercentage": "101", "wifi": 2, "theirs": 5})
        self.assertEqual(self.show("20"), {"profilepercentage": "20", "wifi": 2, "theirs": 5})
        self.assertEqual(self.domain(), {"theirs": 1})

    def test_existing_one_is_kept(self):
        self.write_profile(20, {"wifi": 1})
        self.write_profile(30, {"wifi": 2})
        self.assertIn("--overwrite", self.refuse(4, "profile", "copy", "20", "30"))
        self.output("profile", "copy", "20", "30", "--overwrite")
        self.assertEqual(self.show("30"), {"wifi": 1, "profilepercentage": "30"})

    def test_refusals(self):
        self.refuse(3, "profile", "copy", "20", "30")
        self.refuse(2, "profile", "copy", "20")
        self.write(path_of(20), DAMAGED)
        self.refuse(1, "profile", "copy", "20", "30")
        self.refuse(3, "profile", "copy", "20", "nonsense")


class Differences(ProfileTest):
    def test_alike_ones_are_counted(self):
        self.write_domain({"wifi": 1})
        self.write_profile(20, {"profilepercentage": "20", "wifi": 2})
        lines = self.output("profile", "diff", "20").splitlines()
        self.assertIn("wifi: On -> Off", lines)
        self.assertIn("profilepercentage: Battery 55% -> Battery 20%", lines)
        self.assertEqual(lines[2:], ["48 more keys are stored differently, but show the same value; --stored lists them"])
        self.assertEqual(len(self.document("profile", "diff", "20")), 50)

    def test_without_others_the_alike_ones_are_all(self):
        self.write_profile(20, DEFAULTS)
        self.write_profile(21, {key: value for key, value in DEFAULTS.items() if key != "wifi"})
        self.assertEqual(self.output("profile", "diff", "20", "21"),
                         "1 key is stored differently, but shows the same value; "
                         "--stored lists it\n")

    def test_stored_lists_those_too(self):
        self.write_domain({"wifi": 1})
        self.write_profile(20, {"wifi": 2})
        lines = self.output("profile", "diff", "20", "--stored").splitlines()
        self.assertIn("vibrate: null -> 0 (shows off)", lines)
        self.assertIn("wifi: On -> Off", lines)
        self.assertEqual(len(lines), len(self.document("profile", "diff", "20")))

    def test_dry_run_of_a_load(self):
        self.write_domain({"wifi": 1})
        self.write_profile(20, {"wifi": 2})
        before = self.everything()
        for more in ([], ["--json"], ["--stored"]):
            self.assertEqual(self.output("profile", "load", "20", "--dry-run", *more),
                             self.output("profile", "diff", "20", *more))
        self.assertEqual(self.everything(), before)
        self.refuse(3, "profile", "load", "30", "--dry-run")

    def test_between_two(self):
        self.write_profile(20, {**DEFAULTS, "wifi": 2})
        self.write_profile(30, {key: value for key, value in DEFAULTS.items() if key != "vpn"})
        self.assertEqual(self.output("profile", "diff", "20", "30"),
                         "wifi: Off -> Leave\n"
                         "1 more key is stored differently, but shows the same value; --stored lists it\n")
        self.assertEqual(self.document("profile", "diff", "20", "30"),
                         [{"key": "wifi", "from": 2, "to": 0}, {"key": "vpn", "from": 0, "to": None}])

    def test_profile_that_is_not_there(self):
        self.write_profile(20, {})
        reason = self.refuse(3, "profile", "diff", "20", "30")
        self.assertIn('"Battery 30%"', reason)
        self.assertIn("quorvantis profile list", reason)
