#include "host/request_record.h"

namespace host {
namespace {

bool isTheUsers(const Request& request) {
  return !isOneOf<Scroll, Resize, Activate, Layout, Reload>(request);
}

// What it changes of what is stored, if anything, is a change of the user's.
bool mayChange(const Request& request) {
  return isOneOf<Back, Tap, Set, WayOut, Select, Drag, Bar, Press, Pick, Call>(request);
}

}  // namespace

void RequestRecord::record(Backups* backups) {
  if (backups_) backups_->endChange();
  backups_ = backups;
  held_.reset();
}

void RequestRecord::begin(const Request& request, const std::function<std::string()>& label) {
  if (!backups_ || !isTheUsers(request)) return;
  const auto* set = std::get_if<Set>(&request);
  // An undo in between has ended the change.
  if (set && held_ == set->row && backups_->isChanging()) return;
  backups_->endChange();
  if (mayChange(request)) backups_->beginChange("set " + label(), Backups::Label::Default);
}

void RequestRecord::end(const Request& request) {
  if (!backups_ || !isTheUsers(request)) return;
  const auto* set = std::get_if<Set>(&request);
  held_ = set && set->held ? std::optional(set->row) : std::nullopt;
  if (!held_) backups_->endChange();
}

}  // namespace host
