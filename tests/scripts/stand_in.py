"""What the tests of the scripts share: programs of the tests' own that are found before the system's."""
import os
import subprocess
import tempfile
import unittest
from pathlib import Path

SOURCE = Path(__file__).resolve().parents[2]


class StandInTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.scratch = Path(folder.name)
        self.bin = self.scratch / "bin"
        self.bin.mkdir()
        self.calls = self.scratch / "calls"
        self.env = {"PATH": f"{self.bin}:{os.defpath}", "HOME": folder.name, "LC_ALL": "C.UTF-8"}

    def stand_in(self, name, body="", folder=None):
        """A program that writes down how it is called, and then does what `body` says in sh."""
        program = (folder or self.bin) / name
        program.parent.mkdir(parents=True, exist_ok=True)
        program.write_text(f"#!/bin/sh\necho {name} \"$@\" >>{self.calls}\n{body}\n")
        program.chmod(0o755)

    def called(self, name):
        """With which words, call by call."""
        text = self.calls.read_text() if self.calls.exists() else ""
        return [line.removeprefix(f"{name} ") for line in text.splitlines() if line.split()[0] == name]

    def run_script(self, *words):
        return subprocess.run([str(word) for word in words], env=self.env, cwd=self.scratch, text=True,
                              stdin=subprocess.DEVNULL, capture_output=True, check=False, timeout=60)
