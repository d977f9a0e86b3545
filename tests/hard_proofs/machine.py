"""Starts a whole machine again and again, Debian's kernel with the command line and little else, and ends
it at random while it writes: what its memory held is lost. At the next start each file is whole, and what
was confirmed on the console before is there.

Needs qemu-system-x86_64, a Debian kernel and its modules, busybox, mkfs.ext4 and mkfs.xfs, and no root;
without /dev/kvm it takes about ten times as long."""
import base64
import glob
import os
import queue
import random
import re
import shutil
import subprocess
import threading
import time
from pathlib import Path

from power_cut import KEY, SYSTEMS, TRIGGER, saved_number
from proof import Outcome, Skipped
from target import DOCUMENTS, DOMAIN, whole

import plistlib

BOOTS = 50
BOOT_SECONDS = {"kvm": 20, "tcg": 300}
WRITING_SECONDS = {"kvm": 2, "tcg": 10}  # at most
MODULES = ["virtio_pci", "virtio_blk", "ext4", "xfs"]
PATH = os.environ["PATH"] + ":/usr/sbin:/sbin"
SEED = 50

INIT = f"""#!/bin/busybox sh
/bin/busybox --install -s /bin
export PATH=/bin QUORVANTIS_ROOT=/disk/device XDG_STATE_HOME=/disk/state HOME=/disk
mkdir -p /proc /dev /disk /tmp
mount -t proc proc /proc
mount -t devtmpfs devtmpfs /dev
for module in /modules/*; do insmod "$module"; done
mount -t "$hardsystem" /dev/vda /disk || echo "nothing mounted"
for file in "{DOMAIN}" "{DOCUMENTS}/profile_{TRIGGER}.qvx"; do
  if [ -e "/disk/device/$file" ]; then echo "$file $(base64 "/disk/device/$file" | tr -d '\\n')"; fi
done
echo "begins"
while :; do echo x >>/disk/another; sync /disk/another; usleep 3000; done &
number=$hardnumber
while :; do
  number=$((number + 1))
  quorvantis defaults write "{KEY}" -int $number && echo "stored $number"
  quorvantis defaults write wifi -int $number && quorvantis profile save {TRIGGER} --overwrite &&
    echo "saved $number"
done
"""


def kernel():
    there = sorted(glob.glob("/boot/vmlinuz-*cloud-amd64") or glob.glob("/boot/vmlinuz-*-amd64"))
    lacking = [package for package, found in (
        ("qemu-system-x86", shutil.which("qemu-system-x86_64")),
        ("linux-image-cloud-amd64", there and os.access(there[-1], os.R_OK)),
        ("busybox-static", shutil.which("busybox")), ("kmod", shutil.which("modprobe", path=PATH)),
        ("e2fsprogs", shutil.which("mkfs.ext4", path=PATH)),
        ("xfsprogs", shutil.which("mkfs.xfs", path=PATH))) if not found]
    if lacking:
        raise Skipped(f"needs the packages {', '.join(lacking)}")
    return there[-1]


def modules(version):
    """The files of the modules, each after those that it needs."""
    files = []
    for module in MODULES:
        lines = subprocess.run(["modprobe", "-S", version, "--show-depends", module], check=True,
                               capture_output=True, text=True, env=os.environ | {"PATH": PATH})
        files += [line.split()[1] for line in lines.stdout.splitlines() if line.startswith("insmod")]
    return list(dict.fromkeys(files))


def initramfs(setting, version):
    tree = setting.scratch / "initramfs"

    def put(source, name):
        target = tree / name
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(source, target)

    put(shutil.which("busybox"), "bin/busybox")
    put(setting.program, "bin/quorvantis")
    libraries = subprocess.run(["ldd", setting.program], capture_output=True, text=True, check=True).stdout
    for library in re.findall(r"(/\S+) \(", libraries):
        put(library, library.lstrip("/"))
    for number, file in enumerate(modules(version)):
        put(file, f"modules/{number:02}.ko")
    (tree / "init").write_text(INIT)
    (tree / "init").chmod(0o755)
    archive = setting.scratch / "initramfs.cpio"
    names = "\n".join(str(path.relative_to(tree)) for path in sorted(tree.rglob("*")))
    with open(archive, "wb") as file:
        subprocess.run(["busybox", "cpio", "-o", "-H", "newc"], input=names.encode(), cwd=tree, stdout=file,
                       stderr=subprocess.DEVNULL, check=True)
    return archive


