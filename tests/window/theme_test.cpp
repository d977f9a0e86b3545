#include <QQmlComponent>
#include <QQmlEngine>
#include <cmath>

#include "tests/window/sample_window.h"

namespace {

struct Look {
  const char* name;
  bool dark, highContrast;
};

void PrintTo(const Look& look, std::ostream* out) {
  *out << look.name;
}

// The theme's own colors, as contrast is defined by WCAG 2.1.
class Theme : public SampleWindow, public testing::WithParamInterface<Look> {
 protected:
  Theme() {
    window::DesktopWishes wishes;
    wishes.dark = GetParam().dark;
    wishes.highContrast = GetParam().highContrast;
    settings->desktop().follow(wishes);
    QQmlComponent component(qmlEngine(window));
    component.setData(
        "import QtQml; import Quorvantis.Settings\n"
        "QtObject {\n"
        "  function read(name) { return Theme[name] }\n"
        "  function made(name, one, other) { return Theme[name](one, other) }\n"
        "}",
        QUrl());
    theme.reset(component.create());
  }

  QVariant read(const char* name) const {
    QVariant value;
    EXPECT_TRUE(QMetaObject::invokeMethod(theme.get(), "read", Q_RETURN_ARG(QVariant, value),
                                          Q_ARG(QVariant, QString(name))));
    EXPECT_TRUE(value.isValid()) << name;
    return value;
  }
  QColor color(const char* name) const { return read(name).value<QColor>(); }
  QColor made(const char* function, QColor one, QColor other = {}) const {
    QVariant result;
    EXPECT_TRUE(QMetaObject::invokeMethod(theme.get(), "made", Q_RETURN_ARG(QVariant, result),
                                          Q_ARG(QVariant, QString(function)), Q_ARG(QVariant, one),
                                          Q_ARG(QVariant, other)));
    EXPECT_TRUE(result.value<QColor>().isValid()) << function;
    return result.value<QColor>();
  }
  QColor onCard(QColor color) const { return on(this->color("card"), color); }
  static QColor on(QColor card, QColor color) {
    const auto mixed = [&](double front, double back) {
      return front * color.alphaF() + back * (1 - color.alphaF());
    };
    return QColor::fromRgbF(mixed(color.redF(), card.redF()), mixed(color.greenF(), card.greenF()),
                            mixed(color.blueF(), card.blueF()));
  }
  static double luminance(QColor color) {
    const auto linear = [](double part) {
      return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
  }
  static double contrast(QColor a, QColor b) {
    const double one = luminance(a) + 0.05, other = luminance(b) + 0.05;
    return std::max(one, other) / std::min(one, other);
  }
  void expect(const char* front, const std::vector<const char*>& grounds, double least) const {
    for (const char* ground : grounds)
      EXPECT_GE(contrast(color(front), color(ground)), least) << front << " on " << ground;
  }
  // A text, and what it lies on, where it is drawn with that opacity of the theme.
  using OnGround = std::pair<const char*, const char*>;
  void expectAt(const char* opacity, const std::vector<OnGround>& texts, double least) const {
    for (const auto& [name, ground] : texts) {
      QColor text = color(name);
      text.setAlphaF(static_cast<float>(read(opacity).toDouble()));
      EXPECT_GE(contrast(on(color(ground), text), color(ground)), least)
          << name << " on " << ground;
    }
  }
  double textGoal() const { return GetParam().highContrast ? 7 : 4.5; }
  double controlGoal() const { return GetParam().highContrast ? 4.5 : 3; }

  std::unique_ptr<QObject> theme;
};

TEST_P(Theme, TextStandsOutFromWhatItLiesOnInEveryState) {
  for (const char* text : {"text", "secondary", "accentText", "destructive"})
    expect(text, {"background", "card", "hovered", "pressed", "bar", "dialog"}, textGoal());
  for (const char* text : {"text", "secondary"}) expect(text, {"band", "field"}, textGoal());
  expect("text", {"groove", "chosen"}, textGoal());
  expect("warningText", {"warning"}, textGoal());
  expect("hintText", {"hint"}, textGoal());
  expect("textOnAccent", {"accent"}, textGoal());
}

TEST_P(Theme, TextOfAButtonThatIsPressedCanBeRead) {
  expectAt("faded",
           {{"accentText", "background"},
            {"accentText", "bar"},
            {"accentText", "dialog"},
            {"destructive", "background"},
            {"destructive", "dialog"},
            {"warningText", "warning"},
            {"hintText", "hint"}},
           4.5);
}

TEST_P(Theme, ARowOfAPickerOffItsMiddleCanBeRead) {
  expectAt("unchosen", {{"text", "dialog"}}, 4.5);
}

// The usual rule exempts a control that can't be used.
TEST_P(Theme, AButtonThatCantBeUsedIsExemptButStandsOutByThreeHalves) {
  expectAt("disabled",
           {{"accentText", "background"}, {"text", "dialog"}, {"warningText", "warning"}}, 1.5);
}

TEST_P(Theme, TextOfADimmedRowCanBeRead) {
  expectAt("dimmed", {{"text", "card"}}, 4.5);
}

TEST_P(Theme, ControlsStandOutFromWhatTheyLieOn) {
  expect("edge", {"card", "background", "bar", "dialog", "groove", "switchOff"}, 3);
  expect("accentText",
         {"card", "hovered", "pressed", "background", "bar", "dialog", "band", "field"},
         controlGoal());
  expect("accent", {"card", "track", "groove", "bar"}, 3);
  expect("track", {"card"}, 3);
}

TEST_P(Theme, TriggersStandOutFromThePageAndThoseWithAProfileFromTheOthers) {
  expect("taken", {"background", "free"}, controlGoal());
  expect("free", {"background"}, controlGoal());
}

TEST_P(Theme, ASwitchThatIsOnStandsOutFromOneThatIsOffInEveryTint) {
  struct Tint {
    const char* name;
    QColor on, off;
  };
  const QColor none(Qt::transparent);
  const Tint tints[] = {{"the window's own", none, none},
                        {"slate", QColor(52, 73, 94), none},
                        {"green and red", QColor(46, 204, 113, 180), QColor(231, 76, 60, 180)},
                        {"white", Qt::white, none},
                        {"black", Qt::black, none}};
  for (const Tint& tint : tints)
    EXPECT_GE(contrast(onCard(made("switchOn", tint.on, tint.off)),
                       onCard(made("switchOffOf", tint.on, tint.off))),
              controlGoal() - 0.01)
        << tint.name;
}

TEST_P(Theme, TheOutlineOfAPaleSwitchStandsOutFromTheCard) {
  for (const QColor& pale : {color("card"), color("switchOff"), QColor(52, 73, 94)}) {
    EXPECT_GE(contrast(made("legible", pale), color("card")), controlGoal());
  }
}

INSTANTIATE_TEST_SUITE_P(, Theme,
                         testing::Values(Look{"Light", false, false}, Look{"Dark", true, false},
                                         Look{"LightHighContrast", false, true},
                                         Look{"DarkHighContrast", true, true}),
                         testing::PrintToStringParamName());

}  // namespace
