#pragma once

#include <qqmlintegration.h>
#include <QObject>

#include "host/application.h"
#include "host/device.h"

namespace window {

// Settings that can't be read, and the two ways out.
class RecoveryModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to the application")
  Q_PROPERTY(bool damaged READ damaged NOTIFY changed)
  Q_PROPERTY(QString file READ file NOTIFY changed)  // on this machine
  Q_PROPERTY(QString snapshot READ snapshot NOTIFY
                 changed)  // when and before what it was taken; empty: none
  Q_PROPERTY(bool possible READ possible NOTIFY changed)  // to start anew

 public:
  RecoveryModel(QObject* parent, host::Application& application)
      : QObject(parent), application_(application) {}

  bool damaged() const { return damage_.has_value(); }
  QString file() const;
  QString snapshot() const { return snapshot_; }
  bool possible() const;

  void setDevice(host::Device* device);
  void refresh(const std::optional<host::Problem>& damage);

  Q_INVOKABLE void restoreLast();
  Q_INVOKABLE void startAnew();

 signals:
  void changed();

 private:
  void look();  // for the last snapshot
  template <class T>
  void end(const host::Attempt<T>& done);

  host::Application& application_;
  host::Device* device_ = nullptr;  // null: there is no way out
  std::optional<host::Problem> damage_;
  QString snapshot_;
};

}  // namespace window
