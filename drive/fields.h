#pragma once

#include <string>

#include "drive/json.h"
#include "host/request.h"

namespace drive {

// One line of the protocol. A field that is missing or of another type makes a BadRequest, with
// the field in its message.
class Fields {
 public:
  // BadRequest when the line is not a JSON object with a text under "do".
  static host::Outcome<Fields> read(std::string_view line);

  const std::string& what() const { return what_; }

  bool has(const char* field) const { return json_.contains(field); }
  host::Outcome<Json> field(const char* name) const;
  host::Outcome<std::string> text(const char* name) const;
  host::Outcome<int> integer(const char* name) const;
  host::Outcome<double> number(const char* name) const;
  host::Outcome<bool> boolean(const char* name) const;
  host::Outcome<Json> array(const char* name) const;
  host::Outcome<host::RowReference> row() const;  // an id or an index, under "row"
  host::Outcome<plist::Value> value() const;      // any JSON value, under "value"

 private:
  Fields(std::string what, Json json) : what_(std::move(what)), json_(std::move(json)) {}

  std::string what_;
  Json json_;
};

host::Refusal badRequest(std::string message);

}  // namespace drive
