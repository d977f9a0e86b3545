#pragma once

#include <qqmlintegration.h>
#include <QObject>
#include <QQuickItem>
#include <QVariant>
#include <optional>
#include <string>

#include "apps/window/changes_tool.h"
#include "apps/window/profiles_tool.h"
#include "apps/window/search_tool.h"
#include "host/application.h"
#include "host/device.h"
#include "host/profiles.h"
#include "host/unseen_settings.h"

namespace window {

class PageModel;
class SettingsBridge;

// What the window offers beside the pages: search, what differs from the defaults, profiles. What
// they need is made when it is first used. What goes wrong is reported as the pages' problems are.
class Tools : public QObject {
  Q_OBJECT
  Q_MOC_INCLUDE("apps/window/page_model.h")
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(window::SearchTool* search READ search CONSTANT)
  Q_PROPERTY(window::ChangesTool* changes READ changes CONSTANT)
  Q_PROPERTY(window::ProfilesTool* profiles READ profiles CONSTANT)

 public:
  Tools(SettingsBridge& bridge, host::Application& application, host::Device& device);

  SearchTool* search() { return &search_; }
  ChangesTool* changes() { return &changes_; }
  ProfilesTool* profiles() { return &profiles_; }

  host::Settings& settings();
  host::Profiles savedProfiles() { return host::Profiles(device_.environment()); }
  // Those that can't be read are one problem until they can be.
  host::Attempt<std::vector<host::SavedProfile>> listProfiles();
  void report(const host::Failure& failure);

  // Shows that page, and marks the row of that id if it is not empty.
  host::Outcome<host::Done> show(const std::string& pageClass, const std::string& row);
  void open(const std::string& pageClass, const std::string& row);  // reports what refuses it

  // Makes a change of settings or profiles, which is one step of the history, and shows it.
  enum class Keeps { Nothing, Snapshot };  // before it changes the settings
  template <class Change>
  bool change(const std::string& what, const Change& change, Keeps keeps = Keeps::Nothing) {
    const auto done = [&] {
      const host::UserChange step(device_.backups(), what, host::Backups::Label::Fixed,
                                  keeps == Keeps::Snapshot ? what : std::string());
      return change();
    }();
    // A profile that is there already leads to a question.
    if (!done && done.error().reason != host::Failure::Exists) report(done.error());
    showStored();
    return static_cast<bool>(done);
  }

  Q_INVOKABLE void resetRow(const QString& key) { changes_.resetRow(key); }
  Q_INVOKABLE void copy(const QString& text);  // to the clipboard

 signals:
  void pageOpened();     // the views are done with
  void storedChanged();  // what they show may be out of date
  // A view of them is to be shown.
  void searchWanted(const QString& words);
  void changesWanted(const QString& pageClass);  // empty: of all pages
  void profilesWanted();
  void profileWanted(const QString& path);
  void importWanted();
  // A menu of { text, usable, act } at an item; a question, as AskPopup has it.
  void menuWanted(const QVariant& entries, QQuickItem* at);
  void questionAsked(const QVariant& question);
  void rowMenuWanted(window::PageModel* page, int row, QQuickItem* at);
  void pageMenuWanted(window::PageModel* page, QQuickItem* at);

 private:
  void showStored();
  void lookAgain();  // whether a problem has gone

  SettingsBridge& bridge_;
  host::Application& application_;
  host::Device& device_;
  std::unique_ptr<host::UnseenSettings> settings_;
  std::optional<host::Problem> unreadable_;  // of profiles
  SearchTool search_{*this};
  ChangesTool changes_{*this};
  ProfilesTool profiles_{*this};
};

}  // namespace window
