#pragma once

#include <string>

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

template <class T>
using Outcome = platform::Result<T, Refusal>;
using Done = platform::Done;

}  // namespace host
