from program import DOMAIN, ProgramTest


class Typed(ProgramTest):
    """What is shown can be typed."""

    def stored(self, key, text):
        self.output("set", key, text)
        return self.domain()[key]

    def test_words_of_a_switch(self):
        for on, off in (("true", "false"), ("on", "off"), ("yes", "no"), ("1", "0"),
                        ("ON", "Off"), ("Yes", "NO"), ("True", "FALSE")):
            with self.subTest(on=on):
                self.assertIs(self.stored("vibrate", on), True)
                self.assertIs(self.stored("vibrate", off), False)

    def test_titles_of_choices(self):
        for key, text, value in (("wifi", "Off", 2), ("wifi", "on", 1), ("wifi", "LEAVE", 0),
                                 ("tapaction", "Toggle Low Power Mode", 201),
                                 ("profilepercentage", "Battery 20%", "20"),
                                 ("profilepercentage", "charging started", "101"),
                                 ("autolock", "never", -1)):
            with self.subTest(text=text):
                self.assertEqual(self.stored(key, text), value)

    def test_title_of_a_sound(self):
        self.write("System/Library/Audio/UISounds/ding.caf", b"x")
        title = self.document("choices", "playsound")[-1]["title"]
        self.assertEqual(self.stored("playsound", title),
                         "file:///System/Library/Audio/UISounds/ding.caf")

    def test_value_comes_before_title(self):
        self.assertEqual(self.stored("profilepercentage", "2"), "2")

    def test_title_that_two_have_in_other_cases(self):
        for name in ("a.caf", "A.caf"):
            self.write(f"System/Library/Audio/UISounds/{name}", b"x")
        titles = [each["title"] for each in self.document("choices", "playsound")][1:]
        self.assertEqual(len(titles), 2)
        for title in titles:
            self.assertTrue(self.stored("playsound", title).endswith(title))

    def test_what_get_prints_can_be_set_in_every_usable_row(self):
        self.output("set", "sendmessage", "on", "vibrate", "on", "flashled", "on",
                    "custbrightenabled", "on", "customvolumeenabled", "on",
                    "lowpowercustbrightenabled", "on")
        rows = [row["id"] for page in self.document("pages")
                for row in self.document("page", page["class"])
                if row["usable"] and row["id"] in self.keys()]
        self.assertGreater(len(rows), 70)
        for key in rows:
            with self.subTest(key=key):
                text = self.output("get", key).removesuffix("\n")
                self.output("set", key, text)
                again = self.output("get", key).removesuffix("\n")
                self.assertIn(again, (text, {"0": "false", "1": "true"}.get(text), text + ".0"))

    def keys(self):
        return {each["key"] for each in self.document("list")}

    def test_what_a_load_stored_can_be_set(self):
        self.output("profile", "save", "20")
        self.output("profile", "load", "20")
        self.assertEqual(self.output("get", "profileactive"), "1.0\n")
        self.assertIs(self.stored("profileactive", "1.0"), True)

    def test_profile_can_be_unset(self):
        self.output("profile", "save", "20")
        path = self.document("profile", "list")[0]["path"]
        self.assertEqual(self.stored("profile", "Battery 20%"), path)
        self.assertEqual(self.stored("profile", "None"), "")
        self.assertEqual(self.output("get", "profile"), "\n")
        self.assertIn("  None  ", self.output("list"))
        self.refuse(2, "set", "playsound", "None")

    def test_file_that_is_gone_is_shown_by_its_name(self):
        self.output("profile", "save", "20")
        self.output("set", "profile", "Battery 20%")
        self.output("profile", "delete", "20")
        self.write_domain(self.domain() | {
            "playsound": "file:///System/Library/Audio/UISounds/a%20b.caf"})
        self.assertIn("Saved Profile  profile     profile_20.qvx (gone)", self.output("page", "General"))
        self.assertIn("a b.caf (gone)", self.output("describe", "playsound"))

    def test_choice_that_is_gone_stays(self):
        self.write_domain({"profile": "/gone.qvx"})
        self.output("set", "profile", "/gone.qvx")
        self.assertEqual(self.domain(), {"profile": "/gone.qvx"})
        self.refuse(2, "set", "profile", "/other.qvx")


