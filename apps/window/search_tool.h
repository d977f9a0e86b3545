#pragma once

#include <qqmlintegration.h>
#include <QObject>
#include <QVariant>
#include <optional>
#include <vector>

#include "host/search.h"

namespace window {

class Tools;

// Something that was found, as QML draws it.
struct SearchResult {
  Q_GADGET
  QML_VALUE_TYPE(searchResult)
  Q_PROPERTY(QString label MEMBER label)
  Q_PROPERTY(QString where MEMBER where)

 public:
  QString label, where;
};

// The search over all pages: results as the user types, the best first. What can be found is
// collected when the first word is typed, and forgotten at the end.
class SearchTool : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to the tools")
  Q_PROPERTY(QString words READ words WRITE setWords NOTIFY changed)
  Q_PROPERTY(QVariantList results READ results NOTIFY changed)  // of SearchResult, the best 60

 public:
  explicit SearchTool(Tools& tools);

  QString words() const { return words_; }
  void setWords(const QString& words);
  QVariantList results() const;

  // Shows where it is: the row on its page, or a view of the profile.
  Q_INVOKABLE void open(int result);
  Q_INVOKABLE void end();

 signals:
  void changed();

 private:
  void collect();

  Tools& tools_;
  QString words_;
  std::optional<host::SearchIndex> index_;
  std::vector<host::SearchHit> hits_;
};

}  // namespace window
