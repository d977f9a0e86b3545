import json
import plistlib
from pathlib import Path

from program import DOCUMENTS, ProgramTest


class List(ProgramTest):
    def test_every_key_once(self):
        keys = [each["key"] for each in self.document("list")]
        self.assertEqual(len(keys), len(set(keys)))
        in_pages = {row["id"] for page in self.document("pages")
                    for row in self.document("page", page["class"])
                    if row["cell"] not in ("PSGroupCell", "PSButtonCell", "ColorSwatchCell")}
        self.assertLessEqual(set(keys), in_pages)
        self.assertGreater(len(keys), 70)

    def test_shape(self):
        self.output("set", "wifi", "2")
        listed = {each["key"]: each for each in self.document("list")}
        self.assertEqual(json.dumps(listed["wifi"]), json.dumps(
            {"key": "wifi", "value": 2, "default": 0, "shown": "Off",
             "class": "PowerSavingListController", "label": "Wi-Fi"}))
        self.assertIsNone(listed["adressbook"]["default"])

    def test_changed(self):
        self.assertEqual(self.document("list", "--changed"), [])
        self.write_domain({"wifi": 2, "vpn": 0, "vibrate": False, "custbright": 50.0,
                           "alertmsg": "x", "theirs": 1, "bannercolor": "#FFFFFF"})
        self.assertEqual([each["key"] for each in self.document("list", "--changed")],
                         ["wifi", "alertmsg", "bannercolor"])

    def test_human_readable(self):
        self.output("set", "wifi", "2")
        self.assertEqual(self.output("list", "--changed"),
                         "wifi  Off  Power Saving > Wi-Fi\n")


class Describe(ProgramTest):
    def test_slider(self):
        self.assertEqual(self.document("describe", "custbright"), {
            "key": "custbright", "label": "Brightness (%)", "class": "PowerSavingListController",
            "page": "Power Saving", "kind": "number", "minimum": 0.0, "maximum": 100.0,
            "default": 50, "value": 50, "dimmedBy": "custbrightenabled"})
        self.assertIn('"minimum":0.0', self.output("describe", "custbright", "--json"))
        self.assertIn("\nstate    dimmed: switch on Custom Brightness first\n",
                      self.output("describe", "custbright"))

    def test_choice(self):
        described = self.document("describe", "wifi")
        self.assertEqual(described["kind"], "choice")
        self.assertEqual(described["choices"], self.document("choices", "wifi"))
        self.assertNotIn("dimmedBy", described)

    def test_kinds(self):
        for key, kind in (("vibrate", "switch"), ("alertmsg", "text"), ("bannercolor", "color"),
                          ("playsound", "choice")):
            self.assertEqual(self.document("describe", key)["kind"], kind)

    def test_unknown(self):
        self.refuse(3, "describe", "nosuchkey")


class Where(ProgramTest):
    def test_real_paths(self):
        root = str(self.root)
        self.env["XDG_STATE_HOME"] = "/somewhere"
        self.assertEqual(self.document("where"), {
            "root": root,
            "settings": f"{root}/var/mobile/Library/Preferences/com.zorvek.quorvantis.plist",
            "profiles": f"{root}/var/mobile/Documents/Quorvantis",
            "log": f"{root}/var/mobile/Documents/Quorvantis/quorvantis.log",
            "contacts": f"{root}/var/mobile/Library/AddressBook",
            "sounds": "/usr/share/sounds",
            "state": "/somewhere/quorvantis"})
        self.assertFalse(self.root.exists())

    def test_is_where_things_are(self):
        self.output("set", "wifi", "1")
        self.write("System/Library/Audio/UISounds/a.caf", b"x")
        where = self.document("where")
        self.assertEqual(plistlib.loads(Path(where["settings"]).read_bytes()), {"wifi": 1})
        self.assertEqual(where["sounds"], f"{self.root}/System/Library/Audio/UISounds")

    def test_relative_folders(self):
        where = self.document("where", "--root", "here/./", "--contacts", "cards/")
        self.assertEqual(where["root"], str(self.scratch / "here"))
        self.assertEqual(where["contacts"], str(self.scratch / "cards"))
        self.env["HOME"] = "home"
        self.assertEqual(self.document("where")["state"], str(self.scratch / "home/.local/state/quorvantis"))

    def test_human_readable(self):
        self.assertIn(f"root      {self.root}\n", self.output("where"))


