#include <algorithm>

#include "apps/cli/command.h"
#include "host/raw_store.h"
#include "host/text.h"

namespace cli {
namespace {

host::RawStore storeOf(Session& session) {
  return host::RawStore(session.device().preferences());
}

std::optional<plist::Value> booleanIn(std::string text) {
  std::ranges::transform(text, text.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? c + 32 : c; });
  if (text == "true" || text == "yes" || text == "1") return plist::Value(true);
  if (text == "false" || text == "no" || text == "0") return plist::Value(false);
  return std::nullopt;
}

std::optional<plist::Value> integerIn(std::string text) {
  const auto integer = host::numberIn<std::int64_t>(text);
  return integer ? std::optional(plist::Value(*integer)) : std::nullopt;
}

std::optional<plist::Value> realIn(std::string text) {
  const auto real = host::numberIn<double>(text);
  return real ? std::optional(plist::Value(*real)) : std::nullopt;
}

struct Kind {
  const char* option;
  const char* name;
  std::optional<plist::Value> (*read)(std::string text);
};
constexpr Kind kKinds[] = {
    {"-int", "an integer of 64 bits", integerIn},
    {"-float", "a real number", realIn},
    {"-bool", "a boolean", booleanIn},
    {"-string", "text", [](std::string text) { return std::optional(plist::Value(text)); }},
};

Outcome<plist::Value> valueOf(const Arguments& arguments) {
  const Kind* named = nullptr;
  for (const Kind& kind : kKinds) {
    if (!arguments.has(kind.option)) continue;
    if (named)
      return Failure{ExitCode::WrongUse,
                     "more than one kind is named; a text that begins with \"-\" follows after --"};
    named = &kind;
  }
  const std::string& text = arguments[1];
  if (!named) return plist::Value(text);
  auto value = named->read(text);
  if (!value) return Failure{ExitCode::WrongUse, "\"" + text + "\" is not " + named->name};
  return std::move(*value);
}

}  // namespace

Outcome<Done> readStore(Session& session, const Arguments& arguments) {
  if (!arguments[0].empty()) {
    const auto value = storeOf(session).read(arguments[0]);
    if (!value) return failureOf(value.error());
    session.printValue(*value);
    return Done{};
  }
  const auto domain = storeOf(session).readAll();
  if (!domain) return failureOf(domain.error());
  printEntries(session, *domain);
  return Done{};
}

Outcome<Done> writeStore(Session& session, const Arguments& arguments) {
  const auto value = valueOf(arguments);
  if (!value) return value.error();
  const auto written = storeOf(session).write(arguments[0], *value);
  if (!written) return failureOf(written.error());
  return Done{};
}

Outcome<Done> removeFromStore(Session& session, const Arguments& arguments) {
  const auto removed = storeOf(session).remove(arguments[0]);
  if (!removed) return failureOf(removed.error());
  return Done{};
}

}  // namespace cli
