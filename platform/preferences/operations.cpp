#include "platform/preferences/operations.h"

#include <atomic>

namespace preferences {

std::optional<plist::Value> valueIn(const Argument& argument) {
  if (auto* value = std::get_if<plist::Value>(&argument)) return *value;
  if (std::holds_alternative<std::nullptr_t>(argument)) return plist::Value();
  return std::nullopt;
}

std::optional<plist::Array> Convert<plist::Array>::from(const Argument& argument) {
  auto value = valueIn(argument);
  if (!value || !value->array()) return std::nullopt;
  return *value->array();
}

std::optional<std::string> Convert<std::string>::from(const Argument& argument) {
  auto value = valueIn(argument);
  if (!value || !value->text()) return std::nullopt;
  return *value->text();
}

std::optional<uikit::IndexPath> Convert<uikit::IndexPath>::from(const Argument& argument) {
  auto value = valueIn(argument);
  const plist::Array* pair = value ? value->array() : nullptr;
  if (!pair || pair->size() != 2) return std::nullopt;
  auto section = (*pair)[0].integer(), row = (*pair)[1].integer();
  if (!section || !row) return std::nullopt;
  return uikit::IndexPath{static_cast<int>(*section), static_cast<int>(*row)};
}

std::optional<Argument> Operation::run(foundation::Object& self,
                                       std::span<const Argument> arguments) const {
  if (arguments.size() != arity_) return std::nullopt;
  return run_(self, arguments);
}

const OperationTable& Operations::own() const {
  const std::atomic_ref shared(own_);
  const OperationTable* own = shared.load();
  if (own) return *own;
  auto made = std::make_unique<const OperationTable>(make_());
  return shared.compare_exchange_strong(own, made.get()) ? *made.release() : *own;
}

const Operation* Operations::find(std::string_view selector) const {
  for (const Operation& operation : own())
    if (operation.selector() == selector) return &operation;
  return base_ ? base_->find(selector) : nullptr;
}

}  // namespace preferences
