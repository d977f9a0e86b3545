import os
import plistlib
import re
import socket
import threading
import time
import unittest

from keyed_archive import archive
from profiles import DAMAGED, DEFAULTS, ProfileTest, path_of
from program import DOCUMENTS

VALUES = {"profilepercentage": "20", "wifi": 1, "vibrate": True, "custbright": 41.5,
          "msgtext": "Low & <out>"}


class Export(ProfileTest):
    def setUp(self):
        super().setUp()
        self.file = self.scratch / "exported.plist"

    def test_an_xml_property_list(self):
        self.write_profile(20, VALUES)
        self.assertEqual(self.output("profile", "export", "20", str(self.file)), "")
        self.assertTrue(self.file.read_bytes().startswith(b"<?xml"))
        self.assertEqual(plistlib.loads(self.file.read_bytes()), VALUES)

    def test_to_standard_output(self):
        self.write_profile(20, VALUES)
        text = self.output("profile", "export", "Battery 20%", "-")
        self.assertEqual(plistlib.loads(text.encode()), VALUES)
        self.assertTrue(text.endswith("</plist>\n"))

    def test_reads_only(self):
        self.write_profile(20, VALUES)
        before = self.everything()
        self.output("profile", "export", "20", "-")
        self.assertEqual(self.everything(), before)

    def test_replaces_a_file_and_leaves_no_other(self):
        self.write_profile(20, VALUES)
        self.file.write_bytes(b"old")
        before = sorted(self.scratch.iterdir())
        self.assertIn("--overwrite", self.refuse(4, "profile", "export", "20", str(self.file)))
        self.assertEqual(self.file.read_bytes(), b"old")
        self.output("profile", "export", "20", str(self.file), "--overwrite")
        self.assertEqual(plistlib.loads(self.file.read_bytes()), VALUES)
        self.assertEqual(sorted(self.scratch.iterdir()), before)

    def test_writes_through_a_link(self):
        self.write_profile(20, VALUES)
        self.file.write_bytes(b"old")
        link = self.scratch / "link"
        link.symlink_to(self.file)
        self.refuse(4, "profile", "export", "20", str(link))
        self.output("profile", "export", "20", str(link), "--overwrite")
        self.assertTrue(link.is_symlink())
        self.assertEqual(plistlib.loads(self.file.read_bytes()), VALUES)

    def test_mode_follows_the_mask_of_the_process(self):
        self.write_profile(20, VALUES)
        done = self.run_program("profile", "export", "20", str(self.file), umask=0o027)
        self.assertEqual(done.returncode, 0)
        self.assertEqual(self.file.stat().st_mode & 0o777, 0o640)

    def test_to_a_path_below_the_working_folder(self):
        self.write_profile(20, VALUES)
        self.output("profile", "export", "20", self.file.name)
        self.assertEqual(plistlib.loads(self.file.read_bytes()), VALUES)

    def test_to_a_device(self):
        self.write_profile(20, VALUES)
        self.output("profile", "export", "20", "/dev/null")

    def test_file_that_can_not_be_written(self):
        self.write_profile(20, VALUES)
        self.refuse(1, "profile", "export", "20", str(self.scratch / "none" / "file"))
        self.refuse(1, "profile", "export", "20", str(self.scratch))

    def test_full_disk(self):
        self.write_profile(20, VALUES)
        self.refuse(1, "profile", "export", "20", "/dev/full")

    def test_none(self):
        self.refuse(3, "profile", "export", "20", str(self.file))
        self.refuse(3, "profile", "export", "nonsense", str(self.file))
        self.assertFalse(self.file.exists())

    def test_no_archive(self):
        self.write(path_of(20), DAMAGED)
        self.file.write_bytes(b"old")
        self.refuse(1, "profile", "export", "20", str(self.file))
        self.assertEqual(self.file.read_bytes(), b"old")


