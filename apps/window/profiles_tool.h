#pragma once

#include <qqmlintegration.h>
#include <QObject>
#include <QStringList>
#include <QUrl>
#include <QVariant>
#include <vector>

#include "apps/window/profile_tool.h"
#include "host/profiles.h"

namespace window {

class Tools;

// A saved profile in a list, as QML draws it.
struct ProfileEntry {
  Q_GADGET
  QML_VALUE_TYPE(profileEntry)
  Q_PROPERTY(QString title MEMBER title)
  Q_PROPERTY(QString description MEMBER description)
  Q_PROPERTY(QString path MEMBER path)
  Q_PROPERTY(bool active MEMBER active)

 public:
  QString title, description, path;
  bool active = true;

  bool operator==(const ProfileEntry&) const = default;
};

// The saved profiles, as they were when they were last looked for, and which of all triggers have
// one.
class ProfilesTool : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("belongs to the tools")
  Q_PROPERTY(QVariantList saved READ saved NOTIFY changed)  // of ProfileEntry
  Q_PROPERTY(QStringList triggers READ triggers CONSTANT)   // the titles of all
  Q_PROPERTY(int levels READ levels CONSTANT)  // how many of them, from the first on, are levels
  Q_PROPERTY(QStringList triggerPaths READ triggerPaths NOTIFY changed)  // empty without a profile
  Q_PROPERTY(bool failed MEMBER failed_ NOTIFY changed)                  // they can't be read
  Q_PROPERTY(window::ProfileTool* opened READ opened CONSTANT)

 public:
  explicit ProfilesTool(Tools& tools) : QObject(), tools_(tools) {}

  QVariantList saved() const;
  QStringList triggers() const;
  int levels() const;
  QStringList triggerPaths() const;
  ProfileTool* opened() { return &opened_; }

  Q_INVOKABLE void look();
  // Makes a profile of that file and shows it; asks first where it would replace one.
  Q_INVOKABLE void importFile(const QString& file, bool replace);
  // Of files on this machine; of several the first alone, which is reported.
  Q_INVOKABLE void importUrls(const QList<QUrl>& urls);
  Q_INVOKABLE QString suggestedFolder() const;  // where a user keeps files

 signals:
  void changed();
  void replaceWanted(const QString& file, const QString& title);

 private:
  Tools& tools_;
  std::vector<host::SavedProfile> saved_;
  bool failed_ = false;
  ProfileTool opened_{tools_};
};

}  // namespace window
