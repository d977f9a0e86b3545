// What happens around the pages, and what they left behind.
#include "apps/cli/drive/driver.h"
#include "apps/cli/drive/page_json.h"
#include "prefs/core/names.h"

namespace cli {
namespace {

constexpr double kLongestAdvance = 1e9;  // seconds

host::Outcome<std::vector<plist::Value>> argumentsIn(const Json& array) {
  std::vector<plist::Value> arguments;
  for (const Json& member : array) {
    auto value = fromJson(member);
    if (!value) return badRequest("\"arguments\" can't be values");
    arguments.push_back(std::move(*value));
  }
  return arguments;
}

}  // namespace

Driver::Answer Driver::shownPage(const Request&) {
  return page();
}

Driver::Answer Driver::alerts(const Request&) {
  Json::array_t alerts;
  for (const auto& alert : application_.alerts()) alerts.push_back(alertJson(*alert));
  return Json{{"alerts", std::move(alerts)}};
}

Driver::Answer Driver::activate(const Request&) {
  application_.activate();
  return Json::object();
}

Driver::Answer Driver::layout(const Request&) {
  if (const auto shown = page(); !shown) return shown.error();
  application_.layout();
  return Json::object();
}

Driver::Answer Driver::advance(const Request& request) {
  const auto seconds = request.number("seconds");
  if (!seconds) return seconds.error();
  if (!(*seconds >= 0 && *seconds <= kLongestAdvance))
    return host::Refusal{host::RefusalCode::BadValue, "time moves on by 0 to 1e9 seconds"};
  clock_->advance(foundation::Nanoseconds(static_cast<std::int64_t>(*seconds * 1e9 + 0.5)));
  application_.buildVisibleRows();
  return Json::object();
}

Driver::Answer Driver::reload(const Request&) {
  const auto done = application_.reload();
  if (!done) return done.error();
  return Json::object();
}

Driver::Answer Driver::call(const Request& request) {
  const auto operation = request.text("operation");
  if (!operation) return operation.error();
  host::Outcome<Json> given = Json::array();
  if (request.has("arguments")) given = request.array("arguments");
  if (!given) return given.error();
  const auto arguments = argumentsIn(*given);
  if (!arguments) return arguments.error();
  const auto result = application_.perform(host::Call{*operation, *arguments});
  if (!result) return result.error();
  return Json{{"result", toJson(*result)}};
}

Driver::Answer Driver::notifications(const Request&) {
  Json::array_t posted;
  for (auto& [centre, name, object] : record_.take())
    posted.push_back({{"centre", centre == host::Centre::Darwin ? "darwin" : "local"},
                      {"name", std::move(name)},
                      {"object", object ? Json(*object) : Json()}});
  return Json{{"notifications", std::move(posted)}};
}

Driver::Answer Driver::prefs(const Request&) {
  foundation::Preferences& store = device_.preferences();
  return Json{
      {"prefs", toJson(store.copyMultiple(store.copyKeyList(::prefs::kDomain), ::prefs::kDomain))}};
}

Driver::Answer Driver::schemes(const Request& request) {
  const auto array = request.array("schemes");
  if (!array) return array.error();
  std::set<std::string, std::less<>> schemes;
  for (const Json& scheme : *array) {
    if (!scheme.is_string()) return badRequest("\"schemes\" must hold texts");
    schemes.insert(scheme.get<std::string>());
  }
  urls_.setSchemes(std::move(schemes));
  return Json::object();
}

Driver::Answer Driver::opened(const Request&) {
  return Json{{"urls", urls_.take()}};
}

Driver::Answer Driver::played(const Request&) {
  Json::array_t sounds;
  for (const auto& url : sounds_.take()) sounds.push_back(url ? Json(*url) : Json());
  return Json{{"sounds", std::move(sounds)}};
}

}  // namespace cli
