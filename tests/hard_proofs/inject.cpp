// inject [--all] [--modes] [--at N ACTION] --below DIR --report FILE COMMAND [ARGUMENTS...]
//
// Runs COMMAND and counts its system calls on files below DIR, from 1; with --all every system call
// after the start of the program. Calls are compared by their names and descriptors, so those of
// the dynamic loader are not counted. At the N-th:
//
//   kill          it is killed before the call is made
//   error:E       the call fails with errno E, and nothing is done (but a close is)
//   forever:E:K   so does each following call of its kind; K times in all, 0 for no bound
//   short         a read or write does half of its bytes
//   short-forever so does each following one
//   look:PROGRAM  it is stopped at the call, PROGRAM runs, and it is let go on
//
// FILE gets a line for each counted call, its number and kind; "hit" when ACTION was done; with
// --modes a line "mode PATH OCTAL" for each entry below DIR that anyone but its owner could use
// after a call. Ends as COMMAND does; a signal S is 128 + S.
#include <fcntl.h>
#include <signal.h>
#include <sys/personality.h>
#include <sys/ptrace.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <set>
#include <string>

namespace {

enum class Names : char { None, First, AtFirst, AtBoth, Descriptor, Fifth };

struct Call {
  const char* name;
  Names names;  // which arguments say what file it is about
};

const std::map<long, Call> kFileCalls = {
    {SYS_open, {"open", Names::First}},
    {SYS_openat, {"openat", Names::AtFirst}},
    {SYS_openat2, {"openat2", Names::AtFirst}},
    {SYS_read, {"read", Names::Descriptor}},
    {SYS_pread64, {"pread64", Names::Descriptor}},
    {SYS_readv, {"readv", Names::Descriptor}},
    {SYS_write, {"write", Names::Descriptor}},
    {SYS_pwrite64, {"pwrite64", Names::Descriptor}},
    {SYS_writev, {"writev", Names::Descriptor}},
    {SYS_fsync, {"fsync", Names::Descriptor}},
    {SYS_fdatasync, {"fdatasync", Names::Descriptor}},
    {SYS_syncfs, {"syncfs", Names::Descriptor}},
    {SYS_ftruncate, {"ftruncate", Names::Descriptor}},
    {SYS_fallocate, {"fallocate", Names::Descriptor}},
    {SYS_flock, {"flock", Names::Descriptor}},
    {SYS_fcntl, {"fcntl", Names::Descriptor}},
    {SYS_fstat, {"fstat", Names::Descriptor}},
    {SYS_fchmod, {"fchmod", Names::Descriptor}},
    {SYS_fchdir, {"fchdir", Names::Descriptor}},
    {SYS_lseek, {"lseek", Names::Descriptor}},
    {SYS_getdents64, {"getdents64", Names::Descriptor}},
    {SYS_close, {"close", Names::Descriptor}},
    {SYS_fstatfs, {"fstatfs", Names::Descriptor}},
    {SYS_mmap, {"mmap", Names::Fifth}},
    {SYS_stat, {"stat", Names::First}},
    {SYS_lstat, {"lstat", Names::First}},
    {SYS_access, {"access", Names::First}},
    {SYS_mkdir, {"mkdir", Names::First}},
    {SYS_rmdir, {"rmdir", Names::First}},
    {SYS_rename, {"rename", Names::First}},
    {SYS_unlink, {"unlink", Names::First}},
    {SYS_readlink, {"readlink", Names::First}},
    {SYS_newfstatat, {"newfstatat", Names::AtFirst}},
    {SYS_statx, {"statx", Names::AtFirst}},
    {SYS_faccessat, {"faccessat", Names::AtFirst}},
    {SYS_faccessat2, {"faccessat2", Names::AtFirst}},
    {SYS_mkdirat, {"mkdirat", Names::AtFirst}},
    {SYS_unlinkat, {"unlinkat", Names::AtFirst}},
    {SYS_readlinkat, {"readlinkat", Names::AtFirst}},
    {SYS_fchmodat, {"fchmodat", Names::AtFirst}},
    {SYS_utimensat, {"utimensat", Names::AtFirst}},
    {SYS_renameat, {"renameat", Names::AtBoth}},
    {SYS_renameat2, {"renameat2", Names::AtBoth}},
    {SYS_linkat, {"linkat", Names::AtBoth}},
    {SYS_copy_file_range, {"copy_file_range", Names::Descriptor}},
};

const std::set<long> kTransfers = {SYS_read, SYS_pread64, SYS_write, SYS_pwrite64};

struct Options {
  std::string below, report, action, look;
  bool all = false, modes = false, forever = false, shorten = false;
  long at = 0, error = 0, times = 1;
};

std::string linkTarget(pid_t process, int descriptor) {
  const std::string link = "/proc/" + std::to_string(process) +
                           (descriptor == AT_FDCWD ? "/cwd" : "/fd/" + std::to_string(descriptor));
  char target[4096];
  const ssize_t length = readlink(link.c_str(), target, sizeof target);
  return length < 0 ? "" : std::string(target, static_cast<std::size_t>(length));
}

// Up to the end of its page at a time, since what follows may not be mapped.
std::string textAt(pid_t process, unsigned long address) {
  std::string text;
  while (address != 0 && text.size() < 4096) {
    char page[4096];
    const std::size_t length = 4096 - address % 4096;
    iovec local{page, length}, remote{reinterpret_cast<void*>(address), length};
    const ssize_t got = process_vm_readv(process, &local, 1, &remote, 1, 0);
    if (got <= 0) break;
    const std::size_t used = strnlen(page, static_cast<std::size_t>(got));
    text.append(page, used);
    if (used < static_cast<std::size_t>(got)) break;
    address += used;
  }
  return text;
}

class Tracer {
 public:
  explicit Tracer(Options options)
      : options_(std::move(options)), report_(fopen(options_.report.c_str(), "we")) {}

