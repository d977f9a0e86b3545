#pragma once

#include "host/application.h"
#include "platform/foundation/folder_watch.h"

namespace host {

// Keeps what an application shows in step with what other processes store: settings, profiles,
// battery log. Whoever runs it waits for its descriptor; what is seen then is followed at most
// 20 ms later, by a task of the main queue, so that several changes at once cost one look. What the
// environment's own store has changed is shown already.
class Following {
 public:
  // Both have to outlive it. Reports once, as a warning, that not all is followed, also where that
  // is found later.
  Following(preferences::Environment& environment, Application& application);
  ~Following();
  Following(const Following&) = delete;
  Following& operator=(const Following&) = delete;

  int descriptor() const { return watch_.descriptor(); }  // -1: there is nothing to wait for
  bool look();  // it is readable; false where nothing was changed that is followed

 private:
  struct Task;
  void reportFailure();

  foundation::MainQueue& queue_;
  foundation::Preferences& preferences_;
  foundation::FolderWatch watch_;
  std::shared_ptr<Task> task_;
  bool reported_ = false;
};

}  // namespace host
