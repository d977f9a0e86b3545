#!/usr/bin/env python3
"""What an extension does that acts on Quorvantis' settings, on public interfaces alone.

usage: extension.py TRIGGER [--once] [--root DIR]

TRIGGER is what fires: a battery level from 1 to 100, also as "20%", or an event's number (101:
charging started). The extension reads the settings and the profile of that trigger, prints what it
would do (it does nothing of it), and appends that to the battery log. Then it does so again each
time Quorvantis has announced changes on the session bus, until it is interrupted; with --once it
ends. What can't be read is reported.

docs/formats.md describes all that is read and written here.
"""
import argparse
import ctypes
import datetime
import os
import plistlib
import socket
import sys
import tempfile
from pathlib import Path

DOMAIN = "var/mobile/Library/Preferences/com.zorvek.quorvantis.plist"
DOCUMENTS = "var/mobile/Documents/Quorvantis"
INTERFACE = b"com.zorvek.quorvantis.Notifications"
EVENTS = (101, 102, 111, 112, 121, 122, 131, 132)
QUIET_MICROSECONDS = 300_000  # after which the changes of a burst are over

# Most of what is left as it is (0), turned on (1) or turned off (2).
SWITCHED = {
    "airplanemode": "airplane mode", "wifi": "Wi-Fi", "bluetooth": "Bluetooth",
    "locationservices": "location services", "mobiledata": "mobile data", "vpn": "VPN",
    "personalhotspot": "the personal hotspot", "bgapprefresh": "background app refresh",
    "autoupdates": "automatic updates", "reducemotion": "reduced motion", "grayscale": "grayscale",
    "handoff": "Handoff", "siri": "Siri", "autobrightness": "auto-brightness",
    "ioslowpowermode": "iOS' low power mode", "dnd": "Do Not Disturb",
}


def default_root():
    data = os.environ.get("XDG_DATA_HOME") or Path.home() / ".local/share"
    return Path(os.environ.get("QUORVANTIS_ROOT") or Path(data, "quorvantis"))


# Keyed archives: of a dictionary (a profile) and of an array of texts (the log).

def unarchived(archive):
    objects = archive["$objects"]

    def value(uid):
        entry = objects[uid.data]
        if not isinstance(entry, dict):
            return None if entry == "$null" else entry
        if "NS.keys" in entry:
            return dict(zip(map(value, entry["NS.keys"]), map(value, entry["NS.objects"])))
        if "NS.objects" in entry:
            return [value(item) for item in entry["NS.objects"]]
        return entry.get("NS.string")

    return value(archive["$top"]["root"])


def archived(texts):
    uid = plistlib.UID
    array = {"NS.objects": [uid(i + 3) for i in range(len(texts))], "$class": uid(2)}
    array_class = {"$classname": "NSArray", "$classes": ["NSArray", "NSObject"]}
    return {"$version": 100000, "$archiver": "NSKeyedArchiver", "$top": {"root": uid(1)},
            "$objects": ["$null", array, array_class, *texts]}


# What the extension reads and writes.

class Unreadable(Exception):
    pass


def read(file, kind, contents=lambda document: document):
    """Nothing where there is no such file."""
    try:
        value = contents(plistlib.loads(file.read_bytes()))
    except FileNotFoundError:
        return None
    except Exception as error:  # a damaged file can make plistlib raise almost anything
        raise Unreadable(f"{file}: {error or 'damaged'}") from error
    if not isinstance(value, kind):
        raise Unreadable(f"{file}: damaged")
    return value


def read_settings(root):
    return read(root / DOMAIN, dict) or {}  # what was never stored has its default


def read_profile(root, trigger):
    return read(root / DOCUMENTS / f"profile_{trigger}.qvx", dict, unarchived)


def append_to_log(root, entry):
    log = root / DOCUMENTS / "quorvantis.log"
    entries = read(log, list, unarchived) or []
    log.parent.mkdir(parents=True, exist_ok=True)
    # A reader never sees half a log: the new one is written beside it and renamed over it.
    with tempfile.NamedTemporaryFile(dir=log.parent, prefix=".log-", delete=False) as file:
        plistlib.dump(archived([*entries, entry]), file, fmt=plistlib.FMT_BINARY)
        file.flush()
        os.fsync(file.fileno())
    os.replace(file.name, log)


