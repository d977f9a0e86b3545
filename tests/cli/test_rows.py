import json

from program import DOMAIN, ProgramTest


class Pages(ProgramTest):
    def test_every_page_with_title_and_rows(self):
        pages = {page["class"]: page for page in self.document("pages")}
        self.assertEqual(pages["quorvantisprefsListController"]["title"], "Quorvantis")
        for name, page in pages.items():
            with self.subTest(page=name):
                self.assertEqual(list(page), ["class", "title", "rows"])
                self.assertGreater(page["rows"], 0)

    def test_row_count_includes_groups(self):
        pages = {page["class"]: page["rows"] for page in self.document("pages")}
        rows = self.document("page", "PowerSavingListController")
        self.assertEqual(pages["PowerSavingListController"], len(rows))
        self.assertIn("PSGroupCell", [row["cell"] for row in rows])

    def test_page_shows_values_and_rules(self):
        self.write_domain({"custbright": 12.5})
        rows = {row["id"]: row for row in self.document("page", "PowerSavingListController")}
        self.assertEqual(rows["custbright"],
                         {"id": "custbright", "label": rows["custbright"]["label"],
                          "cell": "PSSliderCell", "value": 12.5, "usable": False,
                          "dimmedBy": "custbrightenabled"})
        self.assertEqual(rows["custbrightenabled"]["usable"], True)
        self.assertNotIn("dimmedBy", rows["custbrightenabled"])

    def test_human_readable_page(self):
        self.write_domain({"custbright": 12.5})
        text = self.output("page", "PowerSavingListController")
        self.assertRegex(text, r"custbright  +12\.5  \(dimmed by custbrightenabled\)")

    def test_the_label_of_a_list_leads_to_what_prints_it(self):
        for label, command in (("Battery Log", "log"), ("saved profiles", "profile list"),
                               ("Power Action", "choices poweroptions"),
                               ("Alert Banner", "choices bannercolor")):
            self.assertEqual(self.refuse(3, "page", label),
                             f'"{label}" is a row, not a page; quorvantis {command} prints its list')
            self.output(*command.split())

    def test_the_color_picker_is_called_so(self):
        self.assertRegex(self.output("pages"),
                         r"\nZorvekColorPickerQuorvantis +color picker \(61 rows\)\n")

    def test_unknown_page(self):
        self.refuse(3, "page", "NoSuchPage")


class Get(ProgramTest):
    def test_default_then_stored(self):
        self.assertEqual(self.output("get", "custbright"), "50\n")
        self.write_domain({"custbright": 12.5})
        self.assertEqual(self.output("get", "custbright"), "12.5\n")

    def test_text_is_bare_without_json(self):
        self.write_domain({"alertmsg": 'a "b"'})
        self.assertEqual(self.output("get", "alertmsg"), 'a "b"\n')
        self.assertEqual(self.output("get", "alertmsg", "--json"), '"a \\"b\\""\n')

    def test_values_of_each_kind(self):
        for value, text in ((50.0, "50.0"), (50, "50"), (1e22, "1.0e+22"), (1e-7, "1.0e-07"),
                            (0.1, "0.1"), (-2**63, str(-2**63)), (2**64 - 1, str(2**64 - 1)),
                            ([1, "a"], '[1,"a"]'), ({"k": False}, '{"k":false}'),
                            (b"\x00\xff", '{"$data":"AP8="}')):
            with self.subTest(value=value):
                self.write_domain({"custbright": value})
                self.assertEqual(self.output("get", "custbright"), text + "\n")

    def test_what_json_has_no_form_for(self):
        self.write_domain({"custbright": float("inf"), "alertmsg": float("nan")})
        self.assertEqual(self.output("get", "custbright"), "null\n")
        self.assertEqual(self.output("get", "alertmsg"), "null\n")

    def test_four_byte_real_is_short(self):
        # bplist00, {"custbright": 4-byte real 0.1}
        objects = [b"\xd1\x01\x02", b"\x5acustbright", bytes.fromhex("223dcccccd")]
        body, offsets = b"bplist00", []
        for item in objects:
            offsets.append(len(body))
            body += item
        table = len(body)
        body += bytes(offsets) + bytes(6) + b"\x01\x01"
        body += (3).to_bytes(8, "big") + bytes(8) + table.to_bytes(8, "big")
        self.write(DOMAIN, body)
        self.assertEqual(self.output("get", "custbright"), "0.1\n")

    def test_unknown_key(self):
        self.assertIn('"nosuchkey"', self.refuse(3, "get", "nosuchkey"))
        self.refuse(3, "get", "schlüssel")

    def test_row_that_holds_no_value_is_not_a_key(self):
        self.refuse(3, "get", "follow")

    def test_damaged_domain(self):
        self.write(DOMAIN, b"bplist00 but no more")
        self.assertIn("com.zorvek.quorvantis.plist", self.refuse(1, "get", "custbright"))


