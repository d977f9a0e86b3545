"""How many packages a set of scripts/packages brings to a system that has nothing but what Debian requires."""
import os
import re
import shutil
import subprocess
import tempfile
import unittest

from stand_in import SOURCE


def packages_of(name):
    """The set's own."""
    text = (SOURCE / "scripts" / "packages").read_text().split(f"[{name}]")[1].split("\n[")[0]
    return re.findall(r"^([a-z0-9][^\s#]*)", text, re.MULTILINE)


def required():
    listed = subprocess.run(["dpkg-query", "-W", "-f", "${Package} ${Priority} ${Essential}\n"],
                            capture_output=True, text=True, check=True).stdout
    return [words[0] for words in map(str.split, listed.splitlines()) if {"required", "yes"} & set(words[1:])] + ["apt"]


def brought(names):
    """How many packages a system without any gets."""
    with tempfile.NamedTemporaryFile() as nothing:
        state = [f"-oDir::State::status={nothing.name}", f"-oDir::State::extended_states={nothing.name}"]
        done = subprocess.run(["apt-get", "--simulate", "-qq", "--no-install-recommends", *state, "install", *names],
                              capture_output=True, text=True, check=False,
                              env={"PATH": os.defpath, "LC_ALL": "C.UTF-8"})
    if done.returncode != 0:
        raise RuntimeError(done.stderr)
    return len(re.findall("^Inst ", done.stdout, re.MULTILINE))


# How each script asks for sets.
ASKED = {"bench": r'missing\("([a-z-]+)"\)', "run": r"packages\+?=\(([a-z-]+)\)",
         "test": r"scripts/install-packages ([a-z-]+)$", "scripts/check": r"scripts/install-packages ([a-z-]+) "}


class PackageSets(unittest.TestCase):
    def test_those_that_the_scripts_ask_for_are_there(self):
        there = re.findall(r"^\[([a-z-]+)\]", (SOURCE / "scripts" / "packages").read_text(), re.MULTILINE)
        for script, pattern in ASKED.items():
            asked = re.findall(pattern, (SOURCE / script).read_text(), re.MULTILINE)
            with self.subTest(script):
                self.assertTrue(asked)
                self.assertLessEqual(set(asked), set(there))

    @unittest.skipUnless(shutil.which("apt-get"), "no apt here")
    def test_the_command_line_needs_at_most_100_packages(self):
        base = required()
        try:
            least = brought(base)
        except RuntimeError as error:
            self.skipTest(f"no lists of packages here: {error}")
        more = brought(base + packages_of("cli")) - least
        self.assertIn(more, range(len(packages_of("cli")), 101))


if __name__ == "__main__":
    unittest.main()
