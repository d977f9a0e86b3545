#include "prefs/pages/contact_choices.h"

namespace prefs {
namespace {

template <class Choice>
plist::Array contactChoices(platform::AddressBook& addressBook, Choice choice) {
  plist::Array choices;
  for (const platform::Person& person : addressBook.peopleSortedByFirstName())
    for (const auto* addresses : {&person.phones, &person.emails})
      for (const std::string& address : *addresses) choices.emplace_back(choice(person, address));
  return choices;
}

}  // namespace

plist::Array contactValues(platform::AddressBook& addressBook) {
  return contactChoices(addressBook, [](auto&, const std::string& address) { return address; });
}

plist::Array contactTitles(platform::AddressBook& addressBook) {
  return contactChoices(addressBook,
                        [](const platform::Person& person, const std::string& address) {
                          return person.firstName + " " + person.lastName + " (" + address + ")";
                        });
}

}  // namespace prefs
