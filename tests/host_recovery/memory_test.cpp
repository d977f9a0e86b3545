// What is destroyed while there is no memory left. A program of its own: it replaces operator new.
#include <cstdlib>
#include <new>

#include "tests/host_recovery/backed_up_device.h"

namespace {

bool noMemory = false;

}  // namespace

void* operator new(std::size_t size) {
  void* place = noMemory ? nullptr : std::malloc(size);
  if (!place) throw std::bad_alloc();
  return place;
}
void operator delete(void* place) noexcept {
  std::free(place);
}
void operator delete(void* place, std::size_t) noexcept {
  std::free(place);
}

namespace {

using namespace recovery_test;

struct HostWithoutMemory : testing::Test {
  BackedUpDevice device;
};

TEST_F(HostWithoutMemory, AChangeThatEndsIsForgotten) {
  device.set("vpn", 1);
  {
    const host::UserChange change(device.backups.get(), "set wifi");
    EXPECT_TRUE(device.preferences.setAppValue("wifi", 1, prefs::kDomain));
    noMemory = true;
  }
  noMemory = false;
  EXPECT_FALSE(device.backups->isChanging());
  const auto undone = host::undo(device.environment, *device.backups);
  ASSERT_TRUE(undone);
  EXPECT_EQ(undone->what, "set vpn");
}

TEST_F(HostWithoutMemory, ALoadThatEndsKeepsItsNote) {
  seed::archive(device, "profile_20.qvx",
                plist::Dictionary{{"profilepercentage", "20"}, {"wifi", 2}});
  const std::string path = prefs::profilePath(20);
  auto guarded = device.backups->guard({::preferences::ProfileStep::Load, path});
  ASSERT_TRUE(guarded);
  const auto note = device.stateFolder() / "load";
  noMemory = true;
  guarded.reset();
  noMemory = false;
  EXPECT_TRUE(std::filesystem::exists(note));
  device.backups->prepare();
  EXPECT_FALSE(std::filesystem::exists(note));
}

}  // namespace
