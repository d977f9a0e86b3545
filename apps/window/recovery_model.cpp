#include "apps/window/recovery_model.h"

#include <QDateTime>
#include <QLocale>

#include "apps/window/values.h"
#include "host/recovery.h"
#include "host/snapshots.h"

namespace window {
namespace {

// Seconds since 2001.
QString timeText(const plist::Date& date) {
  const QDateTime reference(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC);
  const auto time = reference.addMSecs(static_cast<qint64>(date.seconds * 1000)).toLocalTime();
  return QLocale().toString(time, QLocale::ShortFormat);
}

}  // namespace

QString RecoveryModel::file() const {
  return damage_ ? toQString(damage_->file) : QString();
}

bool RecoveryModel::possible() const {
  return device_ && device_->backups() && device_->backups()->open();
}

void RecoveryModel::setDevice(host::Device* device) {
  device_ = device;
  look();
  emit changed();
}

void RecoveryModel::refresh(const std::optional<host::Problem>& damage) {
  if (damage == damage_) return;
  damage_ = damage;
  look();
  emit changed();
}

void RecoveryModel::look() {
  snapshot_.clear();
  if (!damage_ || !possible()) return;
  const auto last = host::Recovery(device_->environment(), *device_->backups()).lastGood();
  if (last && *last)
    snapshot_ = timeText((*last)->time) + ", " + toQString(host::beforeWords((*last)->before));
}

void RecoveryModel::restoreLast() {
  if (damaged() && possible())
    end(host::Recovery(device_->environment(), *device_->backups()).restoreLast());
}

void RecoveryModel::startAnew() {
  if (damaged() && possible())
    end(host::Recovery(device_->environment(), *device_->backups()).startAnew());
}

template <class T>
void RecoveryModel::end(const host::Attempt<T>& done) {
  if (!done) application_.report(done.error().problem);
  application_.follow();
  application_.buildVisibleRows();
}

}  // namespace window
