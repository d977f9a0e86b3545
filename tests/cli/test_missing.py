from keyed_archive import archive
from program import DOCUMENTS, ProgramTest

CONTACTS = "var/mobile/Library/AddressBook/people.vcf"
SOUNDS = "System/Library/Audio/UISounds/bell.caf"


class Missing(ProgramTest):
    """On a machine that has none of the modules, the command that needs one says so."""

    def setUp(self):
        super().setUp()
        (self.scratch / "modules").mkdir()
        self.env["QUORVANTIS_MODULES"] = str(self.scratch / "modules")

    def warned(self, *arguments):
        """What the program prints though it says, in one line, what it lacks; and that line."""
        done = self.run_program(*arguments)
        self.assertEqual(done.returncode, 0, done.stderr)
        lines = done.stderr.decode().splitlines()
        self.assertEqual(len(lines), 1, lines)
        return done.stdout.decode(), lines[0]

    def save(self, trigger, description):
        self.write(f"{DOCUMENTS}/profile_{trigger}.qvx",
                   archive({"profilepercentage": trigger, "profiledescription": description}))

    def test_profiles_are_listed_in_the_order_of_their_bytes(self):
        self.save("5", "Zoo")
        self.save("6", "Été")
        self.save("7", "Übung")
        printed, line = self.warned("choices", "profile")
        self.assertEqual(len(printed.splitlines()), 3)
        self.assertRegex(line, "^quorvantis: collation is not available: ")

    def test_plain_titles_need_no_collation(self):
        self.save("5", "Zoo")
        self.save("6", "Ete")
        self.assertEqual(len(self.output("choices", "profile").splitlines()), 2)

    def test_a_list_of_profiles_needs_no_collation(self):
        self.save("6", "Été")
        self.save("7", "Übung")
        self.assertEqual(len(self.output("profile", "list").splitlines()), 2)

    def test_contacts(self):
        self.write(CONTACTS, b"BEGIN:VCARD\nN:;Ann\nTEL:1\nEND:VCARD\n")
        self.assertIn("reading vCards is not available: ", self.refuse(1, "choices", "adressbook"))

    def test_contacts_are_missed_by_nothing_else(self):
        self.write(CONTACTS, b"BEGIN:VCARD\nN:;Ann\nTEL:1\nEND:VCARD\n")
        for command in (["page", "UserNotificationListController"], ["list"], ["choices", "playsound"], ["set", "vibrate", "true"],
                        ["choices", "alerttype"]):
            with self.subTest(command=command):
                self.output(*command)

    def test_no_contacts_miss_nothing(self):
        self.assertEqual(self.output("choices", "adressbook"), "")

    def test_sounds_are_listed(self):
        self.write(SOUNDS, b"x")
        self.assertEqual([each["title"] for each in self.document("choices", "playsound")],
                         ["Disabled", "bell.caf"])

    def test_export(self):
        self.save("5", "")
        self.assertIn("reading and writing XML is not available: ",
                      self.refuse(1, "profile", "export", "5", "-"))

    def test_watch(self):
        self.assertIn("the session bus is not available: ", self.refuse(1, "watch"))

    def test_a_change_is_stored_without_the_bus(self):
        self.assertEqual(self.output("set", "vibrate", "true"), "")
        self.assertIs(self.domain()["vibrate"], True)


class MissingLibraries(ProgramTest):
    """On a machine with the modules, but without a library that one opens."""

    def test_the_message_names_the_package_of_the_vcard_reader(self):
        self.write(CONTACTS, b"BEGIN:VCARD\nN:;Ann\nTEL:1\nEND:VCARD\n")
        libraries = self.scratch / "libraries"
        libraries.mkdir()
        (libraries / "libebook-contacts-1.2.so.4").write_bytes(b"")
        self.env["LD_LIBRARY_PATH"] = str(libraries)
        message = self.refuse(1, "choices", "adressbook")
        self.assertIn("reading vCards is not available: ", message)
        self.assertIn("(Debian's package libebook-contacts-1.2-4)", message)
