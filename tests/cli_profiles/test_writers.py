import fcntl
import plistlib
import subprocess
import time
import unittest

from keyed_archive import archive
from profiles import ProfileTest, path_of
from program import DOCUMENTS, PROGRAM

LEFT = "0123456789abcdef"  # how a temporary name ends


class Leftovers(ProfileTest):
    """What killed writers leave behind is removed by the next one; what a living one has open is not."""

    def names(self, folder):
        return sorted(path.name for path in folder.iterdir())

    def left(self, folder, name):
        path = folder / f".{name}.{LEFT}"
        path.write_bytes(b"half")
        return path

    def test_of_any_profile_are_removed_by_the_next_save(self):
        self.output("profile", "save", "20")
        documents = self.root / DOCUMENTS
        for profile in (20, 21):
            self.left(documents, f"profile_{profile}.qvx")
        self.output("profile", "save", "22")
        self.assertEqual(self.names(documents), ["profile_20.qvx", "profile_22.qvx"])

    def test_are_removed_by_an_import(self):
        self.output("profile", "save", "20")
        self.left(self.root / DOCUMENTS, "profile_21.qvx")
        given = self.scratch / "given"
        given.write_bytes(plistlib.dumps({"profilepercentage": "22"}))
        self.output("profile", "import", str(given))
        self.assertEqual(self.names(self.root / DOCUMENTS), ["profile_20.qvx", "profile_22.qvx"])

    def test_of_an_export_are_removed_by_the_next_of_that_name(self):
        self.output("profile", "save", "20")
        folder = self.scratch / "folder"
        folder.mkdir()
        self.left(folder, "exported")
        other = self.left(folder, "else")
        self.output("profile", "export", "20", str(folder / "exported"))
        self.assertEqual(self.names(folder), [other.name, "exported"])

    def test_of_a_living_writer_stay(self):
        self.output("profile", "save", "20")
        living = self.left(self.root / DOCUMENTS, "profile_20.qvx")
        with open(living, "rb") as held:
            fcntl.flock(held, fcntl.LOCK_EX)
            self.output("profile", "save", "20", "--overwrite")
            self.assertTrue(living.exists())
        self.output("profile", "save", "20", "--overwrite")
        self.assertFalse(living.exists())

    def test_what_only_looks_alike_stays(self):
        self.output("profile", "save", "20")
        documents = self.root / DOCUMENTS
        alike = [".profile_20.qvx", f"profile_20.qvx.{LEFT}", f".profile_20.qvx.{LEFT}0", f".{LEFT}",
                 ".profile_20.qvx.0123456789ABCDEF", ".profile_20.qvx.0123456789abcde."]
        for name in alike:
            (documents / name).write_bytes(b"kept")
        (documents / f".folder.{LEFT}").mkdir()
        (documents / f".link.{LEFT}").symlink_to("/dev/null")
        before = self.names(documents)
        self.output("profile", "save", "20", "--overwrite")
        self.assertEqual(self.names(documents), before)

    def test_of_one_that_was_really_killed(self):
        self.output("profile", "save", "20")
        # The writer is stopped where its file is complete and has not its name yet.
        subprocess.run(["strace", "-qq", "-o", "/dev/null", "-e",
                        "inject=renameat,renameat2:signal=KILL:when=1", PROGRAM, "profile", "save",
                        "21"], env=self.env, stderr=subprocess.DEVNULL, check=False, timeout=60)
        left = [name for name in self.names(self.root / DOCUMENTS) if name.startswith(".profile_21")]
        self.output("profile", "save", "22")
        rest = self.names(self.root / DOCUMENTS)
        self.assertLessEqual(len(left), 1)
        self.assertFalse([name for name in rest if name.startswith(".")])
        self.assertEqual(rest[-1], "profile_22.qvx")


class Laziness(ProfileTest):
    def opened(self, *arguments):
        trace = self.scratch / "trace"
        done = subprocess.run(["strace", "-f", "-qq", "-o", str(trace), "-e", "trace=openat2", PROGRAM,
                               *arguments], env=self.env, capture_output=True, check=False,
                              timeout=60)
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        return trace.read_text().count(".qvx")

    def test_set_of_other_rows_reads_no_profile(self):
        self.output("profile", "save", "20")
        profile = self.document("choices", "profile")[0]["value"]
        self.write_domain({"profile": profile})
        self.assertGreater(self.opened("page", "GeneralSettingsController"), 0)
        for key, value in (("tapaction", "201"), ("holdaction", "201"), ("wifi", "2"),
                           ("vibrate", "true")):
            with self.subTest(key=key):
                self.assertEqual(self.opened("set", key, value), 0)


class Races(ProfileTest):
    def outcomes(self, *arguments, **options):
        """The exit codes of four that begin at the same time."""
        running = [subprocess.Popen([PROGRAM, *arguments], env=self.env, cwd=self.scratch,
                                    stderr=subprocess.DEVNULL, **options) for _ in range(4)]
        return sorted(each.wait(timeout=60) for each in running)

    def test_one_of_several_saves_without_overwrite_succeeds(self):
        self.write_domain({"wifi": 2})
        for trigger in range(1, 26):
            self.assertEqual(self.outcomes("profile", "save", str(trigger)), [0, 4, 4, 4])

    def test_one_of_several_imports_without_overwrite_succeeds(self):
        given = self.scratch / "given"
        for trigger in range(1, 11):
            given.write_bytes(plistlib.dumps({"profilepercentage": str(trigger)}))
            self.assertEqual(self.outcomes("profile", "import", str(given)), [0, 4, 4, 4])

    def test_file_that_appears_before_the_name_is_taken_is_kept(self):
        self.output("profile", "save", "1")
        taken = self.root / path_of(20)
        # Stopped before its file gets its name, as the host's note of it has before; strace continues it once another has taken that.
        save = subprocess.Popen(["strace", "-f", "-qq", "-o", "/dev/null", "-e",
                                 "inject=renameat2:delay_enter=2000000:when=2", PROGRAM, "profile",
                                 "save", "20"], env=self.env, stderr=subprocess.PIPE)
        deadline = time.monotonic() + 30
        while not list(taken.parent.glob(".profile_20.qvx.*")) and time.monotonic() < deadline:
            time.sleep(0.01)
        taken.write_bytes(archive({"profilepercentage": "20", "wifi": 2}))
        _, reason = save.communicate(timeout=60)
        self.assertEqual(save.returncode, 4, reason)
        self.assertIn(b"--overwrite", reason)
        self.assertEqual(self.show("20"), {"profilepercentage": "20", "wifi": 2})

    def test_file_system_without_the_flag_takes_a_second_name(self):
        for error in ("EINVAL", "ENOSYS"):
            for expected in (0, 4):
                done = subprocess.run(
                    ["strace", "-f", "-qq", "-o", "/dev/null", "-e",
                     f"inject=renameat2:error={error}", PROGRAM, "profile", "import",
                     self.given(error)], env=self.env, capture_output=True, check=False, timeout=60)
                self.assertEqual(done.returncode, expected, done.stderr)
        self.assertEqual(sorted(path.name for path in (self.root / DOCUMENTS).iterdir()),
                         ["profile_20.qvx", "profile_21.qvx"])

    def given(self, error):
        path = self.scratch / "given"
        trigger = {"EINVAL": "20", "ENOSYS": "21"}[error]
        path.write_bytes(plistlib.dumps({"profilepercentage": trigger}))
        return str(path)


if __name__ == "__main__":
    unittest.main()
