#include "platform/foundation/preferences.h"

namespace foundation {

using platform::Done;
using platform::Error;
using platform::Result;

Preferences::Preferences(DeviceRoot& root, std::chrono::milliseconds lockPatience)
    : root_(root), lockPatience_(lockPatience) {}

Preferences::Domain& Preferences::domain(std::string_view name) {
  const auto found = domains_.find(name);
  if (found != domains_.end()) return found->second;
  DomainFile file(root_, name, xml_, lockPatience_);
  return domains_.emplace(std::string(name), Domain{std::move(file)}).first->second;
}

Preferences::Domain& Preferences::loadedDomain(std::string_view name) {
  Domain& found = domain(name);
  if (!found.loaded) static_cast<void>(refresh(found));
  return found;
}

Error Preferences::failed(Domain& domain, Error error) {
  const std::string message = error.message();
  if (message != domain.reported && problemHandler_) problemHandler_(error);
  domain.reported = message;
  return error;
}

Result<Done> Preferences::refresh(Domain& domain) {
  domain.loaded = true;
  auto read = domain.file.readUnless(domain.stamp);
  if (!read) return failed(domain, read.error());
  if (*read && (*read)->damage) return failed(domain, *(*read)->damage);
  domain.reported.clear();
  if (*read) {
    domain.entries = std::move((*read)->entries);
    domain.stamp = (*read)->stamp;
  }
  return Done{};
}

Result<Done> Preferences::flush(Domain& domain) {
  if (!domain.unflushed) return Done{};
  const auto flushed = domain.file.flush();
  if (!flushed) return failed(domain, flushed.error());
  domain.unflushed = false;
  return Done{};
}

std::optional<plist::Value> Preferences::copyAppValue(std::string_view key,
                                                      std::string_view domain) {
  const plist::Value* value = loadedDomain(domain).entries.find(key);
  return value ? std::optional(*value) : std::nullopt;
}

Result<Done> Preferences::setAppValue(std::string_view key, const plist::Value& value,
                                      std::string_view domain) {
  if (value.isNothing()) return setMultiple({}, {std::string(key)}, domain);
  plist::Dictionary values;
  values.set(key, value);
  return setMultiple(values, {}, domain);
}

Result<Done> Preferences::appSynchronize(std::string_view domain) {
  this->domain(domain);
  return synchronize();
}

Result<Done> Preferences::refresh(std::string_view domain) {
  return refresh(this->domain(domain));
}

std::vector<std::string> Preferences::copyKeyList(std::string_view domain) {
  Domain& source = this->domain(domain);
  static_cast<void>(refresh(source));
  std::vector<std::string> keys;
  for (const auto& entry : source.entries) keys.push_back(entry.key);
  return keys;
}

plist::Dictionary Preferences::copyMultiple(const std::vector<std::string>& keys,
                                            std::string_view domain) {
  Domain& source = this->domain(domain);
  static_cast<void>(refresh(source));
  plist::Dictionary values;
  for (const std::string& key : keys) {
    if (const plist::Value* value = source.entries.find(key)) values.set(key, *value);
  }
  return values;
}

Result<Done> Preferences::setMultiple(const plist::Dictionary& values,
                                      const std::vector<std::string>& remove,
                                      std::string_view domain) {
  Domain& target = this->domain(domain);
  const plist::Value kept = *plist::storable(values);
  const auto changed = target.file.change(*kept.dictionary(), remove);
  if (!changed) return failed(target, changed.error());
  target.unflushed |= changed->written;
  target.reported.clear();
  if (!changed->keptAside.empty() && problemHandler_) problemHandler_({.what = changed->keptAside});
  if (!target.loaded) return Done{};
  for (const auto& entry : *kept.dictionary()) target.entries.set(entry.key, entry.value);
  for (const std::string& key : remove) target.entries.remove(key);
  return Done{};
}

Result<Done> Preferences::synchronize() {
  std::optional<Error> first;
  for (auto& [name, domain] : domains_) {
    for (const auto& result : {flush(domain), refresh(domain)}) {
      if (!result && !first) first = result.error();
    }
  }
  if (first) return *first;
  return Done{};
}

void Preferences::setProblemHandler(platform::Report handler) {
  problemHandler_ = std::move(handler);
}

void Preferences::setXmlReader(XmlReader reader) {
  xml_ = std::move(reader);
}

}  // namespace foundation
