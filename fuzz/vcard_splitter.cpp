#include "services/vcard_splitter.h"

#include <cstdint>
#include <cstdlib>

#include "platform/foundation/text.h"

// Whatever the file, a card is valid UTF-8 without a zero byte, and taking it apart again gives one
// card.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  services::splitCards({reinterpret_cast<const char*>(bytes), size}, [](const std::string& card) {
    if (!foundation::isUtf8(card) || card.find('\0') != card.npos) std::abort();
    if (!card.starts_with("BEGIN:VCARD\r\n") || !card.ends_with("\r\nEND:VCARD\r\n")) std::abort();
    int cards = 0;
    services::splitCards(card, [&](const std::string&) { ++cards; });
    if (cards != 1) std::abort();
  });
  return 0;
}
