#pragma once

#include <qqmlintegration.h>
#include <QObject>
#include <functional>
#include <memory>

#include "apps/window/choice_model.h"
#include "apps/window/row_model.h"
#include "apps/window/swatch_model.h"
#include "host/settings_application.h"

namespace window {

// One page on the stack: what QML shows of it, and what the user does to it. Only the shown page
// can be operated; one that slides away keeps its looks and does nothing.
class PageModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to the application")
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(QString backTitle READ backTitle NOTIFY changed)
  Q_PROPERTY(QString error READ error NOTIFY errorChanged)  // why the page can't be shown
  Q_PROPERTY(window::RowModel* rows READ rows CONSTANT)     // null on another kind of page
  Q_PROPERTY(window::ChoiceModel* choices READ choices CONSTANT)
  Q_PROPERTY(window::SwatchModel* swatches READ swatches CONSTANT)
  Q_PROPERTY(QString barButton READ barButton NOTIFY changed)  // what the right one is called
  // The row that opened a page of colours, as it looks since the last choice.
  Q_PROPERTY(window::Row preview READ preview NOTIFY previewChanged)

 public:
  using Page = std::shared_ptr<preferences::PSViewController>;
  using Report = std::function<void(const QString& problem)>;

  PageModel(host::SettingsApplication& host, const Page& page, const PageModel* previous,
            Report report, QObject* parent);
  ~PageModel() override;

  QString title() const { return title_; }
  QString backTitle() const { return backTitle_; }
  QString error() const { return error_; }
  RowModel* rows() const { return rows_; }
  ChoiceModel* choices() const { return choices_; }
  SwatchModel* swatches() const { return swatches_; }
  QString barButton() const { return barButton_; }
  Row preview() const { return preview_; }

  bool shows(const Page& page) const { return page_.lock() == page; }
  void refresh();
  void leave();  // the page has gone from the stack

  // The screen shows `count` entries from `first` on.
  Q_INVOKABLE void show(int first, int count);
  Q_INVOKABLE void tap(int row);
  Q_INVOKABLE void setOn(int row, bool on);
  Q_INVOKABLE void setNumber(int row, double number);
  Q_INVOKABLE void setTypedNumber(int row, const QString& text);
  Q_INVOKABLE void setText(int row, const QString& text);
  Q_INVOKABLE void choose(int row, int choice);  // on a page of rows
  Q_INVOKABLE void select(int choice);           // on a page of choices or colours
  // Moves the slider of that tag on a page of colours; nothing is stored before it is let go.
  Q_INVOKABLE void drag(int tag, double value, bool release);
  Q_INVOKABLE void tapBarButton();
  // The view of a page that was left has gone from the screen.
  Q_INVOKABLE void viewGone();

 signals:
  void changed();
  void errorChanged();
  void previewChanged();
  void scrollWanted(int first);  // the view brings this entry to its top

 private:
  class Listener;

  void setError(const QString& error);
  bool isShown() const;
  void set(int row, const plist::Value& value);
  void listen(preferences::PSViewController& page);
  void refreshPreview();
  void refreshBar(const preferences::PSViewController& page);
  void tell(const host::Outcome<host::Done>& outcome);

  host::SettingsApplication& host_;
  std::weak_ptr<preferences::PSViewController> page_;
  const PageModel* previous_;
  Report report_;
  RowModel* rows_ = nullptr;
  ChoiceModel* choices_ = nullptr;
  SwatchModel* swatches_ = nullptr;
  QString title_, backTitle_, error_, barButton_;
  Row preview_;
  std::shared_ptr<Listener> listener_;
  int viewport_ = 0;
  bool left_ = false;
};

}  // namespace window
