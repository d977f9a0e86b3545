"""What cmake/Parts.cmake makes of a part's option, on a system without any of the libraries."""
import re
import subprocess
import tempfile
import unittest
from pathlib import Path

SOURCE = Path(__file__).resolve().parents[2]
PARTS = SOURCE / "cmake/Parts.cmake"


def parts():
    """Each part's package of Debian, and whether it needs anything at all."""
    found = re.findall(r'^quorvantis_part\((\w+) "[^"]*" ([\w.+-]+)( \w+)?', PARTS.read_text(), re.MULTILINE)
    return {name: (package, bool(needs)) for name, package, needs in found}


class Parts(unittest.TestCase):
    def configure(self, *options):
        """Exit code, the parts that are built, and all that is said."""
        with tempfile.TemporaryDirectory() as folder:
            says = "".join(f"if(QUORVANTIS_HAS_{name})\n  message(STATUS \"Has {name}\")\nendif()\n"
                           for name in parts())
            Path(folder, "CMakeLists.txt").write_text(
                "cmake_minimum_required(VERSION 3.25)\nproject(parts NONE)\n"
                f"include({PARTS})\nquorvantis_report_parts()\n{says}")
            done = subprocess.run(
                ["cmake", "-G", "Ninja", "-S", folder, "-B", f"{folder}/build", "-DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON",
                 "-DSCDOC=", *options],
                env={"PATH": "/usr/bin:/bin", "PKG_CONFIG_LIBDIR": folder, "LC_ALL": "C.UTF-8"}, text=True,
                check=False, capture_output=True, timeout=60)
            text = " ".join((done.stdout + done.stderr).split())
            return done.returncode, set(re.findall(r"Has (\w+)", text)), text

    def test_what_is_missing_is_left_out_and_said(self):
        code, built, said = self.configure()
        self.assertEqual((code, built), (0, {name for name, (_, needs) in parts().items() if not needs}))
        self.assertIn("Left out: sounds (libgstreamer1.0-dev is missing)", said)
        self.assertEqual(said.count("Left out: "), len(parts()) - len(built))

    def test_off_leaves_out_what_could_be_built(self):
        code, built, said = self.configure("-DQUORVANTIS_CONTACTS=OFF")
        self.assertEqual((code, built), (0, set()))
        self.assertIn("Left out: vCards (QUORVANTIS_CONTACTS is OFF)", said)

    def test_on_without_its_library_fails_and_names_it(self):
        for word in ("ON", "yes"):
            code, _, said = self.configure(f"-DQUORVANTIS_SOUND={word}")
            self.assertEqual(code, 1)
            self.assertIn("QUORVANTIS_SOUND is ON, and libgstreamer1.0-dev is missing", said)

    def test_on_builds_what_needs_nothing(self):
        self.assertEqual(self.configure("-DQUORVANTIS_CONTACTS=ON")[:2], (0, {"CONTACTS"}))

    def test_packages_are_in_the_sets_and_parts_in_the_manual(self):
        packages = (SOURCE / "scripts/packages").read_text()
        manual = (SOURCE / "CONTRIBUTING.md").read_text()
        self.assertGreater(len(parts()), 5)
        for name, (package, _) in parts().items():
            self.assertRegex(packages, rf"(?m)^{re.escape(package)}(\s|$)")
            self.assertIn(f"| `{name}` |", manual)
