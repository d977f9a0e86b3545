#include "drive/requests.h"

#include <algorithm>

namespace drive {
namespace {

using host::Request;

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

ReadRequest readLaunch(const Fields&) {
  return Request(host::Launch{});
}

ReadRequest readOpen(const Fields& fields) {
  const auto page = fields.text("page");
  if (!page) return page.error();
  host::Outcome<plist::Dictionary> row = plist::Dictionary();
  if (fields.has("specifier")) row = rowProperties(*fields.field("specifier"));
  if (!row) return row.error();
  return Request(host::Open{*page, std::move(*row)});
}

ReadRequest readBack(const Fields&) {
  return Request(host::Back{});
}

ReadRequest readTap(const Fields& fields) {
  const auto row = fields.row();
  if (!row) return row.error();
  return Request(host::Tap{*row});
}

ReadRequest readSet(const Fields& fields) {
  const auto row = fields.row();
  if (!row) return row.error();
  auto value = fields.value();
  if (!value) return value.error();
  return Request(host::Set{*row, std::move(*value)});
}

ReadRequest readScroll(const Fields& fields) {
  const auto first = fields.integer("first");
  if (!first) return first.error();
  return Request(host::Scroll{*first});
}

ReadRequest readSelect(const Fields& fields) {
  const auto section = fields.integer("section"), index = fields.integer("index");
  if (!section) return section.error();
  if (!index) return index.error();
  return Request(host::Select{*section, *index});
}

ReadRequest readDrag(const Fields& fields) {
  const auto tag = fields.integer("tag");
  if (!tag) return tag.error();
  const auto value = fields.number("value");
  if (!value) return value.error();
  const auto release = fields.boolean("release");
  if (!release) return release.error();
  return Request(host::Drag{*tag, *value, *release});
}

ReadRequest readBar(const Fields&) {
  return Request(host::Bar{});
}

ReadRequest readPress(const Fields& fields) {
  const auto button = fields.text("button");
  if (!button) return button.error();
  return Request(host::Press{*button});
}

ReadRequest readPick(const Fields& fields) {
  const auto row = fields.integer("row");
  if (!row) return row.error();
  return Request(host::Pick{*row});
}

ReadRequest readActivate(const Fields&) {
  return Request(host::Activate{});
}

ReadRequest readLayout(const Fields&) {
  return Request(host::Layout{});
}

ReadRequest readReload(const Fields&) {
  return Request(host::Reload{});
}

ReadRequest readCall(const Fields& fields) {
  const auto operation = fields.text("operation");
  if (!operation) return operation.error();
  host::Outcome<Json> given = Json::array();
  if (fields.has("arguments")) given = fields.array("arguments");
  if (!given) return given.error();
  host::Call call{*operation};
  for (const Json& argument : *given) {
    auto value = fromJson(argument);
    if (!value) return badRequest("\"arguments\" can't be values");
    call.arguments.push_back(std::move(*value));
  }
  return Request(std::move(call));
}

}  // namespace drive
