#pragma once

#include <memory>

#include "platform/uikit/table_view.h"

// The cells of the picker's table, all under one reuse identifier.
namespace prefs {

// One that waits for use, else a new one: name above a smaller colour text, no highlight.
std::shared_ptr<uikit::TableViewCell> dequeueSwatchCell(uikit::TableView& table);

// Takes away what an earlier use left: texts, image, border width, slider panel. The tag stays, and
// so does the tick.
void clearSwatchCell(uikit::TableViewCell& cell);

// A border of one point around the swatch, for colours that the page's white would swallow.
void addSwatchBorder(uikit::TableViewCell& cell);

}  // namespace prefs
