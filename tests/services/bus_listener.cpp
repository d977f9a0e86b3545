#include <cstdio>

#include "services/services.h"

// Prints "ready", then each notification, one name a line; the arguments are the names to listen
// for.
int main(int count, char** names) {
  const auto& bus = services::find<services::Bus>();
  if (!bus) return std::puts(bus.error().message().c_str()), 1;
  auto listener = (*bus)->listen({names + 1, names + count});
  if (!listener) return std::puts(listener.error().message().c_str()), 1;
  const auto show = [](std::string_view name) {
    std::printf("%.*s\n", static_cast<int>(name.size()), name.data());
    std::fflush(stdout);
  };
  show("ready");
  for (;;)
    if (const auto done = (*listener)->wait(show); !done) return show(done.error().message()), 1;
}
