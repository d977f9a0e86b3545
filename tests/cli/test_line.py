import resource
import subprocess

from program import DOCUMENTS, DOMAIN, PROGRAM, ProgramTest


class Line(ProgramTest):
    def test_no_command(self):
        self.assertIn("no command", self.refuse(2))

    def test_a_group_without_its_command_leads_to_its_help(self):
        self.assertEqual(self.refuse(2, "profile"),
                         '"profile" needs a command; quorvantis profile --help lists them')
        self.assertEqual(self.refuse(2, "profile", "x"),
                         'no command "profile x"; quorvantis profile --help lists them')

    def test_unknown_command(self):
        self.assertIn('"bogus"', self.refuse(2, "bogus"))

    def test_group_without_or_with_an_unknown_command(self):
        for words in (["profile"], ["profile", "bogus"], ["defaults"], ["defaults", "bogus"]):
            with self.subTest(words=words):
                self.refuse(2, *words)

    def test_missing_argument(self):
        for words in (["get"], ["set", "custbright"], ["page"], ["choices"],
                      ["defaults", "write", "key"], ["defaults", "delete"]):
            with self.subTest(words=words):
                self.assertIn("required", self.refuse(2, *words))

    def test_empty_argument(self):
        for words in (["get", ""], ["set", "", "x"], ["page", ""], ["choices", ""],
                      ["defaults", "read", ""], ["defaults", "write", "", "x"],
                      ["defaults", "delete", ""]):
            with self.subTest(words=words):
                self.refuse(2, *words)

    def test_surplus_argument(self):
        self.refuse(2, "get", "custbright", "more")
        self.refuse(2, "pages", "more")

    def test_places_of_files_that_are_in_the_way(self):
        self.output("profile", "save", "20")
        self.assertTrue(self.refuse(4, "profile", "save", "20").endswith(
            "; --overwrite replaces it; quorvantis where prints where that is"))
        self.write(DOMAIN, b"garbage")
        self.assertTrue(self.refuse(1, "set", "wifi", "1").endswith(
            "; quorvantis where prints where that is"))
        self.assertTrue(self.refuse(1, "repair").endswith("; quorvantis where prints where that is"))
        for words in (["get", "wifi"], ["list"], ["set", "wifi", "1"]):
            self.assertTrue(self.refuse(1, *words, "--root", "/dev/null").endswith(
                "; quorvantis where prints where that is"), words)

    def test_unknown_option(self):
        self.refuse(2, "get", "--bogus", "custbright")
        self.refuse(2, "pages", "-x")

    def test_an_option_of_other_commands_names_the_command(self):
        self.assertEqual(self.refuse(2, "profile", "list", "--overwrite"),
                         "profile list has no option --overwrite")

    def test_the_last_value_of_an_option_counts(self):
        self.write_domain({"custbright": 12.5})
        self.assertEqual(
            self.output("--root", "/nowhere", "get", "custbright", "--root", str(self.root)), "12.5\n")

    def test_option_without_its_value(self):
        for words in (["get", "custbright", "--root"], ["--root", "", "get", "custbright"],
                      ["--root=", "get", "custbright"], ["pages", "--contacts"],
                      ["drive", "--viewport"]):
            with self.subTest(words=words):
                self.refuse(2, *words)

    def test_options_stand_anywhere(self):
        self.write_domain({"custbright": 12.5})
        self.env.pop("QUORVANTIS_ROOT")
        root = str(self.root)
        for words in (["--root", root, "get", "custbright"], ["get", "--root", root, "custbright"],
                      ["get", "custbright", "--root", root], ["get", "custbright", f"--root={root}"],
                      ["--json", "get", "--contacts", "/x", "custbright", "--root", root]):
            with self.subTest(words=words):
                self.assertEqual(self.output(*words), "12.5\n")

    def test_two_dashes_end_the_options(self):
        self.output("defaults", "write", "--", "--json", "--root")
        self.assertEqual(self.domain(), {"--json": "--root"})
        self.assertIn('"--json"', self.refuse(3, "get", "--", "--json"))

    def test_negative_number_is_not_an_option(self):
        self.output("defaults", "write", "key", "-int", "-5")
        self.output("defaults", "write", "text", "-5")
        self.assertEqual(self.domain(), {"key": -5, "text": "-5"})

    def test_root_of_the_environment_else_of_the_user(self):
        self.output("defaults", "write", "key", "1")
        self.assertTrue(self.root.is_dir())
        self.env.pop("QUORVANTIS_ROOT")
        self.output("defaults", "write", "key", "2")
        self.assertTrue((self.scratch / ".local/share/quorvantis/var").is_dir())
        self.env["XDG_DATA_HOME"] = str(self.scratch / "data")
        self.output("defaults", "write", "key", "3")
        self.assertTrue((self.scratch / "data/quorvantis/var").is_dir())

    def test_no_root_at_all(self):
        for name in ("QUORVANTIS_ROOT", "HOME"):
            self.env.pop(name)
        self.assertIn("--root", self.refuse(2, "pages"))

    def test_texts_of_the_program_need_no_root(self):
        texts = [self.output(*words) for words in (["help"], ["help", "set"], ["completions", "bash"])]
        for name in ("QUORVANTIS_ROOT", "HOME"):
            self.env.pop(name)
        self.assertEqual(
            texts, [self.output(*words) for words in (["help"], ["help", "set"], ["completions", "bash"])])

    def test_missing_root_is_made_by_the_first_write_only(self):
        self.output("get", "custbright")
        self.assertFalse(self.root.exists())
        self.output("defaults", "write", "key", "1")
        self.assertEqual(self.root.stat().st_mode & 0o777, 0o700)

    def test_help_names_every_command(self):
        text = self.output("--help")
        for name in ("pages", "page", "get", "set", "choices", "profile", "triggers", "log",
                     "watch", "defaults", "drive", "--root", "--contacts", "--json"):
            self.assertIn(name, text)

    def test_surplus_word_of_help(self):
        self.assertEqual(self.refuse(2, "help", "profile", "save", "x"), 'unexpected argument "x"')
        self.assertEqual(self.refuse(2, "help", "set", "wifi"), 'unexpected argument "wifi"')
        self.assertIn("TRIGGER", self.output("profile", "save", "x", "--help"))

    def test_an_option_behind_the_end_of_options_is_not_meant_by_itself(self):
        for option in ("--help", "--vers"):
            self.assertEqual(self.refuse(2, "--", option),
                             f'no command "{option}"; quorvantis --help lists them')
        self.assertIn('did you mean "--version"?', self.refuse(2, "version"))

    def test_help_of_a_command_and_of_a_group(self):
        self.assertIn("KEY", self.output("get", "--help"))
        self.assertIn("write", self.output("defaults", "--help"))

    def test_version(self):
        self.assertRegex(self.output("--version"), r"^quorvantis \d+\.\d+\.\d+\n$")

    def test_output_that_can_not_be_written(self):
        with open("/dev/full", "wb") as full:
            done = self.run_into(full, "pages")
        self.assertEqual(done.returncode, 1)
        self.assertIn(b"quorvantis: standard output: ", done.stderr)

    def test_output_that_can_not_be_written_is_all_that_is_said(self):
        self.output("profile", "save", "20")
        self.write(f"{DOCUMENTS}/profile_21.qvx", b"no archive")  # of which a list warns
        with open("/dev/full", "wb") as full:
            done = self.run_into(full, "profile", "list")
        self.assertEqual(done.returncode, 1)
        self.assertRegex(done.stderr.decode(), "^quorvantis: standard output: .*\n$")

    def test_a_change_is_done_though_its_report_can_not_be_written(self):
        self.output("set", "wifi", "1")
        for command, wifi in (("undo", 0), ("redo", 1)):
            with self.subTest(command=command), open("/dev/full", "wb") as full:
                done = self.run_into(full, command)
                self.assertEqual(done.returncode, 0)
                self.assertIn(b"quorvantis: standard output: ", done.stderr)
                self.assertEqual(self.document("get", "wifi"), wifi)
        self.write(DOMAIN, b"garbage")
        with open("/dev/full", "wb") as full:
            self.assertEqual(self.run_into(full, "repair", "--start-anew").returncode, 0)
        self.assertEqual(self.document("defaults", "read"), {})

    def test_exception_is_reported(self):
        def limit_memory():
            resource.setrlimit(resource.RLIMIT_AS, (1 << 26, 1 << 26))
        if any(name.endswith("SAN_OPTIONS") for name in self.env):
            self.skipTest("an instrumented program needs more memory")
        with open("/dev/zero", "rb") as endless:
            done = self.run_program("profile", "import", "-", stdin=endless,
                                    preexec_fn=limit_memory)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stderr, b"quorvantis: out of memory\n")

    def test_input_without_end_is_refused(self):
        with open("/dev/zero", "rb") as endless:
            done = self.run_program("profile", "import", "-", stdin=endless)
        self.assertEqual(done.returncode, 1)
        self.assertRegex(done.stderr.decode(), "^quorvantis: standard input: .*(large|67108864).*\n$")

    def run_into(self, file, *arguments):
        return subprocess.run([PROGRAM, *arguments], env=self.env, stdout=file,
                              stderr=subprocess.PIPE, timeout=60, check=False)
