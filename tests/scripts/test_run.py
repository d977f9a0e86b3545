"""What ./run does with its arguments, in a copy of the clone that is built already."""
import os
import shutil
from pathlib import Path

from stand_in import SOURCE, StandInTest


class Run(StandInTest):
    def setUp(self):
        super().setUp()
        shutil.copy(SOURCE / "run", self.scratch)
        self.stand_in("install-packages", folder=self.scratch / "scripts")
        self.stand_in("cmake")
        programs = self.scratch / "build/release/bin"
        self.stand_in("quorvantis-settings", folder=programs)
        (programs / "quorvantis").symlink_to(os.environ["QUORVANTIS"])
        self.env["QUORVANTIS_ROOT"] = str(self.scratch / "root")

    def run_it(self, *words):
        done = self.run_script(self.scratch / "run", *words)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return done.stdout

    def test_help_builds_nothing(self):
        for option in ("--help", "-h"):
            self.assertIn("usage: ./run", self.run_it(option))
        self.assertFalse(self.calls.exists())

    def test_help_names_the_window_s_options_and_sets_that_there_are(self):
        text = self.run_it("--help")
        usage = (SOURCE / "apps/window/options.cpp").read_text()
        for option in ("--root DIR", "--contacts DIR", "--page CLASS", "--row ID"):
            self.assertIn(option, text)
            self.assertIn(option, usage)
        for name in ("sound", "contacts"):
            self.assertIn(f"\n[{name}]", (SOURCE / "scripts/packages").read_text())

    def test_window_gets_all_arguments(self):
        self.env["DISPLAY"] = ":9"
        self.run_it("--page", "Sounds", "--root=r")
        self.assertEqual(self.called("quorvantis-settings"), ["--page Sounds --root=r"])
        self.assertEqual(self.called("install-packages"), ["window"])

    def test_without_a_display_the_pages_are_printed(self):
        plain = self.run_it()
        self.assertIn("SoundsListController", plain)
        self.assertIn("Vibrate on Ring", plain)
        for words in (["--page", "Sounds"], ["--page=Sounds"], ["--row", "dnd", "--page", "Sounds"], ["--row"]):
            self.assertEqual(self.run_it(*words), plain, words)

    def test_without_a_display_the_root_counts(self):
        root = self.scratch / "other"
        documents = Path("var/mobile/Library/Preferences/com.zorvek.quorvantis.plist")
        (root / documents).parent.mkdir(parents=True)
        (root / documents).write_text('<plist version="1.0"><dict><key>msgtext</key>'
                                      "<string>of the other root</string></dict></plist>")
        self.assertNotIn("of the other root", self.run_it())
        self.assertIn("of the other root", self.run_it("--page", "Sounds", "--root", root))
