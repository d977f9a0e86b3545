#include "prefs/pages/choice_lists.h"

#include "platform/foundation/directory_walk.h"
#include "platform/foundation/text.h"

namespace prefs {
namespace {

template <class Choice>
plist::Array soundChoices(const preferences::Environment& environment, Choice choice) {
  plist::Array choices{kNoSound};
  foundation::walkDirectory(environment.root, environment.soundFallback, platform::kSystemSoundPath,
                            [&](std::string_view url, bool isDirectory) {
                              if (!isDirectory) choices.emplace_back(choice(url));
                            });
  return choices;
}

template <class Choice>
plist::Array contactChoices(platform::AddressBook& addressBook, Choice choice) {
  plist::Array choices;
  for (const platform::Person& person : addressBook.peopleSortedByFirstName())
    for (const auto* addresses : {&person.phones, &person.emails})
      for (const std::string& address : *addresses) choices.emplace_back(choice(person, address));
  return choices;
}

}  // namespace

plist::Array soundValues(const preferences::Environment& environment) {
  return soundChoices(environment, [](std::string_view url) { return url; });
}

plist::Array soundTitles(const preferences::Environment& environment) {
  return soundChoices(environment, foundation::lastPathComponent);
}

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