  int follow(pid_t first) {
    int status = 0;
    waitpid(first, &status, 0);
    ptrace(PTRACE_SETOPTIONS, first, 0,
           PTRACE_O_EXITKILL | PTRACE_O_TRACESYSGOOD | PTRACE_O_TRACECLONE | PTRACE_O_TRACEFORK |
               PTRACE_O_TRACEVFORK | PTRACE_O_TRACEEXEC);
    ptrace(PTRACE_SYSCALL, first, 0, 0);
    int result = 1;
    for (pid_t task = 0; (task = waitpid(-1, &status, __WALL)) > 0;) {
      if (WIFEXITED(status) || WIFSIGNALED(status)) {
        if (task == first)
          result = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        continue;
      }
      int signal = WSTOPSIG(status);
      if (signal == (SIGTRAP | 0x80))
        atCall(task);
      else if (signal == SIGTRAP && status >> 16 == PTRACE_EVENT_EXEC)
        started_ = true;
      const bool own = signal == (SIGTRAP | 0x80) || signal == SIGTRAP || signal == SIGSTOP;
      ptrace(PTRACE_SYSCALL, task, 0, own ? 0 : signal);
    }
    fclose(report_);
    return result;
  }

 private:
  void atCall(pid_t task) {
    __ptrace_syscall_info info{};
    ptrace(PTRACE_GET_SYSCALL_INFO, task, sizeof info, &info);
    if (info.op == PTRACE_SYSCALL_INFO_ENTRY && started_) {
      atEntry(task, static_cast<long>(info.entry.nr), info.entry.args);
    } else if (info.op == PTRACE_SYSCALL_INFO_EXIT) {
      if (const auto failing = failing_.find(task); failing != failing_.end()) {
        user_regs_struct registers{};
        ptrace(PTRACE_GETREGS, task, 0, &registers);
        registers.rax = static_cast<unsigned long long>(-failing->second);
        ptrace(PTRACE_SETREGS, task, 0, &registers);
        failing_.erase(failing);
      }
      if (options_.modes && started_) lookAtModes();
    }
  }

  void atEntry(pid_t task, long number, const decltype(__ptrace_syscall_info::entry.args)& args) {
    const bool below = isBelow(task, number, args);
    if (!options_.all && !below) return;
    ++count_;
    const auto known = kFileCalls.find(number);
    fprintf(report_, "%ld %s\n", count_,
            known != kFileCalls.end() ? known->second.name : std::to_string(number).c_str());
    if (options_.at == 0 || count_ < options_.at) return;
    if (count_ == options_.at)
      kind_ = number;
    else if (!options_.forever || number != kind_)
      return;
    act(task, number);
  }