class Meant(ProgramTest):
    """A refusal names the closest match."""

    def meant(self, code, *words):
        return self.refuse(code, *words).partition("; did you mean ")[2]

    def test_key(self):
        for words in (("get", "wfi"), ("set", "wfi", "1"), ("choices", "wfi"), ("describe", "wfi"),
                      ("reset", "wfi")):
            self.assertEqual(self.meant(3, *words), '"wifi"?')

    def test_choice(self):
        self.assertEqual(self.meant(2, "set", "autolock", "1 minite"), '"1 Minute"?')

    def test_page(self):
        self.assertEqual(self.meant(3, "page", "Sonds"), '"Sounds"?')
        self.assertEqual(self.meant(3, "reset", "--page", "Sonds"), '"Sounds"?')

    def test_page_by_its_link(self):
        self.assertEqual(self.output("page", "manage profiles"), self.output("page", "Profiles"))

    def test_color_picker_by_the_name_that_pages_prints(self):
        self.assertIn("color picker (", self.output("pages"))
        self.assertEqual(self.output("page", "Color Picker"), self.output("page", "ZorvekColorPickerQuorvantis"))
        self.assertEqual(self.meant(3, "page", "color piker"), '"color picker"?')

    def test_label_of_a_row_names_its_keys(self):
        for command in (("set", "Wi-Fi", "Off"), ("get", "wi-fi"), ("describe", "WI-FI")):
            self.assertEqual(self.meant(3, *command),
                             '"wifi" (Power Saving) or "lowpowerwifi" (Low Power Mode)?')
        self.assertEqual(self.meant(3, "get", "Ringer Volum"), '"customvolume" (Sounds)?')

    def test_key_and_value_in_one_word(self):
        self.assertEqual(self.meant(2, "set", "wifi=Off"), 'set wifi "Off"?')
        self.assertEqual(self.meant(2, "set", "vpn", "on", "alertmsg=a b"), 'set alertmsg "a b"?')

    def test_number_with_a_unit(self):
        self.output("set", "custbrightenabled", "on")
        for text, number in (("30%", "30"), ("7.5 s", "7.5")):
            self.assertEqual(self.meant(2, "set", "custbright", text), f'"{number}"?')
        self.assertEqual(self.meant(2, "set", "custbright", "half"), "")

    def test_another_number_is_never_meant(self):
        self.output("set", "custbrightenabled", "on")
        for text in ("0x10", "0X10", "5,5", "1e3x", "5,", "3 of 4"):
            self.assertEqual(self.meant(2, "set", "custbright", text), "", text)
        self.assertEqual(self.meant(2, "set", "profilepercentage", "Battery 200%"), "")
        self.assertEqual(self.meant(2, "set", "profilepercentage", "Batery 20%"), '"Battery 20%"?')
        self.assertEqual(self.meant(3, "profile", "save", "Battery 200%"), "")
        self.assertEqual(self.meant(2, "set", "autolock", "11 Minutes"), "")

    def test_word_of_a_switch_for_choices(self):
        for word, title in (("no", "Off"), ("false", "Off"), ("yes", "On"), ("TRUE", "On")):
            self.assertEqual(self.meant(2, "set", "bluetooth", word), f'"{title}"?')

    def test_level_in_place_of_a_trigger(self):
        self.assertEqual(self.meant(2, "set", "profilepercentage", "20%"), '"20"?')

    def test_dimmed_row_leads_to_its_switch(self):
        reason = self.refuse(2, "set", "custbright", "30")
        words = reason.split('"quorvantis set ')[1].split('" makes')[0].split()
        self.output("set", *words, "custbright", "30")
        self.output("set", "lowpowermodeenabled", "on")
        self.assertIn('"quorvantis set lowpowermodeenabled off" makes it usable',
                      self.refuse(2, "set", "lowpowerwifi", "On"))

    def test_control_characters_are_named(self):
        for text in ("a\tb", "a\x1b[2J"):
            self.assertIn("takes one line of text without control characters",
                          self.refuse(2, "set", "alertmsg", text))

    def test_a_number_is_not_guessed(self):
        self.assertEqual(self.meant(2, "set", "wifi", "0x10"), "")

    def test_a_color_is_guessed_at_the_end(self):
        self.assertEqual(self.meant(2, "set", "bannercolor", "mid"), '"Midnight"?')

    def test_version(self):
        for word in ("version", "-v", "--versoin"):
            self.assertEqual(self.meant(2, word), '"--version"?')

    def test_watched_key(self):
        self.assertEqual(self.meant(3, "watch", "--values", "vpn", "wfi"), '"wifi"?')
        self.assertEqual(self.refuse(2, "watch", "wifi"),
                         '"wifi" is a key, not a notification; quorvantis watch --values wifi '
                         "prints its changes")

    def test_nothing_near(self):
        self.assertEqual(self.meant(3, "get", "xyzzyxyzzy"), "")

    def test_dimmed_row_and_range(self):
        self.assertIn("from 1 to 30", self.refuse(2, "set", "vibrate", "on", "vibrateduration", "99"))
        self.assertIn('"vibrate"', self.refuse(2, "set", "vibrateduration", "9"))
        self.assertIn("from 0 to 100", self.refuse(2, "choices", "custbright"))


