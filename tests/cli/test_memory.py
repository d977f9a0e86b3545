import os
import plistlib
import resource
import subprocess
import unittest

from program import DOMAIN, PROGRAM, TIMEOUT_SECONDS, ProgramTest

MEGABYTE = 1 << 20
INSTRUMENTED = b"__asan_init" in open(PROGRAM, "rb").read()


@unittest.skipIf(INSTRUMENTED, "the sanitizer takes more than any of these limits")
class OutOfMemory(ProgramTest):
    """A run that lacks memory says so, ends with 1 and has changed nothing."""

    def run_within(self, megabytes, *arguments):
        def limit():
            resource.setrlimit(resource.RLIMIT_DATA, (megabytes * MEGABYTE,) * 2)
        return subprocess.run([PROGRAM, *arguments], env=self.env, capture_output=True,
                              preexec_fn=limit, timeout=TIMEOUT_SECONDS, check=False)

    def expect_said(self, *arguments):
        before = self.everything()
        for megabytes in (8, 12, 16, 24, 32):
            done = self.run_within(megabytes, *arguments)
            with self.subTest(megabytes=megabytes):
                self.assertEqual((done.returncode, done.stdout), (1, b""), done.stderr)
                self.assertRegex(done.stderr, rb"^quorvantis: .*([Oo]ut of memory|allocate memory)\n$")
        self.assertEqual(self.everything(), before)
        self.assertEqual(self.run_program(*arguments).returncode, 0)

    def test_settings_that_are_large(self):
        self.write_domain({"msgtext": "x" * (32 * MEGABYTE), "wifi": 2})
        self.expect_said("defaults", "read")

    def test_change_of_settings_that_are_large(self):
        self.write_domain({"msgtext": "x" * (32 * MEGABYTE), "wifi": 2})
        self.expect_said("set", "wifi", "1")

    def test_import_that_is_large(self):
        given = self.scratch / "given"
        values = {"profilepercentage": "20", "msgtext": "x" * (32 * MEGABYTE)}
        given.write_bytes(plistlib.dumps(values, fmt=plistlib.FMT_BINARY))
        self.expect_said("profile", "import", str(given))

    def test_import_of_xml_that_is_large(self):
        given = self.scratch / "given"
        given.write_bytes(plistlib.dumps({"profilepercentage": "20", "msgtext": "x" * (32 * MEGABYTE)}))
        self.expect_said("profile", "import", str(given))


if __name__ == "__main__":
    unittest.main()
