#include "apps/window/page_model.h"

#include "apps/window/settings_bridge.h"
#include "apps/window/tools.h"

namespace window {

PageModel::PageModel(SettingsBridge& bridge, std::uint64_t number)
    : QObject(&bridge), bridge_(bridge) {
  view_.number = number;
  connect(&bridge, &SettingsBridge::toolsChanged, this, &PageModel::toolsChanged);
  connect(&bridge, &SettingsBridge::alertChanged, this, [this] { show(first_, count_); });
}

void PageModel::refresh(const host::PageView& view, const QString& backTitle, bool shown) {
  host::PageView before = view_;
  if (shown)
    view_ = view;
  else
    view_.title = view.title, view_.pageClass = view.pageClass;
  if (view_.title != before.title || view_.barButton != before.barButton ||
      backTitle != backTitle_) {
    backTitle_ = backTitle;
    emit changed();
  }
  if (!shown) return;
  const bool isNew = !rows_ && !choices_ && !swatches_;
  if (isNew && !view.isTable)
    rows_ = new RowModel(this);
  else if (isNew && view.choices)
    choices_ = new ChoiceModel(this);
  else if (isNew)
    swatches_ = new SwatchModel(this);
  if (rows_) rows_->refresh(view.rows);
  if (choices_) choices_->refresh(view.choices, view.chosen);
  if (swatches_) swatches_->refresh(view);
  if (isNew || view.error != before.error) emit kindChanged();
  if (view.opener != before.opener) emit previewChanged();
}

void PageModel::setReading(const QString& words) {
  if (words == reading_) return;
  reading_ = words;
  emit readingChanged();
}

void PageModel::setNotice(const QString& words) {
  if (words == notice_) return;
  notice_ = words;
  emit noticeChanged();
}

Tools* PageModel::tools() const {
  return bridge_.tools();
}

void PageModel::mark(int row) {
  // A mark that has faded is made anew.
  for (const int marked : {-1, row}) {
    marked_ = marked;
    emit markedChanged();
  }
  emit rowWanted(row);
}

bool PageModel::isShown() const {
  return !left_ && bridge_.shown() == this;
}

bool PageModel::perform(const host::Request& request, const QString& badValue) {
  return isShown() && bridge_.perform(request, badValue);
}

bool PageModel::performOn(int row, const host::Request& request, const QString& badValue) {
  if (row < 0 || row >= std::ssize(view_.rows)) return false;
  if (!view_.rows[row].built) emit rowWanted(row);
  return perform(request, badValue);
}

void PageModel::show(int first, int count) {
  first_ = first;
  count_ = count;
  if (!isShown() || count < 1 || bridge_.alert()) return;
  const bool resized = count != viewport_;
  const bool scrolled = first != view_.firstShown || (viewport_ != 0 && resized);
  viewport_ = count;
  if (scrolled)
    perform(host::Scroll{first, count});
  else if (resized)
    perform(host::Resize{count});
}

void PageModel::tap(int row) {
  performOn(row, host::Tap{row});
}

void PageModel::takeWayOut(int row) {
  perform(host::WayOut{row});
}

void PageModel::setOn(int row, bool on) {
  performOn(row, host::Set{row, on});
}

void PageModel::setNumber(int row, double number, bool held) {
  performOn(row, host::Set{row, number, held});
}

void PageModel::release() {
  perform(host::Release{});
}

bool PageModel::setTypedNumber(int row, const QString& text) {
  if (row < 0 || row >= std::ssize(view_.rows)) return false;
  const Row slider(view_.rows[row]);
  bool isNumber = false;
  const double number = QString(text).replace(',', '.').toDouble(&isNumber);
  return performOn(
      row, host::Set{row, isNumber ? plist::Value(number) : plist::Value(text.toStdString())},
      tr("%1 takes a number from %2 to %3.")
          .arg(slider.label, Row::numberText(slider.minimum), Row::numberText(slider.maximum)));
}

void PageModel::setText(int row, const QString& text) {
  performOn(row, host::Set{row, text.toStdString()});
}

void PageModel::choose(int row, int choice) {
  if (row < 0 || row >= std::ssize(view_.rows)) return;
  const auto* segments = std::get_if<host::SegmentsView>(&view_.rows[row].control);
  if (!segments || choice < 0 || choice >= std::ssize(segments->choices->values)) return;
  performOn(row, host::Set{row, segments->choices->values[choice]});
}

// The view of a table of colors scrolls there and reports what it shows then.
void PageModel::bringOnScreen(int entry) {
  if (entry >= view_.firstShown && entry < view_.firstShown + viewport_) return;
  if (swatches_)
    emit rowWanted(entry);
  else
    perform(host::Scroll{entry});
}

void PageModel::select(int entry) {
  bringOnScreen(entry);
  int section = 0, index = entry;
  while (section < std::ssize(view_.sections) - 1 && index >= view_.sections[section].rows)
    index -= view_.sections[section++].rows;
  perform(host::Select{section, index});
}

void PageModel::drag(int tag, double value, bool release) {
  for (const auto& [entry, row] : view_.offScreen) {
    if (!row.panel) continue;
    bringOnScreen(entry);
    break;
  }
  perform(host::Drag{tag, value, release});
}

void PageModel::tapBarButton() {
  perform(host::Bar{});
}

void PageModel::viewGone() {
  if (left_) deleteLater();
}

}  // namespace window
