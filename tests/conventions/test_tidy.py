#!/usr/bin/env python3
"""The rules about every file, shown to fail."""
import os
import tempfile
import unittest
from pathlib import Path

import tidy


class Tidy(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name).resolve() / "project"
        self.root.mkdir()

    def faults(self, path, text):
        (self.root / path).write_text(text)
        return list(tidy.faults(self.root))

    def test_a_plain_file_is_clean(self):
        self.assertEqual(self.faults("a.h", "#pragma once\n"), [])

    def test_a_header_without_pragma_once_is_a_fault(self):
        self.assertIn("pragma once", self.faults("a.h", "int a;\n")[0])

    def test_a_text_that_takes_markup_is_a_fault(self):
        plain = "Item {\n    Text {\n        text: a\n        textFormat: Text.PlainText\n    }\n"
        self.assertEqual(self.faults("A.qml", plain + "}\n"), [])
        found = self.faults("A.qml", plain + "    b: Text {\n        text: c\n    }\n}\n")
        self.assertEqual(found, ["A.qml:6: is a Text without textFormat"])

    def test_a_home_folder_is_a_fault(self):
        self.assertIn("a.md:2: ", self.faults("a.md", "x\nsee " + "/home" + "/somebody/notes\n")[0])

    def test_the_own_home_folder_is_a_fault(self):
        home = os.environ["HOME"]
        self.addCleanup(os.environ.__setitem__, "HOME", home)
        os.environ["HOME"] = "/somewhere/me"
        self.assertIn("a.txt:1: ", self.faults("a.txt", "cd /somewhere/me/x\n")[0])

    def test_the_checkout_is_a_fault(self):
        self.assertIn("a.txt:1: ", self.faults("a.txt", f"cd {self.root}/platform\n")[0])

    def test_a_platform_path_is_none(self):
        self.assertEqual(self.faults("a.txt", "/var/mobile/Documents /usr/share/sounds\n"), [])

    def test_a_binary_file_is_passed_over(self):
        (self.root / "a.plist").write_bytes(b"bplist00\xff\xfe")
        self.assertEqual(list(tidy.faults(self.root)), [])


if __name__ == "__main__":
    unittest.main()
