#include "drive/driver.h"

#include "drive/requests.h"

namespace drive {
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

}  // namespace

const Driver::Handler Driver::kHandlers[] = {
    {"launch", readLaunch, &Driver::page},
    {"open", readOpen, &Driver::page},
    {"back", readBack, &Driver::page},
    {"page", nullptr, &Driver::page},
    {"tap", readTap, &Driver::page},
    {"set", readSet, &Driver::nothing},
    {"choices", nullptr, &Driver::choices},
    {"scroll", readScroll, &Driver::nothing},
    {"select", readSelect, &Driver::nothing},
    {"drag", readDrag, &Driver::nothing},
    {"bar", readBar, &Driver::nothing},
    {"press", readPress, &Driver::nothing},
    {"pick", readPick, &Driver::nothing},
    {"alerts", nullptr, &Driver::alerts},
    {"activate", readActivate, &Driver::nothing},
    {"layout", readLayout, &Driver::nothing},
    {"advance", nullptr, &Driver::advance},
    {"reload", readReload, &Driver::nothing},
    {"call", readCall, &Driver::result},
    {"notifications", nullptr, &Driver::notifications},
    {"prefs", nullptr, &Driver::prefs},
    {"schemes", nullptr, &Driver::schemes},
    {"opened", nullptr, &Driver::opened},
    {"played", nullptr, &Driver::played},
};

Driver::Driver(const host::DeviceOptions& options, int viewport,
               host::Device::ProblemHandler complain)
    : device_(options), application_(device_.device().environment(), viewport) {
  device_.device().setProblemHandler(std::move(complain));
  application_.record(device_.device().backups());
}

std::string Driver::answer(std::string_view line) {
  const Answer done = dispatch(line);
  (void)device_.device().finish();  // what fails is complained of
  if (!done) {
    return textOf(
        {{"ok", false}, {"error", nameOf(done.error().code)}, {"message", done.error().message}});
  }
  Json answer = {{"ok", true}};
  answer.update(*done);
  return textOf(answer);
}

Driver::Answer Driver::dispatch(std::string_view line) {
  const auto fields = Fields::read(line);
  if (!fields) return fields.error();
  for (const Handler& handler : kHandlers)
    if (fields->what() == handler.what) return run(handler, *fields);
  return badRequest("no request is called \"" + fields->what() + "\"; there are " + requests());
}

Driver::Answer Driver::run(const Handler& handler, const Fields& fields) {
  if (!handler.read) return (this->*handler.answer)(fields, {});
  const auto request = handler.read(fields);
  if (!request) return request.error();
  const auto result = application_.perform(*request);
  if (!result) return result.error();
  return (this->*handler.answer)(fields, *result);
}

std::string Driver::requests() {
  std::string names;
  for (const Handler& handler : kHandlers) (names += names.empty() ? "" : ", ") += handler.what;
  return names;
}

}  // namespace drive
