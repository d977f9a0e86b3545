#pragma once

#include <QColor>
#include <QString>
#include <optional>
#include <string_view>

#include "platform/uikit/color.h"

namespace window {

// A colour as QML takes it, or transparent where none was set.
QColor colorOf(const std::optional<uikit::Color>& color);

// What to say of a stored colour text: "System Blue, #007AFF"; the text itself where no palette
// has it, the name alone where the text is a word.
QString spokenColor(std::string_view text);

}  // namespace window
