import json
import select
import signal
import subprocess

from program import PROGRAM, ProgramTest
from session_bus import PREFS, BusTest, needs_bus, start_session_bus


class WithoutBus(ProgramTest):
    def test_watch_says_why_it_can_not(self):
        self.assertIn("bus", self.refuse(1, "watch"))

    def test_change_is_done_all_the_same(self):
        self.output("set", "custbrightenabled", "true")
        self.assertEqual(self.domain(), {"custbrightenabled": True})


@needs_bus
class WithBus(ProgramTest):
    def setUp(self):
        super().setUp()
        start_session_bus(self)

    def watch(self):
        """A watcher that has been seen to listen."""
        watcher = subprocess.Popen([PROGRAM, "watch"], env=self.env,
                                   stdout=subprocess.PIPE)
        self.addCleanup(watcher.communicate)
        self.addCleanup(watcher.kill)
        line = b""
        while not line:
            self.output("set", "custbrightenabled", "true")
            line = self.read_soon(watcher)
        return watcher, line

    def read_soon(self, watcher):
        ready, _, _ = select.select([watcher.stdout], [], [], 0.2)
        return watcher.stdout.readline() if ready else b""

    def test_change_is_announced(self):
        _, line = self.watch()
        self.assertEqual(line, b"com.zorvek.quorvantis.prefs\n")

    def test_interruption_ends_it_well(self):
        for end in (signal.SIGINT, signal.SIGTERM):
            watcher, _ = self.watch()
            watcher.send_signal(end)
            self.assertEqual(watcher.wait(60), 0)


class Every(BusTest):
    def test_name_is_a_line_of_its_own(self):
        self.mark("other")
        self.output("set", "vibrate", "on")
        self.mark("two\nlines")
        self.assertEqual(self.posted_until("end"), ["other", PREFS, "two lines"])


class AsJson(BusTest):
    WATCHED = ("--json",)

    def next_posted(self):
        return json.loads(super().next_posted())

    def test_names_are_texts_one_a_line(self):
        self.mark("two\nlines")
        self.output("set", "vibrate", "on")
        self.assertEqual(self.posted_until("end"), ["two\nlines", PREFS])


class Given(BusTest):
    WATCHED = ("listening", "begin", PREFS, "end")

    def test_names_alone_are_printed(self):
        self.mark("other")
        self.output("set", "vibrate", "on")
        self.assertEqual(self.posted_until("end"), [PREFS])
