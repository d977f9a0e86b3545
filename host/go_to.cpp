#include "host/go_to.h"

#include "host/named.h"

namespace host {
namespace {

std::size_t placeOnStack(const Application& application, const std::string& pageClass) {
  const auto& pages = application.pages();
  for (std::size_t i = pages.size(); i-- > 0;)
    if (pages[i]->className() == pageClass) return i;
  return 0;
}

// As the first page's row does that leads there, if one does.
Open openingOf(preferences::PSListController* first, const std::string& pageClass) {
  if (first)
    for (const auto& row : first->specifiers())
      if (row->textForKey("detail") == pageClass) return {pageClass, row->properties()};
  return {pageClass};
}

}  // namespace

Outcome<int> goTo(Application& application, const std::string& pageClass, const std::string& row) {
  if (application.pages().empty()) return noPage();
  // Refused on the page that is shown, so that nothing has changed.
  if (!application.environment().bundle.pageClass(pageClass))
    if (const auto opened = application.perform(Open{pageClass}); !opened) return opened.error();
  const std::size_t place = placeOnStack(application, pageClass);
  while (application.pages().size() > place + 1)
    if (const auto back = application.perform(Back{}); !back) return back.error();
  if (application.shownPage()->className() != pageClass) {
    const auto opened = application.perform(openingOf(application.shownList(), pageClass));
    if (!opened) return opened.error();
  }
  if (row.empty()) return -1;
  const auto found = rowNamed(application, row);
  if (!found) return found.error();
  const auto& rows = application.shownList()->specifiers();
  int index = 0;
  while (rows[index].get() != *found) ++index;
  return index;
}

}  // namespace host
