#include <cctype>

#include "tests/prefs_colorpicker/picker_fixture.h"

namespace {

using namespace picker;
using plist::Array;
using plist::Value;
using preferences::Argument;

class PickerOperations : public Page {
 protected:
  PickerOperations() { openWith("#007AFF"); }

  std::optional<Argument> call(std::string_view selector, std::vector<Argument> arguments = {}) {
    const preferences::Operation* operation = page->operations().find(selector);
    if (!operation) ADD_FAILURE() << selector;
    return operation ? operation->run(*page, arguments) : std::nullopt;
  }
  Value result(std::string_view selector, std::vector<Argument> arguments = {}) {
    auto given = call(selector, std::move(arguments));
    if (!given) ADD_FAILURE() << selector << " can't take these arguments";
    return given ? preferences::valueIn(*given).value_or(Value()) : Value();
  }
  static Argument path(int section, int row) { return Value(Array{section, row}); }
};

TEST_F(PickerOperations, AreAllThereInTheOrderOfTheClass) {
  std::vector<std::string_view> selectors;
  for (const auto& operation : page->operations().own()) selectors.push_back(operation.selector());
  selectors.resize(20);
  EXPECT_EQ(selectors, (std::vector<std::string_view>{"palettes",
                                                      "loadView",
                                                      "viewDidLoad",
                                                      "numberOfSectionsInTableView:",
                                                      "tableView:titleForHeaderInSection:",
                                                      "tableView:numberOfRowsInSection:",
                                                      "tableView:heightForRowAtIndexPath:",
                                                      "tableView:cellForRowAtIndexPath:",
                                                      "tableView:didSelectRowAtIndexPath:",
                                                      "notifyTweak:",
                                                      "sliderAction:",
                                                      "sliderDidEndSliding:",
                                                      "presetColorExists:",
                                                      "specialColors",
                                                      "iOSColors",
                                                      "crayonColors",
                                                      "customColor",
                                                      "sortPaletteByHue:",
                                                      "getSliderViewWithColor:",
                                                      "setCustomColor:notifyTweak:"}));
}

TEST_F(PickerOperations, TakeAsManyArgumentsAsTheirSelectorsSay) {
  ASSERT_GE(page->operations().own().size(), 20u);
  for (const auto& operation : page->operations().own())
    EXPECT_EQ(std::ranges::count(operation.selector(), ':'), operation.arity())
        << operation.selector();
}

TEST_F(PickerOperations, GiveThePalettes) {
  EXPECT_EQ(result("palettes"), Value(page->palettes()));
  EXPECT_EQ(result("specialColors"), Value(page->specialColors()));
  EXPECT_EQ(result("iOSColors"), Value(page->iOSColors()));
  EXPECT_EQ(result("crayonColors"), Value(page->crayonColors()));
  EXPECT_EQ(result("customColor"), Value(page->customColor()));
  EXPECT_EQ(result("sortPaletteByHue:", {Value(page->iOSColors())}),
            Value(page->sortPaletteByHue(page->iOSColors())));
}

TEST_F(PickerOperations, AskForAPreset) {
  EXPECT_EQ(result("presetColorExists:", {Value("#FF9500")}), Value(true));
  EXPECT_EQ(result("presetColorExists:", {Value("#ff9500")}), Value(false));
  EXPECT_EQ(result("presetColorExists:", {nullptr}), Value(false));
}

TEST_F(PickerOperations, AskTheTableWithoutNamingIt) {
  EXPECT_EQ(result("numberOfSectionsInTableView:", {nullptr}), Value(4));
  EXPECT_EQ(result("tableView:titleForHeaderInSection:", {nullptr, Value(2)}), Value("Crayons"));
  EXPECT_EQ(result("tableView:numberOfRowsInSection:", {nullptr, Value(2)}), Value(48));
  EXPECT_EQ(result("tableView:heightForRowAtIndexPath:", {nullptr, path(3, 0)}), Value(130.0));
  EXPECT_EQ(result("tableView:heightForRowAtIndexPath:", {page->table(), path(0, 0)}), Value(44.0));
}

TEST_F(PickerOperations, MakeACellThatTicksItsRow) {
  page->selectedIndexPath.reset();
  EXPECT_TRUE(result("tableView:cellForRowAtIndexPath:", {nullptr, path(1, 1)}).isNothing());
  EXPECT_EQ(page->selectedIndexPath, kSystemBlue);
  EXPECT_TRUE(result("tableView:cellForRowAtIndexPath:", {nullptr, path(9, 9)}).isNothing());
}

TEST_F(PickerOperations, ChooseARow) {
  result("tableView:didSelectRowAtIndexPath:", {nullptr, path(1, 6)});
  EXPECT_EQ(stored(), Value("#FF9500"));
  EXPECT_EQ(events.size(), 2u);
}

TEST_F(PickerOperations, AnnounceAColor) {
  result("notifyTweak:", {Value("#010203")});
  EXPECT_EQ(stored(), Value("#010203"));
}

TEST_F(PickerOperations, MoveTheSliders) {
  show(kCustomOnScreen);
  result("setCustomColor:notifyTweak:", {Value("#010203"), Value(false)});
  EXPECT_EQ(sliders(), (std::vector<float>{1, 2, 3}));
  slider(201)->setValue(200);
  result("setCustomColor:notifyTweak:", {nullptr, Value(true)});
  EXPECT_EQ(detail(kCustom), "#C80203");
  slider(202)->setValue(201);
  result("sliderAction:", {nullptr});
  EXPECT_EQ(detail(kCustom), "#C8C903");
  slider(203)->setValue(202);
  result("sliderDidEndSliding:", {slider(203)});
  EXPECT_EQ(detail(kCustom), "#C8C9CA");
  EXPECT_TRUE(events.empty());
}

TEST_F(PickerOperations, RefuseArgumentsOfTheWrongKind) {
  EXPECT_FALSE(call("notifyTweak:", {Value(5)}));
  EXPECT_FALSE(call("sortPaletteByHue:", {Value("x")}));
  EXPECT_FALSE(call("tableView:didSelectRowAtIndexPath:", {nullptr, Value(3)}));
  EXPECT_FALSE(call("getSliderViewWithColor:", {Value("#112233")}));
  EXPECT_TRUE(events.empty());
}

TEST_F(PickerOperations, MakeASliderPanelForNoColor) {
  EXPECT_TRUE(result("getSliderViewWithColor:", {nullptr}).isNothing());
  EXPECT_EQ(page->table()->viewWithTag(204), nullptr);
}

TEST_F(PickerOperations, ReadAndWriteTheProperties) {
  result("tableView:cellForRowAtIndexPath:", {nullptr, path(1, 1)});
  const std::pair<const char*, Value> properties[] = {{"SelectedColor", "#007AFF"},
                                                      {"DefaultColor", {}},
                                                      {"SelectedIndexPath", Array{1, 1}},
                                                      {"PrefKey", kKey},
                                                      {"AppID", prefs::kDomain},
                                                      {"NotificationKey", kPost},
                                                      {"RefreshPreviewNotificationKey", kPreview},
                                                      {"AllowAutomatic", true}};
  for (const auto& [name, value] : properties) {
    std::string getter = name;
    getter[0] = static_cast<char>(std::tolower(getter[0]));
    EXPECT_EQ(result(getter), value) << name;
    const Value other = value.boolean() ? Value(false)
                        : value.array() ? Value(Array{2, 7})
                                        : Value("other");
    result("set" + std::string(name) + ":", {other});
    EXPECT_EQ(result(getter), other) << name;
  }
}

TEST_F(PickerOperations, LoadAnew) {
  result("loadView");
  result("viewDidLoad");
  show(0);
  EXPECT_TRUE(ticked(kSystemBlue));
}

}  // namespace
