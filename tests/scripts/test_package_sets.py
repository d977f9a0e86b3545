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
    """By how many packages a system without any grows, if apt's lists are there."""
    with tempfile.NamedTemporaryFile() as nothing:
        state = [f"-oDir::State::status={nothing.name}", f"-oDir::State::extended_states={nothing.name}"]
        done = subprocess.run(["apt-get", "--simulate", "-qq", "--no-install-recommends", *state, "install", *names],
                              capture_output=True, text=True, check=False,
                              env={"PATH": os.defpath, "LC_ALL": "C.UTF-8"})
    if done.returncode != 0:
        raise unittest.SkipTest(f"no lists of packages here: {done.stderr.strip()[-200:]}")
    return len(re.findall("^Inst ", done.stdout, re.MULTILINE))


@unittest.skipUnless(shutil.which("apt-get"), "no apt here")
class PackageSets(unittest.TestCase):
    def test_the_command_line_needs_at_most_100_packages(self):
        base = required()
        more = brought(base + packages_of("cli")) - brought(base)
        self.assertIn(more, range(len(packages_of("cli")), 101))


if __name__ == "__main__":
    unittest.main()