class Reset(ProgramTest):
    CHANGED = {"wifi": 2, "vibrate": True, "bannercolor": "#FFFFFF", "custbright": 20.0,
               "alertmsg": "x", "theirs": 1}

    def setUp(self):
        super().setUp()
        self.write_domain(self.CHANGED)

    def test_keys(self):
        self.output("reset", "wifi", "vibrate", "alertmsg", "vpn")
        self.assertEqual(self.domain(), self.CHANGED | {
            "wifi": 0, "vibrate": False, "alertmsg": "Current battery level %BAT%"})

    def test_page_by_class_or_title(self):
        self.output("reset", "--page", "Power Saving")
        self.assertEqual(self.domain(), self.CHANGED | {"wifi": 0, "custbright": 50.0})
        self.output("reset", "--page", "ExtrasListController")
        self.assertEqual(self.domain()["bannercolor"], "#34495F")

    def test_all(self):
        self.output("reset", "--all")
        self.assertEqual(self.document("list", "--changed"), [])
        self.assertEqual(self.domain()["theirs"], 1)

    def test_a_dimmed_row_is_refused_as_a_set_refuses_it(self):
        self.assertEqual(self.refuse(2, "reset", "custbright"),
                         self.refuse(2, "set", "custbright", "50"))

    def test_dry_run_is_what_a_reset_changes(self):
        before = self.domain()
        predicted = self.document("reset", "--all", "--dry-run")
        self.assertEqual(self.domain(), before)
        self.assertIn({"key": "wifi", "from": 2, "to": 0}, predicted)
        self.output("reset", "--all")
        after = self.domain()
        self.assertEqual({each["key"]: each["to"] for each in predicted},
                         {key: after[key] for key in after if after[key] != before.get(key)})
        self.assertEqual(self.output("reset", "--all", "--dry-run"), "")

    def test_dry_run_is_human_readable(self):
        lines = self.output("reset", "wifi", "vibrate", "--dry-run").splitlines()
        self.assertEqual(sorted(lines), ["vibrate: on -> off", "wifi: Off -> Leave"])

    def test_refusals(self):
        self.refuse(2, "reset")
        self.refuse(2, "reset", "wifi", "--all")
        self.refuse(2, "reset", "--page", "Sounds", "--all")
        self.refuse(2, "reset", "custbright")
        self.refuse(2, "reset", "wifi", "custbright")
        self.refuse(2, "reset", "adressbook")
        self.refuse(3, "reset", "wifi", "nosuchkey")
        self.refuse(3, "reset", "--page", "nosuchpage")


