#pragma once

#include <string_view>

#include "platform/services.h"
#include "services/bus.h"
#include "services/desktop_books.h"
#include "services/sound_player.h"
#include "services/vcards.h"

// The services of this machine. Each is loaded when it is first asked for and stays; where it
// can't be had the error says what is missing and why ("collation is not available:
// libicuuc.so.72: cannot open shared object file…"), the same at each call.
namespace services {

// A service's module, and the service's name in messages.
struct Origin {
  std::string_view module, service;
};

template <class Service>
inline constexpr Origin kOrigin{};
template <>  // of the user's locale
inline constexpr Origin kOrigin<platform::Collator>{"icu", "collation"};
template <>
inline constexpr Origin kOrigin<Bus>{"bus", "the session bus"};
template <>
inline constexpr Origin kOrigin<platform::Urls>{"gio", "opening URLs"};
template <>
inline constexpr Origin kOrigin<platform::XmlPropertyLists>{"xml", "reading and writing XML"};
template <>
inline constexpr Origin kOrigin<VCards>{"vcards", "reading vCards"};
template <>
inline constexpr Origin kOrigin<DesktopBooks>{"desktop-books", "the desktop's address book"};
template <>
inline constexpr Origin kOrigin<SoundPlayer>{"gstreamer", "playing sounds"};

// Opens quorvantis-MODULE.so and gives its object; the error is what the dynamic linker or the
// module says, or that the module's kModuleAbi differs from the program's. Modules are looked for
// in the folder that the environment variable QUORVANTIS_MODULES names and in no other; without it
// where the installed modules are, seen from the executable, then in `modules` in the executable's
// folder, its parent and its grandparent, where a build has them.
platform::Result<void*> loadModule(std::string_view module);

// What a module's factory makes, or why there is none.
platform::Result<void*> load(const Origin& origin);

template <class Service>
const platform::Result<Service*>& find() {
  static const auto service = load(kOrigin<Service>).and_then([](void* made) {
    return platform::Result<Service*>(static_cast<Service*>(made));
  });
  return service;
}

}  // namespace services
