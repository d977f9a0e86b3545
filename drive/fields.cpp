#include "drive/fields.h"

#include <limits>

namespace drive {
namespace {

host::Refusal mustBe(const char* name, const char* kind) {
  return badRequest("\"" + std::string(name) + "\" must be " + kind);
}

// Out of an int's range means beyond everything that is counted here.
int clampedInt(const Json& json) {
  constexpr int kMost = std::numeric_limits<int>::max();
  if (json.is_number_unsigned())
    return static_cast<int>(std::min<std::uint64_t>(json.get<std::uint64_t>(), kMost));
  return static_cast<int>(std::clamp<std::int64_t>(json.get<std::int64_t>(), -1, kMost));
}

}  // namespace

host::Refusal badRequest(std::string message) {
  return {host::RefusalCode::BadRequest, std::move(message)};
}

host::Outcome<Fields> Fields::read(std::string_view line) {
  auto json = parse(line);
  if (!json) return badRequest(json.error().message());
  if (!json->is_object()) return badRequest("a request is a JSON object");
  const auto what = json->find("do");
  if (what == json->end() || !what->is_string()) return badRequest("\"do\" must be text");
  std::string name = what->get<std::string>();
  return Fields(std::move(name), std::move(*json));
}

host::Outcome<Json> Fields::field(const char* name) const {
  const auto found = json_.find(name);
  if (found == json_.end()) return badRequest("\"" + std::string(name) + "\" is missing");
  return *found;
}

host::Outcome<std::string> Fields::text(const char* name) const {
  const auto found = field(name);
  if (!found) return found.error();
  if (!found->is_string()) return mustBe(name, "text");
  return found->get<std::string>();
}

host::Outcome<int> Fields::integer(const char* name) const {
  const auto found = field(name);
  if (!found) return found.error();
  if (!found->is_number_integer()) return mustBe(name, "an integer");
  return clampedInt(*found);
}

host::Outcome<double> Fields::number(const char* name) const {
  const auto found = field(name);
  if (!found) return found.error();
  if (!found->is_number()) return mustBe(name, "a number");
  return found->get<double>();
}

host::Outcome<bool> Fields::boolean(const char* name) const {
  const auto found = field(name);
  if (!found) return found.error();
  if (!found->is_boolean()) return mustBe(name, "true or false");
  return found->get<bool>();
}

host::Outcome<Json> Fields::array(const char* name) const {
  auto found = field(name);
  if (found && !found->is_array()) return mustBe(name, "an array");
  return found;
}

host::Outcome<host::RowReference> Fields::row() const {
  const auto found = field("row");
  if (!found) return found.error();
  if (found->is_string()) return host::RowReference(found->get<std::string>());
  if (found->is_number_integer()) return host::RowReference(clampedInt(*found));
  return mustBe("row", "an id or an index");
}

host::Outcome<plist::Value> Fields::value() const {
  const auto found = field("value");
  if (!found) return found.error();
  auto read = fromJson(*found);
  // What can't be stored no row can take; the row has its say first.
  return read ? std::move(*read) : plist::Value();
}

}  // namespace drive
