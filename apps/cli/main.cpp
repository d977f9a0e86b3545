#include <exception>
#include <new>
#include <string>
#include <vector>

#include "apps/cli/command_line.h"
#include "host/user_file.h"

namespace {

using cli::Done;
using cli::Outcome;

Outcome<Done> perform(const cli::Line& line, cli::Session& session) {
  if (line.command) return line.command->run(session, line.arguments);
  session.print(line.text);
  return Done{};
}

Outcome<Done> runLine(const std::vector<std::string>& words, cli::Session& session) {
  const auto line = cli::readLine(words, session);
  if (!line) return line.error();
  const auto done = perform(*line, session);
  const auto finished = session.finish();
  if (!done) return done.error();
  if (!finished) return finished.error();
  const auto flushed = session.flush();
  if (!flushed && !session.changed) return flushed;
  if (!flushed) cli::complain(flushed.error().reason);
  for (const host::Problem& warning : session.takeWarnings()) cli::complain(warning.message());
  return Done{};
}

int codeOf(const Outcome<Done>& done) {
  if (done) return static_cast<int>(cli::ExitCode::Done);
  cli::complain(done.error().reason);
  return static_cast<int>(done.error().code);
}

}  // namespace

int main(int count, char** arguments) {
  host::occupyStandardStreams();
  try {
    cli::Session session;
    return codeOf(runLine({arguments + 1, arguments + count}, session));
  } catch (const std::bad_alloc&) {
    return codeOf(cli::Failure{cli::ExitCode::Failed, "out of memory"});
  } catch (const std::exception& error) {
    return codeOf(cli::Failure{cli::ExitCode::Failed, std::string("unexpected: ") + error.what()});
  }
}
