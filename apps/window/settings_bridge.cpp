#include "apps/window/settings_bridge.h"

#include <algorithm>
#include <utility>

#include "apps/window/tools.h"
#include "host/describe.h"
#include "host/notices.h"

namespace window {
namespace {

// How many of the models, from the first on, stand for the same pages or alerts as the views.
template <class Model, class View>
qsizetype sameIn(const QList<Model*>& models, const std::vector<View>& views) {
  qsizetype same = 0;
  while (same < models.size() && same < std::ssize(views) &&
         models[same]->number() == views[same].number)
    ++same;
  return same;
}

}  // namespace

SettingsBridge::SettingsBridge(host::Application& application)
    : application_(application),
      recovery_(this, application),
      undo_(*this, application),
      summaries_(application.environment()) {
  application_.setObserver([this] { refresh(); });
  refresh();
}

SettingsBridge::~SettingsBridge() {
  application_.setObserver({});
}

// What is shown makes the views perform requests of their own, which change the scene.
void SettingsBridge::refresh() {
  outdated_ = true;
  if (std::exchange(refreshing_, true)) return;
  while (std::exchange(outdated_, false)) show(host::describe(application_));
  refreshing_ = false;
}

void SettingsBridge::show(const host::Scene& scene) {
  recovery_.refresh(scene.damage);
  showPages(scene.pages);
  showAlerts(scene.alerts);
  if (scene.problems == problems_) return;
  problems_ = scene.problems;
  emit problemsChanged();
}

void SettingsBridge::showPages(const std::vector<host::PageView>& views) {
  const qsizetype kept = sameIn(pages_, views);
  const auto gone = pages_.mid(kept);
  pages_.resize(kept);
  while (pages_.size() < std::ssize(views))
    pages_.append(new PageModel(*this, views[pages_.size()].number));
  QString backTitle;
  for (qsizetype i = 0; i < pages_.size(); ++i) {
    pages_[i]->refresh(views[i], backTitle, i == pages_.size() - 1);
    backTitle = pages_[i]->title();
  }
  if (!pages_.isEmpty()) sayWhatIsRead();
  for (PageModel* page : gone) page->leave();
  if (!quiet_) summarise();
  opened_ = openedRow();
  if (gone.isEmpty() && kept == pages_.size()) return;
  emit shownChanged();
  const auto added = pages_.mid(kept);
  if (!gone.isEmpty()) emit popped(kept > 0 ? pages_[kept - 1] : nullptr);
  for (PageModel* page : added) emit pushed(page);
}

void SettingsBridge::showAlerts(const std::vector<host::AlertView>& views) {
  const qsizetype kept = sameIn(alerts_, views);
  const auto gone = alerts_.mid(kept);
  alerts_.resize(kept);
  for (qsizetype i = 0; i < kept; ++i) alerts_[i]->refresh(views[i]);
  for (qsizetype i = kept; i < std::ssize(views); ++i)
    alerts_.append(new AlertModel(*this, views[i]));
  for (AlertModel* alert : gone) alert->leave();
  for (AlertModel* alert : alerts_.mid(kept)) emit alertShown(alert);
  if (!gone.isEmpty() || alerts_.size() > kept) emit alertChanged();
}

void SettingsBridge::setTools(Tools* tools) {
  tools_ = tools;
  emit toolsChanged();
}

void SettingsBridge::announce() {
  for (PageModel* page : pages_) emit pushed(page);
  for (AlertModel* alert : alerts_) emit alertShown(alert);
}

bool SettingsBridge::perform(const host::Request& request, const QString& badValue) {
  // Nothing else differs while a row is scrolled to or a slider is held.
  const auto* set = std::get_if<host::Set>(&request);
  quiet_ = std::holds_alternative<host::Scroll>(request) || (set && set->held);
  const auto done = application_.perform(request);
  quiet_ = false;
  // Its own notice resizes the page.
  const bool isScroll = std::holds_alternative<host::Scroll>(request) ||
                        std::holds_alternative<host::Resize>(request);
  if (done && !isScroll) showRefusal({});
  if (done) return true;
  const bool ownWords = done.error().code == host::RefusalCode::BadValue && !badValue.isEmpty();
  showRefusal(ownWords ? badValue : toQString(done.error().message));
  return false;
}

void SettingsBridge::noteChange() {
  if (!std::exchange(announces_, true)) application_.report(host::changesNotAnnounced());
}

void SettingsBridge::showRefusal(const QString& refusal) {
  if (refusal == refusal_) return;
  refusal_ = refusal;
  emit problemsChanged();
}

QStringList SettingsBridge::problems() const {
  QStringList messages;
  for (const host::Problem& problem : problems_) messages << problemText(problem);
  if (!refusal_.isEmpty()) messages << refusal_;
  return messages;
}

void SettingsBridge::back() {
  if (pages_.size() > 1) perform(host::Back{});
}

PageModel* SettingsBridge::contents() const {
  if (pages_.isEmpty() || !pages_.first()->rows()) return nullptr;
  return pages_.first()->rows()->onlyLeads() ? pages_.first() : nullptr;
}

// Of the list that is shown, if one is.
void SettingsBridge::sayWhatIsRead() {
  const auto* row = application_.shownPage()->specifier();
  if (!row) return;
  const bool reading = lists_ && row->target && lists_->isReading(row->target->className(), *row);
  pages_.last()->setReading(reading ? toQString(host::readingWords(*row)) : QString());
  if (lists_ && row->target)
    pages_.last()->setNotice(toQString(lists_->noticeOf(row->target->className(), *row)));
  pages_.last()->setFilledBy(toQString(host::wayToFill(*row)));
}

void SettingsBridge::summarise() {
  auto* list =
      application_.pages().empty()
          ? nullptr
          : dynamic_cast<preferences::PSListController*>(application_.pages().front().get());
  if (!list || !contents()) return;
  QHash<QString, QString> summaries;
  if (recovery_.damaged()) return contents()->rows()->summarise(summaries);
  const auto wordsOf = [&](const preferences::PSSpecifier& row) -> std::string {
    if (!lists_) return summaries_.of(row);
    if (lists_->isReading(list->className(), row)) return "…";
    const bool unread = !lists_->noticeOf(list->className(), row).empty();
    return unread && row.values().empty() ? host::kCannotBeRead : summaries_.of(row);
  };
  for (const auto& row : list->specifiers())
    if (const std::string words = wordsOf(*row); !words.empty())
      summaries.insert(toQString(row->identifier()), toQString(words));
  contents()->rows()->summarise(summaries);
}

// A search opens a page by its class, as the row would that leads there.
int SettingsBridge::openedRow() const {
  const auto& pages = application_.pages();
  auto* list =
      pages.size() < 2 ? nullptr : dynamic_cast<preferences::PSListController*>(pages[0].get());
  if (!list) return -1;
  const auto& rows = list->specifiers();
  const auto tapped =
      std::ranges::find(rows, pages[1]->specifier(), [](const auto& row) { return row.get(); });
  const auto found =
      tapped != rows.end() ? tapped : std::ranges::find_if(rows, [&](const auto& row) {
        return row->textForKey("detail") == pages[1]->className();
      });
  return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

std::string SettingsBridge::openedId() const {
  if (opened_ < 0 || !contents()) return {};
  return pages_.first()->rows()->idOf(opened_);
}

void SettingsBridge::openFromContents(int row) {
  const int before = opened_;
  while (pages_.size() > 1 && application_.perform(host::Back{})) {
  }
  if (pages_.size() > 1) return;  // an alert covers it
  perform(host::Scroll{row});
  perform(host::Tap{row});
  if (pages_.size() == 1 && before >= 0 && alerts_.isEmpty()) perform(host::Tap{before});
}

void SettingsBridge::openSomething() {
  if (pages_.size() != 1 || !contents()) return;
  const int link = contents()->rows()->nextLink();
  if (link >= 0) openFromContents(link);
}

void SettingsBridge::activate() {
  application_.follow(host::Application::Lists::ReadAnew);
  perform(host::Activate{});
  // Other programs may have stored what cells show as they are laid out.
  perform(host::Layout{});
  if (tools_) emit tools_->storedChanged();
}

void SettingsBridge::dismiss(int problem) {
  if (problem < std::ssize(problems_))
    application_.dismiss(host::Problem(problems_[problem]));
  else
    showRefusal({});
}

}  // namespace window
