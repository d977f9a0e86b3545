"""What the tests of profiles share."""
from keyed_archive import archive
from program import DOCUMENTS, DOMAIN, ProgramTest

LOCK = "var/mobile/Library/Preferences/.com.zorvek.quorvantis.plist.lock"
DAMAGED = b"no archive"

# The settings of a profile that have a default, and it.
DEFAULTS = {
    "profileactive": 1, "profiledescription": "", "airplanemode": 0, "wifi": 0,
    "locationservices": 0, "bluetooth": 0, "mobiledata": 0, "mobiledatarate": 0,
    "personalhotspot": 0, "vpn": 0, "bgapprefresh": 0, "reducemotion": 0, "grayscale": 0,
    "handoff": 0, "siri": 0, "autolock": 0, "quorvantislowpowermode": 0, "ioslowpowermode": 0,
    "autobrightness": 0, "custbrightenabled": 0, "custbright": 50, "killallbgapps": 0,
    "poweroptions": 0, "poweroptionsdelay": 0, "ringer": 0, "ringvibration": 0,
    "silentvibration": 0, "customvolumeenabled": 0, "customvolume": 50, "locksound": 0,
    "keyboardclick": 0, "dnd": 0, "alerttype": 0, "alertmsg": "Current battery level %BAT%",
    "sendmessage": 0, "msgrecipient": "",
    "msgtext": "Current battery level on device %DNAME%: %BAT%", "vibrate": 0,
    "vibrateduration": 5, "flashled": 0, "flashledduration": 5, "playsound": "Disabled",
    "music": 0, "takescreenshot": 0, "disableonfire": 0, "firewhenbattery": 0, "fireat": 0,
    "fireincall": 0, "firemusicplaying": 1,
}


def path_of(profile):
    return f"{DOCUMENTS}/profile_{profile}.qvx"


class ProfileTest(ProgramTest):
    def write_profile(self, profile, values):
        return self.write(path_of(profile), archive(values))

    def show(self, trigger):
        return self.document("profile", "show", trigger)

    def lock_store(self):
        """From now on the domain can be read and not be changed."""
        if (self.root / LOCK).exists():
            (self.root / LOCK).unlink()
        (self.root / LOCK).mkdir(parents=True)

    def damage_domain(self):
        self.write(DOMAIN, b"neither binary nor XML")
