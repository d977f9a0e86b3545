"""Lines typed into the shells themselves, on a terminal: what the completion scripts make of a Tab."""
import fcntl
import os
import pty
import select
import shutil
import subprocess
import termios
import time
import unittest

from program import PROGRAM, TIMEOUT_SECONDS, ProgramTest

# Answers the script's questions, and writes down with which words it is started.
STAND_IN = f"""#!/bin/sh
[ "$1" != __complete ] || exec {PROGRAM} "$@"
printf '%s\\n' "$@" >started.new
mv started.new started
"""
READY = "ready:"


def shown_as(prompt):
    """The prompt's text for the shell, in a form that isn't the prompt when it is echoed."""
    return prompt[:2] + "''" + prompt[2:]


class InShell(ProgramTest):
    def setUp(self):
        super().setUp()
        folder = self.scratch / "bin"
        folder.mkdir()
        program = folder / "quorvantis"
        program.write_text(STAND_IN)
        program.chmod(0o755)
        self.env |= {"PATH": f"{folder}:{os.defpath}", "TERM": "xterm"}

    def start(self, shell, *start):
        """With these options, and a first line that sets the prompt and reads functions/_quorvantis."""
        if not shutil.which(shell):
            self.skipTest(f"{shell} is not installed")
        script = self.scratch / "functions/_quorvantis"
        script.parent.mkdir()
        script.write_text(self.output("completions", shell))
        self.leader, follower = pty.openpty()
        self.addCleanup(os.close, self.leader)
        running = subprocess.Popen([shell, *start[:-1]], env=self.env, cwd=self.scratch, stdin=follower,
                                   stdout=follower, stderr=follower, start_new_session=True,
                                   preexec_fn=lambda: fcntl.ioctl(0, termios.TIOCSCTTY, 0))
        os.close(follower)
        self.addCleanup(running.wait)
        self.addCleanup(running.kill)
        self.shown = b""
        os.write(self.leader, f"{start[-1]}\r".encode())
        self.wait_until(lambda: READY.encode() in self.shown)

    def wait_until(self, reached):
        end = time.monotonic() + TIMEOUT_SECONDS
        while not reached():
            self.assertLess(time.monotonic(), end, self.shown)
            if select.select([self.leader], [], [], 0.02)[0]:
                self.shown += os.read(self.leader, 65536)

    def words(self, line):
        """What the program is started with when this is typed; "→" is the Tab."""
        started = self.scratch / "started"
        started.unlink(missing_ok=True)
        self.shown = b""
        os.write(self.leader, line.replace("→", "\t").encode() + b"\r")
        self.wait_until(lambda: started.exists() and READY.encode() in self.shown)
        return started.read_text().splitlines()

    def check_all(self):
        self.run_program("profile", "save", "30", "--root", "other")
        (self.scratch / "folder").mkdir()
        for line, words in (
                ("get wif→", ["get", "wifi"]),
                ("--root=other profile load 3→", ["--root=other", "profile", "load", "30"]),
                ("reset --page=Extras→List→", ["reset", "--page=ExtrasListController"]),
                ("reset --page=Soun→ --dry→", ["reset", "--page=Sounds", "--dry-run"]),
                ("page Power\\ S→", ["page", "Power Saving"]),
                ('page "Power S→', ["page", "Power Saving"]),
                ("page 'Power S→", ["page", "Power Saving"]),
                ('reset --page="Power S→', ["reset", "--page=Power Saving"]),
                ("import fold→", ["import", "folder"]),
                ("--root=fold→", ["--root=folder"])):
            got = self.words("quorvantis " + line)
            self.assertEqual([word.rstrip("/") for word in got], words, line)

    def test_bash(self):
        self.start("bash", "--norc", "--noprofile", f"PS1={shown_as(READY)}; . functions/_quorvantis")
        self.check_all()

    def test_zsh(self):
        self.start("zsh", "-f", f"PS1={shown_as(READY)}; autoload -U compinit; compinit -u -D; . functions/_quorvantis")
        self.check_all()

    def test_zsh_finds_it_among_its_functions(self):
        self.start("zsh", "-f",
                   f"PS1={shown_as(READY)}; fpath=(functions $fpath); autoload -U compinit; compinit -u -D")
        self.check_all()

    def test_fish(self):
        self.start("fish", "--no-config",
                   f"function fish_prompt; echo {shown_as(READY)}; end; source functions/_quorvantis")
        self.check_all()


if __name__ == "__main__":
    unittest.main()
