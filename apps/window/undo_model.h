#pragma once

#include <qqmlintegration.h>
#include <QObject>

#include "host/application.h"
#include "host/device.h"
#include "host/undo.h"

namespace window {

class SettingsBridge;

// What was done last and can be taken back, and what came of taking it back.
class UndoModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to the application")
  // A sentence to show until the next change; empty: none. After what changes many settings, or a
  // profile ("Loaded Battery 20%."), and after an undo or a redo.
  Q_PROPERTY(QString text READ text NOTIFY changed)
  Q_PROPERTY(bool undoes READ undoes NOTIFY changed)  // undo is what is offered beside it
  Q_PROPERTY(bool redoes READ redoes NOTIFY changed)  // redo is

 public:
  UndoModel(SettingsBridge& bridge, host::Application& application);
  ~UndoModel() override { setDevice(nullptr); }

  QString text() const { return text_; }
  bool undoes() const { return offer_ == Offer::Undo; }
  bool redoes() const { return offer_ == Offer::Redo; }

  void setDevice(host::Device* device);

  Q_INVOKABLE void undo();
  Q_INVOKABLE void redo();
  // What the two would be about now: "set Vibrate"; empty where there is nothing.
  Q_INVOKABLE QString nextUndo() const;
  Q_INVOKABLE QString nextRedo() const;
  Q_INVOKABLE void forget();  // the sentence

 signals:
  void changed();

 private:
  enum class Offer { Nothing, Undo, Redo };
  using Step = host::Attempt<host::Undone>(preferences::Environment&, host::Backups&);

  void say(const QString& text, Offer offer);
  void changeMade(const std::string& what);
  void take(Step* step, const QString& done, Offer opposite);

  SettingsBridge& bridge_;
  host::Application& application_;
  host::Device* device_ = nullptr;  // null: nothing can be taken back
  QString text_;
  Offer offer_ = Offer::Nothing;
};

}  // namespace window
