import json
import select
import signal
import subprocess

from program import DOMAIN, PROGRAM, ProgramTest


class WatchValues(ProgramTest):
    def watch(self, *words):
        """A watcher that has been seen to look."""
        watcher = subprocess.Popen([PROGRAM, "watch", "--values", *words], env=self.env,
                                   stdout=subprocess.PIPE)
        self.addCleanup(watcher.communicate)
        self.addCleanup(watcher.kill)
        number, line = 0, b""
        while not line:
            number += 1
            self.output("defaults", "write", "vpn", "-int", str(number))
            ready, _, _ = select.select([watcher.stdout], [], [], 0.5)
            line = watcher.stdout.readline() if ready else b""
        return watcher, line

    def test_key_old_and_new_value(self):
        watcher, _ = self.watch()
        self.output("set", "wifi", "2")
        self.assertEqual(watcher.stdout.readline(), b"wifi: null -> 2\n")
        self.output("set", "alertmsg", "a b")
        self.assertEqual(watcher.stdout.readline(), b'alertmsg: null -> "a b"\n')
        self.output("defaults", "delete", "wifi")
        self.assertEqual(watcher.stdout.readline(), b"wifi: 2 -> null\n")

    def test_a_key_of_two_lines_is_shown_on_one(self):
        watcher, _ = self.watch()
        self.output("defaults", "write", "two\nlines", "x")
        self.assertEqual(watcher.stdout.readline(), b'two lines: null -> "x"\n')

    def test_a_stored_key_of_no_row_can_be_watched(self):
        self.output("defaults", "write", "theirs", "1")
        watcher, _ = self.watch("vpn", "theirs")
        self.output("defaults", "write", "theirs", "2")
        self.assertEqual(watcher.stdout.readline(), b'theirs: "1" -> "2"\n')

    def test_one_object_a_line(self):
        watcher, first = self.watch("--json")
        self.assertEqual(list(json.loads(first)), ["key", "from", "to"])
        self.output("set", "custbrightenabled", "on")
        self.assertEqual(watcher.stdout.readline(),
                         b'{"key":"custbrightenabled","from":null,"to":true}\n')

    def test_only_the_keys_that_were_given(self):
        watcher, first = self.watch("vpn", "wifi")
        self.assertTrue(first.startswith(b"vpn: "), first)
        self.output("set", "bluetooth", "1")
        self.output("set", "wifi", "1")
        self.assertEqual(watcher.stdout.readline(), b"wifi: null -> 1\n")

    def test_interruption_ends_it_well(self):
        watcher, _ = self.watch()
        watcher.send_signal(signal.SIGINT)
        self.assertEqual(watcher.wait(60), 0)

    def test_needs_no_bus_but_readable_settings(self):
        self.write(DOMAIN, b"garbage")
        self.refuse(1, "watch", "--values")
