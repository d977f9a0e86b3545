#include "host/change_note.h"

namespace host {
namespace {

constexpr const char* kNote = "/change";
constexpr std::string_view kCalled = "the undoing of changes";
constexpr std::string_view kChange = "change", kKind = "kind";

}  // namespace

platform::Result<foundation::Descriptor> ChangeNote::begin(const Change& change, Kind kind,
                                                           std::chrono::milliseconds patience) {
  auto held = lockRecord(state_, kNote, patience, kCalled);
  if (!held) return held;
  if (isThere()) return platform::Error{.what = "an earlier change is still half done"};
  const auto written = writeRecord(state_, kNote,
                                   {{std::string(kChange), recordOf(change)},
                                    {std::string(kKind), static_cast<std::int64_t>(kind)}});
  if (!written && !isUnconfirmed(written)) return written.error();
  return held;
}

void ChangeNote::end() {
  static_cast<void>(state_.remove(kNote));
}

bool ChangeNote::isThere() const {
  return state_.hasEntry(kNote);
}

std::optional<ChangeNote::Left> ChangeNote::left() {
  if (!isThere()) return std::nullopt;
  auto held = lockRecord(state_, kNote, std::chrono::milliseconds(0), kCalled);
  if (!held) return std::nullopt;
  const auto record = readRecord(state_, kNote);
  const plist::Value* noted = record ? record->find(kChange) : nullptr;
  auto change = noted && noted->dictionary() ? changeIn(*noted->dictionary()) : std::nullopt;
  if (!change && (record || isLost(record.error()))) end();
  if (!change) return std::nullopt;
  const plist::Value* kind = record->find(kKind);
  const auto number = kind ? kind->integer().value_or(0) : 0;
  return Left{std::move(*held), std::move(*change), static_cast<Kind>(number)};
}

}  // namespace host
