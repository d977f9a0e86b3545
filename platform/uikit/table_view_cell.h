#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/uikit/swatch.h"
#include "platform/uikit/view.h"

namespace uikit {

class ImageView : public View {
 public:
  std::string_view className() const override { return "UIImageView"; }
  std::optional<Swatch> image;
};

enum class TextAlignment { Left, Center, Right };

class Label : public View {
 public:
  std::string_view className() const override { return "UILabel"; }
  std::optional<std::string> text;
  double fontSize = 17;
  std::optional<Color> textColor;
  TextAlignment alignment = TextAlignment::Left;
  bool enabled = true;
};

enum class CellStyle { Default, Value1, Value2, Subtitle };
enum class SelectionStyle { None, Default };
enum class Accessory { None, DisclosureIndicator, Checkmark };

// One row of a table. Its frame is a phone's until it is set.
class TableViewCell : public View {
 public:
  TableViewCell(CellStyle style, std::string reuseIdentifier)
      : style(style), reuseIdentifier(std::move(reuseIdentifier)) {
    frame = {0, 0, 320, 44};
  }
  std::string_view className() const override { return "UITableViewCell"; }

  const CellStyle style;
  const std::string reuseIdentifier;
  Label textLabel, detailTextLabel;
  ImageView imageView;
  View contentView;
  SelectionStyle selectionStyle = SelectionStyle::Default;
  Accessory accessory = Accessory::None;

  bool enabled() const { return enabled_; }
  virtual void setEnabled(bool enabled) { enabled_ = enabled; }
  // The content takes all of the cell.
  virtual void layoutSubviews() { contentView.frame = {0, 0, frame.width, frame.height}; }

 private:
  bool enabled_ = true;
};

}  // namespace uikit
