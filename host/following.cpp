#include "host/following.h"

#include <cerrno>
#include <utility>

#include "prefs/core/names.h"

namespace host {
namespace {

constexpr std::chrono::milliseconds kGathering{20};
constexpr char kAtLimit[] = "the system follows no more folders for this user";

std::string folderOf(const std::string& path) {
  return path.substr(0, path.rfind('/'));
}

}  // namespace

// What the main queue holds may be due after the end of the following.
struct Following::Task {
  Application* application = nullptr;  // null: it has ended
  bool waiting = false;
  Application::Lists lists = Application::Lists::Keep;

  void run() {
    waiting = false;
    if (application) application->follow(std::exchange(lists, Application::Lists::Keep));
  }
};

Following::Following(preferences::Environment& environment, Application& application)
    : queue_(environment.mainQueue),
      preferences_(environment.preferences),
      watch_(environment.root,
             {folderOf(foundation::domainPath(prefs::kDomain)), std::string(prefs::kDocuments)}),
      task_(std::make_shared<Task>(Task{.application = &application})) {
  static_cast<void>(preferences_.changedByOthers(prefs::kDomain));
  application.follow();
  reportFailure();
}

Following::~Following() {
  task_->application = nullptr;
}

void Following::reportFailure() {
  if (!watch_.failure() || std::exchange(reported_, true)) return;
  const int code = watch_.failure()->code;
  const bool atLimit = code == ENOSPC || code == EMFILE;
  task_->application->report({.source = Source::Settings,
                              .severity = Severity::Warning,
                              .words = "what other programs change isn't followed: " +
                                       (atLimit ? kAtLimit : watch_.failure()->message())});
}

bool Following::look() {
  const auto changed = watch_.takeChanges();
  reportFailure();
  if (changed.empty()) return false;
  const bool documents = changed.contains(std::string(prefs::kDocuments));
  if (!preferences_.changedByOthers(prefs::kDomain) && !documents) return false;
  if (documents) task_->lists = Application::Lists::ReadAnew;
  if (!std::exchange(task_->waiting, true))
    queue_.after(kGathering, [task = task_] { task->run(); });
  return true;
}

}  // namespace host
