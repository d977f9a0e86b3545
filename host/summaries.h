#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/preferences/PSSpecifier.h"
#include "platform/preferences/environment.h"

namespace host {

// What the rows of the first page say, in a few words, of the pages that they lead to. Of a page
// with a switch that all of it depends on, whether it is on: "On". Of any other what differs from
// its default, two settings at most: "Wi-Fi off, Brightness 20 %, 3 more"; a slider that follows a
// switch counts while that is on, and stands for it. Of a list that is read from files, how many
// entries it has: "8 profiles". Nothing where there is nothing to say.
//
// No page is made for it: its list is read, once, and its values as they were last synchronised.
class Summaries {
 public:
  explicit Summaries(preferences::Environment& environment) : environment_(environment) {}

  std::string of(const preferences::PSSpecifier& link);

 private:
  using Rows = std::vector<std::shared_ptr<preferences::PSSpecifier>>;

  const Rows& rowsOf(std::string_view pageClass);
  std::string changesIn(const Rows& rows);
  plist::Value valueOf(const preferences::PSSpecifier& row) const;

  preferences::Environment& environment_;
  std::map<std::string, Rows, std::less<>> rows_;  // that hold a value, by the class of the page
};

}  // namespace host