  void act(pid_t task, long number) {
    if (options_.action == "look") {
      report("hit");
      if (system(options_.look.c_str()) != 0) report("look failed");
      return;
    }
    if (options_.action == "kill") {
      report("hit");
      kill(task, SIGKILL);
      return;
    }
    user_regs_struct registers{};
    ptrace(PTRACE_GETREGS, task, 0, &registers);
    if (options_.shorten) {
      if (!kTransfers.contains(number) || registers.rdx < 2) return;
      registers.rdx /= 2;
    } else {
      if (options_.times > 0 && done_ == options_.times) return;
      failing_[task] = options_.error;
      if (number != SYS_close) registers.orig_rax = static_cast<unsigned long long>(-1);
    }
    ++done_;
    ptrace(PTRACE_SETREGS, task, 0, &registers);
    report("hit");
  }

  bool isBelow(pid_t task, long number, const decltype(__ptrace_syscall_info::entry.args)& args) {
    const auto call = kFileCalls.find(number);
    if (call == kFileCalls.end()) return false;
    switch (call->second.names) {
      case Names::First:
        return below(task, AT_FDCWD, textAt(task, args[0]));
      case Names::AtFirst:
        return below(task, static_cast<int>(args[0]), textAt(task, args[1]));
      case Names::AtBoth:
        return below(task, static_cast<int>(args[0]), textAt(task, args[1])) ||
               below(task, static_cast<int>(args[2]), textAt(task, args[3]));
      case Names::Descriptor:
        return below(task, static_cast<int>(args[0]), "");
      case Names::Fifth:
        return static_cast<int>(args[4]) >= 0 && below(task, static_cast<int>(args[4]), "");
      case Names::None:
        break;
    }
    return false;
  }

  bool below(pid_t task, int folder, const std::string& name) {
    const std::string path = name.starts_with('/') ? name : linkTarget(task, folder);
    return path.starts_with(options_.below);
  }

  void lookAtModes() {
    std::error_code error;
    for (std::filesystem::recursive_directory_iterator at(options_.below, error), end; at != end;
         at.increment(error)) {
      struct stat entry {};
      if (lstat(at->path().c_str(), &entry) != 0 || S_ISLNK(entry.st_mode)) continue;
      const unsigned mode = entry.st_mode & 07777;
      if (mode == (S_ISDIR(entry.st_mode) ? 0700U : 0600U)) continue;
      if (seen_.insert(at->path()).second)
        fprintf(report_, "mode %s %o\n", at->path().c_str(), mode);
    }
  }

  void report(const char* text) {
    fprintf(report_, "%s\n", text);
    fflush(report_);
  }

  Options options_;
  FILE* report_;
  bool started_ = false;
  long count_ = 0, done_ = 0, kind_ = -1;
  std::map<pid_t, long> failing_;
  std::set<std::string> seen_;
};

void readAction(Options& options, const std::string& text) {
  const std::string rest = text.substr(std::min(text.find(':'), text.size() - 1) + 1);
  options.action = text.substr(0, text.find(':'));
  options.forever = options.action.ends_with("forever");
  options.shorten = options.action.starts_with("short");
  if (options.action == "look") {
    options.look = rest;
  } else if (options.action == "error" || options.action == "forever") {
    options.error = std::stol(rest);
    const std::size_t colon = rest.find(':');
    if (options.forever) options.times = colon == rest.npos ? 0 : std::stol(rest.substr(colon + 1));
  }
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  int at = 1;
  for (; at < argc && argv[at][0] == '-'; ++at) {
    const std::string option = argv[at];
    if (option == "--all") {
      options.all = true;
    } else if (option == "--modes") {
      options.modes = true;
    } else if (option == "--below" && at + 1 < argc) {
      options.below = argv[++at];
    } else if (option == "--report" && at + 1 < argc) {
      options.report = argv[++at];
    } else if (option == "--at" && at + 2 < argc) {
      options.at = atol(argv[at + 1]);
      readAction(options, argv[at + 2]);
      at += 2;
    }
  }
  if (at >= argc || options.below.empty() || options.report.empty()) {
    fprintf(stderr, "usage: the first lines of inject.cpp\n");
    return 125;
  }
  const pid_t child = fork();
  if (child == 0) {
    personality(ADDR_NO_RANDOMIZE);
    // Files of 10 MB take half the time in huge pages that are kept.
    setenv("GLIBC_TUNABLES",
           "glibc.malloc.hugetlb=1:glibc.malloc.mmap_threshold=33554432:glibc.malloc.trim_"
           "threshold=1000000000",
           1);
    ptrace(PTRACE_TRACEME, 0, 0, 0);
    raise(SIGSTOP);
    execv(argv[at], argv + at);
    _exit(127);
  }
  return Tracer(options).follow(child);
}
