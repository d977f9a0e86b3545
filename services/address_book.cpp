#include "services/address_book.h"

#include <fcntl.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <set>
#include <tuple>

#include "platform/localized_sort.h"
#include "services/services.h"

namespace services {

namespace {

using foundation::Directory;
using platform::Error;
using platform::Person;

bool isVCardFile(std::string_view name) {
  constexpr std::string_view kExtension = ".vcf";
  const auto sameLetter = [](char a, char b) { return std::tolower(a) == b; };
  return name.size() > kExtension.size() && name.front() != '.' &&
         std::ranges::equal(name.substr(name.size() - kExtension.size()), kExtension, sameLetter);
}

void sortByFirstName(std::vector<Person>& people, platform::Collator& collator) {
  platform::sortLocalized(people, collator, &Person::firstName);
  std::stable_partition(people.begin(), people.end(),
                        [](const Person& each) { return each.firstName.empty(); });
}

// What an address is whichever way it is written.
std::string essence(const std::string& address) {
  std::string kept;
  for (const char c : address)
    if (std::string_view(" -()./").find(c) == std::string_view::npos)
      kept += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return kept;
}

void addWithoutRepeats(std::vector<Person>& people, std::vector<Person> more) {
  std::set<std::tuple<std::string, std::string, std::string>> known;
  const auto isKnown = [&](const Person& person, const std::string& address) {
    return !known.emplace(person.firstName, person.lastName, essence(address)).second;
  };
  for (const Person& person : people)
    for (const auto* addresses : {&person.phones, &person.emails})
      for (const auto& address : *addresses) isKnown(person, address);
  for (Person& person : more) {
    for (auto* addresses : {&person.phones, &person.emails})
      std::erase_if(*addresses, [&](auto& address) { return isKnown(person, address); });
    if (!person.phones.empty() || !person.emails.empty()) people.push_back(std::move(person));
  }
}

}  // namespace

MergedAddressBook::MergedAddressBook(const foundation::DeviceRoot& root,
                                     std::optional<std::string> folder,
                                     platform::Collator& collator, platform::Report report)
    : root_(root), folder_(std::move(folder)), collator_(collator), report_(std::move(report)) {}

std::shared_ptr<void> MergedAddressBook::hold() {
  auto held = held_.lock();
  if (!held) held_ = held = std::make_shared<std::optional<People>>();
  return held;
}

std::vector<Person> MergedAddressBook::peopleSortedByFirstName() {
  const auto held = held_.lock();
  if (held && *held) return **held;
  auto people = peopleInStoredOrder();
  sortByFirstName(people, collator_);
  if (held) *held = people;
  return people;
}

platform::Result<Directory> MergedAddressBook::open() const {
  if (!folder_) return root_.openDirectory(kAddressBookPath);
  foundation::Descriptor folder(::open(folder_->c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!folder) return Error{*folder_, errno};
  return Directory(std::move(folder), *folder_);
}

std::vector<std::string> MergedAddressBook::filesInFolder() {
  std::vector<std::string> files;
  auto folder = open();
  if (!folder) {
    if (folder_ || folder.error().code != ENOENT) report(folder.error().message());
    return files;
  }
  auto names = folder->names();
  if (!names) return report(names.error().message()), files;
  std::erase_if(*names, [](auto& name) { return !isVCardFile(name); });
  std::ranges::sort(*names);
  for (const auto& name : *names) {
    const auto bytes = folder->read(name);
    if (bytes)
      files.emplace_back(reinterpret_cast<const char*>(bytes->data()), bytes->size());
    else
      report(bytes.error().message());
  }
  return files;
}

// Without the module there is no session bus, which is not the address book's to report.
std::string MergedAddressBook::desktopCards() {
  const auto& desktop = find<DesktopBooks>();
  if (!desktop) return {};
  auto cards = (*desktop)->cards();
  if (cards.failure) report(cards.failure->message());
  return std::move(cards.text);
}

MergedAddressBook::People MergedAddressBook::peopleInStoredOrder() {
  const auto files = filesInFolder();
  const std::string desktop = desktopCards();
  if (files.empty() && desktop.empty()) return {};
  const auto& reader = find<VCards>();
  if (!reader) return report(reader.error().message()), People{};

  People people;
  for (const auto& file : files) {
    auto found = (*reader)->persons(file);
    std::ranges::move(found, std::back_inserter(people));
  }
  if (!desktop.empty()) addWithoutRepeats(people, (*reader)->persons(desktop));
  return people;
}

void MergedAddressBook::report(const std::string& message) {
  if (reported_.insert(message).second && report_) report_({.what = message});
}

}  // namespace services
