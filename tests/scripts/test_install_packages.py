"""What scripts/install-packages asks for, with and without the right to install."""
from stand_in import SOURCE, StandInTest

ADVICE = ("Please install these packages as root, then start again:\n"
          "  apt-get install --no-install-recommends ")


class InstallPackages(StandInTest):
    def setUp(self):
        super().setUp()
        self.stand_in("dpkg-query", 'for each; do [ "$each" = g++ ] || echo "$each installed"; done')
        self.stand_in("id", "echo 1000")
        self.stand_in("apt-get", 'case "$*" in *--print-uris*) echo "\'uri\' file 2500000 sum";; '
                                 '*--simulate*) printf "Inst a\\nInst b\\n";; esac')
        self.stand_in("sudo", '[ "$1" = -n ] && shift; exec "$@"')

    def install(self, *words):
        return self.run_script(SOURCE / "scripts/install-packages", *words)

    def installs(self):
        return [call for call in self.called("apt-get") if "install" in call and "--simulate" not in call
                and "--print-uris" not in call]

    def test_with_sudo(self):
        done = self.install("cli")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(done.stdout, "Missing: g++\nWith what they need: 2 packages in all, 3 MB to fetch\n")
        self.assertEqual(self.called("sudo")[0], "-n true")
        self.assertEqual(len(self.installs()), 1)
        self.assertTrue(self.installs()[0].endswith("install --no-install-recommends g++"))

    def test_as_root_nobody_is_asked(self):
        self.stand_in("id", "echo 0")
        self.assertEqual(self.install("cli").returncode, 0)
        self.assertEqual(self.called("sudo"), [])
        self.assertEqual(len(self.installs()), 1)

    def test_without_the_right_sudo_is_asked_once_and_the_packages_are_named(self):
        self.stand_in("sudo", 'echo "sudo: a password is required" >&2; exit 1')
        done = self.install("cli")
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stderr, f"sudo: a password is required\n{ADVICE}g++\n")
        self.assertEqual(len(self.called("sudo")), 1)
        self.assertEqual(self.installs(), [])

    def test_what_apt_can_not_install_is_named(self):
        self.stand_in("apt-get", 'case "$*" in *--simulate*) echo Inst a;; *) exit 100;; esac')
        done = self.install("cli")
        self.assertEqual((done.returncode, done.stderr), (1, "Could not install:\n  g++\n"))

    def test_with_nothing_missing_nothing_is_asked(self):
        self.stand_in("dpkg-query", 'for each; do echo "$each installed"; done')
        done = self.install("cli", "window")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))
        self.assertEqual((self.called("sudo"), self.called("apt-get")), ([], []))

    def test_missing_only_names(self):
        done = self.install("--missing", "cli")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "g++\n", ""))
        self.assertEqual((self.called("sudo"), self.called("apt-get")), ([], []))

    def test_wrong_use(self):
        self.assertEqual(self.install().returncode, 2)
        done = self.install("nosuchset")
        self.assertEqual(done.returncode, 2)
        self.assertIn("no set named nosuchset", done.stderr)
