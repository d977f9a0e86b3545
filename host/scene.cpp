#include "host/scene.h"

#include <cstdio>

namespace host {

std::string WhyNot::words() const {
  if (by.empty()) return "dimmed";
  if (lags) return "dimmed until you come back to this page";
  return std::string("dimmed: switch ") + (switchOn ? "on " : "off ") + label + " first";
}

std::string numberText(double number) {
  char digits[512];
  std::string text(digits, std::snprintf(digits, sizeof digits, "%.3f", number));
  while (text.ends_with('0')) text.pop_back();
  if (text.ends_with('.')) text.pop_back();
  return text;
}

}  // namespace host
