import re
import struct
import subprocess
from xml.etree import ElementTree

from unpacked import ID, SOURCE, VERSION, UnpackedTest, output

SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)


class Desktop(UnpackedTest):
    def share(self, path):
        return self.root / "usr/share" / path

    def test_the_desktop_file_is_valid(self):
        file = self.share(f"applications/{ID}.desktop")
        self.assertEqual(output("desktop-file-validate", file), "")
        self.assertIn("DBusActivatable=true\n", file.read_text())

    def test_the_metadata_is_valid(self):
        output("appstreamcli", "validate", "--no-net", "--explain",
               self.share(f"metainfo/{ID}.metainfo.xml"))

    def test_the_metadata_with_web_addresses_is_valid(self):
        """As cmake writes it with QUORVANTIS_WEB_HOME and the others."""
        folder = self.root.parent / "web"
        (folder / "script").mkdir(parents=True)
        template = SOURCE / "packaging/desktop"
        (folder / "script/CMakeLists.txt").write_text(f"""
cmake_minimum_required(VERSION 3.25)
project(web NONE)
set(id {ID})
foreach(option HOME BUGS PICTURES)
  set(QUORVANTIS_WEB_${{option}} https://example.org)
endforeach()
include({template}/web.cmake)
configure_file({template}/metainfo.xml.in {folder}/metainfo.xml @ONLY)
""")
        output("cmake", "-S", folder / "script", "-B", folder / "build")
        written = subprocess.run(
            ["awk", "-v", f"version={VERSION}", "-v", "today=2026-01-31", "-f",
             template / "release_notes.awk", SOURCE / "CHANGELOG.md", folder / "metainfo.xml"],
            check=True, stdout=subprocess.PIPE).stdout
        file = folder / f"{ID}.metainfo.xml"
        file.write_bytes(written)
        output("appstreamcli", "validate", "--no-net", file)
        tree = ElementTree.fromstring(written)
        self.assertEqual([url.get("type") for url in tree.findall("url")],
                         ["homepage", "bugtracker"])
        pictures = [image.text for image in tree.findall("screenshots/screenshot/image")]
        self.assertEqual(len(pictures), 3)
        for picture in pictures:
            self.assertTrue((SOURCE / "docs" / picture.rpartition("/")[2]).is_file(), picture)

    def test_without_web_addresses_there_are_none(self):
        text = self.share(f"metainfo/{ID}.metainfo.xml").read_text()
        self.assertNotRegex(text, "https?://")

    def test_the_releases_are_those_of_the_changelog(self):
        tree = ElementTree.parse(self.share(f"metainfo/{ID}.metainfo.xml"))
        names = re.findall(r"^## \[(.*?)\]", (SOURCE / "CHANGELOG.md").read_text(), re.MULTILINE)
        releases = [release.get("version") for release in tree.findall("releases/release")]
        self.assertEqual(releases, [VERSION if n == "Unreleased" else n for n in names])
        notes = tree.findall("releases/release/description/ul/li")
        listed = re.findall("^- ", (SOURCE / "CHANGELOG.md").read_text(), re.MULTILINE)
        self.assertEqual(len(notes), len(listed))

    def test_pictures_have_the_sizes_that_desktops_ask_for(self):
        for size in SIZES:
            file = self.share(f"icons/hicolor/{size}x{size}/apps/{ID}.png")
            self.assertEqual(struct.unpack(">II", file.read_bytes()[16:24]), (size, size))
        for name in (f"scalable/apps/{ID}.svg", f"symbolic/apps/{ID}-symbolic.svg"):
            ElementTree.parse(self.share(f"icons/hicolor/{name}"))

    def test_the_bus_starts_the_program_of_the_package(self):
        service = self.share(f"dbus-1/services/{ID}.service").read_text()
        self.assertEqual(service, f"[D-BUS Service]\nName={ID}\nExec=/usr/bin/quorvantis-settings\n")
        self.assertTrue((self.root / "usr/bin/quorvantis-settings").is_file())
