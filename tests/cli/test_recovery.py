import json
import plistlib
import stat
import subprocess

from keyed_archive import archive
from program import DOCUMENTS, PROGRAM, TIMEOUT_SECONDS
from recovery import PROFILE, RecoveryTest


class Snapshots(RecoveryTest):
    def test_a_refused_change_keeps_none(self):
        self.output("set", "wifi", "1")
        kept = self.document("snapshot", "list")
        self.write("wrong.plist", b"{}")
        for code, command in ((3, ["reset", "nosuchkey"]), (3, ["reset", "--page", "Nowhere"]),
                              (2, ["reset", "custbright"]),
                              (1, ["import", str(self.root / "wrong.plist")])):
            with self.subTest(command=command):
                self.refuse(code, *command)
        self.output("reset", "bluetooth")  # has its default
        self.assertEqual(self.document("snapshot", "list"), kept)

    def test_one_whose_profiles_were_too_large_says_so(self):
        self.output("profile", "save", "30")
        self.write(PROFILE, b"x" * (33 << 20))
        self.run_program("profile", "delete", "30")
        last = self.output("snapshot", "list").splitlines()[-1]
        self.assertTrue(last.endswith("before \"delete Battery 30%\", without profiles"), last)
        done = self.run_program("snapshot", "restore", last.split()[0])
        self.assertEqual(done.returncode, 0)
        self.assertIn(b"this snapshot has no profiles; they stay as they are", done.stderr)

    def test_an_import_that_changes_nothing_keeps_none(self):
        self.output("set", "wifi", "1")
        self.output("export", "settings.plist")
        self.output("import", "settings.plist")
        self.output("set", "wifi", "2")
        kept = self.befores()
        self.output("import", "settings.plist")
        self.assertEqual(self.befores(), kept + ["import"])
        self.output("import", "settings.plist")
        self.assertEqual(self.befores(), kept + ["import"])

    def test_one_is_kept_before_each_change_of_many_values(self):
        self.output("set", "wifi", "1")
        self.output("profile", "save", "20")
        self.output("profile", "load", "20")
        self.output("profile", "save", "20", "--overwrite")
        self.output("profile", "export", "20", "20.plist")
        self.output("profile", "delete", "20")
        self.output("profile", "import", "20.plist")
        self.output("export", "all.plist")
        self.output("reset", "--all")
        self.output("import", "all.plist")
        self.output("snapshot", "restore", "2")
        self.assertEqual(self.befores(), ["daily", "load 20", "overwrite 20", "delete 20", "import",
                                          "reset", "import", "restore"])
        kept = self.document("snapshot", "list")
        self.assertEqual([each["number"] for each in kept], list(range(1, 9)))
        for each in kept:
            self.assertRegex(each["time"]["$date"], r"^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ$")

    def test_the_latest_twenty_are_kept(self):
        self.write_profile({"wifi": 2})
        for _ in range(21):
            self.output("profile", "save", "20", "--overwrite")
        self.assertEqual([each["number"] for each in self.document("snapshot", "list")],
                         list(range(3, 23)))

    def test_are_listed_with_their_time(self):
        self.write_profile({"wifi": 2})
        self.output("profile", "load", "20")
        self.assertRegex(self.output("snapshot", "list").splitlines()[1],
                         r'^2  \d{4}-\d\d-\d\d \d\d:\d\d:\d\d UTC  before "load Battery 20%"$')

    def test_its_settings_are_shown_and_compared_and_restored(self):
        self.write_domain({"wifi": 1, "vpn": 2})
        self.output("set", "wifi", "2")
        self.assertEqual(self.document("snapshot", "show", "1"), {"wifi": 1, "vpn": 2})
        self.assertEqual(self.output("snapshot", "show", "1"), "vpn = 2\nwifi = 1\n")
        self.assertEqual(self.document("snapshot", "diff", "1"),
                         [{"key": "wifi", "from": 2, "to": 1}])
        self.output("snapshot", "restore", "1")
        self.assertEqual(self.domain(), {"wifi": 1, "vpn": 2})
        self.assertEqual(self.befores(), ["daily", "restore"])

    def test_a_restore_brings_profiles_back(self):
        self.write_profile({"wifi": 2})
        before = (self.root / PROFILE).read_bytes()
        self.output("profile", "delete", "20")
        self.output("snapshot", "restore", "2")
        self.assertEqual((self.root / PROFILE).read_bytes(), before)

    def test_a_restore_says_what_becomes_of_profiles(self):
        others = [f"{DOCUMENTS}/profile_{number}.qvx" for number in (21, 22)]
        self.write_profile({"wifi": 2})
        self.write(others[1], archive({"profilepercentage": "22"}))
        self.output("set", "vpn", "1")
        self.write_profile({"wifi": 1})
        self.write(others[0], archive({"profilepercentage": "21"}))
        (self.root / others[1]).unlink()
        self.assertEqual(self.output("snapshot", "diff", "1"),
                         "vpn: On -> Leave\n"
                         "Battery 20%: would change\n"
                         "  wifi: On -> Off\n"
                         "Battery 21%: would be deleted\n"
                         "Battery 22%: would come back\n")
        self.assertEqual(self.output("snapshot", "restore", "1"), "deleted: Battery 21%\n")
        self.output("undo")
        self.assertEqual(self.document("snapshot", "restore", "1"),
                         {"deleted": [f"/{others[0]}"], "left": []})

    def test_one_that_is_not_there(self):
        for command in ("show", "diff", "restore"):
            self.assertIn("no snapshot 7", self.refuse(3, "snapshot", command, "7"))
        self.refuse(2, "snapshot", "show", "x")

    def test_other_users_cannot_read_them(self):
        self.output("set", "wifi", "1")
        for path in (self.state / "quorvantis").rglob("*"):
            self.assertEqual(stat.S_IMODE(path.stat().st_mode), 0o700 if path.is_dir() else 0o600)

    def test_reading_leaves_no_trace(self):
        self.write_domain({"wifi": 1})
        for command in (["get", "wifi"], ["page", "PowerSavingListController"], ["defaults", "read"],
                        ["profile", "list"]):
            self.output(*command)
        self.assertFalse(self.state.exists())

    def test_get_looks_for_none(self):
        self.output("set", "wifi", "1")
        log = self.scratch / "log"
        subprocess.run(["strace", "-f", "-o", log, PROGRAM, "get", "wifi"], env=self.env, check=True,
                       stdout=subprocess.DEVNULL)
        self.assertNotIn(str(self.state), log.read_text(errors="replace"))

    def test_a_load_goes_through_where_none_can_be_kept(self):
        self.state.write_text("a file")
        self.write_profile({"wifi": 2})
        done = self.run_program("profile", "load", "20")
        self.assertEqual(done.returncode, 0)
        self.assertIn(b'the snapshot before "load Battery 20%" was not kept', done.stderr)
        self.assertEqual(self.domain()["wifi"], 2)

    def test_without_a_home_nothing_is_kept_and_that_is_said(self):
        self.write_profile({"wifi": 2})
        del self.env["HOME"], self.env["XDG_STATE_HOME"]
        done = self.run_program("profile", "load", "20")
        self.assertEqual(done.returncode, 0)
        self.assertIn(b"neither XDG_STATE_HOME nor HOME is set", done.stderr)
        self.refuse(1, "snapshot", "list")

    def test_home_is_the_place_where_no_other_is_named(self):
        self.env["XDG_STATE_HOME"] = "relative"
        self.output("set", "wifi", "1")
        self.assertTrue((self.scratch / ".local/state/quorvantis").is_dir())
        self.assertFalse((self.scratch / "relative").exists())


