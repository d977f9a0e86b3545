#include "host/problem.h"

#include <filesystem>
#include <utility>

#include "host/plain_words.h"

namespace host {
namespace {

constexpr char kWayOut[] =
    "; \"quorvantis repair --restore\" puts the last good settings in its place, \"quorvantis "
    "repair --start-anew\" begins without any";
constexpr char kUnconfirmed[] = "stored, but not confirmed on disk: ";
constexpr std::string_view kUserFolder = "/var/mobile/";  // the platform's

bool isPlatformPath(const Problem& problem, const foundation::DeviceRoot& root) {
  if (!problem.file.starts_with('/') || problem.file == root.directory()) return false;
  if (problem.source == Source::Request) return false;
  return problem.source != Source::Backups || problem.file.starts_with(kUserFolder);
}

}  // namespace

Problem problemOf(Source source, const platform::Error& error) {
  Problem problem{source, Severity::Failure, error.path, error.words()};
  problem.plain = plainWords(source, error);
  problem.file = fileOf(error);
  problem.damage = error.kind == platform::ErrorKind::Damaged;
  if (problem.damage) problem.words += kWayOut;
  if (error.kind == platform::ErrorKind::Unconfirmed) {
    problem.severity = Severity::Warning;
    problem.words = kUnconfirmed + problem.words;
  }
  return problem;
}

Problem onMachine(Problem problem, const foundation::DeviceRoot& root) {
  if (!isPlatformPath(problem, root)) return problem;
  std::error_code unresolved;
  const auto folder = std::filesystem::weakly_canonical(root.directory(), unresolved).string();
  problem.file = (unresolved ? root.directory() : folder) + problem.file;
  return problem;
}

Failure failureOf(Source source, const platform::Error& error, const std::string& before) {
  const Problem problem = problemOf(source, error);
  if (error.kind == platform::ErrorKind::Unconfirmed) return {Failure::Unconfirmed, problem};
  if (before.empty()) return {Failure::Failed, problem};
  return {Failure::Failed, {.source = source, .words = before + ": " + problem.message()}};
}

Failure failure(Source source, Failure::Reason reason, std::string words) {
  return {reason, {.source = source, .words = std::move(words)}};
}

}  // namespace host
