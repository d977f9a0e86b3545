import os
import subprocess
import unittest

from program import PROGRAM, TIMEOUT_SECONDS
from session_bus import PREFS, BusTest

WINDOW = os.environ.get("SETTINGS_PICTURE")


class ColorsOnTheBus(BusTest):
    def read_when_posted(self, *command, sent=None):
        """The color in the store at the moment when another process is notified of a change."""
        process = subprocess.Popen(command, env=self.env, cwd=self.scratch, stdin=subprocess.PIPE,
                                   stdout=subprocess.DEVNULL)
        self.addCleanup(process.communicate)
        if sent:
            process.stdin.write(sent.encode())
            process.stdin.flush()
        self.assertEqual(self.next_posted(), PREFS)
        read = self.output("defaults", "read", "bannercolor")
        process.stdin.close()
        self.assertEqual(process.wait(TIMEOUT_SECONDS), 0)
        self.assertEqual(self.posted_until("end"), [])
        return read

    def test_each_choice_is_announced_once(self):
        self.output("set", "bannercolor", "System Blue")
        self.assertEqual(self.posted_until("preset"), [PREFS])
        self.output("set", "bannercolor", "#010203")
        self.assertEqual(self.posted_until("mixed"), [PREFS])
        self.output("set", "bannercolor", "#010204")
        self.assertEqual(self.posted_until("mixed again"), [PREFS])
        self.output("set", "bannercolor", "#010204")
        self.assertEqual(self.posted_until("the same mix"), [])
        self.output("set", "bannercolor", "none")
        self.assertEqual(self.posted_until("none"), [PREFS])
        self.output("set", "bannercolor", "none")
        self.assertEqual(self.posted_until("none again"), [])

    def test_a_listener_to_a_preset_reads_it(self):
        read = self.read_when_posted(PROGRAM, "set", "bannercolor", "System Blue")
        self.assertEqual(read, "#007AFF\n")

    def test_a_listener_to_a_mixed_color_reads_it(self):
        self.assertEqual(self.read_when_posted(PROGRAM, "set", "bannercolor", "#010203"),
                         "#010203\n")

    def test_a_listener_to_a_choice_on_the_page_reads_it_while_the_page_is_open(self):
        read = self.read_when_posted(PROGRAM, "drive", sent=(
            '{"do":"launch"}\n{"do":"open","page":"ExtrasListController"}\n'
            '{"do":"tap","row":"bannercolor"}\n{"do":"select","section":1,"index":1}\n'))
        self.assertEqual(read, "#007AFF\n")

    @unittest.skipUnless(WINDOW, "needs the window")
    def test_a_listener_to_a_choice_in_the_window_reads_it(self):
        read = self.read_when_posted(
            WINDOW, "--root", self.root, "--page", "ExtrasListController", "page.png", sent=(
                '{"do":"tap","row":"bannercolor"}\n{"do":"select","section":1,"index":1}\n'))
        self.assertEqual(read, "#007AFF\n")


if __name__ == "__main__":
    unittest.main()