class Undo(RecoveryTest):
    def test_of_a_set(self):
        self.write_domain({"wifi": 1})
        self.output("set", "wifi", "2")
        self.assertEqual(self.output("undo"), "undone: set Wi-Fi (Power Saving)\n")
        self.assertEqual(self.domain(), {"wifi": 1})
        self.assertEqual(self.output("redo"), "done again: set Wi-Fi (Power Saving)\n")
        self.assertEqual(self.domain(), {"wifi": 2})

    def test_of_nothing(self):
        self.root.mkdir()
        self.assertIn("nothing to undo", self.refuse(3, "undo"))
        self.assertIn("nothing to redo", self.refuse(3, "redo"))
        self.assertFalse(self.state.exists())

    def test_of_nothing_where_nothing_can_be_kept(self):
        self.root.mkdir()
        self.state.symlink_to("/proc/nowhere")
        for command in ("undo", "redo"):
            self.assertEqual(self.refuse(3, command), f"there is nothing to {command}")

    def test_of_a_load(self):
        self.write_domain({"wifi": 1, "profileactive": 0.0})
        self.write_profile({"wifi": 2})
        before = self.typed_domain()
        self.output("profile", "load", "20")
        self.output("undo")
        self.assertEqual(self.typed_domain(), before)

    def test_of_a_load_names_the_trigger(self):
        self.output("profile", "save", "20")
        self.output("profile", "load", "20%")
        self.assertEqual(self.output("undo"), "undone: load Battery 20%\n")
        self.assertEqual(self.output("undo"), "undone: save Battery 20%\n")

    def test_names_the_file_of_a_profile_that_is_no_trigger_s(self):
        path = f"{DOCUMENTS}/mine.qvx"
        self.write(path, archive({"profilepercentage": "20", "wifi": 2}))
        for command in ("load", "delete"):
            self.output("profile", command, f"/{path}")
            self.assertEqual(self.output("undo"), f"undone: {command} mine.qvx\n")

    def test_as_json(self):
        self.output("set", "wifi", "2", "vpn", "1")
        self.output("defaults", "write", "wifi", "-int", "1")
        for command in ("undo", "redo"):
            done = self.run_program(command, "--json")
            self.assertEqual(json.loads(done.stdout),
                             {"what": "set Wi-Fi (Power Saving) and 1 more", "left": ["wifi"]})

    def test_of_a_delete_and_an_overwriting_import_byte_for_byte(self):
        self.write_profile({"wifi": 2})
        before = (self.root / PROFILE).read_bytes()
        (self.scratch / "20.plist").write_bytes(
            plistlib.dumps({"profilepercentage": "20", "wifi": 1}))
        for command in (["delete", "20"], ["import", "20.plist", "--overwrite"]):
            self.output("profile", *command)
            self.output("undo")
            self.assertEqual((self.root / PROFILE).read_bytes(), before)

    def test_leaves_what_another_process_has_changed_and_names_it(self):
        self.output("set", "wifi", "2", "vpn", "1")
        self.output("defaults", "write", "wifi", "-int", "1")
        done = self.run_program("undo")
        self.assertEqual(done.returncode, 0)
        self.assertEqual(done.stdout, b"undone: set Wi-Fi (Power Saving) and 1 more\n")
        self.assertIn(b"wifi stays as it is", done.stderr)
        self.assertEqual(self.domain(), {"wifi": 1})

    def test_that_leaves_everything_says_so_and_fails(self):
        self.output("set", "vpn", "1")
        self.output("set", "wifi", "2")
        self.output("defaults", "write", "wifi", "-int", "1")
        self.assertIn('nothing of "set Wi-Fi (Power Saving)" is undone: wifi stays as it is, since it was changed after that',
                      self.refuse(1, "undo"))
        self.assertEqual(self.domain(), {"vpn": 1, "wifi": 1})
        self.assertEqual(self.output("undo"), "undone: set VPN (Power Saving)\n")

    def test_names_what_was_reset(self):
        self.output("set", "wifi", "2", "vpn", "2")
        self.output("reset", "wifi", "vpn")
        self.assertEqual(self.output("undo"), "undone: reset Wi-Fi (Power Saving) and 1 more\n")
        self.output("reset", "--all")
        self.assertEqual(self.output("undo"), "undone: reset all\n")

    def test_of_a_change_that_drive_has_made(self):
        lines = ['{"do":"launch"}', '{"do":"open","page":"PowerSavingListController"}',
                 '{"do":"set","row":"wifi","value":2}', '{"do":"set","row":"wifi","value":2}']
        self.assertEqual(self.run_program("drive", input="\n".join(lines).encode()).returncode, 0)
        self.assertRegex(self.output("undo"), r"^undone: set Wi-Fi \(Power Saving\)\n$")
        self.assertEqual(self.document("defaults", "read"), {})
        self.refuse(3, "undo")

    def test_defaults_write_is_another_process(self):
        self.output("defaults", "write", "wifi", "-int", "1")
        self.refuse(3, "undo")

    def test_a_refused_set_is_not_remembered(self):
        self.refuse(2, "set", "wifi", "77")
        self.refuse(3, "undo")


class StoppedLoad(RecoveryTest):
    def load_killed_at(self, call, time):
        """Whether it was."""
        ended = subprocess.run(
            ["strace", "-f", "-o", "/dev/null", "-e", f"inject={call}:signal=KILL:when={time}",
             PROGRAM, "profile", "load", "20"], env=self.env, timeout=TIMEOUT_SECONDS, check=False,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        return ended.returncode in (-9, 137)

    def test_is_finished_or_never_was(self):
        self.write_profile({"wifi": 2})
        before = {"wifi": (int, 1), "profileactive": (float, 0.0)}
        halves, time = 0, 0
        while True:
            time += 1
            self.write_domain({key: value for key, (_, value) in before.items()})
            if not self.load_killed_at("renameat,rename,renameat2", time):
                break
            halves += self.typed_domain().get("profileactive") == (int, 1)
            self.output("set", "ringer", "1")
            found = self.typed_domain()
            del found["ringer"]
            if found != before:
                self.assertEqual(found["wifi"], (int, 2), time)
                self.assertEqual(found["profileactive"], (float, 1.0), time)
        self.assertGreater(halves, 0)
        self.assertEqual(list(self.state.rglob("load")), [])
