#include "host/device_options.h"

#include <cstdlib>

namespace host {
namespace {

std::string variable(const char* name) {
  const char* text = std::getenv(name);
  return text ? text : "";
}

}  // namespace

std::string defaultRoot() {
  if (auto root = variable("QUORVANTIS_ROOT"); !root.empty()) return root;
  if (auto data = variable("XDG_DATA_HOME"); data.starts_with('/')) return data + "/quorvantis";
  if (auto home = variable("HOME"); !home.empty()) return home + "/.local/share/quorvantis";
  return {};
}

std::string defaultState() {
  if (auto state = variable("XDG_STATE_HOME"); state.starts_with('/')) return state + "/quorvantis";
  if (auto home = variable("HOME"); !home.empty()) return home + "/.local/state/quorvantis";
  return {};
}

}  // namespace host
