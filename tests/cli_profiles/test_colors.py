import re
import unittest

from profiles import ProfileTest


class Colors(ProfileTest):
    def test_name_of_a_preset(self):
        for name, stored in (("System Blue", "#007AFF"), ("Quorvantis", "#34495F"),
                             ("Snow", "#FFFFFF"), ("Licorice", "#000000"), ("None", "none")):
            self.output("set", "bannercolor", name)
            self.assertEqual(self.output("get", "bannercolor"), stored + "\n")
        self.assertEqual(self.domain(), {"bannercolor": "none"})

    def test_every_choice_can_be_set_by_name_and_by_value(self):
        choices = self.document("choices", "bannercolor")
        for choice in choices[1::9]:
            for given in (choice["title"], choice["value"]):
                self.output("set", "bannercolor", "#010203")
                self.output("set", "bannercolor", given)
                self.assertEqual(self.domain(), {"bannercolor": choice["value"]})

    def test_any_color(self):
        self.output("set", "bannercolor", "#0A7FFE")
        self.assertEqual(self.output("get", "bannercolor"), "#0A7FFE\n")

    def test_small_letters_become_capitals(self):
        self.output("set", "bannercolor", "#0a7ffe")
        self.assertEqual(self.domain(), {"bannercolor": "#0A7FFE"})
        self.output("set", "bannercolor", "#007aff")
        self.assertEqual(self.domain(), {"bannercolor": "#007AFF"})

    def test_hash_and_case_can_be_left_out(self):
        for text, stored in (("0a7ffe", "#0A7FFE"), ("007aff", "#007AFF"),
                             ("system blue", "#007AFF"), ("NONE", "none")):
            self.output("set", "bannercolor", text)
            self.assertEqual(self.domain(), {"bannercolor": stored})

    def test_as_it_is_shown(self):
        self.output("set", "bannercolor", "Snow")
        shown = self.document("describe", "bannercolor")["value"]
        text = {each["key"]: each["shown"] for each in self.document("list")}["bannercolor"]
        self.assertEqual(text, "Snow, #FFFFFF")
        self.output("reset", "bannercolor")
        self.output("set", "bannercolor", text)
        self.assertEqual(self.domain(), {"bannercolor": shown})
        self.refuse(2, "set", "bannercolor", "Snow, #34495F")

    def test_refusal_names_the_nearest_color(self):
        self.assertIn('did you mean "System Blue"?',
                      self.refuse(2, "set", "bannercolor", "sistem blue"))

    def test_one_mixed_color_after_the_other(self):
        for color in ("#000001", "#000002", "#FE0002"):
            self.output("set", "bannercolor", color)
            self.assertEqual(self.domain(), {"bannercolor": color})

    def test_what_is_not_a_color(self):
        for text in ("", "blue", "custom", "Custom", "#FFF", "FFF", "#007AFG", "#007AFF0",
                     "##007AF", "*default color"):
            self.refuse(2, "set", "bannercolor", text)

    def test_the_chosen_one_again_changes_nothing(self):
        self.output("set", "iconactivecolor", "none")
        self.assertFalse(self.root.exists() and any(self.root.rglob("*.plist")))

    def test_default_until_one_is_stored(self):
        self.assertEqual(self.output("get", "bannercolor"), "#34495F\n")
        self.assertEqual(self.output("get", "iconactivecolor"), "none\n")

    def test_stored_text_is_printed_as_it_is(self):
        self.write_domain({"bannercolor": "#ff00ff"})
        self.assertEqual(self.output("get", "bannercolor"), "#ff00ff\n")

    def test_get_and_page_agree_on_what_is_not_a_color(self):
        self.output("defaults", "write", "bannercolor", "-int", "5")
        rows = self.document("page", "ExtrasListController")
        shown = next(row["value"] for row in rows if row["id"] == "bannercolor")
        self.assertEqual((shown, self.document("get", "bannercolor")), (5, 5))

    def test_choices_are_the_presets(self):
        choices = self.document("choices", "bannercolor")
        self.assertEqual(len(choices), 60)
        self.assertEqual(choices[:3], [{"value": "none", "title": "None"},
                                       {"value": "#34495F", "title": "Quorvantis"},
                                       {"value": "#5856D6", "title": "Purple"}])
        self.assertEqual(choices[-1], {"value": "#804000", "title": "Mocha"})

    def test_page_shows_human_readable_names(self):
        self.output("set", "bannercolor", "System Blue")
        self.output("set", "iconsavingcolor", "#010203")
        lines = [re.split("  +", line.strip())
                 for line in self.output("page", "ExtrasListController").splitlines()]
        self.assertIn(["Alert Banner", "bannercolor", "System Blue, #007AFF"], lines)
        self.assertIn(["Status Icon While Active", "iconactivecolor", "None"], lines)
        self.assertIn(["Status Icon While Saving", "iconsavingcolor", "#010203"], lines)
        values = {row["id"]: row["value"] for row in self.document("page", "ExtrasListController")}
        self.assertEqual(values["bannercolor"], "#007AFF")

    def test_store_that_can_not_be_written(self):
        self.write_domain({"wifi": 1})
        self.lock_store()
        self.refuse(1, "set", "bannercolor", "System Blue")


class Pages(ProfileTest):
    def test_picker_without_a_row_that_opens_it(self):
        rows = self.document("page", "ZorvekColorPickerQuorvantis")
        self.assertEqual(len(rows), 61)
        self.assertEqual(rows[1], {"id": "0.1", "label": "Quorvantis", "cell": "ColorSwatchCell",
                                   "value": "*quorvantis theme color", "usable": True})
        self.assertIn("System Blue", self.output("page", "ZorvekColorPickerQuorvantis"))

    def test_choices_without_a_row_that_opens_them(self):
        self.assertIn("row", self.refuse(2, "page", "PSListItemsController"))

    def test_every_page_is_listed(self):
        pages = {each["class"]: each for each in self.document("pages")}
        self.assertEqual(len(pages), 10)
        self.assertEqual(pages["ProfilesListController"],
                         {"class": "ProfilesListController", "title": "Profiles", "rows": 7})
        self.assertEqual(pages["ZorvekColorPickerQuorvantis"]["rows"], 61)

    def test_every_page_can_be_shown(self):
        for page in self.document("pages"):
            self.assertEqual(len(self.document("page", page["class"])), page["rows"])


if __name__ == "__main__":
    unittest.main()
