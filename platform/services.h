#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/plist/binary.h"
#include "platform/plist/value.h"

// What only a real system can give. Each is an interface here and a module in services/; a service
// whose library is missing on a machine is absent, and the caller gets the reason.
namespace platform {

// Cross-process notifications: a name and nothing else.
class DarwinNotificationCenter {
 public:
  virtual ~DarwinNotificationCenter() = default;
  virtual void post(std::string_view name) = 0;  // dropped silently where there is no bus
};

// One for each of several texts: those of two that differ are in the order of their bytes.
class SortKeys {
 public:
  std::string_view operator[](std::size_t index) const {
    const std::size_t begin = index > 0 ? ends_[index - 1] : 0;
    return std::string_view(bytes_).substr(begin, ends_[index] - begin);
  }
  std::string& bytes() { return bytes_; }  // of the key that is being appended
  void finishKey() { ends_.push_back(bytes_.size()); }

 private:
  std::string bytes_;
  std::vector<std::size_t> ends_;
};

// localizedStandardCompare: of the user's locale.
class Collator {
 public:
  virtual ~Collator() = default;
  virtual int compare(std::string_view a, std::string_view b) = 0;  // <0, 0, >0
  // Where keys of these texts are equal `compare` decides; nothing where it does for all.
  virtual std::optional<SortKeys> sortKeys(const std::vector<std::string_view>&) { return {}; }
};

class Urls {
 public:
  virtual ~Urls() = default;
  virtual bool canOpen(std::string_view url) = 0;  // has an application for the URL's scheme
  virtual bool open(std::string_view url) = 0;
};

struct Person {
  std::string firstName, lastName;
  std::vector<std::string> phones, emails;
};

class AddressBook {
 public:
  virtual ~AddressBook() = default;
  // All persons of the default source, sorted by first name, equal ones in stored order.
  virtual std::vector<Person> peopleSortedByFirstName() = 0;
  // As long as what this gives lives, they are the same at each call.
  virtual std::shared_ptr<void> hold() { return nullptr; }
};

// Where the platform has its sounds.
inline constexpr const char* kSystemSoundPath = "/System/Library/Audio/UISounds";

class SystemSounds {
 public:
  virtual ~SystemSounds() = default;
  virtual void play(const std::optional<std::string>& url) = 0;  // no URL: silence
};

// XML property lists, for archives and imports that others wrote in that form; of several threads
// each may call it.
class XmlPropertyLists {
 public:
  virtual ~XmlPropertyLists() = default;
  // The error says what is wrong, and on which line.
  virtual Result<plist::Value> read(plist::Bytes bytes) = 0;
  // The error says what the form can't carry.
  virtual Result<std::vector<std::uint8_t>> write(const plist::Value& value) = 0;
};

}  // namespace platform
