#pragma once

#include "apps/window/options.h"
#include "apps/window/settings_bridge.h"

namespace window {

// Does what the user would do; the error is a message for people.
host::Outcome<host::Done> perform(const Step& step, host::SettingsApplication& host,
                                  SettingsBridge& bridge);

}  // namespace window
