#include "host/scene.h"

namespace host {

std::string WhyNot::words() const {
  if (by.empty()) return "dimmed";
  if (lags) return "dimmed until you come back to this page";
  return std::string("dimmed: switch ") + (switchOn ? "on " : "off ") + label + " first";
}

}  // namespace host