class Set(ProgramTest):
    def test_switch_is_stored_as_a_boolean(self):
        self.output("set", "custbrightenabled", "true")
        self.assertIs(self.domain()["custbrightenabled"], True)

    def test_slider_is_stored_as_a_real(self):
        self.write_domain({"custbrightenabled": True})
        self.output("set", "custbright", "40")
        self.assertEqual(repr(self.domain()["custbright"]), "40.0")

    def test_text_is_stored_as_it_stands(self):
        for text in ("5", "true", "", "zwei Wörter"):
            with self.subTest(text=text):
                self.output("set", "alertmsg", text)
                self.assertEqual(self.domain()["alertmsg"], text)

    def test_text_that_can_not_be_typed(self):
        for text in ("a\nb", "a\tb", "\x1b[0m", "\x7f"):
            with self.subTest(text=text):
                self.assertIn("one line", self.refuse(2, "set", "alertmsg", text))

    def test_refusals_say_what_can_be_set(self):
        self.write_domain({"custbrightenabled": True})
        self.assertIn("from 0 to 100", self.refuse(2, "set", "custbright", "4000"))
        self.assertIn("quorvantis choices wifi", self.refuse(2, "set", "wifi", "Maybe"))

    def test_choice_is_stored_as_the_list_has_it(self):
        choice = self.document("choices", "airplanemode")[1]
        self.output("set", "airplanemode", json.dumps(choice["value"]))
        self.assertEqual(self.domain()["airplanemode"], choice["value"])

    def test_other_keys_stay(self):
        self.write_domain({"theirs": [1], "custbrightenabled": False})
        self.output("set", "custbrightenabled", "true")
        self.assertEqual(self.domain(), {"theirs": [1], "custbrightenabled": True})

    def test_dimmed_row_names_its_switch(self):
        self.assertIn('"custbrightenabled"', self.refuse(2, "set", "custbright", "40"))

    def test_every_dimmed_row_names_its_switch(self):
        dimmed = {}
        for domain, page in (({}, "PowerSavingListController"), ({}, "SoundsListController"),
                             ({}, "UserNotificationListController"), ({}, "LowPowerListController"),
                             ({"lowpowermodeenabled": True}, "LowPowerListController")):
            self.write_domain(domain)
            for row in self.document("page", page):
                if row["usable"]:
                    continue
                dimmed[row["id"]] = row["dimmedBy"]
                with self.subTest(row=row["id"], domain=domain):
                    self.assertIn(f'dimmed by "{row["dimmedBy"]}"',
                                  self.refuse(2, "set", row["id"], "1"))
        self.assertEqual({row: by for row, by in dimmed.items() if not row.startswith("lowpower")},
                         {"custbright": "custbrightenabled", "customvolume": "customvolumeenabled",
                          "vibrateduration": "vibrate", "flashledduration": "flashled",
                          "adressbook": "sendmessage", "msgrecipient": "sendmessage",
                          "msgtext": "sendmessage"})
        self.assertEqual(sum(by == "lowpowermodeenabled" for by in dimmed.values()), 19)

    def test_contact_becomes_the_recipient(self):
        self.write("var/mobile/Library/AddressBook/people.vcf",
                   "BEGIN:VCARD\nN:;Jörg\nTEL:tel:+49 30 1\nEND:VCARD\n".encode())
        self.write_domain({"sendmessage": True})
        self.output("set", "adressbook", "+49 30 1")
        self.assertEqual(self.domain(), {"sendmessage": True, "msgrecipient": "+49 30 1"})
        self.refuse(2, "set", "adressbook", "+49 30 2")

    def test_sound_is_stored_as_its_url(self):
        self.write("System/Library/Audio/UISounds/New/a b.caf", b"x")
        url = "file:///System/Library/Audio/UISounds/New/a%20b.caf"
        self.output("set", "playsound", url)
        self.assertEqual(self.domain()["playsound"], url)
        self.output("set", "playsound", "Disabled")
        self.assertEqual(self.domain()["playsound"], "Disabled")

    def test_choice_has_one_form(self):
        for text in ("true", "1.0", "01"):
            with self.subTest(text=text):
                self.refuse(2, "set", "airplanemode", text)

    def test_value_that_the_row_can_not_take(self):
        self.write_domain({"custbrightenabled": True})
        for key, text in (("custbrightenabled", "2"), ("custbrightenabled", "tru"),
                          ("custbright", "4000"), ("custbright", "-1"), ("custbright", "x"),
                          ("custbright", "4 "), ("custbright", "0x10"), ("custbright", "nan"),
                          ("custbright", "inf"), ("custbright", ""), ("airplanemode", "77"),
                          ("airplanemode", "Leav"), ("airplanemode", "")):
            with self.subTest(key=key, text=text):
                self.refuse(2, "set", key, text)

    def test_text_that_is_not_utf8(self):
        self.refuse(2, "set", "alertmsg", b"\xff")

    def test_unknown_key(self):
        self.refuse(3, "set", "nosuchkey", "1")

    def test_write_that_fails(self):
        (self.root / DOMAIN).mkdir(parents=True)
        self.refuse(1, "set", "custbrightenabled", "true")

    def test_damaged_domain_is_left_alone_and_the_way_out_said(self):
        for damage in (b"garbage", b""):
            self.write(DOMAIN, damage)
            for key in ("custbrightenabled", "custbright"):  # usable, and dimmed
                reason = self.refuse(1, "set", key, "50")
                self.assertIn("com.zorvek.quorvantis.plist: not a readable", reason)
                self.assertIn("quorvantis repair --restore", reason)
                self.assertIn("--start-anew", reason)


