#include <string>
#include <vector>

#include "apps/cli/command_line.h"

namespace {

cli::Outcome<cli::Done> runLine(const std::vector<std::string>& arguments, cli::Session& session) {
  const auto run = cli::readCommandLine(arguments, session);
  if (!run) return run.error();
  const auto done = (*run)();
  if (!done) return done.error();
  const auto flushed = session.flush();
  for (const std::string& warning : session.takeWarnings()) cli::complain(warning);
  return flushed;
}

}  // namespace

int main(int count, char** arguments) {
  cli::Session session;
  const auto done = runLine({arguments + 1, arguments + count}, session);
  if (done) return static_cast<int>(cli::ExitCode::Done);
  cli::complain(done.error().reason);
  return static_cast<int>(done.error().code);
}
