import subprocess
import unittest

from profiles import DAMAGED, ProfileTest, path_of
from program import PROGRAM, TIMEOUT_SECONDS
from session_bus import PREFS, PROFILE, BusTest


class Announced(BusTest, ProfileTest):
    def test_only_a_load_is_announced_and_once(self):
        self.output("profile", "save", "20")
        self.assertEqual(self.posted_until("saved"), [])
        self.output("profile", "load", "20")
        self.assertEqual(self.posted_until("loaded"), [PROFILE, PREFS])
        self.output("profile", "delete", "20")
        self.assertEqual(self.posted_until("deleted"), [])

    def test_a_listener_to_a_load_reads_the_new_values(self):
        self.write_domain({"wifi": 1, "profileactive": 1})
        self.write_profile(20, {"profilepercentage": "20", "wifi": 2, "profileactive": 0})
        load = subprocess.Popen([PROGRAM, "profile", "load", "20"], env=self.env)
        self.assertEqual([self.next_posted(), self.next_posted()], [PROFILE, PREFS])
        read = self.document("defaults", "read")
        self.assertEqual(load.wait(TIMEOUT_SECONDS), 0)
        self.assertEqual((read["wifi"], read["profileactive"], read["profilepercentage"]),
                         (2, 0.0, "20"))

    def test_refusals_are_not_announced(self):
        self.write(path_of(20), DAMAGED)
        self.refuse(1, "profile", "load", "20")
        self.refuse(3, "profile", "load", "21")
        self.refuse(4, "profile", "save", "20")
        self.assertEqual(self.posted_until("refused"), [])

    def test_import_and_diff_are_not_announced(self):
        self.output("profile", "save", "20")
        self.output("profile", "export", "20", "given")
        self.output("profile", "diff", "20")
        self.output("profile", "import", "given", "--overwrite")
        self.assertEqual(self.posted_until("done"), [])


if __name__ == "__main__":
    unittest.main()
