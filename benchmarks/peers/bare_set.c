/* bare_set FOLDER SIZE [SOCKET]: the least that a program can do to change one setting: replace the
 * file of SIZE bytes durably (new file, fsync, rename, fsync of the folder), and send one signal to
 * the bus that listens at SOCKET, a path, speaking its protocol itself. */
#include <fcntl.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

static char bytes[1 << 20];

static int replace(const char *path, size_t size)
{
    int folder = open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    int file = openat(folder, "new", O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    return file >= 0 && write(file, bytes, size) == (ssize_t)size && fsync(file) == 0 &&
           close(file) == 0 && renameat(folder, "new", folder, "file") == 0 && fsync(folder) == 0;
}

struct message {
    uint8_t bytes[512];
    uint32_t size;
};

static void align(struct message *message, uint32_t to)
{
    while (message->size % to) message->bytes[message->size++] = 0;
}

static void put_number(struct message *message, uint32_t number)
{
    align(message, 4);
    memcpy(message->bytes + message->size, &number, 4);
    message->size += 4;
}

static void put_text(struct message *message, const char *text)
{
    put_number(message, (uint32_t)strlen(text));
    strcpy((char *)message->bytes + message->size, text);
    message->size += (uint32_t)strlen(text) + 1;
}

static void put_field(struct message *message, uint8_t code, char type, const char *text)
{
    if (!text) return;
    align(message, 8);
    uint8_t *at = message->bytes + message->size;
    at[0] = code;
    at[1] = 1;
    at[2] = (uint8_t)type;
    at[3] = 0;
    message->size += 4;
    if (type != 'g') {
        put_text(message, text);
        return;
    }
    message->bytes[message->size++] = (uint8_t)strlen(text);
    strcpy((char *)message->bytes + message->size, text);
    message->size += (uint32_t)strlen(text) + 1;
}

/* A call to the bus itself, or a signal with one text. */
static void make(struct message *message, uint8_t type, uint32_t serial, const char *destination,
                 const char *path, const char *interface, const char *member, const char *text)
{
    const uint8_t start[4] = {'l', type, 0, 1};
    uint32_t length = text ? (uint32_t)strlen(text) + 5 : 0;
    memcpy(message->bytes, start, sizeof start);
    message->size = sizeof start;
    put_number(message, length);
    put_number(message, serial);
    put_number(message, 0); /* of the fields, below */
    put_field(message, 1, 'o', path);
    put_field(message, 2, 's', interface);
    put_field(message, 3, 's', member);
    put_field(message, 6, 's', destination);
    put_field(message, 8, 'g', text ? "s" : NULL);
    uint32_t fields = message->size - 16;
    memcpy(message->bytes + 12, &fields, 4);
    align(message, 8);
    if (text) put_text(message, text);
}

static int all(int bus, const void *data, size_t size)
{
    return write(bus, data, size) == (ssize_t)size;
}

/* Until an answer has come; the bus takes nothing before it has given the sender a name. */
static int answered(int bus, const char *expected)
{
    char answer[4096];
    ssize_t size = read(bus, answer, sizeof answer);
    return size >= (ssize_t)strlen(expected) && memcmp(answer, expected, strlen(expected)) == 0;
}

static int send_signal(const char *path)
{
    struct sockaddr_un address = {.sun_family = AF_UNIX};
    char user[32], hex[96] = "", greeting[160];
    struct message hello, posted;
    int bus = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    strncpy(address.sun_path, path, sizeof address.sun_path - 1);
    snprintf(user, sizeof user, "%u", getuid());
    for (char *at = user; *at; at++) sprintf(hex + strlen(hex), "%02x", *at);
    int size = snprintf(greeting, sizeof greeting, "%cAUTH EXTERNAL %s\r\n", 0, hex);
    make(&hello, 1, 1, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
         "Hello", NULL);
    make(&posted, 4, 2, NULL, "/com/zorvek/quorvantis", "com.zorvek.quorvantis.Notifications",
         "Posted", "com.zorvek.quorvantis.prefs");
    return connect(bus, (struct sockaddr *)&address, sizeof address) == 0 &&
           all(bus, greeting, (size_t)size) && answered(bus, "OK ") &&
           all(bus, "BEGIN\r\n", 7) && all(bus, hello.bytes, hello.size) && answered(bus, "l") &&
           all(bus, posted.bytes, posted.size);
}

int main(int count, char **arguments)
{
    if (count < 3 || !replace(arguments[1], strtoul(arguments[2], NULL, 10))) return 1;
    return count > 3 && !send_signal(arguments[3]);
}
