"""What the tests of the manual share: its examples, and ways to run them as they are printed."""
import re
import subprocess
from pathlib import Path

from program import PROGRAM, TIMEOUT_SECONDS, ProgramTest

SOURCE = Path(__file__).resolve().parents[2]


def read(page):
    return (SOURCE / page).read_text()


def blocks(page, language=""):
    """The fenced examples of this language, without the indentation that they all have."""
    for indentation, text in re.findall(rf"^([ \t]*)```{language}\n(.*?)^[ \t]*```$", read(page),
                                        re.MULTILINE | re.DOTALL):
        yield re.sub(f"^{indentation}", "", text, flags=re.MULTILINE)


def fits(pattern, text):
    """Whether this is the text, where "…" in the pattern stands for anything."""
    return re.fullmatch(".*".join(map(re.escape, pattern.split("…"))), text, re.DOTALL)


class ManualTest(ProgramTest):
    maxDiff = None

    def setUp(self):
        super().setUp()
        self.env["PATH"] = f"{Path(PROGRAM).parent}:{self.env['PATH']}"
        del self.env["QUORVANTIS_ROOT"]  # a reader's shell doesn't have it
        self.root = self.scratch / ".local/share/quorvantis"

    def run_shell(self, command):
        """What a terminal shows of this command, and its exit code."""
        done = subprocess.run(["bash", "-c", command], env=self.env, cwd=self.scratch, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False,
                              stdin=subprocess.DEVNULL, timeout=TIMEOUT_SECONDS)
        return done.stdout, done.returncode

    def run_console(self, text):
        """Runs each line that begins with "$ "; what is printed below it is what it prints."""
        commands = re.findall(r"^\$ (.*)\n((?:(?!\$ ).*\n)*)", text, re.MULTILINE)
        self.assertTrue(commands, text)
        for command, printed in commands:
            shown, code = self.run_shell(command)
            if not fits(printed, shown):
                self.assertEqual(shown, printed, command)
            # A refusal that is printed has its code; what is printed of all else is a success.
            self.assertEqual(code != 0, printed.startswith("quorvantis: "), command)
