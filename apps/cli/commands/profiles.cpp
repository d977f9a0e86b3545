#include "host/profiles.h"

#include "apps/cli/argument.h"
#include "apps/cli/columns.h"
#include "apps/cli/commands/commands.h"
#include "apps/cli/user_file.h"

namespace cli {
namespace {

using host::ProfileFailure;
using host::ProfileOutcome;
using host::Profiles;

constexpr std::string_view kStandardStream = "-";

Failure failureOf(const ProfileFailure& failure) {
  const std::string message = failure.problem.message();
  switch (failure.reason) {
    case ProfileFailure::NotATrigger:
    case ProfileFailure::NoProfile:
      return {ExitCode::NotFound, message};
    case ProfileFailure::Exists:
      return {ExitCode::Exists, message + "; --overwrite replaces it"};
    case ProfileFailure::IsFolder:
      return {ExitCode::WrongUse, message + "; --recursive removes it with all that it holds"};
    case ProfileFailure::BadValue:
      return {ExitCode::WrongUse, message};
    case ProfileFailure::Failed:
      return {ExitCode::Failed, message};
  }
  return {ExitCode::Failed, message};
}
