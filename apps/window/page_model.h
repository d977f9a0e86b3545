#pragma once

#include <qqmlintegration.h>
#include <QObject>

#include "apps/window/choice_model.h"
#include "apps/window/row_model.h"
#include "apps/window/swatch_model.h"
#include "apps/window/values.h"
#include "host/request.h"
#include "host/scene.h"

namespace window {

class SettingsBridge;
class Tools;

// One page on the stack: what QML shows of it, and what the user does to it. Only the shown page
// can be operated; one that slides away keeps its look and does nothing.
class PageModel : public QObject {
  Q_OBJECT
  Q_MOC_INCLUDE("apps/window/tools.h")
  QML_ELEMENT
  QML_UNCREATABLE("belongs to the application")
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(QString backTitle READ backTitle NOTIFY changed)
  Q_PROPERTY(QString barButton READ barButton NOTIFY changed)  // what the right one is called
  Q_PROPERTY(QString pageClass READ pageClass NOTIFY changed)
  Q_PROPERTY(window::Tools* tools READ tools NOTIFY toolsChanged)  // null: none
  Q_PROPERTY(int marked READ marked NOTIFY markedChanged)  // the row that was looked for; -1: none
  // What kind of page it is: one that can't be shown, with the reason, or one of three models.
  Q_PROPERTY(QString error READ error NOTIFY kindChanged)
  Q_PROPERTY(window::RowModel* rows READ rows NOTIFY kindChanged)
  Q_PROPERTY(window::ChoiceModel* choices READ choices NOTIFY kindChanged)
  Q_PROPERTY(window::SwatchModel* swatches READ swatches NOTIFY kindChanged)
  Q_PROPERTY(QString reading READ reading NOTIFY readingChanged)  // while its choices are read
  // What can't be read of its choices; may be empty.
  Q_PROPERTY(QString notice READ notice NOTIFY noticeChanged)
  // What would fill its choices where there are none; may be empty.
  Q_PROPERTY(QString filledBy READ filledBy CONSTANT)
  // The row that opened a page of colors, as it looks since the last choice.
  Q_PROPERTY(window::Row preview READ preview NOTIFY previewChanged)

 public:
  PageModel(SettingsBridge& bridge, std::uint64_t number);

  QString title() const { return toQString(view_.title); }
  QString backTitle() const { return backTitle_; }
  QString barButton() const { return view_.barButton ? tr("Compose") : QString(); }
  QString error() const { return toQString(view_.error); }
  RowModel* rows() const { return rows_; }
  ChoiceModel* choices() const { return choices_; }
  SwatchModel* swatches() const { return swatches_; }
  Row preview() const { return view_.opener ? Row(*view_.opener) : Row(); }

  QString pageClass() const { return toQString(view_.pageClass); }
  Tools* tools() const;
  int marked() const { return marked_; }
  void mark(int row);

  std::uint64_t number() const { return view_.number; }
  // Whether choosing one of its choices changes a setting.
  bool stores() const { return view_.stores; }
  // A page below the shown one has a title only.
  void refresh(const host::PageView& view, const QString& backTitle, bool shown);
  QString reading() const { return reading_; }
  QString notice() const { return notice_; }
  QString filledBy() const { return filledBy_; }
  void setReading(const QString& words);
  void setNotice(const QString& words);
  void setFilledBy(const QString& words) { filledBy_ = words; }
  void leave() { left_ = true; }  // the page has left the stack

  // The screen shows `count` entries from `first` on. Below an alert nothing comes of it before
  // that has gone.
  Q_INVOKABLE void show(int first, int count);
  Q_INVOKABLE void tap(int row);
  Q_INVOKABLE void takeWayOut(int row);  // turns the switch that dims it
  Q_INVOKABLE void setOn(int row, bool on);
  Q_INVOKABLE void setNumber(int row, double number, bool held = false);  // held: by a drag
  Q_INVOKABLE void release();                                     // ends the drag of a row's slider
  Q_INVOKABLE bool setTypedNumber(int row, const QString& text);  // false: not a number in range
  Q_INVOKABLE void setText(int row, const QString& text);
  Q_INVOKABLE void choose(int row, int choice);  // on a page of rows
  Q_INVOKABLE void select(int entry);            // on a page of choices or colors
  // Moves the slider of that tag on a page of colors; nothing is stored before its release.
  Q_INVOKABLE void drag(int tag, double value, bool release);
  Q_INVOKABLE void tapBarButton();
  // The view of a page that was left is destroyed.
  Q_INVOKABLE void viewGone();

 signals:
  void changed();
  void kindChanged();
  void previewChanged();
  void readingChanged();
  void noticeChanged();
  void scrollWanted(int first);  // the view brings this entry to its top
  void rowWanted(int row);       // the view brings this one on screen
  void toolsChanged();
  void markedChanged();

 private:
  bool isShown() const;
  bool perform(const host::Request& request, const QString& badValue = {});
  void bringOnScreen(int entry);  // of a table
  // On a row, which assistive technology may operate while it is off screen.
  bool performOn(int row, const host::Request& request, const QString& badValue = {});

  SettingsBridge& bridge_;
  host::PageView view_;
  QString backTitle_, filledBy_, reading_, notice_;
  RowModel* rows_ = nullptr;
  ChoiceModel* choices_ = nullptr;
  SwatchModel* swatches_ = nullptr;
  int marked_ = -1;
  int viewport_ = 0;
  int first_ = 0, count_ = 0;  // what the view shows
  bool left_ = false;
};

}  // namespace window
