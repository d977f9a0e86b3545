#include "host/last_seen.h"

namespace host {
namespace {

constexpr std::string_view kTime = "time", kChecksum = "checksum", kOutside = "outside",
                           kOutsideSince = "outsideSince";

std::optional<plist::Date> dateIn(const plist::Dictionary& record, std::string_view key) {
  const plist::Value* value = record.find(key);
  return value && value->date() ? std::optional(*value->date()) : std::nullopt;
}

}  // namespace

std::optional<LastSeen::Sighting> LastSeen::read() const {
  const auto record = records_.newest();
  if (!record) return std::nullopt;
  const auto time = dateIn(*record, kTime);
  const plist::Value* checksum = record->find(kChecksum);
  if (!time || !checksum || !checksum->unsignedInteger()) return std::nullopt;
  return Sighting{*time, *checksum->unsignedInteger(), dateIn(*record, kOutside),
                  dateIn(*record, kOutsideSince)};
}

platform::Result<platform::Done> LastSeen::changed(std::uint64_t before, std::uint64_t after,
                                                   plist::Date now) {
  auto last = read();
  if (last && last->checksum != before) {
    last->outside = now;
    last->outsideSince = last->time;
  }
  plist::Dictionary record{{std::string(kTime), now}, {std::string(kChecksum), after}};
  if (last && last->outside) record.set(kOutside, *last->outside);
  if (last && last->outsideSince) record.set(kOutsideSince, *last->outsideSince);
  const auto added = records_.add(record);
  if (!added) return added.error();
  return platform::Done{};
}

}  // namespace host