class DidNotStart(RuntimeError):
    """With the last lines of its console."""


class Boot:
    """A machine that is on, and the lines of its console."""

    def __init__(self, image, system, number, files, accelerator):
        self.seconds = BOOT_SECONDS[accelerator]
        self.process = subprocess.Popen(
            ["qemu-system-x86_64", "-accel", accelerator, "-m", "512", "-nodefaults", "-nographic", "-no-reboot",
             "-serial", "stdio", "-drive", f"file={image},if=virtio,format=raw,cache=writeback",
             "-kernel", files[0], "-initrd", files[1],
             "-append", f"console=ttyS0 quiet panic=-1 edd=off hardsystem={system} hardnumber={number}"],
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.lines = queue.Queue()
        self.reader = threading.Thread(target=self.read)
        self.reader.start()

    def read(self):
        for line in self.process.stdout:
            if line.endswith(b"\n"):
                self.lines.put(line.decode(errors="replace").strip())

    def until_begins(self):
        """What was stored, by its file."""
        deadline, lines = time.monotonic() + self.seconds, []
        while time.monotonic() < deadline:
            try:
                lines.append(self.lines.get(timeout=1))
            except queue.Empty:
                if self.process.poll() is not None:
                    break
                continue
            if lines[-1] == "begins":
                return {name: base64.b64decode(text) for name, text in
                        (line.split(" ") for line in lines if line.startswith("var/mobile/"))}
        self.end()
        raise DidNotStart(" | ".join(lines[-10:]))

    def end(self):
        """What it confirmed until it was ended: the last stored and the last saved number."""
        self.process.kill()
        self.process.wait()
        self.reader.join()
        last = {"stored": 0, "saved": 0}
        while not self.lines.empty():
            if match := re.fullmatch(r"(stored|saved) (\d+)", self.lines.get()):
                last[match[1]] = int(match[2])
        return last


def accelerator(image, system, files):
    """"kvm" where it works: it may be there and not."""
    try:
        machine = Boot(image, system, 0, files, "kvm")
        machine.until_begins()
        machine.end()
        return "kvm"
    except DidNotStart:
        return "tcg"


def losses(files, confirmed):
    for name, number, confirms in ((DOMAIN, lambda data: plistlib.loads(data).get(KEY, 0), "stored"),
                                   (f"{DOCUMENTS}/profile_{TRIGGER}.qvx", saved_number, "saved")):
        data = files.get(name)
        if data is None:
            if confirmed[confirms]:
                yield f"{Path(name).name} is gone"
        elif not whole(data):
            yield f"{Path(name).name} is torn: {len(data)} bytes"
        elif number(data) < confirmed[confirms]:
            yield f"{Path(name).name}: confirmed {confirmed[confirms]}, {confirms} {number(data)}"


def prove(setting):
    linux = kernel()
    files = linux, initramfs(setting, Path(linux).name.removeprefix("vmlinuz-"))
    chosen = random.Random(SEED)
    faults, total = [], {"stored": 0, "saved": 0}
    for system, (megabytes, make) in SYSTEMS.items():
        image = setting.scratch / f"{system}.disk"
        with open(image, "wb") as file:
            file.truncate(megabytes << 20)
        subprocess.run([*make, image], check=True, env=os.environ | {"PATH": PATH})
        how = accelerator(image, system, files)
        subprocess.run([*make, image], check=True, env=os.environ | {"PATH": PATH})
        confirmed, number = {"stored": 0, "saved": 0}, 0
        for boot in range(BOOTS // len(SYSTEMS) + 1):  # the last one only looks
            machine = Boot(image, system, number, files, how)
            found = machine.until_begins()
            faults += [f"{system}, boot {boot}: {loss}" for loss in losses(found, confirmed)]
            time.sleep(chosen.uniform(0.1, WRITING_SECONDS[how]))
            last = machine.end()
            for what, value in last.items():
                confirmed[what] = max(confirmed[what], value)
                total[what] += max(0, value - number)
            number = max(number, *last.values())
        image.unlink()
    return Outcome(f"{BOOTS} machines ended at random, {total['stored']:,} sets and {total['saved']:,} saves "
                   "confirmed before", faults)