class Pairs(ProgramTest):
    def test_all_are_stored(self):
        self.output("set", "wifi", "Off", "vibrate", "on", "alertmsg", "two words")
        self.assertEqual(self.domain(), {"wifi": 2, "vibrate": True, "alertmsg": "two words"})

    def test_a_switch_opens_the_rows_behind_it_wherever_it_stands(self):
        for words in (("vibrate", "on", "vibrateduration", "10"),
                      ("vibrateduration", "10", "vibrate", "on"),
                      ("vibrateduration", "5", "vibrateduration", "10", "vibrate", "on"),
                      ("vibrateduration", "5", "vibrate", "on", "vibrateduration", "10")):
            self.output("set", *words)
            self.assertEqual(self.domain(), {"vibrate": True, "vibrateduration": 10.0})
            self.output("reset", "vibrateduration")
            self.output("set", "vibrate", "off")

    def test_what_stays_dimmed_is_refused(self):
        self.assertIn('"vibrateduration" is dimmed', self.refuse(
            2, "set", "vibrateduration", "10", "wifi", "1", "flashled", "on"))
        self.assertIn("from 1 to 30", self.refuse(
            2, "set", "vibrateduration", "99", "vibrate", "on"))

    def test_none_is_stored(self):
        self.write_domain({"theirs": 1})
        for words in (("wifi", "1", "custbright", "40"), ("wifi", "1", "vpn", "9"),
                      ("bannercolor", "Snow", "vpn", "x"), ("adressbook", "x", "wifi", "1")):
            self.refuse(2, "set", *words)
        self.refuse(3, "set", "wifi", "1", "nosuchkey", "1")

    def test_none_is_stored_in_a_missing_root(self):
        self.refuse(2, "set", "wifi", "1", "vpn", "9")
        self.assertFalse(self.root.exists())

    def test_value_is_missing_or_unquoted(self):
        self.assertIn("quotes", self.refuse(2, "set", "alertmsg"))
        self.assertIn("quotes", self.refuse(2, "set", "alertmsg", "hello", "world"))
        self.assertIn("quotes", self.refuse(3, "set", "alertmsg", "hello", "new", "world"))

    def test_the_same_key_twice_ends_as_the_last_one(self):
        self.output("set", "wifi", "1", "wifi", "2")
        self.assertEqual(self.domain(), {"wifi": 2})

    def test_write_that_fails(self):
        (self.root / DOMAIN).mkdir(parents=True)
        self.refuse(1, "set", "wifi", "1", "vpn", "2")

    def test_text_that_begins_with_a_dash(self):
        self.assertIn("after --", self.refuse(2, "set", "alertmsg", "-x"))
        self.output("set", "--", "alertmsg", "-x")
        self.assertEqual(self.domain(), {"alertmsg": "-x"})
