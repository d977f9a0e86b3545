// turns ROUNDS COMMAND... -- COMMAND...: runs the commands in turn, as often as said, beginning
// each round with another one. Prints a line for each run: which command it was (from 0),
// nanoseconds from its start to its end, minor page faults, and peak resident memory in KiB. Ends
// with 1 when a run fails.
//
// A child's memory is counted from what its parent held, so this program is static and small.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

namespace {

constexpr int kMost = 16;

long long now() {
  timespec time;
  clock_gettime(CLOCK_MONOTONIC, &time);
  return time.tv_sec * 1000000000LL + time.tv_nsec;
}

int run(int which, char** command) {
  int status;
  rusage usage;
  long long start = now();
  pid_t child = vfork();
  if (child == 0) {
    int quiet = open("/dev/null", O_RDWR);
    dup2(quiet, 0);
    dup2(quiet, 1);
    execv(command[0], command);
    _exit(127);
  }
  if (wait4(child, &status, 0, &usage) != child || status != 0) {
    fprintf(stderr, "turns: %s failed\n", command[0]);
    return 0;
  }
  printf("%d %lld %ld %ld\n", which, now() - start, usage.ru_minflt, usage.ru_maxrss);
  return 1;
}

}  // namespace

int main(int count, char** arguments) {
  char** commands[kMost];
  int many = 0;
  if (count < 3) return 2;
  commands[many++] = arguments + 2;
  for (int i = 2; i < count; i++) {
    if (strcmp(arguments[i], "--") != 0) continue;
    arguments[i] = nullptr;
    if (many == kMost) return 2;
    commands[many++] = arguments + i + 1;
  }
  for (int round = 0; round < atoi(arguments[1]); round++)
    for (int turn = 0; turn < many; turn++) {
      int which = (round + turn) % many;
      if (!run(which, commands[which])) return 1;
    }
  return 0;
}
