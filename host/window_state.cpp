#include "host/window_state.h"

#include "host/record_folder.h"

namespace host {
namespace {

constexpr const char* kFile = "/window";
constexpr std::string_view kWidth = "width", kHeight = "height", kRow = "row";
constexpr std::int64_t kSmallest = 100, kLargest = 20000;

int lengthIn(const plist::Dictionary& record, std::string_view key) {
  const plist::Value* value = record.find(key);
  const auto length = value ? value->integer() : std::nullopt;
  return length && *length >= kSmallest && *length <= kLargest ? static_cast<int>(*length) : 0;
}

}  // namespace

WindowState readWindowState(const std::string& stateFolder) {
  if (stateFolder.empty()) return {};
  const auto record = readRecord(foundation::DeviceRoot(stateFolder), kFile);
  if (!record) return {};
  WindowState state{lengthIn(*record, kWidth), lengthIn(*record, kHeight), {}};
  if (state.width == 0 || state.height == 0) state.width = state.height = 0;
  const plist::Value* row = record->find(kRow);
  if (row && row->text()) state.row = *row->text();
  return state;
}

platform::Result<platform::Done> writeWindowState(const std::string& stateFolder,
                                                  const WindowState& state) {
  if (stateFolder.empty()) return platform::Done{};
  foundation::DeviceRoot folder(stateFolder);
  plist::Dictionary record{{std::string(kWidth), std::int64_t{state.width}},
                           {std::string(kHeight), std::int64_t{state.height}},
                           {std::string(kRow), state.row}};
  return writeRecord(folder, kFile, record);
}

}  // namespace host