class Import(ProfileTest):
    def file(self, data):
        path = self.scratch / "given"
        path.write_bytes(data)
        return str(path)

    def xml(self, values):
        return self.file(plistlib.dumps(values))

    def refuse_key(self, key, values):
        self.assertIn(f'"{key}"', self.refuse(2, "profile", "import", self.xml(values)))

    def test_plain_xml(self):
        self.output("profile", "import", self.xml(VALUES))
        self.assertEqual(self.show("20"), VALUES)

    def test_plain_binary(self):
        self.output("profile", "import", self.file(plistlib.dumps(VALUES, fmt=plistlib.FMT_BINARY)))
        self.assertEqual(self.show("20"), VALUES)

    def test_from_standard_input(self):
        done = self.run_program("profile", "import", "-", input=plistlib.dumps(VALUES))
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        self.assertEqual(self.show("20"), VALUES)

    def test_standard_input_that_is_no_list(self):
        done = self.run_program("profile", "import", "-", input=b"x")
        self.assertEqual(done.returncode, 1)
        self.assertTrue(done.stderr.startswith(b"quorvantis: standard input: "), done.stderr)

    def test_binary_archive(self):
        self.output("profile", "import", self.file(archive(VALUES)))
        self.assertEqual(self.show("20"), VALUES)

    def test_standard_input(self):
        with open(self.xml(VALUES), "rb") as given:
            done = self.run_program("profile", "import", "-", stdin=given)
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        self.assertEqual(self.show("20"), VALUES)

    def test_pipe_that_is_written_in_pieces(self):
        data = plistlib.dumps({**VALUES, "msgtext": "x" * 100_000})
        reader, writer = os.pipe()

        def write():
            with open(writer, "wb", buffering=0) as file:
                for start in range(0, len(data), 30_000):
                    file.write(data[start:start + 30_000])
                    time.sleep(0.02)
        thread = threading.Thread(target=write, daemon=True)
        thread.start()
        with open(reader, "rb") as given:
            done = self.run_program("profile", "import", "-", stdin=given)
        thread.join()
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        self.assertEqual(len(self.show("20")["msgtext"]), 100_000)

    def test_what_is_not_a_file_is_refused_at_once(self):
        fifo = self.scratch / "fifo"
        os.mkfifo(fifo)
        link = self.scratch / "link"
        link.symlink_to("/dev/zero")
        listening = socket.socket(socket.AF_UNIX)
        self.addCleanup(listening.close)
        listening.bind(str(self.scratch / "socket"))
        for path in (fifo, link, "/dev/zero", "/dev/full", "/dev/tty", self.scratch,
                     self.scratch / "socket"):
            with self.subTest(path=path):
                start = time.monotonic()
                self.assertIn(str(path), self.refuse(1, "profile", "import", str(path)))
                self.assertLess(time.monotonic() - start, 5)

    def test_file_with_nothing_but_a_size(self):
        path = self.scratch / "sparse"
        with open(path, "wb") as file:
            file.truncate(65 << 20)
        self.assertIn(str(path), self.refuse(1, "profile", "import", str(path)))

    def test_xml_archive(self):
        def references(value):
            if isinstance(value, plistlib.UID):
                return {"CF$UID": value.data}
            if isinstance(value, dict):
                return {key: references(each) for key, each in value.items()}
            return [references(each) for each in value] if isinstance(value, list) else value
        self.output("profile", "import", self.xml(references(plistlib.loads(archive(VALUES)))))
        self.assertEqual(self.show("20"), VALUES)

    def test_all_settings(self):
        values = {"profilepercentage": "132", **DEFAULTS, "autoupdates": 2}
        self.output("profile", "import", self.xml(values))
        self.assertEqual(self.show("WiFi disconnected"), values)

    def test_kinds_of_numbers_stay(self):
        self.output("profile", "import", self.xml(
            {"profilepercentage": "20", "wifi": True, "bluetooth": 2, "vpn": 1.0}))
        self.assertEqual(self.output("profile", "show", "20", "--json"),
                         '{"profilepercentage":"20","wifi":true,"bluetooth":2,"vpn":1.0}\n')

    def test_brings_back_what_was_exported(self):
        self.output("set", "wifi", "2")
        self.output("profile", "save", "20")
        saved = (self.root / path_of(20)).read_bytes()
        file = str(self.scratch / "exported")
        self.output("profile", "export", "20", file)
        self.output("profile", "delete", "20")
        self.output("profile", "import", file)
        self.assertEqual((self.root / path_of(20)).read_bytes(), saved)

    def test_leaves_the_domain_alone(self):
        self.write_domain({"wifi": 2})
        self.output("profile", "import", self.xml(VALUES))
        self.assertEqual(self.domain(), {"wifi": 2})

    def test_existing_one_is_kept(self):
        self.write_profile(20, {"profilepercentage": "20", "wifi": 2})
        file = self.xml(VALUES)
        self.assertIn("--overwrite", self.refuse(4, "profile", "import", file))
        self.output("profile", "import", file, "--overwrite")
        self.assertEqual(self.show("20"), VALUES)

    def test_damaged_one_is_kept_or_overwritten(self):
        self.write(path_of(20), DAMAGED)
        self.refuse(4, "profile", "import", self.xml(VALUES))
        self.output("profile", "import", self.xml(VALUES), "--overwrite")

    def test_unknown_key(self):
        self.refuse_key("wlan", {**VALUES, "wlan": 1})
        self.refuse_key("autoupdatess", {**VALUES, "autoupdatess": 1})
        self.refuse_key("tapaction", {**VALUES, "tapaction": 200})

    def test_text_in_place_of_a_number(self):
        for key in ("wifi", "autoupdates", "profileactive", "firemusicplaying"):
            self.refuse_key(key, {**VALUES, key: "1"})

    def test_number_in_place_of_a_text(self):
        for key in ("msgtext", "profiledescription", "playsound", "alertmsg", "msgrecipient"):
            self.refuse_key(key, {**VALUES, key: 1})

    def test_other_kinds(self):
        for value in ([1], {"a": 1}, b"1"):
            self.refuse_key("wifi", {**VALUES, "wifi": value})
            self.refuse_key("msgtext", {**VALUES, "msgtext": value})

    def test_trigger_must_be_one(self):
        for trigger in ("0", "103", "020", "", "Battery 20%", 20, 20.0, True):
            self.refuse_key("profilepercentage", {**VALUES, "profilepercentage": trigger})
        self.refuse_key("profilepercentage", {"wifi": 1})

    def test_no_dictionary(self):
        for value in ("text", [VALUES]):
            self.refuse(2, "profile", "import", self.xml(value))
        self.refuse(2, "profile", "import", self.file(archive(["a"])))

    def test_file_that_can_not_be_read(self):
        self.refuse(1, "profile", "import", str(self.scratch / "none"))
        self.refuse(1, "profile", "import", str(self.scratch))
        for data in (DAMAGED, b"", b"bplist00", b"<plist><dict>"):
            self.refuse(1, "profile", "import", self.file(data))

    def test_broken_archive(self):
        broken = plistlib.loads(archive(VALUES))
        del broken["$top"]
        self.refuse(1, "profile", "import",
                    self.file(plistlib.dumps(broken, fmt=plistlib.FMT_BINARY)))

    def test_numbers_that_are_not_finite(self):
        for number in (float("nan"), float("inf"), float("-inf")):
            values = {**VALUES, "custbright": number}
            self.refuse_key("custbright", values)
            file = self.file(plistlib.dumps(values, fmt=plistlib.FMT_BINARY))
            self.assertIn('"custbright"', self.refuse(2, "profile", "import", file))

    def test_link_of_that_name_is_kept_or_overwritten(self):
        self.write(f"{DOCUMENTS}/kept", b"kept")
        (self.root / path_of(20)).symlink_to("nowhere")
        self.refuse(4, "profile", "import", self.xml(VALUES))
        self.output("profile", "import", self.xml(VALUES), "--overwrite")
        self.assertEqual(self.show("20"), VALUES)

    def test_folder_of_that_name_is_never_overwritten(self):
        self.write(f"{path_of(20)}/inside", b"")
        self.refuse(4, "profile", "import", self.xml(VALUES))
        self.assertIn("Is a directory",
                      self.refuse(1, "profile", "import", self.xml(VALUES), "--overwrite"))

    def test_errors_point_into_the_given_file_or_nowhere(self):
        broken = plistlib.loads(archive(VALUES))
        del broken["$top"]
        binary = plistlib.dumps(broken, fmt=plistlib.FMT_BINARY)
        for objects in ("<array/>", "<array><string>$null</string></array>"):
            text = ("<plist version='1.0'><dict><key>$version</key><integer>100000</integer>"
                    "<key>$archiver</key><string>NSKeyedArchiver</string><key>$top</key><dict>"
                    "<key>root</key><dict><key>CF$UID</key><integer>1</integer></dict></dict>"
                    f"<key>$objects</key>{objects}</dict></plist>")
            reason = self.refuse(1, "profile", "import", self.file(text.encode()))
            self.assertNotRegex(reason.replace(str(self.scratch), ""), r"byte|\d")
        reason = self.refuse(1, "profile", "import", self.file(binary))
        for place in re.findall(r"at byte (\d+)", reason):
            self.assertLess(int(place), len(binary))

    def test_profile_that_can_not_be_written(self):
        self.write("var/mobile/Documents", b"")
        self.refuse(1, "profile", "import", self.xml(VALUES), "--overwrite")


if __name__ == "__main__":
    unittest.main()
