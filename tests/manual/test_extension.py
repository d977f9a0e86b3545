"""examples/extension.py: it reads what the program writes, and writes what the program reads."""
import subprocess
import sys

from manual import SOURCE, ManualTest
from program import DOCUMENTS, DOMAIN, TIMEOUT_SECONDS
from session_bus import needs_bus, start_session_bus

EXTENSION = [sys.executable, "-B", str(SOURCE / "examples/extension.py")]


class ExtensionTest(ManualTest):
    def once(self, trigger):
        return subprocess.run([*EXTENSION, trigger, "--once"], env=self.env, check=True, text=True,
                              stdout=subprocess.PIPE, timeout=TIMEOUT_SECONDS).stdout

    def save_profile(self, *settings):
        self.output("set", *settings)
        self.output("profile", "save", "20%", "--overwrite")


class Extension(ExtensionTest):
    def test_what_a_profile_asks_for(self):
        self.save_profile("wifi", "Off", "bluetooth", "On", "custbrightenabled", "on",
                          "custbright", "30", "alerttype", "Banner", "alertmsg", "Only %BAT% left")
        self.assertEqual(self.once("20"), "trigger 20:\n  turn Wi-Fi off\n  turn Bluetooth on\n"
                         "  set the brightness to 30 %\n  show: Only 20% left\n")

    def test_profile_holds_what_was_saved(self):
        self.save_profile("wifi", "Off")
        self.output("set", "wifi", "On")
        self.assertEqual(self.once("20"), "trigger 20:\n  turn Wi-Fi off\n")

    def test_nothing_on_a_fresh_store(self):
        self.assertEqual(self.once("20"),
                         "trigger 20:\n  nothing: there is no profile for this trigger\n")

    def test_nothing_while_turned_off(self):
        self.save_profile("wifi", "Off", "enabled", "off")
        self.assertEqual(self.once("20"), "trigger 20:\n  nothing: Quorvantis is turned off\n")

    def test_nothing_with_a_profile_that_is_not_active(self):
        self.save_profile("wifi", "Off", "profileactive", "off")
        self.assertEqual(self.once("20"), "trigger 20:\n  nothing: the profile is not active\n")

    def test_profile_that_leaves_all(self):
        self.output("profile", "save", "20%")
        self.assertEqual(self.once("20"),
                         "trigger 20:\n  nothing: the profile leaves all as it is\n")

    def test_log_grows_at_its_end(self):
        self.save_profile("wifi", "Off")
        self.once("20")
        self.once("101")
        newest, oldest = self.document("log")
        self.assertRegex(oldest, r"^\d{4}-\d\d-\d\d \d\d:\d\d:\d\d trigger 20: turn Wi-Fi off$")
        self.assertIn("trigger 101: nothing", newest)
        self.assertEqual(sorted(path.name for path in (self.root / DOCUMENTS).iterdir()),
                         ["profile_20.qvx", "quorvantis.log"])

    def test_log_that_is_turned_off_stays_as_it_is(self):
        self.output("set", "batterylogenabled", "off")
        self.once("20")
        self.assertEqual(self.document("log"), [])

    def refused(self, *words):
        done = subprocess.run([*EXTENSION, *words], env=self.env, capture_output=True, check=False,
                              text=True, timeout=TIMEOUT_SECONDS)
        self.assertNotEqual(done.returncode, 0)
        self.assertNotIn("Traceback", done.stderr)
        return done.stderr

    def test_a_level_may_have_its_unit(self):
        self.save_profile("wifi", "Off")
        self.assertEqual(self.once("20%"), self.once("20"))

    def test_what_is_no_trigger_is_refused(self):
        for word in ("0", "101%", "103", "half", "-5"):
            self.assertIn(f"no trigger '{word}'", self.refused("--once", "--", word))

    def test_damaged_files_are_reported(self):
        self.save_profile("wifi", "Off")
        for path in (f"{DOCUMENTS}/quorvantis.log", f"{DOCUMENTS}/profile_20.qvx", DOMAIN):
            file = self.write(path, b"bplist00 damaged")
            self.assertTrue(self.refused("20", "--once").startswith(f"extension: {file}: "))
            self.assertEqual(file.read_bytes(), b"bplist00 damaged")

    def test_no_bus(self):
        done = subprocess.run([*EXTENSION, "20"], env=self.env, capture_output=True, check=False,
                              text=True, timeout=TIMEOUT_SECONDS)
        self.assertEqual((done.returncode, done.stderr), (1, "extension: no session bus\n"))


@needs_bus
class ListeningExtension(ExtensionTest):
    def test_each_change_is_followed(self):
        start_session_bus(self)
        self.save_profile("wifi", "Off")
        extension = subprocess.Popen([*EXTENSION, "20"], env=self.env, stdout=subprocess.PIPE,
                                     text=True)
        self.addCleanup(extension.communicate)
        self.addCleanup(extension.kill)
        self.assertEqual(extension.stdout.readline(), "trigger 20:\n")
        self.assertEqual(extension.stdout.readline(), "  turn Wi-Fi off\n")
        self.output("set", "vpn", "On", "enabled", "off", "dnd", "On")  # three notifications
        self.assertEqual(extension.stdout.readline(), "trigger 20:\n")
        self.assertEqual(extension.stdout.readline(), "  nothing: Quorvantis is turned off\n")
        self.output("set", "enabled", "on")
        self.assertEqual(extension.stdout.readline(), "trigger 20:\n")
        self.assertEqual(extension.stdout.readline(), "  turn Wi-Fi off\n")
