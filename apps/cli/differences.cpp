#include "apps/cli/command.h"
#include "apps/cli/terminal.h"
#include "host/seen_difference.h"
#include "host/text.h"
#include "host/triggers.h"

namespace cli {
namespace {

using drive::textOf;
using drive::toJson;
using Differences = std::vector<host::Profiles::Difference>;

std::string orQuotes(const std::string& text) {
  return text.empty() ? "\"\"" : host::oneLine(text);
}

void printSeen(Session& session, const Differences& differences, std::optional<bool> stored,
               const std::string& indent = {});

// What would change within a profile stands below it.
void printProfile(Session& session, const host::Profiles::Difference& profile,
                  std::optional<bool> stored) {
  session.print(host::oneLine(host::profileName(profile.key)) + (!profile.to ? ": would be deleted"
                                                                 : !profile.from
                                                                     ? ": would come back"
                                                                     : ": would change"));
  const auto within = host::differencesWithin(profile);
  if (!within.empty()) printSeen(session, within, stored, "  ");
}

void printSeen(Session& session, const Differences& differences, std::optional<bool> stored,
               const std::string& indent) {
  host::Settings settings = session.settings();
  if (differences.empty()) return session.print(Listing(), "nothing differs");
  const auto seen = host::seenDifferences(settings, differences);
  std::size_t alike = 0;
  for (std::size_t i = 0; i < seen.size(); ++i) {
    const auto& [key, from, to, isSeen, label] = seen[i];
    if (host::isProfilePath(key)) {
      printProfile(session, differences[i], stored);
      continue;
    }
    const std::string name = indent + host::oneLine(key);
    if (isSeen) session.print(name + ": " + orQuotes(from) + " -> " + orQuotes(to));
    if (isSeen) continue;
    ++alike;
    if (stored == true)
      session.print(name + ": " + textOf(orNull(differences[i].from)) + " -> " +
                    textOf(orNull(differences[i].to)) + " (shows " + orQuotes(to) + ")");
  }
  if (alike == 0 || stored == true) return;
  session.print(indent + std::to_string(alike) + (alike < seen.size() ? " more" : "") +
                (alike == 1 ? " key is stored differently, but shows the same value"
                            : " keys are stored differently, but show the same value") +
                (!stored      ? ""
                 : alike == 1 ? "; --stored lists it"
                              : "; --stored lists them"));
}

}  // namespace

Json orNull(const std::optional<plist::Value>& value) {
  return value ? toJson(*value) : Json();
}

void printDifferences(Session& session, const Differences& differences,
                      std::optional<bool> stored) {
  if (!session.json) return printSeen(session, differences, stored);
  Json::array_t document;
  for (const auto& [key, from, to] : differences)
    document.push_back({{"key", key}, {"from", orNull(from)}, {"to", orNull(to)}});
  session.printJson(Json(std::move(document)));
}

void printEntries(Session& session, const plist::Dictionary& entries) {
  if (session.json) return session.printJson(toJson(entries));
  if (entries.empty()) return session.print(Listing(), "nothing is stored");
  for (const auto& [key, value] : entries)
    session.print(host::oneLine(key) + " = " + textOf(toJson(value)));
}

void printSettings(Session& session, const plist::Dictionary& values) {
  if (session.json || values.empty() || terminalWidth() == 0) return printEntries(session, values);
  Differences same;
  for (const auto& [key, value] : values) same.push_back({key, value, value});
  host::Settings settings = session.settings();
  for (const auto& each : host::seenDifferences(settings, same)) {
    const plist::Value& value = *values.find(each.key);
    const bool hasRow = each.label != each.key;
    const bool saysMore =
        hasRow && each.to != drive::plainTextOf(value) && !host::numberIn<double>(each.to);
    session.print(host::oneLine(each.key) + " = " + textOf(toJson(value)) +
                  (saysMore ? "  (" + host::oneLine(each.to) + ")" : ""));
  }
}

}  // namespace cli
