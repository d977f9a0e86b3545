#pragma once

#include <qqmlintegration.h>
#include <QObject>
#include <QVariant>
#include <string>

#include "host/profiles.h"
#include "host/seen_difference.h"

namespace window {

class Tools;

// A value of a profile, or what differs, as QML draws it.
struct ProfileValue {
  Q_GADGET
  QML_VALUE_TYPE(profileValue)
  Q_PROPERTY(QString label MEMBER label)
  Q_PROPERTY(QString from MEMBER from)
  Q_PROPERTY(QString to MEMBER to)

 public:
  QString label, from, to;

  bool operator==(const ProfileValue&) const = default;
};

// One profile that was opened: its values, what a load would change, and what can be done with it.
class ProfileTool : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to the tools")
  Q_PROPERTY(QString path READ path NOTIFY changed)
  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(QString description READ description NOTIFY changed)
  Q_PROPERTY(QVariantList values READ values NOTIFY changed)  // of ProfileValue, in `to`
  // Of ProfileValue: what a load would change, or what is another in the profile it is compared
  // with.
  Q_PROPERTY(QVariantList differences READ differences NOTIFY changed)
  Q_PROPERTY(bool failed MEMBER failed_ NOTIFY changed)  // it can't be compared
  Q_PROPERTY(int alike READ alike NOTIFY changed)  // values that would be stored and look the same
  Q_PROPERTY(QString other READ other NOTIFY changed)  // the title of that one; empty: the settings

 public:
  explicit ProfileTool(Tools& tools) : tools_(tools) {}

  QString path() const;
  QString title() const;
  QString description() const { return description_; }
  QVariantList values() const { return values_; }
  QVariantList differences() const { return differences_; }
  int alike() const { return alike_; }
  QString other() const;

  // False where it can't be read.
  Q_INVOKABLE bool open(const QString& path);
  Q_INVOKABLE void compareWith(const QString& path);  // empty: with the settings
  // What these do is one step of the history each. False where it failed, which is reported.
  Q_INVOKABLE bool load();
  Q_INVOKABLE bool remove();
  Q_INVOKABLE bool describe(const QString& description);
  // Reads it and what it is compared with again. False where it is gone, or can't be read, which is
  // reported.
  Q_INVOKABLE bool look();
  // As an XML property list; asks first where it would replace a file.
  Q_INVOKABLE bool exportTo(const QString& file, bool replace);

 signals:
  void changed();
  void exported(const QString& file);
  void replaceWanted(const QString& file);

 private:
  bool show(const host::Attempt<plist::Dictionary>& profile);
  void compare();

  Tools& tools_;
  host::Trigger trigger_, other_;
  QString description_;
  QVariantList values_, differences_;
  int alike_ = 0;
  bool failed_ = false;
};

}  // namespace window
