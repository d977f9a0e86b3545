#include "apps/window/alert_model.h"

#include <algorithm>

#include "apps/window/text.h"
#include "platform/uikit/alert_controller.h"

namespace window {
namespace {

// The last one that neither cancels nor destroys, else the last that doesn't cancel, else the only
// one.
int preferredOf(const std::vector<uikit::AlertButton>& buttons) {
  int found = buttons.size() == 1 ? 0 : -1;
  for (int i = 0; i < std::ssize(buttons); ++i) {
    bool better = found < 0 || buttons[found].role == uikit::ButtonRole::Destructive ||
                  buttons[i].role == uikit::ButtonRole::Default;
    if (buttons[i].role != uikit::ButtonRole::Cancel && better) found = i;
  }
  return found;
}

bool beginsAWord(const QString& title, const QString& text) {
  for (qsizetype at = 0; (at = title.indexOf(text, at, Qt::CaseInsensitive)) >= 0; ++at)
    if (at == 0 || !title[at - 1].isLetterOrNumber()) return true;
  return false;
}

}  // namespace

AlertModel::AlertModel(host::SettingsApplication& host, std::shared_ptr<uikit::Alert> alert,
                       Report report, QObject* parent)
    : QObject(parent), host_(host), alert_(std::move(alert)), report_(std::move(report)) {
  title_ = toQString(alert_->title);
  message_ = toQString(alert_->message);
  sheet_ = alert_->style() == uikit::AlertStyle::ActionSheet;
  const auto buttons = alert_->buttons();
  const int preferred = sheet_ ? -1 : preferredOf(buttons);
  for (const auto& [title, role] : buttons)
    buttons_ << QVariant::fromValue(AlertButton{toQString(title), role == uikit::ButtonRole::Cancel,
                                                role == uikit::ButtonRole::Destructive,
                                                buttons_.size() == preferred});
  if (uikit::PickerView* picker = alert_->picker()) {
    picks_ = true;
    for (const std::string& title : picker->titlesInComponent(0)) choices_ << toQString(title);
  }
  findAnchor();
  refresh();
}

void AlertModel::findAnchor() {
  auto* controller = dynamic_cast<uikit::AlertController*>(alert_.get());
  if (!controller) return;
  atBarButton_ = controller->popover.barButtonItem != nullptr;
  const auto view = controller->popover.sourceView.lock();
  preferences::PSListController* page = host_.shownList();
  if (!view || !page) return;
  const auto& rows = page->specifiers();
  const auto found = std::ranges::find(rows, view.get(), [](const auto& row) {
    return static_cast<uikit::View*>(row->cellObject());
  });
  if (found != rows.end()) anchorRow_ = static_cast<int>(found - rows.begin());
}

void AlertModel::refresh() {
  uikit::PickerView* picker = alert_ ? alert_->picker() : nullptr;
  const int now = picker ? picker->selectedRowInComponent(0) : -1;
  if (now == chosen_) return;
  chosen_ = now;
  emit chosenChanged();
}

void AlertModel::leave() {
  alert_.reset();
  emit left();
}

void AlertModel::viewGone() {
  if (!alert_) deleteLater();
}

bool AlertModel::isTopmost() const {
  const auto alerts = host_.alerts();
  return alert_ && !alerts.empty() && alerts.back() == alert_;
}

int AlertModel::buttonWhere(bool AlertButton::*property) const {
  for (int i = 0; i < buttons_.size(); ++i)
    if (buttons_[i].value<AlertButton>().*property) return i;
  return -1;
}

void AlertModel::press(int button) {
  if (isTopmost()) tell(host_.press(button));
}

void AlertModel::pressPreferred() {
  if (const int button = buttonWhere(&AlertButton::preferred); button >= 0) press(button);
}

void AlertModel::cancel() {
  const int button = buttonWhere(&AlertButton::cancels);
  if (button >= 0 || buttons_.size() == 1) press(std::max(button, 0));
}

void AlertModel::pick(int choice) {
  if (isTopmost() && choice != chosen_ && choice >= 0) tell(host_.pick(choice));
}

int AlertModel::find(const QString& text, int from) const {
  for (int passed = 1; passed <= choices_.size(); ++passed) {
    const int i = static_cast<int>((from + passed) % choices_.size());
    if (choices_[i].startsWith(text, Qt::CaseInsensitive)) return i;
  }
  for (int i = 0; i < choices_.size(); ++i)
    if (beginsAWord(choices_[i], text)) return i;
  return -1;
}

void AlertModel::tell(const host::Outcome<host::Done>& outcome) {
  if (!outcome) report_(toQString(outcome.error().message));
}

}  // namespace window
