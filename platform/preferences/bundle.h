#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/plist/binary.h"
#include "platform/uikit/table_view_cell.h"

namespace preferences {

struct Environment;
class Operations;
class PSSpecifier;
class PSTableCell;
class PSViewController;

// A class that a list can name as a page.
struct PageClass {
  std::string_view name;
  std::shared_ptr<PSViewController> (*create)(Environment&);
  const Operations* operations;
  std::string_view list;  // the name of its specifier list; empty for a page without one
};

// A class that a list can name as the cell of a row.
struct CellClass {
  std::string_view name;
  std::shared_ptr<PSTableCell> (*create)(uikit::CellStyle, std::string reuseIdentifier,
                                         PSSpecifier&);
};

// A list as the build compiled it.
struct ListResource {
  std::string_view name;
  plist::Bytes bytes;
};

// The contents of a settings bundle: its classes and its specifier lists.
struct Bundle {
  std::string_view principalClass;  // the page that is opened first
  std::span<const PageClass> pages;
  std::span<const CellClass> cells;
  std::span<const ListResource> lists;

  // Null when the bundle, and the platform itself, know no such class or list.
  const PageClass* pageClass(std::string_view name) const;
  const CellClass* cellClass(std::string_view name) const;
  const ListResource* list(std::string_view name) const;
};

}  // namespace preferences
