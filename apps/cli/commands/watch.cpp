#include <unistd.h>

#include <csignal>

#include "apps/cli/argument.h"
#include "apps/cli/commands/commands.h"
#include "services/services.h"

namespace cli {
namespace {

Outcome<Done> watch(Session& session, const std::vector<std::string>& names) {
  // Every name is written at once, so an interruption finds nothing to be done.
  for (const int signal : {SIGINT, SIGTERM}) std::signal(signal, [](int) { _exit(0); });
  const auto& bus = services::find<services::Bus>();
  if (!bus) return Failure{ExitCode::Failed, bus.error().message()};
  auto listener = (*bus)->listen({names.begin(), names.end()});
  if (!listener) return Failure{ExitCode::Failed, listener.error().message()};
  std::optional<Failure> unwritten;
  while (!unwritten) {
    const auto waited = (*listener)->wait([&](std::string_view name) {
      session.print(name);
      if (auto flushed = session.flush(); !flushed) unwritten = flushed.error();
    });
    if (!waited) return Failure{ExitCode::Failed, waited.error().message()};
  }
  return *unwritten;
}

}  // namespace

Run declareWatch(CLI::App& app, Session& session) {
  auto names = std::make_shared<std::vector<std::string>>();
  app.add_option("NAME", *names, "Only notifications of these names")->type_name("");
  return [&session, names] { return watch(session, *names); };
}

}  // namespace cli