class Choices(ProgramTest):
    def test_a_switch_takes_what_lists_show_of_it(self):
        self.assertIn("; it takes on or off", self.refuse(2, "choices", "enabled"))

    def test_contacts_that_can_not_be_read_cost_only_themselves(self):
        book = self.root / "var/mobile/Library/AddressBook"
        (book / "folder.vcf").mkdir(parents=True)
        self.assertIn("folder.vcf", self.refuse(1, "choices", "adressbook"))
        self.write("var/mobile/Library/AddressBook/ann.vcf", b"BEGIN:VCARD\nN:;Ann\nTEL:1\nEND:VCARD\n")
        done = self.run_program("choices", "adressbook")
        self.assertEqual(done.returncode, 0)
        self.assertRegex(done.stderr.decode(), r"^quorvantis: .*folder\.vcf.*\n$")
        self.assertEqual(done.stdout.decode(), "1  Ann  (1)\n")
        for command in (["choices", "playsound"], ["set", "vibrate", "true"], ["list"], ["search", "contact"],
                        ["export", "all.plist"], ["import", "all.plist"],
                        ["page", "UserNotificationListController"]):
            with self.subTest(command=command):
                self.output(*command)  # which asks for no contacts

    def test_values_and_titles_in_order(self):
        choices = self.document("choices", "airplanemode")
        self.assertEqual([choice["title"] for choice in choices], ["Leave", "On", "Off"])
        self.assertEqual([list(choice) for choice in choices], [["value", "title"]] * 3)

    def test_row_without_a_key(self):
        self.assertEqual(self.document("choices", "savedprofiles"), [])

    def test_row_without_choices(self):
        self.refuse(2, "choices", "custbright")

    def test_unknown_key(self):
        self.refuse(3, "choices", "nosuchkey")
