#pragma once

#include <QList>
#include <QObject>
#include <QStringList>

#include "apps/window/alert_model.h"
#include "apps/window/page_model.h"

namespace window {

// The Settings application as QML sees it: its stack of pages, the alerts over
// them, and what went wrong.
class SettingsBridge : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(window::PageModel* shown READ shown NOTIFY shownChanged)
  Q_PROPERTY(window::AlertModel* alert READ alert NOTIFY alertChanged)  // the topmost
  Q_PROPERTY(QStringList problems READ problems NOTIFY problemsChanged)

 public:
  // Observes the application from now on.
  explicit SettingsBridge(host::SettingsApplication& host, QObject* parent = nullptr);
  ~SettingsBridge() override;

  PageModel* shown() const { return pages_.isEmpty() ? nullptr : pages_.last(); }
  AlertModel* alert() const { return alerts_.isEmpty() ? nullptr : alerts_.last(); }
  QStringList problems() const { return problems_; }

  void refresh();                       // something on screen may have changed
  void report(const QString& problem);  // until the user dismisses it; once, however often told

  Q_INVOKABLE void announce();  // tells of the pages and alerts that are there already
  Q_INVOKABLE void back();
  Q_INVOKABLE void activate();
  Q_INVOKABLE void dismiss(int problem);

 signals:
  void pushed(window::PageModel* page);
  void popped(window::PageModel* shown);  // back to this page
  void shownChanged();
  void alertShown(window::AlertModel* alert);
  void alertChanged();
  void problemsChanged();

 private:
  void refuse(const QString& problem);  // until something else is done
  void dropLeftPages();
  void addNewPages();
  void refreshAlerts();

  host::SettingsApplication& host_;
  QList<PageModel*> pages_;
  QList<AlertModel*> alerts_;
  QStringList problems_;
  QString refused_;  // the one of them that is a refusal
};

}  // namespace window
