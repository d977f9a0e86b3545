#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/preferences/PSViewController.h"
#include "platform/uikit/controls.h"
#include "platform/uikit/table_view.h"
#include "prefs/colorpicker/view_tags.h"

namespace prefs {

// The page that sets one color: a table of the palettes, a section each, the current color
// ticked, and a last row whose color the user mixes with three sliders. The row that opened the
// page names the setting; each choice is stored and announced at once.
class ZorvekColorPickerQuorvantis : public preferences::PSViewController,
                                    public uikit::TableViewSource {
 public:
  using PSViewController::PSViewController;
  std::string_view className() const override { return "ZorvekColorPickerQuorvantis"; }

  // The current color, of any kind that another has stored; text once the user has chosen.
  plist::Value selectedColor;
  plist::Value defaultColor;                          // shown while nothing is stored
  std::optional<uikit::IndexPath> selectedIndexPath;  // the row that was last ticked
  std::optional<std::string> prefKey, appID;
  std::optional<std::string> notificationKey;                // cross-process
  std::optional<std::string> refreshPreviewNotificationKey;  // in-process
  bool allowAutomatic = true;                                // kept; nothing depends on it

  plist::Array palettes();
  plist::Array specialColors();
  plist::Array iOSColors();
  plist::Array crayonColors();
  plist::Array customColor();
  bool presetColorExists(const std::optional<std::string>& color);
  plist::Array sortPaletteByHue(const plist::Array& entries);

  void loadView() override;
  void viewDidLoad() override;
  uikit::TableView* table() const override { return table_.get(); }
  // Whether a row of the table, on screen or not, holds a slider of this tag.
  bool hasSlider(int tag) const { return tag >= kRedSliderTag && tag <= kBlueSliderTag; }

  // A row that no palette has yields no cell, and choosing it does nothing.
  int numberOfSectionsInTableView(uikit::TableView& table) override;
  std::string tableViewTitleForHeaderInSection(uikit::TableView& table, int section) override;
  int tableViewNumberOfRowsInSection(uikit::TableView& table, int section) override;
  double tableViewHeightForRowAtIndexPath(uikit::TableView& table, uikit::IndexPath path) override;
  std::shared_ptr<uikit::TableViewCell> tableViewCellForRowAtIndexPath(
      uikit::TableView& table, uikit::IndexPath path) override;
  void tableViewDidSelectRowAtIndexPath(uikit::TableView& table, uikit::IndexPath path) override;
  // What a row that is off screen would show if it came on it, in a cell beside the table; the page
  // stays as it is. Null for a row that no palette has.
  std::shared_ptr<uikit::TableViewCell> cellOffScreen(uikit::IndexPath path);

  // Stores the color and posts; an unset color removes the key.
  void notifyTweak(const std::optional<std::string>& color);

  // Dragging shows the mixed color on the custom row; releasing the slider stores it if that
  // row is ticked.
  void sliderAction(foundation::Object* sender);
  void sliderDidEndSliding(foundation::Object* sender);
  std::shared_ptr<uikit::View> getSliderViewWithColor(const uikit::Color& color);
  // Moves the sliders to the color, if one is given, and shows what they mix on the custom row.
  // Nothing happens while that row is off screen. The row is found by its tag, which a cell keeps
  // when another row reuses it.
  void setCustomColorNotifyTweak(const std::optional<std::string>& color, bool notify);

  const preferences::Operations& operations() const override { return ownOperations; }
  static const preferences::Operations ownOperations;

 private:
  // Whether the row counts as the one that was last ticked.
  bool showRow(uikit::TableViewCell& cell, uikit::IndexPath path);
  bool showEntry(uikit::TableViewCell& cell, uikit::IndexPath path);
  bool showCustomColor(uikit::TableViewCell& cell);
  uikit::Slider* slider(int tag) const;

  std::shared_ptr<uikit::TableView> table_;
};

}  // namespace prefs
