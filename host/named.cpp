#include "host/named.h"

#include "host/closest.h"
#include "host/setting_lookup.h"
#include "prefs/core/names.h"

namespace host {
namespace {

std::string listCommandOf(const std::string& row) {
  if (row == prefs::kSavedProfilesRow) return "profile list";
  if (row == prefs::kBatteryLogRow) return "log";
  return "choices " + row;
}

}  // namespace

Outcome<std::string> pageNamed(const preferences::Bundle& bundle, std::string_view name) {
  if (const preferences::PageClass* page = findPage(bundle, name)) return std::string(page->name);
  const std::string quoted = "\"" + std::string(name) + "\"";
  if (const auto row = listRowLabeled(bundle, name))
    return Refusal{RefusalCode::NoPage, quoted + " is a row, not a page; quorvantis " +
                                            listCommandOf(*row) + " prints its list"};
  std::vector<std::string> names;
  for (const preferences::PageClass& page : bundle.pages) {
    names.push_back(nameOf(bundle, page));
    names.emplace_back(page.name);
  }
  return Refusal{RefusalCode::NoPage,
                 "no page " + quoted + "; quorvantis pages lists them" + didYouMean(name, names)};
}

Outcome<preferences::PSSpecifier*> rowNamed(const Application& application, const std::string& id) {
  auto row = application.row(id);
  if (row || !application.shownList()) return row;
  std::vector<std::string> ids;
  for (const auto& each : application.shownList()->specifiers()) ids.push_back(each->identifier());
  return Refusal{RefusalCode::NoRow,
                 row.error().message + "; quorvantis search finds rows" + didYouMean(id, ids)};
}

}  // namespace host
