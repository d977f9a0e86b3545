#include "platform/preferences/PSSpecifier.h"

#include "platform/foundation/text.h"
#include "platform/preferences/PSTableCell.h"

namespace preferences {
namespace {

const std::string kEmpty;
const plist::Value kNothing;

const std::shared_ptr<const Choices>& noChoices() {
  static const auto kNone = std::make_shared<const Choices>();
  return kNone;
}

std::string identifierIn(const plist::Dictionary& properties) {
  for (auto key : {"id", "key", "label"})
    if (const plist::Value* value = properties.find(key); value && value->text())
      return *value->text();
  return {};
}

}  // namespace

PSSpecifier::PSSpecifier(CellType type, plist::Dictionary properties)
    : type_(type),
      properties_(std::move(properties)),
      identifier_(identifierIn(properties_)),
      choices_(noChoices()) {}

const std::string& PSSpecifier::name() const {
  const std::string* label = propertyForKey("label").text();
  return label ? *label : kEmpty;
}

const std::string& PSSpecifier::identifier() const {
  return identifier_;
}

const plist::Value& PSSpecifier::propertyForKey(std::string_view key) const {
  const plist::Value* value = properties_.find(key);
  return value ? *value : kNothing;
}

void PSSpecifier::setPropertyForKey(plist::Value value, std::string_view key) {
  properties_.set(key, std::move(value));
}

std::string_view PSSpecifier::textForKey(std::string_view key) const {
  const std::string* text = propertyForKey(key).text();
  return text ? std::string_view(*text) : std::string_view();
}

bool PSSpecifier::boolForKey(std::string_view key, bool otherwise) const {
  const plist::Value& value = propertyForKey(key);
  return value.isNothing() ? otherwise : foundation::boolValue(value);
}

uikit::Control* PSSpecifier::control() const {
  return cell_ ? cell_->control() : nullptr;
}

const std::shared_ptr<const Choices>& PSSpecifier::choices() const {
  if (const auto set = std::exchange(setChoices_, nullptr)) set();
  return choices_;
}

void PSSpecifier::setChoices(Choices choices) {
  setChoices_ = nullptr;
  if (choices != *choices_) choices_ = std::make_shared<const Choices>(std::move(choices));
}

int PSSpecifier::indexOfValue(const plist::Value& value) const {
  if (value.isNothing()) return -1;
  for (std::size_t i = 0; i < values().size(); ++i)
    if (plist::equalByValue(values()[i], value)) return static_cast<int>(i);
  return -1;
}

const std::string* PSSpecifier::titleForValue(const plist::Value& value) const {
  int index = indexOfValue(value);
  return index < 0 ? nullptr : &titles()[index];
}

}  // namespace preferences
