"""A session bus of a test's own, and a `quorvantis watch` that listens on it."""
import select
import shutil
import subprocess
import unittest

from program import PROGRAM, TIMEOUT_SECONDS, ProgramTest

PREFS = "com.zorvek.quorvantis.prefs"
PROFILE = "com.zorvek.quorvantis.profile"

CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>session</type><listen>unix:dir={folder}</listen><auth>EXTERNAL</auth>
<policy context="default"><allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/>
<allow own="*"/></policy></busconfig>
"""

needs_bus = unittest.skipUnless(shutil.which("dbus-daemon") and shutil.which("dbus-send"),
                                "needs D-Bus")


def start_session_bus(test):
    """Starts a bus that ends with the test and is the one that its programs find."""
    configuration = test.scratch / "bus.conf"
    configuration.write_text(CONFIGURATION.format(folder=test.scratch))
    daemon = subprocess.Popen(["dbus-daemon", f"--config-file={configuration}", "--nofork",
                               "--print-address"], stdout=subprocess.PIPE)
    test.addCleanup(daemon.communicate)
    test.addCleanup(daemon.terminate)
    test.env["DBUS_SESSION_BUS_ADDRESS"] = daemon.stdout.readline().decode().strip()


@needs_bus
class BusTest(ProgramTest):
    WATCHED = ()  # the names that it is to listen for; all without any

    def setUp(self):
        super().setUp()
        start_session_bus(self)
        self.watcher = subprocess.Popen([PROGRAM, "watch", *self.WATCHED], env=self.env,
                                        stdout=subprocess.PIPE)
        self.addCleanup(self.watcher.communicate)
        self.addCleanup(self.watcher.kill)
        self.wait_until_it_listens()

    def wait_until_it_listens(self):
        while not select.select([self.watcher.stdout], [], [], 0.1)[0]:
            self.mark("listening")
        self.posted_until("begin")

    def mark(self, name):
        """A notification that marks a place in the order of all."""
        subprocess.run(["dbus-send", "--session", "--type=signal", "/com/zorvek/quorvantis",
                        "com.zorvek.quorvantis.Notifications.Posted", f"string:{name}"],
                       env=self.env, check=True, timeout=TIMEOUT_SECONDS)

    def next_posted(self):
        return self.watcher.stdout.readline().decode().strip()

    def posted_until(self, mark):
        self.mark(mark)
        return list(iter(self.next_posted, mark))
