#pragma once

#include <functional>
#include <optional>
#include <string>

#include "host/backups.h"
#include "host/request.h"

namespace host {

// Which requests are one change of the user's, that can be undone: each that operates a page or an
// alert, but a drag, which is a row of Sets of the same row that hold its control, is one with the
// Set that follows and the Release that ends it. What the system asks in between (Layout, Scroll,
// …) doesn't end it.
class RequestRecord {
 public:
  RequestRecord() = default;
  ~RequestRecord() { record(nullptr); }
  RequestRecord(const RequestRecord&) = delete;
  RequestRecord& operator=(const RequestRecord&) = delete;

  void record(Backups* backups);  // null: nowhere

  // Around what a request does; `label` gives that of the row or page that it is about, and is
  // called where a change begins.
  void begin(const Request& request, const std::function<std::string()>& label);
  void end(const Request& request);

 private:
  Backups* backups_ = nullptr;
  std::optional<RowReference> held_;  // whose control is held
};

}  // namespace host
