#include "apps/cli/session.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "apps/cli/terminal.h"
#include "host/text.h"
#include "host/unseen_settings.h"

namespace cli {
namespace {

constexpr std::string_view kUserFolder = "/var/mobile/";  // the platform's

// A path of the platform is not where the file is on this machine.
std::string withPlace(const std::string& message) {
  const bool hasPath = message.find(kUserFolder) != std::string::npos;
  return hasPath ? message + "; quorvantis where prints where that is" : message;
}

}  // namespace

Failure failureOf(const host::Failure& failure) {
  const std::string message = failure.problem.message();
  switch (failure.reason) {
    case host::Failure::Failed:
      return {ExitCode::Failed, withPlace(message)};
    case host::Failure::Refused:
      return {ExitCode::WrongUse, message};
    case host::Failure::NotFound:
      return {ExitCode::NotFound, message};
    case host::Failure::Exists:
      return {ExitCode::Exists, withPlace(message + "; --overwrite replaces it")};
    case host::Failure::IsFolder:
      return {ExitCode::WrongUse, message + "; --recursive removes it with all that it holds"};
    case host::Failure::Unconfirmed:
    case host::Failure::PartlyDone:
      return {ExitCode::Unconfirmed, message};
  }
  return {ExitCode::Failed, message};
}

Failure failureOf(const platform::Error& error) {
  return failureOf(host::failureOf(host::Source::Request, error));
}

host::Device& Session::device() {
  if (!device_) {
    auto clock = std::make_unique<foundation::ManualQueue>();
    clock_ = clock.get();
    device_ = std::make_unique<host::Device>(options, std::move(clock));
  }
  return *device_;
}

host::Settings Session::settings() {
  host::Device& made = device();
  made.environment().choicesSource = host::contactsWhenOpened;
  return {made.environment(), *clock_, made.notifications(),
          [&made] { return made.takeProblems(host::Severity::Failure); }};
}

Outcome<host::Backups*> Session::backups() {
  host::Backups* const backups = device().backups();
  if (backups) {
    if (const auto opened = backups->open(); !opened) return failureOf(opened.error());
    return backups;
  }
  return Failure{ExitCode::Failed, "nothing is kept: neither XDG_STATE_HOME nor HOME is set"};
}

Outcome<Done> Session::storeWorked() {
  const auto problems = device().takeProblems(host::Severity::Failure);
  if (problems.empty()) return Done{};
  return Failure{ExitCode::Failed, withPlace(problems.front().message())};
}

std::vector<host::Problem> Session::takeWarnings() {
  auto taken = std::exchange(warnings, {});
  if (!device_) return taken;
  for (const auto severity : {host::Severity::Failure, host::Severity::Warning})
    std::ranges::move(device_->takeProblems(severity), std::back_inserter(taken));
  return taken;
}

Outcome<Done> Session::finish() {
  if (!device_) return Done{};
  const auto finished = device_->finish();
  if (!finished) return failureOf(finished.error());
  return Done{};
}

void Session::print(std::string_view line, Style style) {
  output_.add(line, style);
  output_.add("\n");
}

void Session::print(const Listing& listing, const std::string& whyEmpty) {
  if (json) return printJson(listing.document);
  const std::size_t width = terminalWidth();
  const auto lines = listing.columns.lines(width);
  for (const auto& [line, style] : lines) print(line, style);
  if (lines.empty() && width > 0 && !whyEmpty.empty()) print("(" + whyEmpty + ")", Style::Dim);
}

void Session::printValue(const plist::Value& value) {
  print(json ? drive::textOf(drive::toJson(value)) : drive::plainTextOf(value));
}

Outcome<Done> Session::flush() {
  const auto written = std::exchange(output_, {}).write(host::Stream::Output);
  if (!written) return failureOf(written.error());
  return Done{};
}

void complain(std::string_view message) {
  StyledText line;
  line.add("quorvantis:", Style::Red);
  line.add(" " + host::oneLine(message) + "\n");
  static_cast<void>(line.write(host::Stream::Error));
}

}  // namespace cli
