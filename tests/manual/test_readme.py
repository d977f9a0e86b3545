"""README.md and the documents beside it: short, links lead somewhere, examples run on a fresh store."""
import re

from manual import SOURCE, ManualTest, blocks, read

PAGES = ["README.md", "ARCHITECTURE.md", "CONTRIBUTING.md", "docs/formats.md", "docs/drive.md"]


class Readme(ManualTest):
    def test_examples_run_as_printed(self):
        (self.scratch / "examples").symlink_to(SOURCE / "examples")
        self.run_console("".join(blocks("README.md", "console")))

    def test_it_is_short(self):
        self.assertLessEqual(len(read("README.md").splitlines()), 120)

    def test_a_first_release_has_only_added(self):
        """What desktops show as its notes, too: an item or two for each area."""
        text = read("CHANGELOG.md")
        released = re.findall(r"^## \[(?!Unreleased)", text, re.MULTILINE)
        if released:
            self.skipTest("there is a release")
        self.assertEqual(re.findall("^### (.*)", text, re.MULTILINE), ["Added"])
        self.assertLessEqual(len(re.findall("^- ", text, re.MULTILINE)), 30)

    def test_links_lead_somewhere(self):
        links = [(page, link) for page in PAGES
                 for link in re.findall(r"\]\(([^)#:]+)\)", read(page))]
        self.assertGreater(len(links), 20)
        for page, link in links:
            self.assertTrue((SOURCE / page).parent.joinpath(link).exists(), f"{page}: {link}")
