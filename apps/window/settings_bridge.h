#pragma once

#include <QList>
#include <QObject>
#include <QStringList>

#include "apps/window/alert_model.h"
#include "apps/window/page_model.h"
#include "apps/window/recovery_model.h"
#include "apps/window/undo_model.h"
#include "host/application.h"
#include "host/list_reader.h"
#include "host/summaries.h"

namespace window {

// The Settings application as QML sees it: its stack of pages, the alerts over them, and the
// problems to report. It shows what describe() yields; all that the user does is one request.
class SettingsBridge : public QObject {
  Q_OBJECT
  Q_MOC_INCLUDE("apps/window/tools.h")
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(window::PageModel* shown READ shown NOTIFY shownChanged)
  Q_PROPERTY(window::AlertModel* alert READ alert NOTIFY alertChanged)  // the topmost
  Q_PROPERTY(window::RecoveryModel* recovery READ recovery CONSTANT)
  Q_PROPERTY(window::UndoModel* undo READ undo CONSTANT)
  // The first page where it only leads to others, so that it can stand beside them; else null.
  Q_PROPERTY(window::PageModel* contents READ contents NOTIFY shownChanged)
  Q_PROPERTY(int opened READ opened NOTIFY shownChanged)  // its row that leads here; -1: none
  Q_PROPERTY(window::Tools* tools READ tools NOTIFY toolsChanged)  // null: none
  Q_PROPERTY(QStringList problems READ problems NOTIFY problemsChanged)

 public:
  // Observes the application from now on.
  explicit SettingsBridge(host::Application& application);
  ~SettingsBridge() override;

  PageModel* shown() const { return pages_.isEmpty() ? nullptr : pages_.last(); }
  AlertModel* alert() const { return alerts_.isEmpty() ? nullptr : alerts_.last(); }
  RecoveryModel* recovery() { return &recovery_; }
  UndoModel* undo() { return &undo_; }
  PageModel* contents() const;
  int opened() const { return opened_; }
  std::string openedId() const;
  Tools* tools() const { return tools_; }
  void setTools(Tools* tools);
  QStringList problems() const;

  void setLists(const host::ListReader* lists) { lists_ = lists; }

  void setAnnounces(bool announces) { announces_ = announces; }  // changes, on the session bus
  void noteChange();  // something was changed: where it isn't announced, the first time says so

  void refresh();  // something on screen may have changed
  // A refusal is a problem until something else is done; in these words where the value can't be
  // taken.
  bool perform(const host::Request& request, const QString& badValue = {});

  Q_INVOKABLE void announce();  // emits the pages and alerts that are there already
  Q_INVOKABLE void back();
  // Goes back to the first page and taps a row of it, as the user would one after the other. After
  // a row that leads nowhere the page is opened again that was open.
  Q_INVOKABLE void openFromContents(int row);
  Q_INVOKABLE void openSomething();  // the first link, where the first page is shown
  void activate();  // shows what is stored now, as when the application comes to the foreground
  Q_INVOKABLE void dismiss(int problem);

 signals:
  void pushed(window::PageModel* page);
  void popped(window::PageModel* shown);  // back to this page
  void shownChanged();
  void alertShown(window::AlertModel* alert);
  void alertChanged();
  void problemsChanged();
  void toolsChanged();

 private:
  void show(const host::Scene& scene);
  void showPages(const std::vector<host::PageView>& views);
  void showAlerts(const std::vector<host::AlertView>& views);
  void sayWhatIsRead();
  void summarise();
  int openedRow() const;
  void showRefusal(const QString& refusal);

  host::Application& application_;
  RecoveryModel recovery_;
  UndoModel undo_;
  Tools* tools_ = nullptr;
  QList<PageModel*> pages_;
  QList<AlertModel*> alerts_;
  std::vector<host::Problem> problems_;
  QString refusal_;
  host::Summaries summaries_;
  const host::ListReader* lists_ = nullptr;  // null: none
  int opened_ = -1;
  bool announces_ = true;  // or it is reported already that they aren't
  bool refreshing_ = false, outdated_ = false;
  bool quiet_ = false;  // what runs leaves the summaries as they are
};

}  // namespace window
