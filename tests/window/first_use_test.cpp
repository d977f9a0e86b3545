#include "platform/archive/keyed_archive.h"
#include "prefs/core/names.h"
#include "tests/window/bundle_window.h"

namespace {

using plist::Dictionary;
using plist::Value;

constexpr const char* kProfile = "/var/mobile/Documents/Quorvantis/profile_20.qvx";

// A user of the window. Names are those that a reader or a screen reader finds there.
class Hands {
 public:
  explicit Hands(QQuickWindow& window) : window_(window), driver_(window) {}
  virtual ~Hands() = default;

  virtual void press(const QString& button) = 0;
  virtual void turn(const QString& name) = 0;  // a switch
  virtual void enter(const QString& slider, int number) = 0;
  virtual void choose(const QString& color) = 0;
  virtual void turnWheel(const QString& wheel, const QString& row) = 0;
  virtual void search(const QString& words, const QString& result) = 0;  // and open that one
  virtual void undo() = 0;
  virtual void leave() = 0;  // what is over the pages
  virtual void back() = 0;
  virtual bool sees(const QString& label, const QString& detail) const = 0;

 protected:
  QQuickWindow& window_;
  Driver driver_;  // its eyes, and it waits
};

class KeyboardOnly : public Hands {
 public:
  using Hands::Hands;

  void press(const QString& button) override {
    walkTo(button);
    driver_.key(Qt::Key_Return);
  }
  void turn(const QString& name) override {
    walkTo(name);
    driver_.key(Qt::Key_Space);
  }
  void enter(const QString& slider, int number) override {
    walkTo(slider);
    driver_.type(QString::number(number));
    driver_.key(Qt::Key_Return);
  }
  void choose(const QString& color) override { press(color); }
  void turnWheel(const QString& wheel, const QString& row) override {
    walkTo(wheel);
    driver_.type(row);
  }
  void search(const QString& words, const QString& result) override {
    driver_.key(Qt::Key_F, Qt::ControlModifier);
    driver_.type(words);
    EXPECT_TRUE(driver_.shows(result)) << result.toStdString();
    driver_.key(Qt::Key_Return);
    EXPECT_EQ(driver_.focused(), result);
  }
  void undo() override { driver_.key(Qt::Key_Z, Qt::ControlModifier); }
  void leave() override { driver_.key(Qt::Key_Escape); }
  void back() override { driver_.key(Qt::Key_Left, Qt::AltModifier); }
  bool sees(const QString& label, const QString& detail) const override {
    return driver_.shows(label) && (detail.isEmpty() || driver_.shows(detail));
  }

 private:
  // By Tab, which reaches all there is.
  void walkTo(const QString& name) {
    for (int i = 0; i < 100 && driver_.focused() != name; ++i) driver_.key(Qt::Key_Tab);
    EXPECT_EQ(driver_.focused(), name);
  }
};

// Finds things by their role and name from the window on, and acts by their interfaces. Letters
// alone are typed, as by a screen reader's user: no control of Qt Quick's takes them otherwise.
class AssistiveTechnologyOnly : public Hands {
 public:
  using Hands::Hands;

  void press(const QString& button) override { act(QAccessible::Button, button, kPress); }
  void turn(const QString& name) override {
    act(QAccessible::CheckBox, name, QAccessibleActionInterface::toggleAction());
  }
  void enter(const QString& slider, int number) override {
    auto* found = find(QAccessible::Slider, slider);
    ASSERT_TRUE(found && found->valueInterface()) << slider.toStdString();
    found->valueInterface()->setCurrentValue(number);
    driver_.waitUntilIdle();
  }
  void choose(const QString& color) override { act(QAccessible::RadioButton, color, kPress); }
  void turnWheel(const QString& wheel, const QString& row) override {
    auto* found = find(QAccessible::SpinBox, wheel);
    ASSERT_TRUE(found && found->valueInterface()) << wheel.toStdString();
    const int last = found->valueInterface()->maximumValue().toInt();
    for (int i = 0; i <= last && found->text(QAccessible::Description) != row; ++i) {
      found->valueInterface()->setCurrentValue(i);
      driver_.waitUntilIdle();
    }
    EXPECT_EQ(found->text(QAccessible::Description), row);
  }
  void search(const QString& words, const QString& result) override {
    press("More");
    press("Search…");
    act(QAccessible::EditableText, "Search all pages",
        QAccessibleActionInterface::setFocusAction());
    driver_.type(words);
    press(result);
  }
  void undo() override {
    press("More");
    QAccessibleInterface* entry = nullptr;
    visit([&](QAccessibleInterface& each) {
      if (each.role() == QAccessible::Button && each.text(QAccessible::Name).startsWith("Undo: "))
        entry = &each;
    });
    ASSERT_TRUE(entry);
    entry->actionInterface()->doAction(kPress);
    driver_.waitUntilIdle();
  }
  void leave() override { press("Close"); }
  void back() override { press("Back"); }
  bool sees(const QString& label, const QString& detail) const override {
    bool seen = false;
    visit([&](QAccessibleInterface& each) {
      seen |=
          each.text(QAccessible::Name) == label && each.text(QAccessible::Description) == detail;
    });
    return seen;
  }

 private:
  const QString kPress = QAccessibleActionInterface::pressAction();

