#pragma once

#include <string>

#include "platform/services.h"
#include "services/bus.h"
#include "services/sound_player.h"
#include "services/vcards.h"

// The services of this machine. Each is loaded when it is first asked for and stays; where it
// can't be had the error is a message for people ("collation is not available: libicuuc.so.72:
// cannot open shared object file…"), the same one at each call.
namespace services {

template <class Service>
using Availability = platform::Result<Service*, std::string>;

const Availability<platform::Collator>& collation();  // of the user's locale
const Availability<Bus>& bus();
const Availability<platform::Urls>& urls();
const Availability<platform::XmlPropertyLists>& xmlPropertyLists();
const Availability<VCards>& vcards();
const Availability<SoundPlayer>& soundPlayer();

}  // namespace services
