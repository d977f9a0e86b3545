#include "benchmarks/window/shown_process.h"

#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace bench {
namespace {

constexpr int kPatience = 20000;  // milliseconds

std::vector<char*> pointersTo(const std::vector<std::string>& words) {
  std::vector<char*> pointers;
  for (const std::string& word : words) pointers.push_back(const_cast<char*>(word.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

std::string folderOf(pid_t process) {
  return "/proc/" + std::to_string(process);
}

// The number behind a name in a file of /proc.
long numberIn(const std::string& file, const std::string& name) {
  std::ifstream in(file);
  for (std::string line; std::getline(in, line);)
    if (line.starts_with(name + ":")) return std::stol(line.substr(name.size() + 1));
  return 0;
}

[[noreturn]] void fail(const std::string& message) {
  std::fprintf(stderr, "%s\n", message.c_str());
  std::exit(1);
}

}  // namespace

ShownProcess::ShownProcess(const std::vector<std::string>& command,
                           std::vector<std::string> environment) {
  for (const char* each : {"QT_QPA_PLATFORM=offscreen", "QT_QUICK_BACKEND=software",
                           "QT_LOGGING_RULES=qt.scenegraph.time.renderloop.debug=true"})
    environment.push_back(each);
  int log[2];
  posix_spawn_file_actions_t actions;
  if (pipe(log) != 0 || posix_spawn_file_actions_init(&actions) != 0) fail("no pipe");
  posix_spawn_file_actions_adddup2(&actions, log[1], STDERR_FILENO);
  posix_spawn_file_actions_addclose(&actions, log[0]);
  posix_spawn_file_actions_addclose(&actions, log[1]);
  const auto started = std::chrono::steady_clock::now();
  if (posix_spawn(&process_, command[0].c_str(), &actions, nullptr, pointersTo(command).data(),
                  pointersTo(environment).data()) != 0)
    fail(command[0] + " can't be started");
  close(log[1]);
  awaitFrame(log[0]);
  frame_.milliseconds =
      std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - started).count();
  kill(process_, SIGSTOP);  // what it does after the frame isn't counted
  frame_.processor = processorTime();
  frame_.mebibytes =
      static_cast<double>(numberIn(folderOf(process_) + "/smaps_rollup", "Pss")) / 1024;
  kill(process_, SIGCONT);
  posix_spawn_file_actions_destroy(&actions);
}

ShownProcess::~ShownProcess() {
  kill(process_, SIGKILL);
  waitpid(process_, nullptr, 0);
}

// The pipe stays open: the process writes a line for each later frame too.
void ShownProcess::awaitFrame(int log) {
  std::string text;
  while (text.find("Frame rendered") == std::string::npos) {
    pollfd readable{log, POLLIN, 0};
    char buffer[4096];
    const ssize_t length =
        poll(&readable, 1, kPatience) == 1 ? read(log, buffer, sizeof buffer) : 0;
    if (length <= 0) fail("no frame was drawn:\n" + text);
    text.append(buffer, static_cast<std::size_t>(length));
  }
}

double ShownProcess::processorTime() const {
  double nanoseconds = 0;
  for (const auto& thread : std::filesystem::directory_iterator(folderOf(process_) + "/task")) {
    double running = 0;
    std::ifstream(thread.path() / "schedstat") >> running;
    nanoseconds += running;
  }
  return nanoseconds / 1e6;
}

long ShownProcess::wakeUps() const {
  long count = 0;
  for (const auto& thread : std::filesystem::directory_iterator(folderOf(process_) + "/task"))
    count += numberIn(thread.path() / "status", "voluntary_ctxt_switches");
  return count;
}

}  // namespace bench
