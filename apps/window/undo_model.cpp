#include "apps/window/undo_model.h"

#include <algorithm>

#include "apps/window/settings_bridge.h"
#include "apps/window/values.h"
#include "host/setting_lookup.h"

namespace window {
namespace {

// A change of one row is seen where it is made.
bool isLarge(const std::string& what) {
  constexpr std::string_view kVerbs[] = {"load", "save", "delete", "reset", "import", "restore"};
  const std::string_view verb = std::string_view(what).substr(0, what.find(' '));
  return std::ranges::find(kVerbs, verb) != std::end(kVerbs);
}

QString asSentence(QString text) {
  if (!text.isEmpty()) text[0] = text[0].toUpper();
  return text + '.';
}

QString whatOf(const host::History::Latest& step) {
  return step && *step ? toQString((*step)->change.what) : QString();
}

// A setting by its row's label, a profile by its file's name.
QString nameOf(const preferences::Bundle& bundle, const std::string& left) {
  if (left.starts_with('/')) return toQString(left).section('/', -1);
  const auto setting = host::findSetting(bundle, left);
  const std::string_view label = setting ? setting->text("label") : std::string_view();
  return toQString(label.empty() ? std::string_view(left) : label);
}

}  // namespace

UndoModel::UndoModel(SettingsBridge& bridge, host::Application& application)
    : QObject(&bridge), bridge_(bridge), application_(application) {}

void UndoModel::setDevice(host::Device* device) {
  if (device_ && device_->backups()) device_->backups()->setStepHandler({});
  device_ = device;
  if (device_ && device_->backups())
    device_->backups()->setStepHandler([this](const std::string& what) { changeMade(what); });
}

// Of what has failed in part nothing is said to be done.
void UndoModel::changeMade(const std::string& what) {
  if (isLarge(what) && application_.latestProblems().empty())
    say(asSentence(toQString(host::asDone(what))), Offer::Undo);
  else
    forget();
  bridge_.noteChange();
}

void UndoModel::say(const QString& text, Offer offer) {
  text_ = text;
  offer_ = offer;
  emit changed();
}

void UndoModel::forget() {
  if (!text_.isEmpty()) say({}, Offer::Nothing);
}

void UndoModel::undo() {
  take(host::undo, tr("Undone: %1."), Offer::Redo);
}

void UndoModel::redo() {
  take(host::redo, tr("Done again: %1."), Offer::Undo);
}

QString UndoModel::nextUndo() const {
  if (!device_ || !device_->backups()) return {};
  return whatOf(host::nextUndo(device_->environment(), *device_->backups()));
}

QString UndoModel::nextRedo() const {
  if (!device_ || !device_->backups()) return {};
  return whatOf(host::nextRedo(device_->environment(), *device_->backups()));
}

void UndoModel::take(Step* step, const QString& done, Offer opposite) {
  if (!device_ || !device_->backups()) return;
  forget();
  const auto undone = step(device_->environment(), *device_->backups());
  bridge_.activate();
  if (!undone && undone.error().reason == host::Failure::NotFound)
    return say(asSentence(toQString(undone.error().problem.words)), Offer::Nothing);
  if (!undone) return application_.report(undone.error().problem);
  QStringList left;
  for (const std::string& each : undone->left) left << nameOf(device_->environment().bundle, each);
  QString text = undone->done ? done.arg(toQString(undone->what)) : tr("Nothing was done.");
  if (!left.isEmpty())
    text += ' ' + tr("Left as it is, since it was changed after that: %1.").arg(left.join(", "));
  say(text, undone->done ? opposite : Offer::Nothing);
}

}  // namespace window
