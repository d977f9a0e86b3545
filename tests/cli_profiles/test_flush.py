"""What is said when the disk fails in each command that changes something."""
import shutil
import subprocess

from profiles import ProfileTest
from program import DOMAIN, PROGRAM

DONE, FAILED, UNCONFIRMED = 0, 1, 5
IMPORT = (b'<plist version="1.0"><dict><key>profilepercentage</key><string>30</string></dict>'
          b"</plist>")
SETTINGS = b'<plist version="1.0"><dict><key>wifi</key><integer>2</integer></dict></plist>'


class Flush(ProfileTest):
    def setUp(self):
        super().setUp()
        # Without a folder to keep snapshots in, every call that fails is about the root.
        del self.env["HOME"]

    def prepare(self):
        shutil.rmtree(self.root, ignore_errors=True)
        self.output("defaults", "write", "wifi", "-int", "1")
        self.output("defaults", "write", "custbrightenabled", "-bool", "true")
        self.write_profile(20, {"profilepercentage": "20", "wifi": 2, "profileactive": 1})
        self.write("import.plist", IMPORT)
        self.write("settings.plist", SETTINGS)

    def traced(self, options, *arguments):
        return subprocess.run(["strace", "-f", "-o", self.scratch / "log", *options, PROGRAM,
                               *arguments], env=self.env, cwd=self.root, capture_output=True,
                              check=False)

    def failing(self, call, which, *arguments):
        """With that call failing: its number, and "+" for all that follow."""
        return self.traced(["-e", f"inject={call}:error=EIO:when={which}"], *arguments)

    def codes(self, call, *arguments, more=("", "+")):
        """The exit codes with each of these calls failing, once and from there on. At each, nothing
        has changed and it says 1, or all has and it says 0 or 5."""
        self.prepare()
        self.traced(["-e", f"trace={call}"], *arguments)
        count = (self.scratch / "log").read_text().count(f" {call}(")
        self.assertGreater(count, 0)
        after, codes = self.everything(), set()
        for which in [f"{number}{end}" for number in range(1, count + 1) for end in more]:
            self.prepare()
            before = self.everything()
            done = self.failing(call, which, *arguments)
            codes.add(done.returncode)
            with self.subTest(arguments=arguments, call=call, which=which):
                self.assertEqual(self.everything(), before if done.returncode == FAILED else after,
                                 (done.returncode, done.stderr))
                self.assertEqual(b"not confirmed on disk" in done.stderr,
                                 done.returncode == UNCONFIRMED, done.stderr)
                if done.returncode != DONE:
                    self.assertEqual(len(done.stderr.splitlines()), 1, done.stderr)
                    self.assertTrue(done.stderr.startswith(b"quorvantis: "), done.stderr)
        return codes

    def test_of_a_set(self):
        self.assertLessEqual({FAILED, UNCONFIRMED}, self.codes("fsync", "set", "custbright", "70"))

    def test_of_a_reset(self):
        self.assertLessEqual({FAILED, UNCONFIRMED}, self.codes("fsync", "reset", "wifi"))

    def test_of_imported_settings(self):
        self.assertLessEqual({FAILED, UNCONFIRMED}, self.codes("fsync", "import", "settings.plist"))

    def test_of_a_copied_profile(self):
        codes = self.codes("fsync", "profile", "copy", "20", "21")
        self.assertEqual(codes, {FAILED, UNCONFIRMED})

    def test_of_a_raw_write(self):
        codes = self.codes("fsync", "defaults", "write", "wifi", "2")
        self.assertEqual(codes, {FAILED, UNCONFIRMED})

    def test_of_a_raw_removal(self):
        codes = self.codes("fsync", "defaults", "delete", "wifi")
        self.assertEqual(codes, {FAILED, UNCONFIRMED})

    def test_of_a_saved_profile(self):
        self.assertLessEqual({FAILED, UNCONFIRMED}, self.codes("fsync", "profile", "save", "21"))

    def test_of_a_loaded_profile(self):
        self.assertEqual(self.codes("fsync", "profile", "load", "20", more=("",)), {DONE, FAILED})

    def test_of_the_end_of_a_loaded_profile(self):
        self.prepare()
        done = self.failing("fsync", "4+", "profile", "load", "20")
        self.assertEqual(done.returncode, UNCONFIRMED, done.stderr)
        self.assertEqual(self.domain()["wifi"], 2)

    def test_of_a_deleted_profile(self):
        self.assertEqual(self.codes("fsync", "profile", "delete", "20"), {UNCONFIRMED})

    def test_of_an_imported_profile(self):
        codes = self.codes("fsync", "profile", "import", "import.plist")
        self.assertEqual(codes, {FAILED, UNCONFIRMED})

    def test_removal_that_can_not_look_at_the_domain_fails(self):
        self.assertIn(FAILED, self.codes("openat2", "defaults", "delete", "wifi"))

    def test_load_whose_first_write_fails_stores_nothing(self):
        self.prepare()
        before = self.everything()
        done = self.failing("renameat", 1, "profile", "load", "20")
        self.assertEqual(done.returncode, FAILED, done.stderr)
        self.assertEqual(self.everything(), before)

    def test_load_whose_second_write_fails_is_undone(self):
        self.prepare()
        before = self.everything()
        done = self.failing("renameat", 2, "profile", "load", "20")
        self.assertEqual(done.returncode, FAILED, done.stderr)
        self.assertTrue(done.stderr.startswith(b"quorvantis: not loaded: "), done.stderr)
        self.assertEqual(self.everything(), before)

    def test_load_whose_second_write_and_undoing_fail_is_not_said_to_have_done_nothing(self):
        self.prepare()
        done = self.failing("renameat", "2+", "profile", "load", "20")
        self.assertEqual(done.returncode, UNCONFIRMED, done.stderr)
        self.assertEqual(self.domain()["wifi"], 2)

    def test_of_the_folder_comes_before_the_answer_of_drive(self):
        self.prepare()
        requests = (b'{"do":"launch"}\n{"do":"open","page":"GeneralSettingsController"}\n'
                    b'{"do":"set","row":"enabled","value":true}\n')
        subprocess.run(["strace", "-f", "-y", "-o", self.scratch / "log", "-e",
                        "trace=fsync,renameat,write", PROGRAM, "drive"], env=self.env,
                       input=requests, capture_output=True, check=True)
        log = (self.scratch / "log").read_text()
        renamed, answered = log.rindex("renameat("), log.rindex("write(1")
        self.assertIn(f"{(self.root / DOMAIN).parent}>", log[renamed:answered].split("fsync(", 1)[1])
