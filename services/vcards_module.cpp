#include <libebook-contacts/libebook-contacts.h>

#include <memory>

#include "platform/foundation/text.h"
#include "services/module.h"
#include "services/vcard_splitter.h"
#include "services/vcards.h"

namespace services {

namespace {

struct Unref {
  void operator()(EVCard* card) const { g_object_unref(card); }
};
using Card = std::unique_ptr<EVCard, Unref>;

bool isNamed(EVCardAttribute* attribute, const char* name) {
  return g_ascii_strcasecmp(e_vcard_attribute_get_name(attribute), name) == 0;
}

std::string textOf(const GList* value) {
  return value ? foundation::replacingInvalidUtf8(static_cast<const char*>(value->data)) : "";
}

// The whole value: the reader cuts every value at semicolons.
std::string wholeText(EVCardAttribute* attribute) {
  const GList* part = e_vcard_attribute_get_values(attribute);
  std::string text = textOf(part);
  while (part && (part = part->next)) (text += ';') += textOf(part);
  return text;
}

void add(std::vector<std::string>& values, EVCardAttribute* attribute, std::string_view scheme) {
  std::string value = wholeText(attribute);
  if (g_ascii_strncasecmp(value.c_str(), scheme.data(), scheme.size()) == 0)
    value.erase(0, scheme.size());
  if (!value.empty()) values.push_back(std::move(value));
}

platform::Person personOf(EVCard* card) {
  platform::Person person;
  bool named = false, hasName = false;
  std::string formatted;
  for (const GList* each = e_vcard_get_attributes(card); each; each = each->next) {
    auto* const attribute = static_cast<EVCardAttribute*>(each->data);
    if (isNamed(attribute, EVC_TEL)) {
      add(person.phones, attribute, "tel:");
    } else if (isNamed(attribute, EVC_EMAIL)) {
      add(person.emails, attribute, "mailto:");
    } else if (isNamed(attribute, EVC_FN)) {
      if (formatted.empty()) formatted = wholeText(attribute);
    } else if (isNamed(attribute, EVC_N) && !named) {
      hasName = true;
      const GList* const family = e_vcard_attribute_get_values(attribute);
      person.lastName = textOf(family);
      person.firstName = textOf(family ? family->next : nullptr);
      named = !person.lastName.empty() || !person.firstName.empty();
    }
  }
  if (!hasName) person.firstName = std::move(formatted);
  return person;
}

class EbookVCards : public VCards {
 public:
  std::vector<platform::Person> persons(std::string_view file) override {
    std::vector<platform::Person> persons;
    splitCards(file, [&](const std::string& text) {
      const Card card(e_vcard_new_from_string(text.c_str()));
      if (card) persons.push_back(personOf(card.get()));
    });
    return persons;
  }
};

void passOver(const gchar*, GLogLevelFlags, const gchar*, gpointer) {}

}  // namespace

}  // namespace services

QUORVANTIS_SERVICE {
  (void)reason;
  // The reader complains on stderr about what it skips.
  g_log_set_handler("libebook-contacts", G_LOG_LEVEL_MASK, services::passOver, nullptr);
  return static_cast<services::VCards*>(new services::EbookVCards);
}
