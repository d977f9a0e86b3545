#include "apps/window/steps.h"

namespace window {

host::Outcome<host::Done> perform(const Step& step, host::SettingsApplication& host,
                                  SettingsBridge& bridge) {
  const QString& value = step.value;
  if (step.action == "tap") return host.tap(value.toStdString());
  if (step.action == "bar") return host.tapBarButton();
  if (step.action == "press") return host.press(value.toStdString());
  if (step.action == "pick") return host.pick(value.toInt());
  if (step.action == "select")
    return host.select(value.section('.', 0, 0).toInt(), value.section('.', 1).toInt());
  if (step.action == "drag")
    return host.drag(value.section('=', 0, 0).toInt(), value.section('=', 1).toDouble(), false);
  if (bridge.shown()) emit bridge.shown()->scrollWanted(value.toInt());
  return host::Done{};
}

}  // namespace window
