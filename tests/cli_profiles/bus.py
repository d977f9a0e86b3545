"""A session bus of the test's own, and a `quorvantis watch` that listens on it."""
import select
import subprocess

from profiles import ProfileTest
from program import PROGRAM, TIMEOUT_SECONDS
from session_bus import needs_bus, start_session_bus

PREFS = "com.zorvek.quorvantis.prefs"
PROFILE = "com.zorvek.quorvantis.profile"


@needs_bus
class BusTest(ProfileTest):
    def setUp(self):
        super().setUp()
        start_session_bus(self)
        self.watcher = subprocess.Popen([PROGRAM, "watch"], env=self.env, stdout=subprocess.PIPE)
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
