import re

from profiles import ProfileTest


class Footers(ProfileTest):
    """What the pages say of what a profile holds is what a saved one holds."""

    def setUp(self):
        super().setUp()
        self.output("profile", "save", "19")
        self.output("set", "autoupdates", "On")
        self.output("profile", "save", "20")
        held = set(self.show("20"))
        self.titles = {page["class"]: page["title"] for page in self.document("pages")}
        self.inside, self.outside = set(), set()  # titles of pages
        self.left_out, self.colors = set(), set()  # rows of pages that are inside
        rows = self.document("list")
        for row in rows:
            (self.inside if row["key"] in held else self.outside).add(self.titles[row["class"]])
        self.outside -= self.inside
        for row in rows:
            if row["key"] not in held and self.titles[row["class"]] in self.inside:
                color = self.document("describe", row["key"])["kind"] == "color"
                (self.colors if color else self.left_out).add(row["label"])
        self.labels = {row["key"]: row["label"] for row in rows}

    def footer(self, page, pattern):
        """The lists of names in the footer of this form."""
        found = re.search(rf"^ *{pattern}", self.output("page", page), re.MULTILINE)
        self.assertTrue(found, page)
        return [set(re.split(", | and ", names)) for names in found.groups()]

    def test_the_first_page_says_what_a_profile_holds(self):
        inside, left_out, once_set = self.footer(
            next(iter(self.titles)),
            r"A profile holds what is set below (.*), but for (.*) and the colors; (.*) only once it was set\.")
        self.assertEqual(inside, self.inside - {"Profiles"})
        self.assertEqual(left_out, self.left_out)
        self.assertEqual(len(self.colors), 4)
        self.assertEqual(once_set, {self.labels[key] for key in set(self.show("20")) - set(self.show("19"))})

    def test_the_profile_page_says_what_is_not_part_of_a_profile(self):
        named, = self.footer("Profiles", r".* deletes a saved profile\. (.*) and the colors are not part of a profile\.")
        self.assertEqual(named, self.outside | self.left_out)
