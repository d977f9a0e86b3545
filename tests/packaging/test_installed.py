"""What is installed beside the command line: completion that shells find by themselves, documents whose
links lead somewhere."""
import os
import re
import shutil
import subprocess
from pathlib import Path

from program import ProgramTest

COMPLETIONS = {"bash": "bash-completion/completions/quorvantis",
               "zsh": "zsh/vendor-completions/_quorvantis",
               "fish": "fish/vendor_completions.d/quorvantis.fish"}
# What makes the shell look for a completion of the program, and print a text that names it.
LOOKS = {"bash": ". {file} && complete -p quorvantis",
         "zsh": "fpath=({folder} $fpath); autoload -U compinit; compinit -u -D; echo $_comps[quorvantis]",
         "fish": "set -p fish_complete_path {folder}; complete -C 'quorvantis get wif'"}
FOUND = {"bash": "_quorvantis", "zsh": "_quorvantis", "fish": "wifi"}


class Installed(ProgramTest):
    def setUp(self):
        super().setUp()
        prefix = self.scratch / "installed"
        subprocess.run([os.environ["CMAKE"], "--install", os.environ["BUILD"], "--component", "shell",
                        "--prefix", prefix], check=True, stdout=subprocess.DEVNULL)
        self.share = prefix / "share"
        self.env["PATH"] = f"{prefix}/bin:{self.env['PATH']}"

    def test_completion_is_what_the_program_prints(self):
        for shell, file in COMPLETIONS.items():
            self.assertEqual((self.share / file).read_text(), self.output("completions", shell))

    def test_shells_find_the_completion(self):
        for shell, file in COMPLETIONS.items():
            with self.subTest(shell=shell):
                if not shutil.which(shell):
                    self.skipTest(f"{shell} is not installed")
                file = self.share / file
                look = LOOKS[shell].format(file=file, folder=file.parent)
                shown = subprocess.run([shell, "-c", look], env=self.env, cwd=self.scratch, check=True,
                                       capture_output=True, text=True, timeout=60).stdout
                self.assertIn(FOUND[shell], shown)

    def test_links_of_the_documents_lead_somewhere(self):
        documents = sorted((self.share / "doc").rglob("*.md"))
        self.assertIn("formats.md", [document.name for document in documents])
        links = [(document, link) for document in documents
                 for link in re.findall(r"\]\(([^)#:]+)\)", document.read_text())]
        self.assertTrue(links)
        for document, link in links:
            self.assertTrue((document.parent / link).exists(), f"{document.name}: {link}")

    def test_the_manual_names_documents_that_are_there(self):
        page = (Path(__file__).parents[2] / "packaging/man/quorvantis.5.scd").read_text()
        named = re.findall("_share/(doc/[^_]+)_", page)
        self.assertGreaterEqual(len(named), 2)
        for name in named:
            self.assertTrue((self.share / name).is_file(), name)
        self.assertNotIn("of the sources", page)
