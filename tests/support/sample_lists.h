#pragma once

#include <memory>
#include <string_view>
#include <utility>

#include "platform/preferences/bundle.h"
#include "platform/preferences/environment.h"

// What the sample bundles of the tests are made of.
namespace sample {

inline constexpr const char* kDomain = "test.domain";

// A row with its id as its label; `more` adds properties, or replaces these.
inline plist::Dictionary plainRow(std::string_view cell, std::string_view id,
                                  const plist::Dictionary& more = {}) {
  plist::Dictionary row{{"cell", cell}, {"id", id}, {"label", id}};
  for (const auto& [key, value] : more) row.set(key, value);
  return row;
}

// The same, with a value that is stored under its id.
inline plist::Dictionary row(std::string_view cell, std::string_view id,
                             plist::Dictionary more = {}) {
  more.set("key", id);
  more.set("defaults", kDomain);
  return plainRow(cell, id, more);
}

inline plist::Value list(std::string_view title, plist::Array items) {
  return plist::Dictionary{{"title", title}, {"items", std::move(items)}};
}

template <class T>
constexpr preferences::PageClass pageClass(
    std::string_view name, std::string_view list,
    const preferences::Operations* operations = &T::ownOperations) {
  return {
      name,
      [](preferences::Environment& environment) -> std::shared_ptr<preferences::PSViewController> {
        return std::make_shared<T>(environment);
      },
      operations, list};
}

}  // namespace sample
