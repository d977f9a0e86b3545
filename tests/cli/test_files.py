import signal
import subprocess

from keyed_archive import archive
from program import DOCUMENTS, PROGRAM, ProgramTest


class Triggers(ProgramTest):
    def test_all_of_them_in_order(self):
        triggers = self.document("triggers")
        self.assertEqual(len(triggers), 108)
        self.assertEqual(triggers[0], {"value": "1", "title": "Battery 1%"})
        self.assertEqual(triggers[107], {"value": "132", "title": "WiFi disconnected"})


class ProfileList(ProgramTest):
    def test_paths_of_the_platform_and_long_titles(self):
        for code, more in (("101", {}), ("10", {}), ("5", {"profiledescription": "Night"})):
            self.write(f"{DOCUMENTS}/profile_{code}.qvx",
                       archive({"profilepercentage": code} | more))
        folder = "/var/mobile/Documents/Quorvantis"
        self.assertEqual(self.document("profile", "list"),
                         [{"path": f"{folder}/profile_5.qvx", "title": "Battery 5% - Night",
                           "trigger": "5", "active": True},
                          {"path": f"{folder}/profile_10.qvx", "title": "Battery 10%",
                           "trigger": "10", "active": True},
                          {"path": f"{folder}/profile_101.qvx", "title": "Charging started",
                           "trigger": "101", "active": True}])

    def test_none(self):
        self.assertEqual(self.document("profile", "list"), [])


class Log(ProgramTest):
    path = f"{DOCUMENTS}/quorvantis.log"

    def test_newest_first(self):
        self.write(self.path, archive(["A", "B", "C"]))
        self.assertEqual(self.document("log"), ["C", "B", "A"])
        self.assertEqual(self.output("log"), "C\nB\nA\n")

    def test_no_log(self):
        self.assertEqual(self.document("log"), [])

    def test_damaged_log(self):
        self.write(self.path, b"garbage")
        self.assertIn("quorvantis.log", self.refuse(1, "log"))

    def test_log_that_is_not_a_list(self):
        self.write(self.path, archive({"a": "b"}))
        self.refuse(1, "log")

    def test_follow_goes_on_with_new_entries_until_it_is_interrupted(self):
        self.write(self.path, archive(["A"]))
        for end in (signal.SIGINT, signal.SIGTERM):
            with subprocess.Popen([PROGRAM, "log", "--follow"], env=self.env,
                                  stdout=subprocess.PIPE) as program:
                self.addCleanup(program.kill)
                self.assertEqual(program.stdout.readline(), b"A\n")
                staged = self.write("staged", archive(["A", "B", "C"]))
                staged.rename(self.root / self.path)
                self.assertEqual(program.stdout.readline(), b"B\n")
                self.assertEqual(program.stdout.readline(), b"C\n")
                staged = self.write("staged", archive(["B", "C", "D"]))
                staged.rename(self.root / self.path)
                self.assertEqual(program.stdout.readline(), b"D\n")
                program.send_signal(end)
                self.assertEqual(program.wait(60), 0)
            self.write(self.path, archive(["A"]))
