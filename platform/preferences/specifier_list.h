#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/preferences/PSSpecifier.h"
#include "platform/preferences/bundle.h"
#include "platform/preferences/operations.h"
#include "platform/result.h"

namespace preferences {

// What is wrong with a list: in which row, counted from 0, or -1 for the list as a whole.
struct ListError {
  int row = -1;
  std::string what;
};

struct SpecifierList {
  std::string title;
  std::vector<std::shared_ptr<PSSpecifier>> specifiers;
};

// Rows from a property list: a root dictionary with "title" and "items", an array of row
// dictionaries. Never trusts the list: a wrong shape or an unknown cell type is an error. Of rows
// with one id the first is the one that is found by it.
platform::Result<SpecifierList, ListError> readSpecifierList(const plist::Value& root);

// What the build asks of a list besides: every class and selector that it names exists, static
// choices are paired, ids are unique. `operations` are those of the page that loads the list.
std::vector<ListError> validate(const SpecifierList& list, const Operations& operations,
                                const Bundle& bundle);

}  // namespace preferences
