// operations: does each hot operation once, in the order in which --names prints their names,
// inside of calls of `measured`; callgrind counts what such a call takes. Each has been done once
// before.
// --compiler prints what this was compiled by and with.
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/auxv.h>
#include <sys/syscall.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>

#include "benchmarks/codec/profile.h"
#include "host/application.h"
#include "host/describe.h"
#include "platform/archive/keyed_archive.h"
#include "platform/localized_sort.h"
#include "prefs/core/names.h"
#include "prefs/pages/option_pages.h"
#include "prefs/profiles/saved_profiles.h"
#include "prefs/profiles/triggers.h"
#include "prefs/resources/bundle.h"
#include "services/lazy_services.h"
#include "tests/support/environment.h"

using Work = std::function<void()>;

extern "C" [[gnu::noinline]] void measured(const Work& work) {
  work();
  asm volatile("" ::: "memory");
}

// The linker makes calls of syscall calls of this. valgrind before 3.20 doesn't know openat2, so
// its paths are looked up as openat does; the kernel's own instructions aren't counted in any case.
extern "C" long __real_syscall(long number, ...);
extern "C" long __wrap_syscall(long number, ...) {
  va_list list;
  va_start(list, number);
  long arguments[6];
  for (long& argument : arguments) argument = va_arg(list, long);
  va_end(list);
  const auto& [a, b, c, d, e, f] = arguments;
  if (number != SYS_openat2) return __real_syscall(number, a, b, c, d, e, f);
  const auto* path = reinterpret_cast<const char*>(b);
  const auto* how = reinterpret_cast<const open_how*>(c);
  path += std::strspn(path, "/");
  return openat(static_cast<int>(a), *path ? path : ".", static_cast<int>(how->flags),
                static_cast<mode_t>(how->mode));
}

// Tables of texts are seeded with what the kernel gives each process; here always the same, so that
// the counts are too.
extern "C" unsigned long __real_getauxval(unsigned long type);
extern "C" unsigned long __wrap_getauxval(unsigned long type) {
  static constexpr char kSeed[] = "the same seed in";
  return type == AT_RANDOM ? reinterpret_cast<unsigned long>(kSeed) : __real_getauxval(type);
}

namespace {

constexpr int kKeys = 200;

void expect(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "operations: not done: %s\n", what);
  std::exit(1);
}

void run(const Work& work) {
  work();
  measured(work);
}

void decode() {
  const auto bytes = *archive::archive(typicalProfile(), archive::Mutability::Mutable);
  run([&] { expect(bool(archive::unarchive(plist::Bytes(bytes))), "decode"); });
}

void encode() {
  const plist::Value profile = typicalProfile();
  run([&] { expect(bool(archive::archive(profile, archive::Mutability::Mutable)), "encode"); });
}

void list() {
  testing_support::TestDevice device(prefs::bundle());
  services::UserCollator collator;
  const preferences::Environment user{
      device.root, device.preferences, device.center, device.queue, device.darwin,  collator,
      device.urls, device.addressBook, device.sounds, device.xml,   prefs::bundle()};
  for (const plist::Value& trigger : prefs::triggerValues()) {
    plist::Dictionary profile = typicalProfile();
    profile.set(prefs::kProfilePercentage, trigger);
    const std::string path = std::string(prefs::kDocuments) + "profile_" + *trigger.text() + ".qvx";
    expect(bool(device.root.writeDurably(path,
                                         *archive::archive(profile, archive::Mutability::Mutable))),
           "a written profile");
  }
  run([&] {
    expect(prefs::savedProfiles(user, prefs::TitleForm::WithDescription).titles.size() == 108,
           "list");
  });
}

// A device with a domain of 200 keys.
struct Stored : testing_support::TestDevice {
  Stored() : TestDevice(prefs::bundle()) {
    plist::Dictionary values;
    for (int i = 0; i < kKeys; ++i) values.set("setting_" + std::to_string(i), i);
    expect(bool(preferences.setMultiple(values, {}, prefs::kDomain)), "200 keys");
  }
};

void set() {
  Stored device;
  int value = 0;
  run([&] {
    expect(bool(device.preferences.setAppValue("setting_7", --value, prefs::kDomain)) &&
               bool(device.preferences.synchronize()),
           "set");
  });
}

void get() {
  Stored device;
  run([&] {
    foundation::Preferences fresh(device.root);
    expect(fresh.copyAppValue("setting_7", prefs::kDomain) == plist::Value(7), "get");
  });
}

void sort() {
  services::UserCollator collator;
  std::vector<std::string> titles;
  for (int i = 0; i < 108; ++i)
    titles.push_back("Battery " + std::to_string(i * 37 % 108 + 1) + "%" +
                     (i % 3 == 0 ? " - Night" : ""));
  run([&] {
    auto sorted = titles;
    platform::sortLocalized(sorted, collator);
    expect(sorted.front().starts_with("Battery 1%"), "sort");
  });
}

void lowPower() {
  testing_support::TestDevice device(prefs::bundle());
  auto page = std::make_shared<prefs::LowPowerListController>(device.environment);
  for (auto& row : page->specifiers()) page->buildRow(*row);
  run([&] { page->scrollViewDidScroll(nullptr); });
}

void scene() {
  testing_support::TestDevice device(prefs::bundle());
  run([&] {
    host::Application application(device.environment, 12);
    expect(bool(application.perform(host::Launch{"PowerSavingListController"})), "a page");
    expect(!host::describe(application).pages.empty(), "a scene");
  });
}

struct Operation {
  const char* name;
  void (*run)();
};

constexpr Operation kOperations[] = {{"decode a profile", decode},
                                     {"encode a profile", encode},
                                     {"list 108 profiles", list},
                                     {"set one key of 200", set},
                                     {"get one key of 200", get},
                                     {"sort 108 titles", sort},
                                     {"evaluate the low-power page", lowPower},
                                     {"first scene of a page", scene}};

}  // namespace

int main(int count, char** arguments) {
  const std::string_view what = count == 2 ? arguments[1] : "";
  if (what == "--compiler") std::puts(COMPILED_BY);
  for (const Operation& operation : kOperations) {
    if (what == "--names") std::puts(operation.name);
    if (what.empty()) operation.run();
  }
}
