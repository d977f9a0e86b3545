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
  const auto numbers = records_.numbers();
  if (!numbers) return std::nullopt;
  for (auto number = numbers->rbegin(); number != numbers->rend(); ++number) {
    const auto record = records_.read(*number);
    if (!record) continue;
    const auto time = dateIn(*record, kTime);
    const plist::Value* checksum = record->find(kChecksum);
    if (!time || !checksum || !checksum->unsignedInteger()) continue;
    return Sighting{*time, *checksum->unsignedInteger(), dateIn(*record, kOutside),
                    dateIn(*record, kOutsideSince)};
  }
  return std::nullopt;
}

void LastSeen::willChange(plist::Bytes bytes, plist::Date now) {
  before_ = read();
  if (!before_ || before_->checksum == checksumOf(bytes)) return;
  before_->outside = now;
  before_->outsideSince = before_->time;
}

platform::Result<platform::Done> LastSeen::changed(plist::Bytes bytes, plist::Date now) {
  plist::Dictionary record{{std::string(kTime), now}, {std::string(kChecksum), checksumOf(bytes)}};
  if (before_ && before_->outside) record.set(kOutside, *before_->outside);
  if (before_ && before_->outsideSince) record.set(kOutsideSince, *before_->outsideSince);
  const auto added = records_.add(record);
  if (!added) return added.error();
  return platform::Done{};
}

}  // namespace host
