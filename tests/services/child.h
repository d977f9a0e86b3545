#pragma once

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <optional>
#include <string>
#include <vector>

// A program that runs beside the test, its output read line by line, its
// messages dropped, and killed with this object.
class Child {
 public:
  explicit Child(std::vector<std::string> command) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return;
    std::vector<char*> arguments;
    for (auto& argument : command) arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    id_ = fork();
    if (id_ == 0) {
      dup2(ends[1], STDOUT_FILENO);
      dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
      execvp(arguments[0], arguments.data());
      _exit(127);
    }
    close(ends[1]);
    output_ = ends[0];
  }
  ~Child() {
    end();
    close(output_);
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  void end() {
    if (id_ <= 0) return;
    kill(id_, SIGKILL);
    waitpid(id_, nullptr, 0);
    id_ = 0;
  }

  void stop() { kill(id_, SIGSTOP); }  // it runs no further, and stays
  void proceed() { kill(id_, SIGCONT); }

  int exitCode() {
    int status = 0;
    waitpid(id_, &status, 0);
    id_ = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  // The next line, or nothing at its end or when none comes for that long.
  std::optional<std::string> line(int milliseconds = 30'000) {
    for (;;) {
      if (const auto end = text_.find('\n'); end != text_.npos) {
        std::string first = text_.substr(0, end);
        text_.erase(0, end + 1);
        return first;
      }
      pollfd readable{output_, POLLIN, 0};
      char bytes[4096];
      if (poll(&readable, 1, milliseconds) <= 0) return std::nullopt;
      const ssize_t count = read(output_, bytes, sizeof bytes);
      if (count <= 0) return std::nullopt;
      text_.append(bytes, static_cast<std::size_t>(count));
    }
  }

 private:
  pid_t id_ = 0;
  int output_ = -1;
  std::string text_;
};
