// The people of 5,000 vCard files, sorted, beside the bare parse of the same files with EVCard,
// name and telephone numbers asked for, and beside reading them only.
#include <dirent.h>
#include <fcntl.h>
#include <libebook-contacts/libebook-contacts.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

#include "benchmarks/race.h"
#include "services/address_book.h"
#include "services/lazy_services.h"

namespace {

constexpr int kCards = 5'000;

std::string cardOf(int i) {
  constexpr const char* kGiven[] = {"Ada",  "Björn", "Chloé", "Dmitri",
                                    "Emma", "Farid", "Grace", "Hiro"};
  const std::string given = kGiven[i % 8], number = std::to_string(1'000'000 + i);
  return "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:bench-" + number + "\r\nN:Family" + number + ";" +
         given + ";;;\r\nFN:" + given + " Family" + number +
         "\r\nORG:Example\\, Inc.;Department 7\r\nTITLE:Engineer\r\nTEL;TYPE=CELL,VOICE:+49 151 " +
         number + "\r\nTEL;TYPE=HOME:+49 30 " + number + "\r\nEMAIL;TYPE=INTERNET:user." + number +
         "@example.org\r\nADR;TYPE=HOME:;;1 Long Street;Berlin;;10115;Germany\r\n"
         "NOTE:A note that is long enough to be folded by the program that wrote it\\, so t\r\n"
         " hat a reader has to join the lines again before it looks at the value.\r\n"
         "BDAY:1980-01-01\r\nREV:2026-01-01T00:00:00Z\r\nEND:VCARD\r\n";
}

std::string makeFolder() {
  std::string folder = (std::filesystem::temp_directory_path() / "bench-vcards-XXXXXX").string();
  mkdtemp(folder.data());
  for (int i = 0; i < kCards; ++i)
    std::ofstream(folder + "/card" + std::to_string(i) + ".vcf", std::ios::binary) << cardOf(i);
  return folder;
}

// As barely as it can be done: open, read, close.
template <class Each>
std::size_t readAll(const std::string& path, Each each) {
  static char text[65'536];
  std::size_t total = 0;
  DIR* const folder = opendir(path.c_str());
  while (const dirent* entry = readdir(folder)) {
    if (!std::string_view(entry->d_name).ends_with(".vcf")) continue;
    const int file = openat(dirfd(folder), entry->d_name, O_RDONLY | O_CLOEXEC);
    const ssize_t length = read(file, text, sizeof text - 1);
    close(file);
    if (length <= 0) continue;
    text[length] = '\0';
    total += each(text);
  }
  closedir(folder);
  return total;
}

std::size_t parse(const char* text) {
  EVCard* const card = e_vcard_new_from_string(text);
  std::size_t total = 0;
  for (GList* each = e_vcard_get_attributes(card); each; each = each->next) {
    auto* const attribute = static_cast<EVCardAttribute*>(each->data);
    const char* const name = e_vcard_attribute_get_name(attribute);
    if (g_ascii_strcasecmp(name, EVC_TEL) != 0 && g_ascii_strcasecmp(name, EVC_FN) != 0) continue;
    char* const value = e_vcard_attribute_get_value(attribute);
    total += std::strlen(value);
    g_free(value);
  }
  g_object_unref(card);
  return total;
}

void people(bench::Race& race) {
  // The machine's own address book is not asked.
  unsetenv("DBUS_SESSION_BUS_ADDRESS");
  unsetenv("XDG_RUNTIME_DIR");
  const std::string folder = makeFolder();
  const foundation::DeviceRoot root("/nonexistent");
  services::UserCollator collator;
  services::MergedAddressBook book(root, folder, collator, [](const platform::Error& problem) {
    std::fprintf(stderr, "%s\n", problem.message().c_str());
  });
  std::size_t found = 0, total = 0;
  race.add("ours", [&] { found = book.peopleSortedByFirstName().size(); });
  race.add("EVCard", [&] { total += readAll(folder, parse); });
  race.add("reading only",
           [&] { total += readAll(folder, [](const char* text) { return std::strlen(text); }); });
  race.run(bench::Clock::Processor, 0);
  std::filesystem::remove_all(folder);
  bench::expect(found == kCards && total > 0, "5,000 people");
}

}  // namespace

int main(int count, char** arguments) {
  return bench::runRow(count, arguments, {{"people", people}});
}
