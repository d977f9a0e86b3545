#pragma once

#include <qqmlintegration.h>
#include <QObject>
#include <QVariant>
#include <vector>

#include "host/settings.h"

namespace window {

class Tools;

// A setting that differs from its default, as QML draws it.
struct ChangedSetting {
  Q_GADGET
  QML_VALUE_TYPE(changedSetting)
  Q_PROPERTY(QString key MEMBER key)
  Q_PROPERTY(QString page MEMBER page)
  Q_PROPERTY(QString pageClass MEMBER pageClass)
  Q_PROPERTY(QString label MEMBER label)
  Q_PROPERTY(QString shown MEMBER shown)
  Q_PROPERTY(QString standard MEMBER standard)
  Q_PROPERTY(bool resettable MEMBER resettable)
  Q_PROPERTY(bool first MEMBER first)
  Q_PROPERTY(bool last MEMBER last)

 public:
  QString key;  // its page's class and its row's ID
  QString page, pageClass, label;
  QString shown, standard;           // its value and its default, human-readable
  bool resettable = false;           // it has a default
  bool first = false, last = false;  // of its page

  bool operator==(const ChangedSetting&) const = default;
};

// The settings that differ from their defaults, of a page or of all, in the order of the pages, and
// their reset.
class ChangesTool : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to the tools")
  Q_PROPERTY(QVariantList settings READ settings NOTIFY changed)  // of ChangedSetting
  Q_PROPERTY(int resettable READ resettable NOTIFY changed)       // how many a reset changes
  Q_PROPERTY(bool failed MEMBER failed_ NOTIFY changed)           // they can't be read
  Q_PROPERTY(QString page READ page NOTIFY changed)               // its title; empty: of all pages

 public:
  explicit ChangesTool(Tools& tools);

  QVariantList settings() const;
  int resettable() const;
  QString page() const { return page_; }

  // Looks for them; an empty class: on all pages.
  Q_INVOKABLE void look(const QString& pageClass);
  // Gives those their defaults that were found, through the setters of their pages. It is one step
  // of the history.
  Q_INVOKABLE void reset();
  Q_INVOKABLE void open(int setting);  // shows its row

  void resetRow(const QString& key);

 signals:
  void changed();

 private:
  void reset(const host::Settings::Scope& scope, const QString& what);

  Tools& tools_;
  QString pageClass_, page_;
  std::vector<host::SettingView> found_;
  bool failed_ = false;
};

}  // namespace window
