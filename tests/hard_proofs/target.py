"""A device of its own in a scratch folder, the program on it, and what is stored there."""
import os
import plistlib
import shutil
import subprocess
from pathlib import Path

DOMAIN = "var/mobile/Library/Preferences/com.zorvek.quorvantis.plist"
DOCUMENTS = "var/mobile/Documents/Quorvantis"
TIMEOUT_SECONDS = 30
HUNG = -1  # in place of an exit code


class Target:
    """`folder` holds the root, and home and state of the program's user."""

    runs = 0  # of the program, by all targets

    def __init__(self, program, folder):
        self.program, self.folder = str(program), Path(folder)
        self.folder.mkdir(mode=0o700, parents=True, exist_ok=True)
        self.root = self.folder / "root"
        self.env = {"PATH": os.defpath, "LC_ALL": "C.UTF-8", "HOME": str(folder),
                    "XDG_STATE_HOME": str(self.folder / "state"), "XDG_RUNTIME_DIR": str(folder),
                    "DBUS_SESSION_BUS_ADDRESS": f"unix:path={folder}/none",
                    "ASAN_OPTIONS": "detect_leaks=0"}
        self.domain, self.documents = self.root / DOMAIN, self.root / DOCUMENTS

    def line(self, *arguments):
        return [self.program, "--root", str(self.root), *map(str, arguments)]

    def run(self, *arguments, before=(), timeout=TIMEOUT_SECONDS, **options):
        """Ended, as subprocess.run has it; its returncode is HUNG when it didn't end in time."""
        line = [*before, *self.line(*arguments)]
        options.setdefault("stdin", None if "input" in options else subprocess.DEVNULL)
        if options["stdin"] is None:
            del options["stdin"]
        Target.runs += 1
        try:
            return subprocess.run(line, env=self.env, cwd=self.folder, capture_output=True,
                                  timeout=timeout, check=False, **options)
        except subprocess.TimeoutExpired as expired:
            return subprocess.CompletedProcess(line, HUNG, expired.stdout or b"",
                                               expired.stderr or b"")

    def do(self, *arguments):
        """What it prints, where it has to succeed."""
        done = self.run(*arguments)
        if done.returncode != 0:
            raise RuntimeError(f"{' '.join(map(str, arguments))}: {done.returncode} {done.stderr}")
        return done.stdout

    def copy(self, folder):
        shutil.copytree(self.folder, folder, symlinks=True)
        return Target(self.program, folder)

    def remove(self):
        shutil.rmtree(self.folder, ignore_errors=True)

    def write_domain(self, values):
        self.domain.parent.mkdir(parents=True, mode=0o700, exist_ok=True)
        self.domain.write_bytes(plistlib.dumps(values, fmt=plistlib.FMT_BINARY))

    def values(self):
        return plistlib.loads(self.domain.read_bytes())

    def state(self):
        """The domain's bytes, None when there is none, and those of each profile by its name."""
        try:
            domain = self.domain.read_bytes()
        except FileNotFoundError:
            domain = None
        return domain, {path.name: path.read_bytes() for path in self.documents.glob("*.qvx")}

    def names(self):
        """Of all files in the root but locks: what a killed writer left behind is among them."""
        return sorted(str(path.relative_to(self.root)) for path in self.root.rglob("*")
                      if path.is_file() and path.suffix != ".lock")


def has_command(program, command):
    """Whether this build has the command, by its help."""
    text = subprocess.run([program, "--help"], capture_output=True, text=True, check=True).stdout
    return any(line.split("  ")[1:2] == [command] for line in text.splitlines()
               if line.startswith("  "))


def whole(data):
    """Whether these bytes are a property list."""
    try:
        plistlib.loads(data)
        return True
    except Exception:  # plistlib raises many kinds
        return False
