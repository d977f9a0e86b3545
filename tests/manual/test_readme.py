"""README.md: short, its links lead somewhere, and its examples run as printed on a fresh store."""
import re

from manual import SOURCE, ManualTest, blocks, read

PAGES = ["README.md", "ARCHITECTURE.md", "CONTRIBUTING.md", "docs/formats.md", "docs/drive.md"]


class Readme(ManualTest):
    def test_examples_run_as_printed(self):
        (self.scratch / "examples").symlink_to(SOURCE / "examples")
        self.run_console("".join(blocks("README.md", "console")))

    def test_it_is_short(self):
        self.assertLessEqual(len(read("README.md").splitlines()), 120)

    def test_links_lead_somewhere(self):
        links = [(page, link) for page in PAGES
                 for link in re.findall(r"\]\(([^)#:]+)\)", read(page))]
        self.assertGreater(len(links), 20)
        for page, link in links:
            self.assertTrue((SOURCE / page).parent.joinpath(link).exists(), f"{page}: {link}")
