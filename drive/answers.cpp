// What each request is answered.
#include "drive/driver.h"
#include "drive/scene_json.h"
#include "host/describe.h"

namespace drive {

Driver::Answer Driver::nothing(const Fields&, const plist::Value&) {
  return Json::object();
}

Driver::Answer Driver::page(const Fields&, const plist::Value&) {
  const host::Scene scene = host::describe(application_);
  if (!scene.shown()) return host::noPage();
  return Json{{"page", pageJson(*scene.shown())}};
}

Driver::Answer Driver::result(const Fields&, const plist::Value& result) {
  return Json{{"result", toJson(result)}};
}

Driver::Answer Driver::choices(const Fields& fields, const plist::Value&) {
  const auto row = fields.row();
  if (!row) return row.error();
  const auto choices = application_.choices(*row);
  if (!choices) return choices.error();
  return Json{{"values", toJson((*choices)->values)}, {"titles", (*choices)->titles}};
}

Driver::Answer Driver::alerts(const Fields&, const plist::Value&) {
  Json::array_t alerts;
  for (const host::AlertView& alert : host::describe(application_).alerts)
    alerts.push_back(alertJson(alert));
  return Json{{"alerts", std::move(alerts)}};
}

Driver::Answer Driver::advance(const Fields& fields, const plist::Value&) {
  const auto seconds = fields.number("seconds");
  if (!seconds) return seconds.error();
  if (!(*seconds >= 0 && *seconds <= host::RecordingDevice::kLongestAdvance))
    return host::Refusal{host::RefusalCode::BadValue, "time moves on by 0 to 1e9 seconds"};
  device_.advance(*seconds);
  application_.buildVisibleRows();
  return Json::object();
}

Driver::Answer Driver::notifications(const Fields&, const plist::Value&) {
  Json::array_t posted;
  for (auto& [centre, name, object] : device_.takePosted())
    posted.push_back({{"centre", centre == host::Centre::Darwin ? "darwin" : "local"},
                      {"name", std::move(name)},
                      {"object", orNull(object)}});
  return Json{{"notifications", std::move(posted)}};
}

Driver::Answer Driver::prefs(const Fields&, const plist::Value&) {
  return Json{{"prefs", toJson(device_.settings())}};
}

Driver::Answer Driver::schemes(const Fields& fields, const plist::Value&) {
  const auto array = fields.array("schemes");
  if (!array) return array.error();
  host::RecordingDevice::Schemes schemes;
  for (const Json& scheme : *array) {
    if (!scheme.is_string()) return badRequest("\"schemes\" must hold texts");
    schemes.insert(scheme.get<std::string>());
  }
  device_.setSchemes(std::move(schemes));
  return Json::object();
}

Driver::Answer Driver::opened(const Fields&, const plist::Value&) {
  return Json{{"urls", device_.takeOpened()}};
}

Driver::Answer Driver::played(const Fields&, const plist::Value&) {
  Json::array_t sounds;
  for (const auto& url : device_.takePlayed()) sounds.push_back(orNull(url));
  return Json{{"sounds", std::move(sounds)}};
}

}  // namespace drive
