"""The packages that this build makes, and what is in them."""
import os
import re
import subprocess
import tarfile
import tempfile
import unittest
from pathlib import Path

SOURCE = Path(__file__).resolve().parents[2]
VERSION = os.environ["VERSION"]
ID = "com.zorvek.quorvantis.Settings"


def output(*command, **options):
    return subprocess.run([str(word) for word in command], check=True, text=True,
                          stdout=subprocess.PIPE, timeout=120, **options).stdout


def debian_package(name):
    found, = Path(os.environ["PACKAGES"]).glob(f"{name}_{VERSION}-*.deb")
    return found


def tarball():
    found, = Path(os.environ["PACKAGES"]).glob(f"quorvantis-{VERSION}-*.tar.gz")
    return found


def tarball_names():
    with tarfile.open(tarball()) as archive:
        return ["/" + name.partition("/")[2] for name in archive.getnames()]


def tarball_text(file):
    """The text of the file of this name, in whatever folder."""
    with tarfile.open(tarball()) as archive:
        found, = (name for name in archive.getnames() if name.endswith("/" + file))
        return archive.extractfile(found).read().decode()


def field(name, package):
    """The names of packages that a field of a package lists, without versions."""
    text = output("dpkg-deb", "-f", debian_package(package), name)
    return set(re.findall(r"(?:^|, )([a-z0-9.+-]+)", text.strip()))


def package_set(name):
    """A set of scripts/packages, without those that it includes."""
    text = (SOURCE / "scripts/packages").read_text()
    lines = re.search(rf"^\[{name}\].*\n((?:(?!\[).*\n)*)", text, re.MULTILINE)[1]
    return set(re.findall(r"^([a-z0-9][^ #\n]*)", lines, re.MULTILINE))


class UnpackedTest(unittest.TestCase):
    """Both Debian packages, unpacked into one folder."""

    @classmethod
    def setUpClass(cls):
        cls.scratch = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.scratch.cleanup)
        cls.root = Path(cls.scratch.name) / "root"
        for package in ("quorvantis", "quorvantis-settings"):
            subprocess.run(["dpkg-deb", "-x", debian_package(package), cls.root], check=True)
        cls.env = {name: value for name, value in os.environ.items()
                   if name not in ("QUORVANTIS_MODULES", "DBUS_SESSION_BUS_ADDRESS")}
        cls.env.update(HOME=cls.scratch.name, QUORVANTIS_ROOT=f"{cls.scratch.name}/device",
                       XDG_STATE_HOME=f"{cls.scratch.name}/state",
                       XDG_RUNTIME_DIR=cls.scratch.name, QT_QPA_PLATFORM="offscreen")

    def program(self, name, *arguments):
        return output(self.root / "usr/bin" / name, *arguments, env=self.env)
