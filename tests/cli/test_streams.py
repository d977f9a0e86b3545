import itertools
import os
import subprocess

from program import DOMAIN, PROGRAM, TIMEOUT_SECONDS
from recovery import RecoveryTest


class StandardStreams(RecoveryTest):
    """A program that is started with some of them closed must not take its own files for them."""

    def run_closed(self, closed, *arguments):
        return subprocess.run([PROGRAM, *arguments], env=self.env, cwd=self.scratch, check=False,
                              timeout=TIMEOUT_SECONDS, preexec_fn=lambda: [os.close(n) for n in closed])

    def test_nothing_is_written_into_files(self):
        commands = [["set", "wifi", "1"], ["profile", "save", "20", "--overwrite"], ["set", "wifi", "2"],
                    ["snapshot", "restore", "1"], ["undo"], ["redo"], ["profile", "load", "20"],
                    ["profile", "delete", "20"], ["reset", "--all"], ["repair"], ["set", "nosuchkey", "1"]]
        for count in (1, 2, 3):
            for closed in itertools.combinations(range(3), count):
                for command in commands:
                    with self.subTest(closed=closed, command=command):
                        self.run_closed(closed, *command)
                        locks = [path for path in self.scratch.rglob("*.lock") if path.stat().st_size > 0]
                        self.assertEqual(locks, [])
                if (self.root / DOMAIN).exists():
                    self.domain()  # is whole

    def test_output_that_nobody_takes_is_an_error(self):
        self.output("set", "wifi", "1")
        for closed in ((1,), (0, 1)):
            self.assertEqual(self.run_closed(closed, "list").returncode, 1)

    def test_input_that_is_not_there_is_an_error(self):
        self.assertEqual(self.run_closed((0,), "import", "-").returncode, 1)
