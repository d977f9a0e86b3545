#include <algorithm>
#include <memory>

#include "platform/foundation/text.h"
#include "services/evcard.h"
#include "services/module.h"
#include "services/vcard_splitter.h"
#include "services/vcards.h"

namespace services {

namespace {

using evcard::Attribute;
using evcard::List;

bool beginsWith(std::string_view text, std::string_view start) {
  const auto lower = [](char c) { return 'A' <= c && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  return text.size() >= start.size() &&
         std::equal(start.begin(), start.end(), text.begin(),
                    [&](char a, char b) { return lower(a) == lower(b); });
}

std::string textOf(const List* value) {
  return value ? foundation::replacingInvalidUtf8(static_cast<const char*>(value->data)) : "";
}

class EbookVCards : public VCards {
 public:
  explicit EbookVCards(const evcard::Library& library) : library_(library) {}

  std::vector<platform::Person> persons(std::string_view file) override {
    std::vector<platform::Person> persons;
    splitCards(file, [&](const std::string& text) {
      const std::unique_ptr<evcard::Card, void (*)(void*)> card(
          library_.e_vcard_new_from_string(text.c_str()), library_.g_object_unref);
      if (card) persons.push_back(personOf(card.get()));
    });
    return persons;
  }

 private:
  bool isNamed(Attribute* attribute, std::string_view name) const {
    const std::string_view its = library_.e_vcard_attribute_get_name(attribute);
    return its.size() == name.size() && beginsWith(its, name);
  }

  // The whole value: the reader cuts every value at semicolons.
  std::string wholeText(Attribute* attribute) const {
    const List* part = library_.e_vcard_attribute_get_values(attribute);
    std::string text = textOf(part);
    while (part && (part = part->next)) (text += ';') += textOf(part);
    return text;
  }

  void add(std::vector<std::string>& values, Attribute* attribute, std::string_view scheme) const {
    std::string value = wholeText(attribute);
    if (beginsWith(value, scheme)) value.erase(0, scheme.size());
    if (!value.empty()) values.push_back(std::move(value));
  }

  platform::Person personOf(evcard::Card* card) const {
    platform::Person person;
    bool named = false, hasName = false;
    std::string formatted;
    for (const List* each = library_.e_vcard_get_attributes(card); each; each = each->next) {
      auto* const attribute = static_cast<Attribute*>(each->data);
      if (isNamed(attribute, evcard::kTelephone)) {
        add(person.phones, attribute, "tel:");
      } else if (isNamed(attribute, evcard::kEmail)) {
        add(person.emails, attribute, "mailto:");
      } else if (isNamed(attribute, evcard::kFormattedName)) {
        if (formatted.empty()) formatted = wholeText(attribute);
      } else if (isNamed(attribute, evcard::kName) && !named) {
        hasName = true;
        const List* const family = library_.e_vcard_attribute_get_values(attribute);
        person.lastName = textOf(family);
        person.firstName = textOf(family ? family->next : nullptr);
        named = !person.lastName.empty() || !person.firstName.empty();
      }
    }
    if (!hasName) person.firstName = std::move(formatted);
    return person;
  }

  const evcard::Library library_;
};

void passOver(const char*, int, const char*, void*) {}

}  // namespace

}  // namespace services

QUORVANTIS_SERVICE {
  const auto library = services::evcard::open();
  if (!library) {
    reason = library.error().what;
    return nullptr;
  }
  // The reader complains on stderr about what it skips.
  library->g_log_set_handler("libebook-contacts", services::evcard::kEveryLevel, services::passOver,
                             nullptr);
  return static_cast<services::VCards*>(new services::EbookVCards(*library));
}