class Transfer(ProgramTest):
    def exported(self):
        return plistlib.loads(self.output("export", "-").encode())

    def import_list(self, values, *options):
        (self.scratch / "given").write_bytes(plistlib.dumps(values))
        return ["import", "given", *options]

    def test_export_has_every_setting(self):
        self.output("set", "wifi", "2")
        text = self.output("export", "-")
        self.assertTrue(text.startswith("<?xml"))
        values = self.exported()
        self.assertEqual(values["wifi"], 2)
        self.assertEqual(set(values), {each["key"] for each in self.document("list")} - {"adressbook"})

    def test_what_is_exported_can_be_imported(self):
        self.output("set", "wifi", "2", "vibrate", "on", "vibrateduration", "7", "bannercolor",
                    "Snow", "alertmsg", "<&>")
        before = {each["key"]: each["value"] for each in self.document("list")}
        self.output("export", "file")
        self.output("reset", "--all")
        self.output("import", "file")
        self.assertEqual({each["key"]: each["value"] for each in self.document("list")}, before)
        done = self.run_program("import", "-", input=(self.scratch / "file").read_bytes())
        self.assertEqual((done.returncode, done.stderr), (0, b""))

    def test_only_what_the_list_has_is_set(self):
        self.write_domain({"theirs": 1, "vpn": 2})
        self.output(*self.import_list({"wifi": 1, "custbright": 20}))
        self.assertEqual(self.domain(), {"theirs": 1, "vpn": 2, "wifi": 1, "custbright": 20})

    def test_binary(self):
        (self.scratch / "given").write_bytes(plistlib.dumps({"wifi": 1}, fmt=plistlib.FMT_BINARY))
        self.output("import", "given")
        self.assertEqual(self.domain(), {"wifi": 1})

    def test_each_key_is_checked_and_none_is_set(self):
        for key, value in (("nosuchkey", 1), ("wifi", 7), ("wifi", "1"), ("custbright", 101),
                           ("custbright", True), ("custbright", "x"), ("vibrate", "yes"),
                           ("alertmsg", 1), ("alertmsg", "a\nb"), ("bannercolor", "blue"),
                           ("bannercolor", 5), ("profilepercentage", "103"), ("wifi", [1])):
            with self.subTest(key=key, value=value):
                reason = self.refuse(2, *self.import_list({"vpn": 1, key: value}))
                self.assertTrue(reason.startswith(f'given: "{key}" '), reason)

    def test_a_choice_s_number_becomes_the_choice(self):
        self.output(*self.import_list({"wifi": 2.0}))
        self.assertIs(type(self.domain()["wifi"]), int)
        for value in (True, False):
            self.assertIn('"wifi" is not one of the choices',
                          self.refuse(2, *self.import_list({"wifi": value})))

    def test_all_refused_keys_are_named(self):
        self.assertEqual(self.refuse(2, *self.import_list({"wfi": 1, "custbright": 900, "vpn": 7})),
                         'given: "custbright" must be a number from 0 to 100; "vpn" is not one of '
                         'the choices; "wfi" is not a setting; did you mean "wifi"?')

    def test_export_names_what_an_import_refuses(self):
        self.write_domain({"custbright": 900.0, "vpn": 7, "wifi": 1})
        done = self.run_program("export", "file")
        self.assertEqual((done.returncode, done.stderr.decode()),
                         (0, "quorvantis: import takes these values only where they are stored: "
                             "custbright, vpn\n"))
        self.output("import", "file")
        self.output("reset", "--all")
        reason = self.refuse(2, "import", "file")
        for key in ("custbright", "vpn"):
            self.assertIn(f'"{key}"', reason)

    def test_what_is_no_list(self):
        self.refuse(2, *self.import_list([1]))
        (self.scratch / "given").write_bytes(b"x")
        self.assertTrue(self.refuse(1, "import", "given").startswith("given: "))
        self.refuse(1, "import", "nosuchfile")

    def test_dry_run(self):
        self.write_domain({"wifi": 2, "vpn": 1})
        given = self.import_list({"wifi": 1, "vpn": 1.0, "dnd": 0}, "--dry-run")
        before = self.everything()
        self.assertEqual(self.document(*given), [{"key": "wifi", "from": 2, "to": 1},
                                                 {"key": "dnd", "from": None, "to": 0}])
        self.assertEqual(self.output(*given), "wifi: Off -> On\n"
                         "1 more key is stored differently, but shows the same value\n")
        self.assertEqual(self.everything(), before)

    def test_a_profile_is_refused(self):
        self.output("profile", "save", "20")
        self.output("profile", "export", "20", "xml")
        self.write("../archive", (self.root / f"{DOCUMENTS}/profile_20.qvx").read_bytes())
        for file in ("xml", "archive"):
            reason = self.refuse(2, "import", file)
            self.assertTrue(reason.startswith(f"{file}: a profile, not settings; "), reason)
            self.assertIn('"quorvantis profile import"', reason)

    def test_export_takes_the_place_of_an_export_only(self):
        self.output("export", "file")
        self.output("set", "wifi", "2")
        self.output("export", "file")
        self.assertEqual(plistlib.loads((self.scratch / "file").read_bytes())["wifi"], 2)
        self.output("profile", "save", "20")
        self.output("profile", "export", "20", "profile")
        (self.scratch / "notes").write_bytes(b"mine")
        (self.scratch / "empty").write_bytes(b"")
        for file in ("profile", "notes"):
            before = (self.scratch / file).read_bytes()
            self.assertIn("--overwrite", self.refuse(4, "export", file))
            self.assertEqual((self.scratch / file).read_bytes(), before)
            self.output("export", file, "--overwrite")
        self.output("export", "empty")
        for file in ("profile", "notes", "empty"):
            self.assertEqual(plistlib.loads((self.scratch / file).read_bytes())["wifi"], 2)

    def test_export_that_can_not_be_written(self):
        self.refuse(1, "export", "no/folder")


class Pages(ProgramTest):
    def test_by_title_in_any_case(self):
        by_class = self.output("page", "SoundsListController")
        for name in ("Sounds", "sounds", "SOUNDS"):
            self.assertEqual(self.output("page", name), by_class)

    def test_footers_stand_below_their_rows(self):
        lines = self.output("page", "Conditions").splitlines()
        footer = lines.index("  A disabled profile fires again once it has been turned on.")
        self.assertTrue(lines[footer - 1].strip().startswith("Disable Once Fired"))

    def test_json_has_these_members(self):
        for page in self.document("pages"):
            for row in self.document("page", page["title"] or page["class"]):
                dimmed = [] if row["usable"] else ["dimmedBy"]
                self.assertEqual(list(row), ["id", "label", "cell", "value", "usable"] + dimmed)
