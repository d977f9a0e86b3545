#include "services/services.h"

#include "services/module_loader.h"

namespace services {

namespace {

template <class Service>
Availability<Service> load(std::string_view service, std::string_view module) {
  const auto loaded = loadModule(module);
  if (!loaded) return std::string(service) + " is not available: " + loaded.error();
  return static_cast<Service*>(*loaded);
}

}  // namespace

const Availability<platform::Collator>& collation() {
  static const auto service = load<platform::Collator>("collation", "icu");
  return service;
}

const Availability<Bus>& bus() {
  static const auto service = load<Bus>("the session bus", "bus");
  return service;
}

const Availability<platform::Urls>& urls() {
  static const auto service = load<platform::Urls>("opening URLs", "gio");
  return service;
}

const Availability<platform::XmlPropertyLists>& xmlPropertyLists() {
  static const auto service = load<platform::XmlPropertyLists>("reading and writing XML", "xml");
  return service;
}

const Availability<VCards>& vcards() {
  static const auto service = load<VCards>("reading vCards", "vcards");
  return service;
}

const Availability<SoundPlayer>& soundPlayer() {
  static const auto service = load<SoundPlayer>("playing sounds", "gstreamer");
  return service;
}

}  // namespace services
