import select
import shutil
import subprocess
import unittest

from profiles import DAMAGED, ProfileTest, path_of
from program import PROGRAM, TIMEOUT_SECONDS

CONFIGURATION = """<busconfig><type>session</type><listen>unix:dir={folder}</listen>
<policy context="default"><allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/>
<allow own="*"/></policy></busconfig>
"""
PREFS = "com.zorvek.quorvantis.prefs"


@unittest.skipUnless(shutil.which("dbus-daemon") and shutil.which("dbus-send"), "needs D-Bus")
class Announced(ProfileTest):
    def setUp(self):
        super().setUp()
        configuration = self.scratch / "bus.conf"
        configuration.write_text(CONFIGURATION.format(folder=self.scratch))
        daemon = subprocess.Popen(["dbus-daemon", f"--config-file={configuration}", "--nofork",
                                   "--print-address"], stdout=subprocess.PIPE)
        self.addCleanup(daemon.communicate)
        self.addCleanup(daemon.terminate)
        self.env["DBUS_SESSION_BUS_ADDRESS"] = daemon.stdout.readline().decode().strip()
        self.watcher = subprocess.Popen([PROGRAM, "watch"], env=self.env, stdout=subprocess.PIPE)
        self.addCleanup(self.watcher.communicate)
        self.addCleanup(self.watcher.kill)
        self.wait_until_it_listens()

    def wait_until_it_listens(self):
        while not select.select([self.watcher.stdout], [], [], 0.1)[0]:
            self.mark("listening")
        self.heard_until("begin")

    def mark(self, name):
        """A notification that tells where in the order of all one is."""
        subprocess.run(["dbus-send", "--session", "--type=signal", "/com/zorvek/quorvantis",
                        "com.zorvek.quorvantis.Notifications.Posted", f"string:{name}"],
                       env=self.env, check=True, timeout=TIMEOUT_SECONDS)

    def next_heard(self):
        return self.watcher.stdout.readline().decode().strip()

    def heard_until(self, mark):
        self.mark(mark)
        return list(iter(self.next_heard, mark))

    def test_save_says_nothing_load_speaks_once_delete_says_nothing(self):
        self.output("profile", "save", "20")
        self.assertEqual(self.heard_until("saved"), [])
        self.output("profile", "load", "20")
        self.assertEqual(self.heard_until("loaded"), [PREFS])
        self.output("profile", "delete", "20")
        self.assertEqual(self.heard_until("deleted"), [])

    def test_who_hears_of_a_load_reads_the_new_values(self):
        self.write_domain({"wifi": 1, "profileactive": 1})
        self.write_profile(20, {"profilepercentage": "20", "wifi": 2, "profileactive": 0})
        load = subprocess.Popen([PROGRAM, "profile", "load", "20"], env=self.env)
        self.assertEqual(self.next_heard(), PREFS)
        read = self.document("defaults", "read")
        self.assertEqual(load.wait(TIMEOUT_SECONDS), 0)
        self.assertEqual((read["wifi"], read["profileactive"], read["profilepercentage"]),
                         (2, 0.0, "20"))

    def test_refusals_say_nothing(self):
        self.write(path_of(20), DAMAGED)
        self.refuse(1, "profile", "load", "20")
        self.refuse(3, "profile", "load", "21")
        self.refuse(4, "profile", "save", "20")
        self.assertEqual(self.heard_until("refused"), [])

    def test_import_and_diff_say_nothing(self):
        self.output("profile", "save", "20")
        self.output("profile", "export", "20", "given")
        self.output("profile", "diff", "20")
        self.output("profile", "import", "given", "--overwrite")
        self.assertEqual(self.heard_until("done"), [])

    def test_color_is_announced_once(self):
        self.output("set", "bannercolor", "System Blue")
        self.assertEqual(self.heard_until("preset"), [PREFS])
        self.output("set", "bannercolor", "#010203")
        self.assertEqual(self.heard_until("mixed"), [PREFS])
        self.output("set", "bannercolor", "#010204")
        self.assertEqual(self.heard_until("mixed again"), [PREFS])
        self.output("set", "bannercolor", "none")
        self.assertEqual(self.heard_until("none"), [PREFS])
        self.output("set", "bannercolor", "none")
        self.assertEqual(self.heard_until("none again"), [])


if __name__ == "__main__":
    unittest.main()
