// bare_set FOLDER SIZE [SOCKET]: the least that a program can do to change one setting: replace the
// file of SIZE bytes durably (new file, fsync, rename, fsync of the folder), and send one signal to
// the bus that listens at SOCKET, a path, speaking its protocol itself.
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

char bytes[1 << 20];

bool replace(const char* path, size_t size) {
  const int folder = open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  const int file = openat(folder, "new", O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  return file >= 0 && write(file, bytes, size) == static_cast<ssize_t>(size) && fsync(file) == 0 &&
         close(file) == 0 && renameat(folder, "new", folder, "file") == 0 && fsync(folder) == 0;
}

enum class Kind : char { Call = 1, Signal = 4 };

// One of the bus's own protocol, in this machine's byte order.
class Message {
 public:
  Message(Kind kind, unsigned serial, const char* destination, const char* path,
          const char* interface, const char* member, const char* text) {
    const char start[] = {'l', static_cast<char>(kind), 0, 1};
    put(start, sizeof start);
    putNumber(text ? static_cast<unsigned>(strlen(text)) + 5 : 0);
    putNumber(serial);
    putNumber(0);  // the fields' size, below
    putField(1, 'o', path);
    putField(2, 's', interface);
    putField(3, 's', member);
    putField(6, 's', destination);
    putField(8, 'g', text ? "s" : nullptr);
    const unsigned fields = size_ - 16;
    memcpy(bytes_ + 12, &fields, sizeof fields);
    align(8);
    if (text) putText(text);
  }

  const char* bytes() const { return bytes_; }
  unsigned size() const { return size_; }

 private:
  void put(const void* data, size_t size) {
    memcpy(bytes_ + size_, data, size);
    size_ += static_cast<unsigned>(size);
  }
  void align(unsigned to) {
    while (size_ % to != 0) bytes_[size_++] = 0;
  }
  void putNumber(unsigned number) {
    align(4);
    put(&number, sizeof number);
  }
  void putText(const char* text) {
    putNumber(static_cast<unsigned>(strlen(text)));
    put(text, strlen(text) + 1);
  }
  void putField(char code, char type, const char* text) {
    if (!text) return;
    align(8);
    const char start[] = {code, 1, type, 0};
    put(start, sizeof start);
    if (type != 'g') return putText(text);
    const char length = static_cast<char>(strlen(text));
    put(&length, 1);
    put(text, strlen(text) + 1);
  }

  char bytes_[512];
  unsigned size_ = 0;
};

bool sent(int bus, const void* data, size_t size) {
  return write(bus, data, size) == static_cast<ssize_t>(size);
}

// Waits for it; the bus takes nothing before it has given the sender a name.
bool answered(int bus, const char* expected) {
  char answer[4096];
  const size_t length = strlen(expected);
  return read(bus, answer, sizeof answer) >= static_cast<ssize_t>(length) &&
         memcmp(answer, expected, length) == 0;
}

bool sendSignal(const char* path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  strncpy(address.sun_path, path, sizeof address.sun_path - 1);
  char user[16], hex[32] = "", greeting[80];
  snprintf(user, sizeof user, "%u", getuid());
  for (const char* at = user; *at; ++at) sprintf(hex + strlen(hex), "%02x", *at);
  const int length = snprintf(greeting, sizeof greeting, "%cAUTH EXTERNAL %s\r\n", 0, hex);
  const char* const own = "org.freedesktop.DBus";
  const Message hello(Kind::Call, 1, own, "/org/freedesktop/DBus", own, "Hello", nullptr);
  const Message posted(Kind::Signal, 2, nullptr, "/com/zorvek/quorvantis",
                       "com.zorvek.quorvantis.Notifications", "Posted",
                       "com.zorvek.quorvantis.prefs");
  const int bus = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  return connect(bus, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 &&
         sent(bus, greeting, static_cast<size_t>(length)) && answered(bus, "OK ") &&
         sent(bus, "BEGIN\r\n", 7) && sent(bus, hello.bytes(), hello.size()) &&
         answered(bus, "l") && sent(bus, posted.bytes(), posted.size());
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 3 || !replace(arguments[1], strtoul(arguments[2], nullptr, 10))) return 1;
  return count > 3 && !sendSignal(arguments[3]);
}
