from program import DOMAIN
from session_bus import PREFS, BusTest


class Announced(BusTest):
    """What other processes are notified of."""

    def setUp(self):
        super().setUp()
        self.env["XDG_STATE_HOME"] = str(self.scratch / "state")

    def posted_by(self, *command):
        self.output(*command)
        return self.posted_until("done")

    def test_refused_pairs_announce_nothing(self):
        self.refuse(2, "set", "wifi", "1", "vpn", "9")
        self.assertEqual(self.posted_until("done"), [])

    def test_each_pair_is_announced(self):
        self.assertEqual(self.posted_by("set", "wifi", "1", "vpn", "2"), [PREFS, PREFS])

    def test_each_reset_row_is_announced(self):
        self.output("set", "wifi", "1", "vpn", "2")
        self.posted_until("set")
        self.assertEqual(self.posted_by("reset", "wifi", "vpn"), [PREFS, PREFS])
        self.assertEqual(self.posted_by("reset", "--all", "--dry-run"), [])

    def test_an_import_is_announced_once(self):
        self.output("set", "wifi", "1", "vpn", "2")
        self.output("export", "file")
        self.posted_until("exported")
        self.assertEqual(self.posted_by("import", "file", "--dry-run"), [])
        self.assertEqual(self.posted_by("import", "file"), [PREFS])

    def test_every_way_back_is_announced(self):
        self.write_domain({"wifi": 2})
        self.output("set", "wifi", "1")
        self.posted_until("set")
        for command in (["undo"], ["redo"], ["snapshot", "restore", "1"]):
            with self.subTest(command=command):
                self.assertEqual(self.posted_by(*command), [PREFS])
        for way in ("--restore", "--start-anew"):
            self.write(DOMAIN, b"garbage")
            with self.subTest(way=way):
                self.assertEqual(self.posted_by("repair", way), [PREFS])

    def test_the_raw_store_is_not_announced(self):
        self.assertEqual(self.posted_by("defaults", "write", "wifi", "-int", "1"), [])
        self.assertEqual(self.posted_by("defaults", "delete", "wifi"), [])
