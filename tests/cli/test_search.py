from program import ProgramTest


class Search(ProgramTest):
    def found(self, *words):
        return [(each["class"], each["id"], each["label"], each["where"])
                for each in self.document("search", *words)]

    def test_shape_and_best_first(self):
        found = self.document("search", "custom", "volume")
        self.assertEqual(found[0], {"class": "SoundsListController", "id": "customvolumeenabled",
                                    "label": "Custom Volume", "where": "Sounds > Volume"})

    def test_choices_colors_and_pages(self):
        self.assertIn(("PowerSavingListController", "mobiledatarate", "LTE",
                       "Power Saving > Mobile Network > Fastest Data Rate"), self.found("lte"))
        self.assertIn(("ExtrasListController", "flashcolor", "Midnight",
                       "Extras > Colors > Screen Flash"), self.found("midnight"))
        self.assertEqual(self.found("conditions")[0],
                         ("ConditionsListController", "", "Conditions", "Page"))

    def test_saved_profiles(self):
        self.output("set", "profiledescription", "Expedition")
        self.output("profile", "save", "20")
        self.assertIn(("ProfilesListController",
                       "/var/mobile/Documents/Quorvantis/profile_20.qvx",
                       "Battery 20% - Expedition", "Saved Profiles"), self.found("expedition"))

    def test_order_of_words_and_typos(self):
        self.assertEqual(self.found("volume", "custom")[0], self.found("custom volume")[0])
        self.assertEqual(self.found("custon volune")[0][1], "customvolumeenabled")

    def test_nothing(self):
        self.assertEqual(self.found("xyzzyxyzzy"), [])
        self.assertEqual(self.output("search", "xyzzyxyzzy"), "")
        self.refuse(2, "search")
