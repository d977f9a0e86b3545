#pragma once

#include "drive/fields.h"
#include "host/request.h"

namespace drive {

// The application's requests from the protocol's fields. A field that is missing or of a wrong kind
// is refused as a bad request.
using ReadRequest = host::Outcome<host::Request>;

ReadRequest readLaunch(const Fields& fields);
ReadRequest readOpen(const Fields& fields);
ReadRequest readBack(const Fields& fields);
ReadRequest readTap(const Fields& fields);
ReadRequest readSet(const Fields& fields);
ReadRequest readScroll(const Fields& fields);
ReadRequest readSelect(const Fields& fields);
ReadRequest readDrag(const Fields& fields);
ReadRequest readBar(const Fields& fields);
ReadRequest readPress(const Fields& fields);
ReadRequest readPick(const Fields& fields);
ReadRequest readActivate(const Fields& fields);
ReadRequest readLayout(const Fields& fields);
ReadRequest readReload(const Fields& fields);
ReadRequest readCall(const Fields& fields);

}  // namespace drive
