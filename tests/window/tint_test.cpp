#include <QGuiApplication>
#include <QPalette>

#include "tests/window/bundle_window.h"

namespace {

const QColor kSlate(52, 73, 94);

enum class Appearance { Light, Dark };

void PrintTo(Appearance appearance, std::ostream* out) {
  *out << (appearance == Appearance::Dark ? "Dark" : "Light");
}

// The colors that pages give their controls, as they are painted.
class Tints : public BundleWindow, public testing::WithParamInterface<Appearance> {
 protected:
  Tints() {
    QPalette palette;
    palette.setColor(QPalette::Window, GetParam() == Appearance::Dark ? Qt::black : Qt::white);
    QGuiApplication::setPalette(palette);
  }
  ~Tints() override { QGuiApplication::setPalette(QPalette()); }

  QColor card() const {
    return GetParam() == Appearance::Dark ? QColor("#1C1C1E") : QColor("#FFFFFF");
  }
  QQuickItem* track(const QString& name) const {
    QQuickItem* button = driver->find(name, kCheckBox);
    return button->property("indicator").value<QQuickItem*>();
  }
  static QColor outline(const QQuickItem* item) {
    return item->property("border").value<QObject*>()->property("color").value<QColor>();
  }
  static double outlineWidth(const QQuickItem* item) {
    return item->property("border").value<QObject*>()->property("width").toDouble();
  }
  // The segments of a page: those that are chosen, each with its ground below its title.
  std::vector<QQuickItem*> chosenSegments() const {
    std::vector<QQuickItem*> found;
    for (QQuickItem* item : driver->itemsOfType("QQuickRadioButton"))
      if (item->property("chosen").toBool()) found.push_back(item);
    return found;
  }
  static QQuickItem* below(QQuickItem* item, const char* type) {
    for (QQuickItem* child : item->childItems())
      if (child->inherits(type)) return child;
    return nullptr;
  }
  static QColor colorOf(const QQuickItem* item) { return item->property("color").value<QColor>(); }

  // As WCAG 2.1 defines it, of a color that may be translucent on a ground that isn't.
  static double contrast(QColor color, QColor ground) {
    const auto linear = [](double part) {
      return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    const auto luminance = [&](double red, double green, double blue) {
      return 0.2126 * linear(red) + 0.7152 * linear(green) + 0.0722 * linear(blue) + 0.05;
    };
    const auto over = [&](double part, double below) {
      return part * color.alphaF() + below * (1 - color.alphaF());
    };
    const double one =
        luminance(over(color.redF(), ground.redF()), over(color.greenF(), ground.greenF()),
                  over(color.blueF(), ground.blueF()));
    const double other = luminance(ground.redF(), ground.greenF(), ground.blueF());
    return std::max(one, other) / std::min(one, other);
  }
};

TEST_P(Tints, AnOrdinarySwitchIsOutlinedInItsTintWhileOffAndFilledWithItsOnTintWhileOn) {
  open("GeneralSettingsController");
  const QString name = labelOf("enabled");
  set("enabled", false);
  driver->waitUntilIdle();
  EXPECT_EQ(outlineWidth(track(name)), 2);
  EXPECT_GE(contrast(outline(track(name)), card()), 3);
  if (GetParam() == Appearance::Light) {
    EXPECT_EQ(outline(track(name)), kSlate);
  }
  driver->click(name, kCheckBox);
  // On a dark card slate is lighter than it is, so that it can be seen.
  const bool dark = GetParam() == Appearance::Dark;
  EXPECT_TRUE(driver->until([&] {
    const QColor on = colorOf(track(name));
    return dark ? contrast(on, card()) >= 3 && on.blue() > on.green() && on.green() > on.red()
                : on == kSlate;
  }));
  EXPECT_EQ(outlineWidth(track(name)), 0);
}

TEST_P(Tints, TheProfileSwitchIsRoundedAsItsLayer) {
  open("ProfilesListController");
  const QString name = labelOf("profileactive");
  EXPECT_EQ(track(name)->property("radius").toDouble(), track(name)->height() / 2);
  (*application->row("profileactive"))->control()->layer.cornerRadius = 5;
  application->buildVisibleRows();
  driver->waitUntilIdle();
  EXPECT_EQ(track(name)->property("radius").toDouble(), 5);
}

TEST_P(Tints, TheTintedSegmentsOfTheConditionsPageDifferFromThoseOfOtherPages) {
  open("ConditionsListController");
  const auto tinted = [this] {
    const auto segments = chosenSegments();
    return segments.size() == 2 && std::ranges::all_of(segments, [](QQuickItem* segment) {
             return colorOf(below(segment, "QQuickRectangle")) == kSlate;
           });
  };
  EXPECT_TRUE(driver->until(tinted));
  for (QQuickItem* segment : chosenSegments()) {
    EXPECT_GE(contrast(outline(below(segment, "QQuickRectangle")), card()), 3);
    EXPECT_GE(contrast(colorOf(below(segment, "QQuickText")), kSlate), 4.5);
  }
  closeAll();
  open("SoundsListController");
  ASSERT_FALSE(chosenSegments().empty());
  for (QQuickItem* segment : chosenSegments()) {
    const QColor ground = colorOf(below(segment, "QQuickRectangle"));
    EXPECT_NE(ground, kSlate);
    EXPECT_GE(contrast(colorOf(below(segment, "QQuickText")), ground), 4.5);
  }
}

TEST_P(Tints, ASliderIsFilledWithItsTint) {
  open("PowerSavingListController");
  const auto filled = [this] {
    QQuickItem* slider = driver->itemsOfType("QQuickSlider").front();
    QQuickItem* groove = slider->property("background").value<QQuickItem*>();
    return colorOf(below(groove, "QQuickRectangle"));
  };
  const QColor platforms = filled();
  uikit::Control* control = nullptr;
  for (const host::RowView& row : page().rows)
    if (!control && row.kind == host::RowKind::Slider)
      control = (*application->row(row.id))->control();
  ASSERT_TRUE(control);
  control->tintColor = uikit::Color::fromBytes(200, 0, 100);
  application->buildVisibleRows();
  driver->waitUntilIdle();
  EXPECT_NE(filled(), platforms);
  EXPECT_GE(contrast(filled(), card()), 3);
  if (GetParam() == Appearance::Light) {
    EXPECT_EQ(filled(), QColor(200, 0, 100));
  }
}

INSTANTIATE_TEST_SUITE_P(In, Tints, testing::Values(Appearance::Light, Appearance::Dark),
                         testing::PrintToStringParamName());

}  // namespace
