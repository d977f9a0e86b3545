#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>

#include "platform/foundation/device_root.h"
#include "platform/services.h"

namespace services {

inline constexpr const char* kAddressBookPath = "/var/mobile/Library/AddressBook";

// The vCard files of a folder and the desktop's address books as one, read anew at each call that
// nothing holds.
//
// Files are taken in the order of the bytes of their names, those whose name ends in ".vcf", of
// either case, and does not begin with a dot; services::VCards says what a card means. After them
// come the cards of services::DesktopBooks. Of these a number or e-mail address is left out that a
// person of the same name has already, written alike but for case, blanks and punctuation, and with
// its last one the person. First names are in the collator's order, none first. Equal ones stay in
// the order in which they were read.
//
// A file that can't be read costs only itself. It, a folder that can't be read, a missing module
// for cards that are there, and an address book of the desktop that can't be read are reported once
// each; a folder that isn't there is an empty address book, and a problem only if the user named
// it.
class MergedAddressBook : public platform::AddressBook {
 public:
  // `folder` is this machine's; without one the folder is kAddressBookPath below the root. Root and
  // collator stay the caller's.
  MergedAddressBook(const foundation::DeviceRoot& root, std::optional<std::string> folder,
                    platform::Collator& collator, platform::Report report);

  std::vector<platform::Person> peopleSortedByFirstName() override;
  std::shared_ptr<void> hold() override;

 private:
  using People = std::vector<platform::Person>;

  platform::Result<foundation::Directory> open() const;
  std::vector<std::string> filesInFolder();
  std::string desktopCards();
  People peopleInStoredOrder();
  void report(const std::string& message);

  const foundation::DeviceRoot& root_;
  std::optional<std::string> folder_;
  platform::Collator& collator_;
  platform::Report report_;
  std::set<std::string> reported_;
  std::weak_ptr<std::optional<People>> held_;  // nothing before they are read
};

}  // namespace services