# What is to be done.

def filled(text, trigger):
    return text.replace("%BAT%", f"{trigger}%").replace("%DNAME%", socket.gethostname())


def actions(settings, profile, trigger):
    """What a profile asks for, in words; a key that it lacks has its default."""
    if not settings.get("enabled", True):
        return ["nothing: Quorvantis is turned off"]
    if profile is None:
        return ["nothing: there is no profile for this trigger"]
    if not profile.get("profileactive", 1):
        return ["nothing: the profile is not active"]
    done = [f"turn {name} {'on' if profile[key] == 1 else 'off'}" for key, name in SWITCHED.items()
            if profile.get(key) in (1, 2)]
    if profile.get("custbrightenabled"):
        done.append(f"set the brightness to {profile.get('custbright', 50):g} %")
    if profile.get("customvolumeenabled"):
        done.append(f"set the volume to {profile.get('customvolume', 50):g} %")
    if profile.get("vibrate"):
        done.append(f"vibrate for {profile.get('vibrateduration', 5):g} s")
    if profile.get("playsound", "Disabled") != "Disabled":
        done.append(f"play {profile['playsound']}")
    if profile.get("alerttype"):
        done.append("show: " + filled(profile.get("alertmsg", ""), trigger))
    if profile.get("sendmessage"):
        done.append(f"write to {profile.get('msgrecipient', '')}: "
                    + filled(profile.get("msgtext", ""), trigger))
    return done or ["nothing: the profile leaves all as it is"]


def fire(root, trigger):
    settings = read_settings(root)
    done = actions(settings, read_profile(root, trigger), trigger)
    print(f"trigger {trigger}:", *done, sep="\n  ", flush=True)
    if settings.get("batterylogenabled", True):
        now = datetime.datetime.now().isoformat(" ", "seconds")
        append_to_log(root, f"{now} trigger {trigger}: {'; '.join(done)}")


def changes():
    """Yields once it listens, so that no change is missed, and once after each burst of notifications."""
    bus = ctypes.c_void_p()
    library = ctypes.CDLL("libsystemd.so.0")
    if library.sd_bus_open_user(ctypes.byref(bus)) < 0:
        sys.exit("extension: no session bus")
    library.sd_bus_add_match(bus, None, b"type='signal',interface='" + INTERFACE + b"'", None, None)
    yield
    changed, status = False, 1
    while status >= 0:
        message = ctypes.c_void_p()
        status = library.sd_bus_process(bus, ctypes.byref(message))
        if message and library.sd_bus_message_is_signal(message, INTERFACE, b"Posted") > 0:
            changed = True
        library.sd_bus_message_unref(message)
        if status == 0:
            status = library.sd_bus_wait(
                bus, ctypes.c_uint64(QUIET_MICROSECONDS if changed else 2**64 - 1))
            if status == 0 and changed:
                changed = False
                yield
    sys.exit("extension: the session bus went away")


def trigger_number(text):
    digits = text.removesuffix("%")
    number = int(digits) if digits.isdecimal() else 0
    if not (1 <= number <= 100 or (number in EVENTS and digits == text)):
        raise argparse.ArgumentTypeError(f"no trigger {text!r}; it is a level from 1 to 100, or one of "
                                         + ", ".join(map(str, EVENTS)))
    return number


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("trigger", type=trigger_number, metavar="TRIGGER",
                        help="a level from 1 to 100, or an event's number")
    parser.add_argument("--once", action="store_true", help="don't wait for changes")
    parser.add_argument("--root", type=Path, default=default_root(), metavar="DIR")
    options = parser.parse_args()
    for _ in [None] if options.once else changes():
        try:
            fire(options.root, options.trigger)
        except (Unreadable, OSError) as error:
            print(f"extension: {error}", file=sys.stderr)
            if options.once:
                sys.exit(1)


if __name__ == "__main__":
    try:
        main()
    except KeyboardInterrupt:
        pass
