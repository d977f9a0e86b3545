import re
import signal
import subprocess
import time
import unittest

from unpacked import (ID, SOURCE, VERSION, UnpackedTest, debian_package, field, output, package_set,
                      tarball_names, tarball_text)

PACKAGES = ("quorvantis", "quorvantis-settings")


class Packages(UnpackedTest):
    def test_lintian_finds_no_error_and_nothing_to_warn_of(self):
        output("lintian", "--fail-on", "error,warning", *map(debian_package, PACKAGES))

    def test_programs_say_their_version(self):
        for package in PACKAGES:
            self.assertEqual(self.program(package, "--version"), f"{package} {VERSION}\n")

    def test_the_command_line_runs_with_the_modules_of_its_package(self):
        page = self.program("quorvantis", "page", "GeneralSettingsController")
        self.assertIn("enabled", page)
        self.program("quorvantis", "set", "wifi", "Off")
        self.assertIn("<plist", self.program("quorvantis", "export", "-"))

    def test_the_window_opens_without_a_message(self):
        window = subprocess.Popen([self.root / "usr/bin/quorvantis-settings"], env=self.env,
                                  stderr=subprocess.PIPE)
        time.sleep(3)
        self.assertIsNone(window.poll(), "the window has ended by itself")
        window.send_signal(signal.SIGTERM)
        self.assertEqual(window.communicate()[1], b"")

    def test_both_hold_licence_and_changes(self):
        for package in PACKAGES:
            documents = self.root / "usr/share/doc" / package
            self.assertEqual((documents / "LICENSE").read_bytes(), (SOURCE / "LICENSE").read_bytes())
            self.assertEqual(output("zcat", documents / "changelog.gz"),
                             (SOURCE / "CHANGELOG.md").read_text())
            self.assertIn("Apache-2.0", (documents / "copyright").read_text())

    def test_manual_pages_are_there(self):
        for page in ("man1/quorvantis.1", "man1/quorvantis-settings.1", "man5/quorvantis.5"):
            self.assertIn(".TH", output("zcat", self.root / f"usr/share/man/{page}.gz"))

    def test_the_tarball_holds_both_programs_and_nothing_of_debian(self):
        names = tarball_names()
        for name in ("bin/quorvantis", "bin/quorvantis-settings", "lib/quorvantis/quorvantis-xml.so",
                     "share/doc/quorvantis/LICENSE", "share/doc/quorvantis/changelog.gz"):
            self.assertIn(f"/usr/local/{name}", names)
        self.assertIn("Exec=/usr/local/bin/quorvantis-settings\n", tarball_text(f"{ID}.service"))
        self.assertEqual([name for name in names if "ebian" in name or "lintian" in name], [])


class Dependencies(unittest.TestCase):
    def test_the_command_line_needs_no_window(self):
        needed = field("Depends", "quorvantis") | field("Recommends", "quorvantis")
        self.assertEqual({name for name in needed if re.match("libqt|qml|libgst", name)}, set())
        self.assertIn("libc6", field("Depends", "quorvantis"))

    def test_the_window_needs_the_command_line_of_its_version(self):
        text = output("dpkg-deb", "-f", debian_package("quorvantis-settings"), "Depends")
        own = output("dpkg-deb", "-f", debian_package("quorvantis"), "Version").strip()
        self.assertIn(f"quorvantis (= {own})", text)

    def test_what_is_opened_by_name_is_named(self):
        self.assertLessEqual(package_set("window-run"), field("Depends", "quorvantis-settings"))
        self.assertLessEqual(package_set("sound") | package_set("wayland"),
                             field("Recommends", "quorvantis-settings"))
        self.assertLessEqual(package_set("contacts"), field("Recommends", "quorvantis"))

    def test_just_the_imported_qml_modules_are_named(self):
        texts = [file.read_text() for file in (SOURCE / "apps/window/qml").glob("*.qml")]
        modules = {name for text in texts for name in re.findall(r"^import ([\w.]+)", text, re.M)}
        modules -= {"Quorvantis.Settings"}
        modules = {name.removesuffix(".Basic") for name in modules}  # a style of its package
        imported = {"qml6-module-" + name.lower().replace(".", "-") for name in modules}
        named = {name for name in field("Depends", "quorvantis-settings") if name.startswith("qml")}
        self.assertEqual(named, imported | {"qml6-module-qtqml-workerscript"})

    def test_libraries_of_modules_are_recommended_or_needed(self):
        for module, library in (("xml", "libexpat1"), ("icu", "libicu"), ("bus", "libsystemd0")):
            named = field("Depends", "quorvantis") | field("Recommends", "quorvantis")
            self.assertTrue(any(name.startswith(library) for name in named), module)
        self.assertIn("libgstreamer1.0-0", field("Recommends", "quorvantis-settings"))