  static void visit(QAccessibleInterface& from,
                    const std::function<void(QAccessibleInterface&)>& see) {
    for (int i = 0; i < from.childCount(); ++i) {
      QAccessibleInterface* child = from.child(i);
      if (!child || child->state().invisible) continue;
      see(*child);
      visit(*child, see);
    }
  }
  void visit(const std::function<void(QAccessibleInterface&)>& see) const {
    visit(*QAccessible::queryAccessibleInterface(&window_), see);
  }
  // What stands above the rest comes last.
  QAccessibleInterface* find(QAccessible::Role role, const QString& name) const {
    QAccessibleInterface* found = nullptr;
    visit([&](QAccessibleInterface& each) {
      if (each.role() == role && each.text(QAccessible::Name) == name) found = &each;
    });
    return found;
  }
  void act(QAccessible::Role role, const QString& name, const QString& action) {
    QAccessibleInterface* found = find(role, name);
    ASSERT_TRUE(found && found->actionInterface()) << name.toStdString();
    ASSERT_TRUE(found->actionInterface()->actionNames().contains(action)) << name.toStdString();
    EXPECT_FALSE(found->state().disabled) << name.toStdString();
    found->actionInterface()->doAction(action);
    driver_.waitUntilIdle();
  }
};

enum class By { Keys, AssistiveTechnology };

void PrintTo(By by, std::ostream* out) {
  *out << (by == By::Keys ? "KeysOnly" : "AssistiveTechnologyOnly");
}

// What somebody does who has the window for the first time. After each step the files are read as
// another program would.
class FirstUse : public BundleWindow, public testing::WithParamInterface<By> {
 protected:
  FirstUse() { options.state = state.path().toStdString(); }

  void begin() {
    open(nullptr, 390, 844);
    if (GetParam() == By::Keys)
      hands = std::make_unique<KeyboardOnly>(*window);
    else
      hands = std::make_unique<AssistiveTechnologyOnly>(*window);
  }
  Dictionary inFile() const {
    foundation::DeviceRoot root(folder.path().toStdString());
    foundation::Preferences another(root);
    return another.copyMultiple(another.copyKeyList(prefs::kDomain), prefs::kDomain);
  }
  Value inFile(std::string_view key) const {
    foundation::DeviceRoot root(folder.path().toStdString());
    return foundation::Preferences(root).copyAppValue(key, prefs::kDomain).value_or(Value());
  }
  std::vector<std::uint8_t> profileBytes() const {
    const auto read = foundation::DeviceRoot(folder.path().toStdString()).read(kProfile);
    return read ? *read : std::vector<std::uint8_t>();
  }
  Value inProfile(std::string_view key) const {
    const auto bytes = profileBytes();
    const auto profile = archive::unarchive(bytes);
    const Dictionary* values = profile ? profile->dictionary() : nullptr;
    const Value* found = values ? values->find(key) : nullptr;
    return found ? *found : Value();
  }

  QTemporaryDir state;
  std::unique_ptr<Hands> hands;
};

TEST_P(FirstUse, SetsSavesFindsUndoesLoadsAndColors) {
  begin();

  hands->press("Power Saving");
  hands->turn("Custom Brightness");
  EXPECT_EQ(inFile("custbrightenabled"), Value(true));
  hands->enter("Brightness (%)", 42);
  EXPECT_EQ(inFile("custbright").number(), 42);
  hands->back();

  hands->press("Manage Profiles");
  hands->press("Compose");
  hands->press("Save");
  hands->turnWheel("Select the trigger for the profile", "Battery 20%");
  ASSERT_FALSE(exists(kProfile));
  hands->press("Save");
  hands->press("Ok");
  EXPECT_EQ(inProfile("profilepercentage"), Value("20"));
  EXPECT_EQ(inProfile("custbright").number(), 42);
  const auto saved = profileBytes();
  hands->back();

  const Dictionary before = inFile();
  hands->search("vibrate", "Vibrate");
  hands->turn("Vibrate");
  EXPECT_EQ(inFile("vibrate"), Value(true));
  hands->undo();
  EXPECT_TRUE(Value(inFile()) == Value(before));

  hands->back();
  hands->press("Power Saving");
  hands->enter("Brightness (%)", 60);
  const Dictionary changed = inFile();
  EXPECT_EQ(inFile("custbright").number(), 60);
  hands->press("More");
  hands->press("Saved Profiles…");
  hands->press("Battery 20%");
  EXPECT_TRUE(hands->sees("Brightness (%)", "60 → 42"));
  EXPECT_TRUE(Value(inFile()) == Value(changed)) << "seen, not loaded";
  hands->press("Load");
  EXPECT_EQ(inFile("custbright").number(), 42);
  EXPECT_TRUE(hands->sees("Nothing: the settings are like this already.", ""));
  hands->leave();
  hands->leave();
  hands->undo();
  EXPECT_TRUE(Value(inFile()) == Value(changed));
  EXPECT_EQ(profileBytes(), saved);
  hands->back();

  hands->press("Extras");
  hands->press("Alert Banner");
  hands->choose("System Blue");
  EXPECT_EQ(inFile("bannercolor"), Value("#007AFF"));
  hands->back();
  EXPECT_TRUE(bridge().problems().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(As, FirstUse, testing::Values(By::Keys, By::AssistiveTechnology),
                         testing::PrintToStringParamName());

}  // namespace
