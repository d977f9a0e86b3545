#pragma once

#include <optional>
#include <set>
#include <string>

#include "platform/foundation/device_root.h"
#include "platform/services.h"

namespace services {

inline constexpr const char* kAddressBookPath = "/var/mobile/Library/AddressBook";

// The vCard files of a folder as an address book, read anew at each call.
//
// Files are taken in the order of the bytes of their names, those whose name ends in ".vcf", of
// either case, and does not begin with a dot; services::VCards says what a card means. First names
// are in the collator's order, none first. Equal ones stay in the order of files and cards.
//
// A file that can't be read costs only itself. It, a folder that can't be read and a missing module
// are reported once each; a folder that isn't there is an empty address book, and a problem only if
// the user named it.
class VCardAddressBook : public platform::AddressBook {
 public:
  // `folder` is this machine's; without one the folder is kAddressBookPath below the root. Root and
  // collator stay the caller's.
  VCardAddressBook(const foundation::DeviceRoot& root, std::optional<std::string> folder,
                   platform::Collator& collator, platform::Report report);

  std::vector<platform::Person> peopleSortedByFirstName() override;

 private:
  platform::Result<foundation::Directory> open() const;
  std::vector<platform::Person> peopleInStoredOrder();
  void report(const std::string& message);

  const foundation::DeviceRoot& root_;
  std::optional<std::string> folder_;
  platform::Collator& collator_;
  platform::Report report_;
  std::set<std::string> reported_;
};

}  // namespace services
