// What the user does to the pages.
#include "apps/cli/drive/driver.h"

namespace cli {
namespace {

host::Outcome<Json> nothingMore(const host::Outcome<host::Done>& done) {
  if (!done) return done.error();
  return Json::object();
}

constexpr std::string_view kTextProperties[] = {"label", "key", "defaults", "PostNotification",
                                                "PreviewNotification"};

// As a list may write a boolean.
bool standsForBoolean(const Json& json) {
  return json.is_boolean() || json.is_number() || json.is_string();
}

// A row as a request describes it; null is as good as absent.
host::Outcome<plist::Dictionary> rowProperties(const Json& json) {
  if (!json.is_object()) return badRequest("\"specifier\" must be an object");
  plist::Dictionary properties;
  for (const auto& [name, property] : json.items()) {
    const bool isText = std::ranges::find(kTextProperties, name) != std::end(kTextProperties);
    if (!isText && name != "default" && name != "allowAutomatic")
      return badRequest("a specifier has no \"" + name + "\" here");
    if (property.is_null()) continue;
    if (isText && !property.is_string()) return badRequest("\"" + name + "\" must be text");
    if (name == "allowAutomatic" && !standsForBoolean(property))
      return badRequest("\"allowAutomatic\" must be true or false");
    auto value = fromJson(property);
    if (!value) return badRequest("\"" + name + "\" can't be a stored value");
    properties.set(name, std::move(*value));
  }
  return properties;
}

}  // namespace

Driver::Answer Driver::launch(const Request&) {
  application_.launch();
  return page();
}

Driver::Answer Driver::open(const Request& request) {
  const auto pageClass = request.text("page");
  if (!pageClass) return pageClass.error();
  host::Outcome<plist::Dictionary> properties = plist::Dictionary();
  if (request.has("specifier")) properties = rowProperties(*request.field("specifier"));
  if (!properties) return properties.error();
  return donePage(application_.open(*pageClass, std::move(*properties)));
}

Driver::Answer Driver::back(const Request&) {
  return donePage(application_.back());
}

Driver::Answer Driver::tap(const Request& request) {
  const auto row = request.row();
  if (!row) return row.error();
  return donePage(application_.tap(*row));
}

Driver::Answer Driver::set(const Request& request) {
  const auto row = request.row();
  if (!row) return row.error();
  const auto value = request.value();
  if (!value) return value.error();
  return nothingMore(application_.set(*row, *value));
}

Driver::Answer Driver::choices(const Request& request) {
  const auto row = request.row();
  if (!row) return row.error();
  const auto choices = application_.choices(*row);
  if (!choices) return choices.error();
  return Json{{"values", toJson(choices->values)}, {"titles", choices->titles}};
}

Driver::Answer Driver::scroll(const Request& request) {
  const auto first = request.integer("first");
  if (!first) return first.error();
  return nothingMore(application_.scroll(*first));
}

Driver::Answer Driver::select(const Request& request) {
  const auto section = request.integer("section"), index = request.integer("index");
  if (!section) return section.error();
  if (!index) return index.error();
  return nothingMore(application_.select(*section, *index));
}

Driver::Answer Driver::drag(const Request& request) {
  const auto tag = request.integer("tag");
  if (!tag) return tag.error();
  const auto value = request.number("value");
  if (!value) return value.error();
  const auto release = request.boolean("release");
  if (!release) return release.error();
  return nothingMore(application_.drag(*tag, *value, *release));
}

Driver::Answer Driver::bar(const Request&) {
  return nothingMore(application_.tapBarButton());
}

Driver::Answer Driver::press(const Request& request) {
  const auto button = request.text("button");
  if (!button) return button.error();
  return nothingMore(application_.press(*button));
}

Driver::Answer Driver::pick(const Request& request) {
  const auto row = request.integer("row");
  if (!row) return row.error();
  return nothingMore(application_.pick(*row));
}

}  // namespace cli
