#include "host/following.h"

#include "prefs/core/names.h"

namespace host {
namespace {

constexpr std::chrono::milliseconds kGathering{20};

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
      watch_(environment.root,
             {folderOf(foundation::domainPath(prefs::kDomain)), std::string(prefs::kDocuments)}),
      task_(std::make_shared<Task>(Task{.application = &application})) {
  application.follow();
  if (!watch_.failure()) return;
  application.report(
      {.source = Source::Settings,
       .severity = Severity::Warning,
       .words = "what other programs change isn't followed: " + watch_.failure()->message()});
}

Following::~Following() {
  task_->application = nullptr;
}

void Following::look() {
  const auto changed = watch_.takeChanges();
  if (changed.empty()) return;
  if (changed.contains(std::string(prefs::kDocuments))) task_->lists = Application::Lists::ReadAnew;
  if (std::exchange(task_->waiting, true)) return;
  queue_.after(kGathering, [task = task_] { task->run(); });
}

}  // namespace host
