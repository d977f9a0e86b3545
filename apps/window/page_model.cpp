#include "apps/window/page_model.h"

#include <algorithm>

#include "apps/window/text.h"
#include "platform/preferences/PSListItemsController.h"
#include "prefs/colorpicker/ZorvekColorPickerQuorvantis.h"

namespace window {

using preferences::PSListController;
using preferences::PSListItemsController;
using prefs::ZorvekColorPickerQuorvantis;

// Hears of the colour that was chosen.
class PageModel::Listener : public foundation::Object {
 public:
  explicit Listener(PageModel& model) : model_(model) {}
  std::string_view className() const override { return "NSObject"; }
  void performForNotification(std::string_view, const foundation::Notification&) override {
    model_.refreshPreview();
  }

 private:
  PageModel& model_;
};

PageModel::PageModel(host::SettingsApplication& host, const Page& page, const PageModel* previous,
                     Report report, QObject* parent)
    : QObject(parent), host_(host), page_(page), previous_(previous), report_(std::move(report)) {
  if (dynamic_cast<PSListController*>(page.get())) rows_ = new RowModel(this);
  if (dynamic_cast<PSListItemsController*>(page.get())) choices_ = new ChoiceModel(this);
  if (dynamic_cast<ZorvekColorPickerQuorvantis*>(page.get())) swatches_ = new SwatchModel(this);
  listen(*page);
  refresh();
  refreshPreview();
}

PageModel::~PageModel() = default;

void PageModel::listen(preferences::PSViewController& page) {
  auto* picker = dynamic_cast<ZorvekColorPickerQuorvantis*>(&page);
  if (!picker || !picker->refreshPreviewNotificationKey) return;
  listener_ = std::make_shared<Listener>(*this);
  page.environment().defaultCenter.addObserver(
      *listener_, "colorChanged:", *picker->refreshPreviewNotificationKey, nullptr);
}

void PageModel::refreshPreview() {
  const auto page = page_.lock();
  if (!page || !swatches_ || !page->specifier()) return;
  const preferences::PSSpecifier& opener = *page->specifier();
  if (preferences::PSTableCell* cell = opener.cellObject()) cell->layoutSubviews();
  Row now = describe(opener);
  if (now == preview_) return;
  preview_ = std::move(now);
  emit previewChanged();
}

void PageModel::refresh() {
  auto page = page_.lock();
  if (!page) return;
  if (auto* list = dynamic_cast<PSListController*>(page.get())) {
    rows_->refresh(*list);
    setError(toQString(list->loadError()));
  }
  if (auto* items = dynamic_cast<PSListItemsController*>(page.get())) choices_->refresh(*items);
  if (swatches_ && page->table()) swatches_->refresh(*page->table());
  refreshBar(*page);
}

void PageModel::refreshBar(const preferences::PSViewController& page) {
  const QString title = toQString(page.title);
  const QString backTitle = previous_ ? previous_->title() : QString();
  const QString barButton = page.navigationItem.rightBarButtonItem ? tr("Compose") : QString();
  if (title == title_ && backTitle == backTitle_ && barButton == barButton_) return;
  title_ = title;
  backTitle_ = backTitle;
  barButton_ = barButton;
  emit changed();
}

void PageModel::setError(const QString& error) {
  if (error == error_) return;
  error_ = error;
  emit errorChanged();
}

bool PageModel::isShown() const {
  auto page = page_.lock();
  return page && page.get() == host_.shownPage();
}

void PageModel::show(int first, int count) {
  if (!isShown() || count < 1) return;
  const bool resized = count != viewport_;
  const bool scrolled = first != host_.firstShown() || (viewport_ != 0 && resized);
  viewport_ = count;
  if (scrolled)
    tell(host_.show(first, count));
  else if (resized)
    host_.setViewport(count);
}

void PageModel::tap(int row) {
  if (isShown()) tell(host_.tap(row));
}

void PageModel::setOn(int row, bool on) {
  set(row, on);
}

void PageModel::setNumber(int row, double number) {
  set(row, number);
}

void PageModel::setTypedNumber(int row, const QString& text) {
  bool isNumber = false;
  const double number = QString(text).replace(',', '.').toDouble(&isNumber);
  const auto specifier = host_.row(row);
  if (!isShown() || !specifier) return;
  const Row shown = describe(**specifier);
  const auto done =
      host_.set(row, isNumber ? plist::Value(number) : plist::Value(text.toStdString()));
  if (!done && done.error().code == host::RefusalCode::BadValue)
    report_(tr("%1 takes a number from %2 to %3.")
                .arg(shown.label, Row::numberText(shown.minimum), Row::numberText(shown.maximum)));
  else
    tell(done);
}

void PageModel::setText(int row, const QString& text) {
  set(row, text.toStdString());
}

void PageModel::choose(int row, int choice) {
  if (!isShown()) return;
  auto specifier = host_.row(row);
  if (!specifier || choice < 0 || choice >= static_cast<int>((*specifier)->values().size())) return;
  set(row, (*specifier)->values()[choice]);
}

void PageModel::select(int choice) {
  if (!isShown()) return;
  bool onScreen = choice >= host_.firstShown() && choice < host_.firstShown() + viewport_;
  if (!onScreen) (void)host_.scroll(choice);
  if (uikit::TableView* table = host_.shownTable(); table && choice < table->rowCount()) {
    const auto [section, row] = table->pathOfRow(choice);
    tell(host_.select(section, row));
  }
}

void PageModel::drag(int tag, double value, bool release) {
  if (isShown()) tell(host_.drag(tag, value, release));
}

void PageModel::tapBarButton() {
  if (isShown()) tell(host_.tapBarButton());
}

void PageModel::leave() {
  left_ = true;
  page_.reset();
}

void PageModel::viewGone() {
  if (left_) deleteLater();
}

void PageModel::set(int row, const plist::Value& value) {
  if (isShown()) tell(host_.set(row, value));
}

void PageModel::tell(const host::Outcome<host::Done>& outcome) {
  if (!outcome) report_(toQString(outcome.error().message));
}

}  // namespace window
