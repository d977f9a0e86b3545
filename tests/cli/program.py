"""What the tests of the program share: a root of its own for each, and ways to look into it."""
import json
import os
import plistlib
import subprocess
import tempfile
import unittest
from pathlib import Path

PROGRAM = os.environ["QUORVANTIS"]
DOMAIN = "var/mobile/Library/Preferences/com.zorvek.quorvantis.plist"
DOCUMENTS = "var/mobile/Documents/Quorvantis"
TIMEOUT_SECONDS = 60


class ProgramTest(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.scratch = Path(scratch.name)
        self.root = self.scratch / "root"
        self.env = {"PATH": os.defpath, "LC_ALL": "C.UTF-8", "HOME": scratch.name,
                    "XDG_RUNTIME_DIR": scratch.name,
                    "DBUS_SESSION_BUS_ADDRESS": f"unix:path={scratch.name}/none",
                    "QUORVANTIS_ROOT": str(self.root)}
        # The sanitizers of an instrumented build are set from outside.
        self.env |= {name: text for name, text in os.environ.items()
                     if name.endswith("SAN_OPTIONS")}

    def run_program(self, *arguments, **options):
        return subprocess.run([PROGRAM, *arguments], env=self.env, cwd=self.scratch,
                              capture_output=True, timeout=TIMEOUT_SECONDS, check=False, **options)

    def output(self, *arguments):
        """What the program prints when it ends with 0 and has nothing to complain of."""
        done = self.run_program(*arguments)
        self.assertEqual(done.stderr, b"")
        self.assertEqual(done.returncode, 0)
        return done.stdout.decode()

    def document(self, *arguments):
        return json.loads(self.output(*arguments, "--json"))

    def refuse(self, code, *arguments):
        """The reason: one line on stderr, nothing on stdout, nothing changed."""
        before = self.everything()
        done = self.run_program(*arguments)
        self.assertEqual(done.returncode, code, done.stderr)
        self.assertEqual(done.stdout, b"")
        lines = done.stderr.decode().splitlines()
        self.assertEqual(len(lines), 1, lines)
        self.assertTrue(lines[0].startswith("quorvantis: "), lines[0])
        self.assertEqual(self.everything(), before)
        return lines[0].removeprefix("quorvantis: ")

    def everything(self):
        return {str(path): path.is_file() and path.read_bytes()
                for path in sorted(self.root.rglob("*")) if path.suffix != ".lock"}

    def write(self, path, data):
        target = self.root / path
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_bytes(data)
        return target

    def write_domain(self, values):
        self.write(DOMAIN, plistlib.dumps(values, fmt=plistlib.FMT_BINARY))

    def domain(self):
        return plistlib.loads((self.root / DOMAIN).read_bytes())
