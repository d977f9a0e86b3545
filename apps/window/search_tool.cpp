#include "apps/window/search_tool.h"

#include <algorithm>

#include "apps/window/tools.h"
#include "apps/window/values.h"

namespace window {
namespace {

constexpr std::size_t kMostResults = 60;

}  // namespace

SearchTool::SearchTool(Tools& tools) : QObject(&tools), tools_(tools) {}

void SearchTool::collect() {
  const auto pages = tools_.settings().pages();
  if (!pages) return tools_.report(pages.error());
  const auto profiles = tools_.listProfiles();
  if (!profiles) tools_.report(profiles.error());
  index_.emplace(*pages, profiles ? *profiles : std::vector<host::SavedProfile>());
}

void SearchTool::setWords(const QString& words) {
  if (words == words_) return;
  words_ = words;
  if (!index_) collect();
  hits_ = index_ ? index_->find(words.toStdString()) : std::vector<host::SearchHit>();
  hits_.resize(std::min(hits_.size(), kMostResults));
  emit changed();
}

QVariantList SearchTool::results() const {
  QVariantList results;
  for (const host::SearchHit& hit : hits_)
    results << QVariant::fromValue(SearchResult{toQString(hit.label), toQString(hit.where)});
  return results;
}

void SearchTool::open(int result) {
  if (result < 0 || result >= std::ssize(hits_)) return;
  const host::SearchHit hit = hits_[result];
  if (host::isProfilePath(hit.id))
    emit tools_.profileWanted(toQString(hit.id));
  else
    tools_.open(hit.pageClass, hit.id);
}

void SearchTool::end() {
  words_.clear();
  hits_.clear();
  index_.reset();
  emit changed();
}

}  // namespace window
