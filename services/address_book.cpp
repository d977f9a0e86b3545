#include "services/address_book.h"

#include <fcntl.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <map>

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

// Each first name is compared once, however many bear it: comparing may be slow.
void sortByFirstName(std::vector<Person>& people, platform::Collator& collator) {
  std::map<std::string_view, std::size_t> rank;
  for (const auto& person : people) rank.emplace(person.firstName, 0);
  std::vector<std::string_view> names;
  for (const auto& [name, unranked] : rank) names.push_back(name);
  std::ranges::stable_sort(names, [&](auto a, auto b) {
    return !b.empty() && (a.empty() || collator.compare(a, b) < 0);
  });
  std::size_t next = 0;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0 && collator.compare(names[i - 1], names[i]) != 0) ++next;
    rank[names[i]] = next;
  }

  std::vector<std::pair<std::size_t, Person*>> order;
  for (auto& person : people) order.emplace_back(rank[person.firstName], &person);
  std::ranges::stable_sort(order, {}, &std::pair<std::size_t, Person*>::first);
  std::vector<Person> sorted;
  sorted.reserve(people.size());
  for (const auto& [position, person] : order) sorted.push_back(std::move(*person));
  people = std::move(sorted);
}

}  // namespace

VCardAddressBook::VCardAddressBook(const foundation::DeviceRoot& root,
                                   std::optional<std::string> folder, platform::Collator& collator,
                                   platform::Report report)
    : root_(root), folder_(std::move(folder)), collator_(collator), report_(std::move(report)) {}

std::vector<Person> VCardAddressBook::peopleSortedByFirstName() {
  auto people = peopleInStoredOrder();
  sortByFirstName(people, collator_);
  return people;
}

platform::Result<Directory> VCardAddressBook::open() const {
  if (!folder_) return root_.openDirectory(kAddressBookPath);
  foundation::Descriptor folder(::open(folder_->c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!folder) return Error{*folder_, errno};
  return Directory(std::move(folder), *folder_);
}

std::vector<Person> VCardAddressBook::peopleInStoredOrder() {
  auto folder = open();
  if (!folder) {
    if (folder_ || folder.error().code != ENOENT) report(folder.error().message());
    return {};
  }
  auto names = folder->names();
  if (!names) return report(names.error().message()), std::vector<Person>{};
  std::erase_if(*names, [](auto& name) { return !isVCardFile(name); });
  if (names->empty()) return {};
  const auto& reader = find<VCards>();
  if (!reader) return report(reader.error().message()), std::vector<Person>{};

  std::ranges::sort(*names);
  std::vector<Person> people;
  for (const auto& name : *names) {
    const auto bytes = folder->read(name);
    if (!bytes) {
      report(bytes.error().message());
      continue;
    }
    const auto* text = reinterpret_cast<const char*>(bytes->data());
    auto found = (*reader)->persons({text, bytes->size()});
    std::ranges::move(found, std::back_inserter(people));
  }
  return people;
}

void VCardAddressBook::report(const std::string& message) {
  if (reported_.insert(message).second && report_) report_({.what = message});
}

}  // namespace services
