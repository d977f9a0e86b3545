// The least that a program can do to read one setting: read the domain's file and leave.
#include <fcntl.h>
#include <unistd.h>

int main(int count, char** arguments) {
  static char buffer[1 << 16];
  int file = count > 1 ? open(arguments[1], O_RDONLY) : -1;
  return file < 0 || read(file, buffer, sizeof buffer) <= 0;
}
