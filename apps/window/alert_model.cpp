#include "apps/window/alert_model.h"

#include <algorithm>

#include "apps/window/settings_bridge.h"

namespace window {
namespace {

using host::ButtonRole;

// The last one that neither cancels nor destroys, else the last that doesn't cancel, else the only
// one.
int preferredOf(const std::vector<host::AlertButtonView>& buttons) {
  int found = buttons.size() == 1 ? 0 : -1;
  for (int i = 0; i < std::ssize(buttons); ++i) {
    const bool better = found < 0 || buttons[found].role == ButtonRole::Destructive ||
                        buttons[i].role == ButtonRole::Default;
    if (buttons[i].role != ButtonRole::Cancel && better) found = i;
  }
  return found;
}

QStringList choicesOf(const host::AlertView& view) {
  QStringList choices;
  if (view.picker)
    for (const std::string& title : view.picker->rows) choices << toQString(title);
  return choices;
}

bool beginsAWord(const QString& title, const QString& text) {
  for (qsizetype at = 0; (at = title.indexOf(text, at, Qt::CaseInsensitive)) >= 0; ++at)
    if (at == 0 || !title[at - 1].isLetterOrNumber()) return true;
  return false;
}

}  // namespace

AlertModel::AlertModel(SettingsBridge& bridge, const host::AlertView& view)
    : QObject(&bridge), bridge_(bridge), view_(view), choices_(choicesOf(view)) {
  const int preferred = sheet() ? -1 : preferredOf(view.buttons);
  for (const auto& [title, role] : view.buttons)
    buttons_ << QVariant::fromValue(AlertButton{toQString(title), role == ButtonRole::Cancel,
                                                role == ButtonRole::Destructive,
                                                buttons_.size() == preferred});
}

void AlertModel::refresh(const host::AlertView& view) {
  const host::AlertView before = std::exchange(view_, view);
  if (view.failures != before.failures) emit failuresChanged();
  if (view.picker == before.picker) return;
  if (const QStringList now = choicesOf(view); now != choices_) {
    choices_ = now;
    emit choicesChanged();
  }
  emit chosenChanged();
}

QString AlertModel::failures() const {
  QStringList texts;
  for (const host::Problem& problem : view_.failures) texts << problemText(problem);
  return texts.join("\n\n");
}

void AlertModel::leave() {
  left_ = true;
  emit left();
}

void AlertModel::viewGone() {
  if (left_) deleteLater();
}

bool AlertModel::isTopmost() const {
  return !left_ && bridge_.alert() == this;
}

int AlertModel::buttonWhere(bool AlertButton::*property) const {
  for (int i = 0; i < buttons_.size(); ++i)
    if (buttons_[i].value<AlertButton>().*property) return i;
  return -1;
}

int AlertModel::firstButton() const {
  const int harmless = buttonWhere(&AlertButton::cancels);
  return harmless >= 0 ? harmless : std::max(0, buttonWhere(&AlertButton::preferred));
}

void AlertModel::press(int button) {
  if (isTopmost()) bridge_.perform(host::Press{button});
}

void AlertModel::pressPreferred() {
  if (const int button = buttonWhere(&AlertButton::preferred); button >= 0) press(button);
}

void AlertModel::cancel() {
  const int button = buttonWhere(&AlertButton::cancels);
  if (button >= 0 || buttons_.size() == 1) press(std::max(button, 0));
}

void AlertModel::pick(int choice) {
  if (isTopmost() && choice != chosen() && choice >= 0) bridge_.perform(host::Pick{choice});
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

}  // namespace window
