"""A session bus of a test's own."""
import shutil
import subprocess
import unittest

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
