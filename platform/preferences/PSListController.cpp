#include "platform/preferences/PSListController.h"

#include "platform/foundation/text.h"
#include "platform/preferences/row_value.h"
#include "platform/preferences/specifier_list.h"

namespace preferences {
namespace {

const char* defaultCellClass(CellType type) {
  switch (type) {
    case CellType::PSSwitchCell:
      return "PSSwitchTableCell";
    case CellType::PSSliderCell:
      return "PSSliderTableCell";
    case CellType::PSSegmentCell:
      return "PSSegmentTableCell";
    case CellType::PSEditTextCell:
    case CellType::PSSecureEditTextCell:
    case CellType::PSEditTextViewCell:
      return "PSEditableTableCell";
    default:
      return "PSTableCell";
  }
}

// The row as an operation's only argument.
Argument rowArgument(PSSpecifier& specifier) {
  return static_cast<foundation::Object*>(&specifier);
}

}  // namespace

const Operations PSListController::ownOperations{
    []() -> OperationTable {
      return {
          {"specifiers", &PSListController::loadRows},
          {"specifierForID:", &PSListController::findSpecifier},
          {"reloadSpecifier:", &PSListController::reloadSpecifier},
          {"reloadSpecifiers", &PSListController::reloadSpecifiers},
          {"setPreferenceValue:specifier:", &PSListController::setPreferenceValueSpecifier},
          {"readPreferenceValue:", &PSListController::readPreferenceValue},
      };
    },
    &PSViewController::ownOperations};

foundation::Object* PSListController::findSpecifier(const std::string& identifier) {
  return specifierForID(identifier);
}

void PSListController::viewDidLoad() {
  specifiers();
  PSViewController::viewDidLoad();
}

const PSListController::Specifiers& PSListController::specifiers() {
  if (!specifiers_) specifiers_ = loadSpecifiersFromPlistNameTarget(className(), *this);
  return *specifiers_;
}

PSListController::Specifiers PSListController::loadSpecifiersFromPlistNameTarget(
    std::string_view name, PSListController& target) {
  auto fail = [&](const std::string& what) {
    loadError_ = std::string(name) + ": " + what;
    return Specifiers();
  };
  loadError_.clear();
  byIdentifier_.clear();
  const ListResource* resource = environment().bundle.list(name);
  if (!resource) return fail("no such specifier list");
  auto root = plist::readBinary(resource->bytes);
  if (!root) return fail(root.error().message());
  auto list = readSpecifierList(*root);
  if (!list) return fail("row " + std::to_string(list.error().row) + ": " + list.error().what);

  if (!specifier()) title = list->title;
  for (auto& row : list->specifiers) {
    row->target = &target;
    byIdentifier_.emplace(row->identifier(), row.get());
    // Some are many and take long to find out, and most requests ask for none.
    if (!row->textForKey("valuesDataSource").empty())
      row->setChoicesLater(
          [this, choices = row.get()] { loadChoices(*choices, ChoicesFor::Showing); });
  }
  return std::move(list->specifiers);
}

PSSpecifier* PSListController::specifierForID(std::string_view identifier) {
  specifiers();
  auto found = byIdentifier_.find(identifier);
  return found == byIdentifier_.end() ? nullptr : found->second;
}

void PSListController::reloadSpecifier(PSSpecifier* specifier) {
  if (!specifier || !specifier->isBuilt()) return;
  specifier->setCellObject(nullptr);
  buildRow(*specifier);
}

void PSListController::reloadSpecifiers() {
  if (asking_) return;
  specifiers_.reset();
  specifiers();
}

void PSListController::setPreferenceValueSpecifier(const plist::Value& value,
                                                   PSSpecifier* specifier) {
  if (!specifier) return;
  auto key = specifier->textForKey("key"), domain = specifier->textForKey("defaults");
  if (key.empty() || domain.empty()) return;
  bool negated = specifier->boolForKey("negate", false);
  auto stored = negated ? plist::Value(!foundation::boolValue(value)) : value;
  (void)environment().preferences.setAppValue(key, stored, domain);
  auto notification = specifier->textForKey("PostNotification");
  if (!notification.empty()) environment().darwinCenter.post(notification);
}

plist::Value PSListController::readPreferenceValue(PSSpecifier* specifier) {
  return specifier ? storedOrDefault(specifier->properties(), environment().preferences)
                   : plist::Value();
}

plist::Value PSListController::valueOf(PSSpecifier& specifier) {
  auto getter = specifier.textForKey("get");
  if (getter.empty()) return readPreferenceValue(&specifier);
  const Argument row[] = {rowArgument(specifier)};
  const Operation* operation = operations().find(getter);
  auto result = operation ? operation->run(*this, row) : std::nullopt;
  return result ? valueIn(*result).value_or(plist::Value()) : plist::Value();
}

void PSListController::userChanged(PSSpecifier& specifier, const plist::Value& value) {
  auto setter = specifier.textForKey("set");
  if (!setter.empty()) {
    const Argument arguments[] = {value, rowArgument(specifier)};
    if (const Operation* operation = operations().find(setter)) operation->run(*this, arguments);
    return;
  }
  setPreferenceValueSpecifier(value, &specifier);
  refreshRow(specifier);
}

void PSListController::refreshRow(PSSpecifier& specifier) {
  specifier.setPropertyForKey(valueOf(specifier), "value");
  if (PSTableCell* cell = specifier.cellObject()) cell->refreshCellContents();
}

void PSListController::buildRow(PSSpecifier& specifier) {
  specifier.setPropertyForKey(valueOf(specifier), "value");
  auto named = specifier.textForKey("cellClass");
  const CellClass* cellClass = named.empty() ? nullptr : environment().bundle.cellClass(named);
  if (!cellClass)
    cellClass = environment().bundle.cellClass(defaultCellClass(specifier.cellType()));
  auto cell = cellClass->create(uikit::CellStyle::Value1, std::string(nameOf(specifier.cellType())),
                                specifier);
  specifier.setCellObject(cell);
  cell->refreshCellContents();
  cell->layoutSubviews();
}

void PSListController::loadChoices(PSSpecifier& specifier, ChoicesFor what) {
  if (const auto& source = environment().choicesSource)
    if (const auto answer = source(className(), specifier, what)) {
      if (*answer) specifier.setChoices(**answer);
      return;
    }
  auto list = [&](std::string_view key) -> std::optional<plist::Array> {
    const Operation* operation = operations().find(specifier.textForKey(key));
    if (!operation) return std::nullopt;
    const Argument row[] = {rowArgument(specifier)};
    auto result = operation->run(*this, row);
    auto value = result ? valueIn(*result) : std::nullopt;
    if (!value || !value->array()) return std::nullopt;
    return std::move(*value->array());
  };
  const bool outer = std::exchange(asking_, true);
  const auto samePeople = environment().addressBook.hold();  // in both lists
  readForBoth_.reset();
  auto values = list("valuesDataSource"), titles = list("titlesDataSource");
  readForBoth_.reset();
  asking_ = outer;
  if (!values || !titles) return;
  values->resize(std::min(values->size(), titles->size()));
  Choices choices{std::move(*values), {}};
  for (std::size_t i = 0; i < choices.values.size(); ++i)
    choices.titles.push_back(foundation::descriptionOf((*titles)[i]));
  specifier.setChoices(std::move(choices));
}

}  // namespace preferences
