#include "apps/cli/command.h"
#include "host/seen_difference.h"
#include "host/text.h"

namespace cli {
namespace {

using drive::textOf;
using drive::toJson;
using Differences = std::vector<host::Profiles::Difference>;

std::string orQuotes(const std::string& text) {
  return text.empty() ? "\"\"" : host::oneLine(text);
}

void printSeen(Session& session, const Differences& differences, bool stored) {
  host::Settings settings = session.settings();
  if (differences.empty()) return session.print(Listing(), "nothing differs");
  const auto seen = host::seenDifferences(settings, differences);
  std::size_t alike = 0;
  for (std::size_t i = 0; i < seen.size(); ++i) {
    const auto& [key, from, to, isSeen, label] = seen[i];
    const std::string name = host::oneLine(key);
    if (isSeen) session.print(name + ": " + orQuotes(from) + " -> " + orQuotes(to));
    if (isSeen) continue;
    ++alike;
    if (stored)
      session.print(name + ": " + textOf(orNull(differences[i].from)) + " -> " +
                    textOf(orNull(differences[i].to)) + " (shows " + orQuotes(to) + ")");
  }
  if (alike > 0 && !stored)
    session.print(std::to_string(alike) + (alike == 1 ? " key is" : " keys are") +
                  " only stored with the value already shown");
}

}  // namespace

Json orNull(const std::optional<plist::Value>& value) {
  return value ? toJson(*value) : Json();
}

void printDifferences(Session& session, const Differences& differences, bool stored) {
  if (!session.json) return printSeen(session, differences, stored);
  Json::array_t document;
  for (const auto& [key, from, to] : differences)
    document.push_back({{"key", key}, {"from", orNull(from)}, {"to", orNull(to)}});
  session.printJson(Json(std::move(document)));
}

void printEntries(Session& session, const plist::Dictionary& entries) {
  if (session.json) return session.printJson(toJson(entries));
  for (const auto& [key, value] : entries)
    session.print(host::oneLine(key) + " = " + textOf(toJson(value)));
}

}  // namespace cli
