#pragma once

#include <string>

#include "host/problem.h"
#include "platform/result.h"

namespace host {

// Why a request of the user can't be done. Nothing has changed then.
enum class RefusalCode {
  BadRequest,  // it can't be asked of this page
  NoPage,      // no such page, or none to go back to
  NoRow,
  NotBuilt,  // the row is off screen
  Disabled,  // the row is dimmed
  BadValue,  // the row can't take the value
  NoAlert,
  NoButton,
  Modal,  // an alert is on screen
};

struct Refusal {
  RefusalCode code;
  std::string message;
};

inline Refusal noPage() {
  return {RefusalCode::NoPage, "no page is shown; launch comes first"};
}

// A page or a row that isn't there is NotFound.
inline Failure failureOf(const Refusal& refusal) {
  const bool unknown = refusal.code == RefusalCode::NoPage || refusal.code == RefusalCode::NoRow;
  return {unknown ? Failure::NotFound : Failure::Refused,
          {.source = Source::Settings, .words = refusal.message}};
}

template <class T>
using Outcome = platform::Result<T, Refusal>;
using Done = platform::Done;

}  // namespace host
