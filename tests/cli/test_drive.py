import json
import os

from program import ProgramTest


class Drive(ProgramTest):
    def converse(self, *requests, options=()):
        text = "".join(request if isinstance(request, str) else json.dumps(request) + "\n"
                       for request in requests)
        done = self.run_program("drive", *options, input=text.encode())
        self.assertEqual(done.stderr, b"")
        self.assertEqual(done.returncode, 0)
        return [json.loads(line) for line in done.stdout.decode().splitlines()]

    def error(self, *requests):
        answer = self.converse(*requests)[-1]
        self.assertEqual(list(answer), ["ok", "error", "message"])
        self.assertIs(answer["ok"], False)
        return answer["error"]

    def test_input_that_can_not_be_read(self):
        folder = os.open(self.scratch, os.O_RDONLY)
        self.addCleanup(os.close, folder)
        done = self.run_program("drive", stdin=folder)
        self.assertEqual(done.returncode, 1)
        self.assertEqual(done.stderr, b"quorvantis: standard input: Is a directory\n")

    def test_viewport_says_its_range(self):
        for viewport in ("0", "99999999999999", "x"):
            self.assertEqual(self.refuse(2, "drive", "--viewport", viewport),
                             "--viewport is a number from 1 to 2147483647")

    def test_empty_lines_are_passed_over(self):
        self.assertEqual(self.converse("\n\n", {"do": "opened"}, "  \n\r\n"),
                         [{"ok": True, "urls": []}])

    def test_last_line_needs_no_newline(self):
        self.assertEqual(self.converse('{"do":"played"}'), [{"ok": True, "sounds": []}])

    def test_nothing_to_do(self):
        self.assertEqual(self.converse(), [])

    def test_what_is_not_a_request(self):
        for line in ("no JSON\n", "[]\n", "5\n", "{}\n", '{"do":5}\n', '{"do":"nothing"}\n',
                     '{"do":"launch"} more\n', '{"do":1e999}\n', '{"do":"launch"\n',
                     "[" * 100000 + "\n"):
            with self.subTest(line=line[:20]):
                self.assertEqual(self.error(line), "bad_request")

    def test_bytes_that_are_not_utf8(self):
        done = self.run_program("drive", input=b'{"do":"\xff"}\n{"do":"opened"}\n')
        first, second = map(json.loads, done.stdout.splitlines())
        self.assertEqual(first["error"], "bad_request")
        self.assertEqual(second["ok"], True)

    def test_value_nested_without_end(self):
        line = '{"do":"set","row":0,"value":' + "[" * 5000 + "]" * 5000 + "}\n"
        self.assertEqual(self.error({"do": "launch"}, line), "bad_request")

    def test_line_that_is_nested_too_deep_or_too_long(self):
        for line in ("[" * 90000 + "\n", '{"do":"set","row":0,"value":' + "[" * 500 + "]" * 500 + "}\n",
                     '{"do":"set","row":0,"value":' + "[" * 64 + "]" * 64 + "}\n",
                     '{"do":"played","x":"' + "x" * (16 << 20) + '"}\n'):
            with self.subTest(line=line[:40], length=len(line)):
                self.assertEqual(self.error(line), "bad_request")
        for line in ('{"do":"played","x":' + "[" * 63 + "]" * 63 + "}\n",
                     '{"do":"played","x":"' + "[" * 100 + '"}\n'):
            with self.subTest(line=line[:40]):
                self.assertEqual(self.converse(line), [{"ok": True, "sounds": []}])

    def test_field_of_a_wrong_type(self):
        for request in ({"do": "open"}, {"do": "open", "page": 1}, {"do": "tap"},
                        {"do": "tap", "row": 1.5}, {"do": "set", "row": 0}, {"do": "scroll"},
                        {"do": "scroll", "first": "0"}, {"do": "select", "section": 0},
                        {"do": "drag", "tag": 1, "value": 1}, {"do": "advance"},
                        {"do": "advance", "seconds": "1"}, {"do": "schemes"},
                        {"do": "schemes", "schemes": [1]}, {"do": "call"},
                        {"do": "call", "operation": "test", "arguments": {}}, {"do": "press"},
                        {"do": "pick", "row": "0"},
                        {"do": "open", "page": "ExtrasListController", "specifier": []},
                        {"do": "open", "page": "ExtrasListController", "specifier": {"key": 5}},
                        {"do": "open", "page": "ExtrasListController", "specifier": {"cell": "x"}}):
            with self.subTest(request=request):
                self.assertEqual(self.error({"do": "launch"}, request), "bad_request")

    def test_time_goes_forwards_only(self):
        for seconds in (-1, -1e-12, 1e300):
            with self.subTest(seconds=seconds):
                self.assertEqual(self.error({"do": "advance", "seconds": seconds}), "bad_value")

    def test_time_moves_on_by_the_nearest_nanosecond(self):
        def usable(seconds):
            page = self.converse({"do": "launch"},
                                 {"do": "open", "page": "PowerSavingListController"},
                                 {"do": "advance", "seconds": seconds}, {"do": "page"})[-1]["page"]
            return next(row["interaction"] for row in page["rows"] if row["id"] == "custbright")

        self.assertTrue(usable(0.0999999994))
        self.assertTrue(usable(0.099999999))
        self.assertFalse(usable(0.0999999996))

    def test_before_a_launch(self):
        for request in ({"do": "page"}, {"do": "back"}, {"do": "scroll", "first": 0},
                        {"do": "open", "page": "ExtrasListController"}, {"do": "reload"},
                        {"do": "layout"}, {"do": "call", "operation": "test"}):
            with self.subTest(request=request):
                self.assertEqual(self.error(request), "no_page")
        self.assertEqual(self.error({"do": "tap", "row": 0}), "no_row")

    def test_row_index_beyond_every_number(self):
        for row in (10**6, -1, 2**40, -2**40, 2**64 - 1):
            with self.subTest(row=row):
                self.assertEqual(self.error({"do": "launch"}, {"do": "tap", "row": row}), "no_row")

    def test_options(self):
        for words in (["--idiom", "watch"], ["--viewport", "0"], ["--viewport", "x"],
                      ["--viewport", "-1"], ["--viewport", "99999999999"]):
            with self.subTest(words=words):
                self.refuse(2, "drive", *words)
        answers = self.converse({"do": "launch"}, options=["--viewport", "2", "--idiom", "tablet"])
        self.assertEqual([row["built"] for row in answers[0]["page"]["rows"]][:3],
                         [True, True, False])

    def test_twelve_entries_of_a_phone_unless_asked_otherwise(self):
        rows = self.converse({"do": "launch"})[-1]["page"]["rows"]
        self.assertEqual([row["built"] for row in rows], [True] * 12 + [False] * (len(rows) - 12))
        picker = ({"do": "launch"}, {"do": "open", "page": "ZorvekColorPickerQuorvantis"},
                  {"do": "scroll", "first": 60}, {"do": "page"})
        for options, width in (([], 220), (["--idiom", "phone"], 220), (["--idiom", "tablet"], 300)):
            row = self.converse(*picker, options=options)[-1]["page"]["sections"][3]["rows"][0]
            self.assertEqual(row["sliders"]["panel"][2], width)

    def test_nothing_is_played_aloud_or_opened(self):
        self.write("System/Library/Audio/UISounds/a.caf", b"x")
        # Where there is nothing to play or open with, whoever tries complains.
        self.env["QUORVANTIS_MODULES"] = str(self.scratch)
        url = "file:///System/Library/Audio/UISounds/a.caf"
        answers = self.converse({"do": "launch"}, {"do": "tap", "row": "donate"}, {"do": "opened"},
                                {"do": "open", "page": "UserNotificationListController"},
                                {"do": "set", "row": "playsound", "value": url},
                                {"do": "tap", "row": "testsound"}, {"do": "played"},
                                options=["--viewport", "40"])
        self.assertEqual(len(answers[2]["urls"]), 1)
        self.assertEqual(answers[-1], {"ok": True, "sounds": [url]})

    def test_requests_in_the_order_of_a_short_conversation(self):
        answers = self.converse({"do": "launch"},
                                {"do": "open", "page": "PowerSavingListController"},
                                {"do": "advance", "seconds": 0.1},
                                {"do": "set", "row": "custbrightenabled", "value": True},
                                {"do": "page"})
        self.assertEqual([list(answer) for answer in answers],
                         [["ok", "page"], ["ok", "page"], ["ok"], ["ok"], ["ok", "page"]])
        self.assertEqual(self.domain(), {"custbrightenabled": True})
        rows = {row["id"]: row for row in answers[-1]["page"]["rows"]}
        self.assertEqual((rows["custbrightenabled"]["value"], rows["custbright"]["interaction"]),
                         (True, True))

    def test_values_have_their_forms(self):
        self.write_domain({"custbright": 50.0, "n": 50, "d": b"x"})
        done = self.run_program("drive", input=b'{"do":"prefs"}\n')
        self.assertEqual(done.stdout.decode(),
                         '{"ok":true,"prefs":{"custbright":50.0,"d":{"$data":"eA=="},"n":50}}\n')

    @staticmethod
    def storing(value):
        """Requests by which a page's setter stores this value."""
        return ({"do": "launch"}, {"do": "open", "page": "PowerSavingListController"},
                {"do": "call", "operation": "setPreferenceValue:specifier:",
                 "arguments": [value, "custbrightenabled"]})

    def stored(self, value):
        return self.converse(*self.storing(value), {"do": "prefs"})[-1]["prefs"]["custbrightenabled"]

    def test_dates_and_data_are_read_and_written_in_their_forms(self):
        for value in ({"$date": "2026-01-31T12:00:00Z"}, {"$date": "0001-01-01T00:00:00Z"},
                      {"$data": "Zm9vYg=="}, {"$data": ""}):
            with self.subTest(value=value):
                self.assertEqual(self.stored(value), value)
                self.assertNotIsInstance(self.domain()["custbrightenabled"], dict)
        self.assertEqual(self.stored({"$date": "0000-12-31T23:59:59Z"}),
                         {"$date": "0001-01-01T00:00:00Z"})

    def test_what_is_not_of_those_forms_is_refused(self):
        for value in ({"$date": "-0001-01-01T00:00:00Z"}, {"$date": "2026-01-31T12:00:60Z"},
                      {"$date": "2026-02-30T12:00:00Z"}, {"$date": "2026-01-31 12:00:00Z"},
                      {"$data": "Zg"}, {"$data": "Zg= ="}, {"$data": "Z g=="}, {"$data": "Zg==Zg=="}):
            with self.subTest(value=value):
                self.assertEqual(self.error(*self.storing(value)), "bad_request")

    def test_damaged_domain_is_said_on_stderr(self):
        self.write("var/mobile/Library/Preferences/com.zorvek.quorvantis.plist", b"garbage")
        done = self.run_program("drive", input=b'{"do":"launch"}\n{"do":"prefs"}\n')
        self.assertEqual(done.returncode, 0)
        self.assertEqual(len(done.stderr.splitlines()), 1)
        self.assertEqual(json.loads(done.stdout.splitlines()[1]), {"ok": True, "prefs": {}})

    def test_set_over_a_damaged_domain_is_refused_on_stderr(self):
        domain = self.write("var/mobile/Library/Preferences/com.zorvek.quorvantis.plist", b"garbage")
        done = self.run_program("drive", input=b'{"do":"launch"}\n{"do":"open","page":"GeneralSettingsController"}\n'
                                b'{"do":"set","row":"enabled","value":true}\n')
        self.assertIn(b"repair --restore", done.stderr)
        self.assertEqual([path.read_bytes() for path in domain.parent.glob("com*")], [b"garbage"])
