#include "drive/driver.h"

#include <cstdio>

#include "apps/cli/argument.h"
#include "apps/cli/commands/commands.h"
#include "apps/cli/number_text.h"

namespace cli {
namespace {

constexpr int kDefaultViewport = 12;

// One line, without its newline; nothing at the end of input. Of one that is too long, enough to
// show that it is.
std::optional<std::string> readLine() {
  std::string line;
  int c;
  while ((c = std::getc(stdin)) != EOF && c != '\n')
    if (line.size() <= drive::kLongestLine) line += static_cast<char>(c);
  if (c == EOF && line.empty()) return std::nullopt;
  return line;
}

Outcome<Done> converse(Session& session, int viewport) {
  drive::Driver driver(session.options, viewport, complain);
  while (const auto line = readLine()) {
    if (line->find_first_not_of(" \t\r") == std::string::npos) continue;
    session.print(driver.answer(*line));
    if (auto flushed = session.flush(); !flushed) return flushed;
  }
  return Done{};
}

}  // namespace

Run declareDrive(CLI::App& app, Session& session) {
  auto idiom = std::make_shared<std::string>("phone");
  auto viewport = std::make_shared<std::string>(std::to_string(kDefaultViewport));
  app.add_option("--idiom", *idiom, "phone or tablet")->type_name("IDIOM");
  app.add_option("--viewport", *viewport, "How many entries the screen shows")->type_name("N");
  app.footer("Each line is a request, {\"do\":\"launch\"} the first; there are " +
             drive::Driver::requests() + ".");
  return [&session, idiom, viewport]() -> Outcome<Done> {
    if (*idiom != "phone" && *idiom != "tablet")
      return Failure{ExitCode::WrongUse, "--idiom is phone or tablet"};
    const auto entries = numberIn<int>(*viewport);
    if (!entries || *entries < 1) return Failure{ExitCode::WrongUse, "--viewport is 1 or more"};
    session.options.idiom = *idiom == "tablet" ? uikit::Idiom::Tablet : uikit::Idiom::Phone;
    return converse(session, *entries);
  };
}

}  // namespace cli
