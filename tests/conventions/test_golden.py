#!/usr/bin/env python3
"""The transcript runner, tried on a program whose answers are known."""
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

RUNNER = Path(__file__).parents[1] / "drive" / "run_golden.py"

# Answers each line with itself, the options, and what the root's file a holds.
ECHO = """#!{python}
import json, sys
root, options = sys.argv[2], sys.argv[4:]
try: seed = open(root + "/a").read()
except OSError: seed = None
for line in sys.stdin:
    print(json.dumps({{"ok": True, "asked": json.loads(line), "options": options, "seed": seed}}))
{more}
"""


class Golden(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.program = self.folder / "program"
        self.behave("")
        self.transcript = self.folder / "talk.in"
        self.transcript.write_text('{"do":"launch"}\n{"do":"page"}\n')
        self.golden = self.folder / "talk.golden"

    def behave(self, more):
        self.program.write_text(ECHO.format(python=sys.executable, more=more))
        self.program.chmod(0o755)

    def run_golden(self, *options):
        return subprocess.run([sys.executable, "-B", RUNNER, *options, self.program,
                               self.transcript], capture_output=True, text=True, check=False)

    def accepted(self):
        self.assertEqual(self.run_golden("--accept").returncode, 0)
        return self.golden.read_text()

    def test_an_accepted_conversation_passes(self):
        self.accepted()
        self.assertEqual(self.run_golden().returncode, 0)

    def test_a_missing_golden_file_fails(self):
        self.assertEqual(self.run_golden().returncode, 1)
        self.assertFalse(self.golden.exists())

    def test_a_difference_fails_and_is_shown(self):
        self.golden.write_text(self.accepted().replace("launch", "lunch"))
        outcome = self.run_golden()
        self.assertEqual(outcome.returncode, 1)
        self.assertIn('-> {"do":"lunch"}', outcome.stdout)
        self.assertIn('+> {"do":"launch"}', outcome.stdout)

    def test_accepting_replaces_the_golden_file(self):
        before = self.accepted()
        self.transcript.write_text('{"do":"page"}\n')
        self.assertNotEqual(self.accepted(), before)

    def test_integers_and_reals_are_distinguished(self):
        self.transcript.write_text('{"value":50}\n')
        whole = self.accepted()
        self.transcript.write_text('{"value":50.0}\n')
        self.assertNotEqual(self.accepted().split("\n")[1], whole.split("\n")[1])

    def test_a_long_answer_stands_on_many_lines(self):
        self.transcript.write_text('{"rows":["%s","%s"]}\n' % ("a" * 80, "b" * 80))
        self.assertGreater(self.accepted().count("\n"), 4)

    def test_remarks_are_not_sent(self):
        self.transcript.write_text('# what this shows\n\n{"do":"page"}\n')
        self.assertEqual(self.accepted().count("> "), 1)

    def test_options_reach_the_program(self):
        self.transcript.write_text('# args: --viewport 6\n{"do":"page"}\n')
        self.assertIn('["--viewport", "6"]', self.accepted())

    def test_the_root_is_seeded_with_a_copy(self):
        seed = self.folder / "talk.root"
        seed.mkdir()
        (seed / "a").write_text("sown")
        self.behave('open(root + "/a", "w").write("changed")')
        self.assertIn('"seed": "sown"', self.accepted())
        self.assertEqual((seed / "a").read_text(), "sown")

    def test_messages_on_stderr_are_part_of_it(self):
        self.behave('print("set aside", file=sys.stderr)')
        self.assertIn("! set aside\n", self.accepted())

    def test_a_crash_fails_and_is_not_accepted(self):
        self.accepted()
        self.behave("sys.exit(3)")
        self.assertIn("ended with 3", self.run_golden().stdout)
        self.assertEqual(self.run_golden().returncode, 1)
        self.transcript.write_text('{"do":"page"}\n')
        self.assertEqual(self.run_golden("--accept").returncode, 1)

    def test_a_missing_answer_is_not_accepted(self):
        self.program.write_text(f"#!{sys.executable}\nprint('{{}}')\n")
        outcome = self.run_golden("--accept")
        self.assertEqual(outcome.returncode, 1)
        self.assertIn("2 requests, 1 answers", outcome.stdout)

    def test_an_answer_that_is_not_json_is_not_accepted(self):
        self.program.write_text(f"#!{sys.executable}\nprint('hello')\nprint('{{}}')\n")
        self.assertEqual(self.run_golden("--accept").returncode, 1)

    def test_a_number_that_json_has_not_is_not_accepted(self):
        self.program.write_text(f"#!{sys.executable}\nprint('{{\"a\":NaN}}')\nprint('{{}}')\n")
        self.assertIn("answer 1 is not JSON", self.run_golden("--accept").stdout)

    def test_a_transcript_without_requests_fails(self):
        self.transcript.write_text("# nothing\n")
        self.assertEqual(self.run_golden("--accept").returncode, 1)


if __name__ == "__main__":
    unittest.main()
