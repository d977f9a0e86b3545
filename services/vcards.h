#pragma once

#include <string_view>
#include <vector>

#include "platform/services.h"

namespace services {

class VCards {
 public:
  virtual ~VCards() = default;

  // The persons of a vCard file, in the order of its cards; splitCards says which text is a card.
  //
  // First and last name are given and family name of N, the first that has either where there are
  // several; FN is the first name of a card without N, as version 4.0 allows. Every TEL and EMAIL
  // that isn't empty counts, of whatever group and type, as it is written but for the format's own
  // escapes and a leading "tel:" or "mailto:". All text is UTF-8, with U+FFFD for what can't be
  // read.
  virtual std::vector<platform::Person> persons(std::string_view file) = 0;
};

}  // namespace services
