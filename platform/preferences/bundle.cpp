#include "platform/preferences/bundle.h"

#include "platform/preferences/PSListItemsController.h"
#include "platform/preferences/control_cells.h"

namespace preferences {
namespace {

template <class T>
std::shared_ptr<PSTableCell> makeCell(uikit::CellStyle style, std::string reuseIdentifier,
                                      PSSpecifier& specifier) {
  return std::make_shared<T>(style, std::move(reuseIdentifier), specifier);
}

// The platform's own classes.
const PageClass kPages[] = {
    {"PSListItemsController",
     [](Environment& environment) -> std::shared_ptr<PSViewController> {
       return std::make_shared<PSListItemsController>(environment);
     },
     &PSListItemsController::ownOperations,
     {}},
};
constexpr CellClass kCells[] = {
    {"PSTableCell", makeCell<PSTableCell>},
    {"PSSwitchTableCell", makeCell<PSSwitchTableCell>},
    {"PSSliderTableCell", makeCell<PSSliderTableCell>},
    {"PSSegmentTableCell", makeCell<PSSegmentTableCell>},
    {"PSEditableTableCell", makeCell<PSEditableTableCell>},
};

template <class T>
const T* named(std::string_view name, std::span<const T> own, std::span<const T> platforms) {
  for (auto entries : {own, platforms})
    for (const T& entry : entries)
      if (entry.name == name) return &entry;
  return nullptr;
}

}  // namespace

const PageClass* Bundle::pageClass(std::string_view name) const {
  return named<PageClass>(name, pages, kPages);
}

const CellClass* Bundle::cellClass(std::string_view name) const {
  return named<CellClass>(name, cells, kCells);
}

const ListResource* Bundle::list(std::string_view name) const {
  return named<ListResource>(name, lists, {});
}

}  // namespace preferences
