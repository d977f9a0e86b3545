import os
import resource
import tempfile
import unittest

import hostile_files
from program import DOCUMENTS, DOMAIN, PROGRAM, ProgramTest

MEMORY, STACK = 16 << 20, 256 << 10  # bytes
SECONDS = 0.1  # of processor time
INSTRUMENTED = b"__asan_init" in open(PROGRAM, "rb").read()


class Hostile(ProgramTest):
    """Every program run ends by itself, soon, in little memory and on a small stack."""

    def limit(self):
        resource.setrlimit(resource.RLIMIT_STACK, (STACK, STACK))
        if not INSTRUMENTED:
            resource.setrlimit(resource.RLIMIT_DATA, (MEMORY, MEMORY))

    def spend(self, name, *arguments, given=os.devnull):
        """Runs the program; its exit code is one of those that a damaged file may have."""
        with tempfile.TemporaryFile() as said, open(given, "rb") as stdin:
            pid = os.fork()
            if pid == 0:
                os.dup2(stdin.fileno(), 0)
                os.dup2(said.fileno(), 1)
                os.dup2(said.fileno(), 2)
                self.limit()
                os.execve(PROGRAM, [PROGRAM, *arguments], self.env)
            _, status, usage = os.wait4(pid, 0)
            said.seek(0)
            words = said.read(300)
        self.assertIn(os.waitstatus_to_exitcode(status), (0, 1, 2, 4), (name, words))
        self.assertNotIn(b"out of memory", words, name)
        if not INSTRUMENTED:
            self.assertLess(usage.ru_utime + usage.ru_stime, SECONDS, name)

    def read_all(self, files, place, *commands):
        for name, data in files.items():
            path = self.write(place, data)
            for command in commands:
                self.spend(name, *command, *([str(path)] if command[-1] == "import" else []))

    IMPORT = ("profile", "import")

    def test_there_are_enough(self):
        made = [hostile_files.binary_files(), hostile_files.archive_files(),
                hostile_files.xml_files(), hostile_files.vcard_files(), hostile_files.drive_lines()]
        self.assertGreaterEqual(sum(map(len, made)), 200)
        self.assertLess(max(len(data) for files in made for data in files.values()), 200_000)

    def test_binary_lists_as_settings(self):
        self.read_all(hostile_files.binary_files(), DOMAIN, ("defaults", "read"))

    def test_binary_lists_as_an_import(self):
        self.read_all(hostile_files.binary_files(), "given", self.IMPORT)

    def test_archives_as_a_profile(self):
        self.read_all(hostile_files.archive_files(), f"{DOCUMENTS}/profile_20.qvx",
                      ("profile", "show", "20"), ("profile", "list"))

    def test_archives_as_the_log(self):
        self.read_all(hostile_files.archive_files(), f"{DOCUMENTS}/quorvantis.log", ("log",))

    def test_xml_as_an_import(self):
        self.read_all(hostile_files.xml_files(), "given", self.IMPORT)

    def test_xml_as_settings(self):
        self.read_all(hostile_files.xml_files(), DOMAIN, ("get", "wifi"))

    def test_vcards(self):
        self.read_all(hostile_files.vcard_files(), "var/mobile/Library/AddressBook/all.vcf",
                      ("choices", "adressbook"))

    def test_drive_lines(self):
        for name, data in hostile_files.drive_lines().items():
            path = self.write("given", data + b"\n")
            self.spend(name, "drive", given=path)


if __name__ == "__main__":
    unittest.main()
