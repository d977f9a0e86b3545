#include "apps/cli/drive/driver.h"

#include "apps/cli/drive/page_json.h"
#include "apps/cli/session.h"

namespace cli {
namespace {

const char* nameOf(host::RefusalCode code) {
  switch (code) {
    case host::RefusalCode::BadRequest:
      return "bad_request";
    case host::RefusalCode::NoPage:
      return "no_page";
    case host::RefusalCode::NoRow:
      return "no_row";
    case host::RefusalCode::NotBuilt:
      return "not_built";
    case host::RefusalCode::Disabled:
      return "disabled";
    case host::RefusalCode::BadValue:
      return "bad_value";
    case host::RefusalCode::NoAlert:
      return "no_alert";
    case host::RefusalCode::NoButton:
      return "no_button";
    case host::RefusalCode::Modal:
      return "modal";
  }
  return "bad_request";
}

std::unique_ptr<foundation::ManualQueue> makeClock(foundation::ManualQueue*& clock) {
  auto made = std::make_unique<foundation::ManualQueue>();
  clock = made.get();
  return made;
}

}  // namespace

const Driver::Handler Driver::kHandlers[] = {
    {"launch", &Driver::launch},     {"open", &Driver::open},
    {"back", &Driver::back},         {"page", &Driver::shownPage},
    {"tap", &Driver::tap},           {"set", &Driver::set},
    {"choices", &Driver::choices},   {"scroll", &Driver::scroll},
    {"select", &Driver::select},     {"drag", &Driver::drag},
    {"bar", &Driver::bar},           {"press", &Driver::press},
    {"pick", &Driver::pick},         {"alerts", &Driver::alerts},
    {"activate", &Driver::activate}, {"layout", &Driver::layout},
    {"advance", &Driver::advance},   {"reload", &Driver::reload},
    {"call", &Driver::call},         {"notifications", &Driver::notifications},
    {"prefs", &Driver::prefs},       {"schemes", &Driver::schemes},
    {"opened", &Driver::opened},     {"played", &Driver::played},
};

Driver::Driver(const host::DeviceOptions& options, int viewport)
    : device_(options, makeClock(clock_),
              {.darwinCenter = &record_, .urls = &urls_, .sounds = &sounds_}),
      application_(device_.environment(), viewport) {
  record_.watch(device_.environment().defaultCenter);
  device_.setProblemHandler([](const std::string& message) { complain(message); });
}

std::string Driver::answer(std::string_view line) {
  const Answer done = dispatch(line);
  if (!done) {
    return textOf(
        {{"ok", false}, {"error", nameOf(done.error().code)}, {"message", done.error().message}});
  }
  Json answer = {{"ok", true}};
  answer.update(*done);
  return textOf(answer);
}

Driver::Answer Driver::dispatch(std::string_view line) {
  const auto request = Request::read(line);
  if (!request) return request.error();
  for (const Handler& handler : kHandlers)
    if (request->what() == handler.what) return (this->*handler.run)(*request);
  return badRequest("no request is called \"" + request->what() + "\"; there are " + requests());
}

std::string Driver::requests() {
  std::string names;
  for (const Handler& handler : kHandlers) (names += names.empty() ? "" : ", ") += handler.what;
  return names;
}

Driver::Answer Driver::page() const {
  if (!application_.shownPage()) return host::noPage();
  return Json{{"page", pageJson(application_)}};
}

Driver::Answer Driver::donePage(const host::Outcome<host::Done>& done) const {
  if (!done) return done.error();
  return page();
}

}  // namespace cli
