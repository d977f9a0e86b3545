#include "host/change_note.h"

namespace host {
namespace {

constexpr const char* kNote = "/change";
constexpr std::string_view kCalled = "the undoing of changes";
constexpr std::string_view kChange = "change", kIsRestore = "restore";

}  // namespace

platform::Result<foundation::Descriptor> ChangeNote::begin(const Change& change, Of of,
                                                           std::chrono::milliseconds patience) {
  auto held = lockRecord(state_, kNote, patience, kCalled);
  if (!held) return held;
  const auto written = writeRecord(
      state_, kNote,
      {{std::string(kChange), recordOf(change)}, {std::string(kIsRestore), of == Of::Restore}});
  if (!written) return written.error();
  return held;
}

void ChangeNote::end() {
  static_cast<void>(state_.remove(kNote));
}

std::optional<ChangeNote::Left> ChangeNote::left() {
  if (!state_.hasEntry(kNote)) return std::nullopt;
  auto held = lockRecord(state_, kNote, std::chrono::milliseconds(0), kCalled);
  if (!held) return std::nullopt;
  const auto record = readRecord(state_, kNote);
  const plist::Value* noted = record ? record->find(kChange) : nullptr;
  auto change = noted && noted->dictionary() ? changeIn(*noted->dictionary()) : std::nullopt;
  if (!change && (record || isLost(record.error()))) end();
  if (!change) return std::nullopt;
  const plist::Value* isRestore = record->find(kIsRestore);
  const Of of = isRestore && *isRestore == plist::Value(true) ? Of::Restore : Of::Undo;
  return Left{std::move(*held), std::move(*change), of};
}

}  // namespace host
