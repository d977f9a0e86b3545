import os

from keyed_archive import archive
from program import DOCUMENTS, DOMAIN, ProgramTest

SOUNDS = "System/Library/Audio/UISounds"
CONTACTS = "var/mobile/Library/AddressBook"
CARD = b"BEGIN:VCARD\nN:;Ann\nTEL:1\nEND:VCARD\n"


class Root(ProgramTest):
    """Whatever lies in the root, nothing outside it is read or changed."""

    def outside(self, path, data):
        """A file beside the root; in the root a link of that path's folder leads to its folder."""
        target = self.scratch / "outside" / path
        target.parent.mkdir(parents=True)
        target.write_bytes(data)
        link = self.root / path
        link.parent.parent.mkdir(parents=True, exist_ok=True)
        link.parent.symlink_to(target.parent)
        return target

    def test_a_linked_settings_folder_is_not_read(self):
        self.write_domain({"wifi": 2})
        (self.root / DOMAIN).parent.rename(self.scratch / "Preferences")
        (self.root / DOMAIN).parent.symlink_to(self.scratch / "Preferences")
        self.assertEqual(self.document("defaults", "read"), {})
        before = sorted((self.scratch / "Preferences").iterdir())
        self.refuse(1, "set", "wifi", "1")
        self.assertEqual(sorted((self.scratch / "Preferences").iterdir()), before)

    def test_a_link_in_place_of_the_settings_is_replaced_not_followed(self):
        outside = self.scratch / "outside.plist"
        outside.write_bytes(b"theirs")
        (self.root / DOMAIN).parent.mkdir(parents=True)
        (self.root / DOMAIN).symlink_to(outside)
        self.output("set", "wifi", "1")
        self.assertEqual(self.domain(), {"wifi": 1})
        self.assertEqual(outside.read_bytes(), b"theirs")

    def test_linked_profiles_and_their_log_are_not_read(self):
        profile = self.outside(f"{DOCUMENTS}/profile_20.qvx", archive({"profilepercentage": "20"}))
        (profile.parent / "quorvantis.log").write_bytes(archive(["A"]))
        self.assertEqual(self.document("profile", "list"), [])
        self.assertEqual(self.document("log"), [])
        self.refuse(3, "profile", "load", "20")
        self.refuse(3, "profile", "delete", "20")
        self.refuse(1, "profile", "save", "21")
        self.assertEqual(sorted(os.listdir(profile.parent)), ["profile_20.qvx", "quorvantis.log"])

    def test_linked_sounds_and_contacts_are_not_offered(self):
        self.outside(f"{SOUNDS}/a.caf", b"x")
        self.outside(f"{CONTACTS}/a.vcf", CARD)
        self.assertEqual([each["value"] for each in self.document("choices", "playsound")], ["Disabled"])
        self.assertEqual(self.document("choices", "adressbook"), [])


class Contacts(ProgramTest):
    """Another folder of vCards than the root's."""

    def setUp(self):
        super().setUp()
        self.write(f"{CONTACTS}/a.vcf", CARD)
        (self.scratch / "cards").mkdir()
        (self.scratch / "cards/b.vcf").write_bytes(CARD.replace(b"Ann", b"Bob").replace(b"1", b"2"))
        (self.scratch / "cards/c.txt").write_bytes(CARD)

    def test_is_read_in_place_of_the_roots(self):
        self.assertEqual(self.document("choices", "adressbook"), [{"value": "1", "title": "Ann  (1)"}])
        for folder in ("cards", str(self.scratch / "cards")):
            self.assertEqual(self.document("choices", "adressbook", "--contacts", folder),
                             [{"value": "2", "title": "Bob  (2)"}])

    def test_gives_the_choices_of_a_set(self):
        self.output("set", "sendmessage", "on")
        self.refuse(2, "set", "adressbook", "2")
        self.output("set", "adressbook", "2", "--contacts", "cards")
        self.assertEqual(self.domain()["msgrecipient"], "2")

    def test_gives_the_choices_of_drive(self):
        done = self.run_program("--contacts", "cards", "drive", input=(
            b'{"do":"launch"}\n{"do":"open","page":"UserNotificationListController"}\n'
            b'{"do":"choices","row":"adressbook"}\n'))
        self.assertEqual(done.stdout.splitlines()[-1],
                         b'{"ok":true,"values":["2"],"titles":["Bob  (2)"]}')

    def test_that_is_missing_is_said(self):
        self.assertIn("nowhere", self.refuse(1, "choices", "adressbook", "--contacts", "nowhere"))
