#!/usr/bin/env python3
"""The rules about names of tests, shown to fail."""
import unittest

from names import WIDEST, faults


class Names(unittest.TestCase):
    def test_a_plain_name_is_clean(self):
        self.assertEqual(list(faults(["  Test  #1: Store.KeepsKeys", "  IsRead/Plain  # GetParam() = Plain",
                                      "  Fits/390  # GetParam() = 390", "  A/en  # GetParam() = \"en\""])), [])

    def test_raw_memory_is_a_fault(self):
        for line in ("  Test #7: Rows/A.B/C  # GetParam() = 4-byte object <01-00 00-00>",
                     "  B/C  # GetParam() = 64-byte object <AF-50 FC-F9 ...>"):
            self.assertIn("raw memory", next(faults([line])))

    def test_a_number_for_a_name_is_a_fault(self):
        for line in ("  Fits/0  # GetParam() = 390", '  Reads/1  # GetParam() = "en"'):
            self.assertIn("named by a number", next(faults([line])))

    def test_a_wide_line_is_a_fault(self):
        line = "  Test  #1: ".ljust(WIDEST, "x")
        self.assertEqual(list(faults([line])), [])
        self.assertIn("wider", next(faults([line + "x"])))


if __name__ == "__main__":
    unittest.main()
