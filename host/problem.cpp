#include "host/problem.h"

namespace host {
namespace {

constexpr char kWayOut[] =
    "; \"quorvantis repair --restore\" puts the last good settings in its place, \"quorvantis "
    "repair --start-anew\" begins without any";
constexpr char kUnconfirmed[] = "stored, but not confirmed on disk: ";

}  // namespace

Problem problemOf(Source source, const platform::Error& error) {
  Problem problem{source, Severity::Failure, error.path, error.words()};
  if (error.kind == platform::ErrorKind::Damaged) problem.words += kWayOut;
  if (error.kind == platform::ErrorKind::Unconfirmed) {
    problem.severity = Severity::Warning;
    problem.words = kUnconfirmed + problem.words;
  }
  return problem;
}

Failure failureOf(Source source, const platform::Error& error, const std::string& before) {
  const Problem problem = problemOf(source, error);
  if (error.kind == platform::ErrorKind::Unconfirmed) return {Failure::Unconfirmed, problem};
  if (before.empty()) return {Failure::Failed, problem};
  return {Failure::Failed, {.source = source, .words = before + ": " + problem.message()}};
}

}  // namespace host
