// One evaluation of the low-power page beside its bare cost: setting the 38 flags of its 19
// dependent rows by the state of the mode's switch, through 20 pointers looked up beforehand.
#include <array>
#include <new>

#include "benchmarks/race.h"
#include "prefs/keys.h"
#include "prefs/pages/option_pages.h"
#include "prefs/resources/bundle.h"
#include "tests/support/environment.h"

namespace {

long allocations = 0;

}  // namespace

void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace {

constexpr int kEvaluations = 2000;

// What an evaluation can't do without.
struct Bare {
  explicit Bare(prefs::LowPowerListController& page) {
    mode = dynamic_cast<uikit::Switch*>(
        page.getViewForID(std::string(prefs::key::lowpowermodeenabled)));
    std::size_t next = 0;
    for (const prefs::DependencyRule& rule : page.rules().first(cells.size()))
      cells[next++] = page.getCellForID(std::string(rule.dependentRow));
  }

  // Compiled by itself, so that what is around it changes nothing.
  [[gnu::noinline]] void run() const {
    const bool enabled = !mode->isOn();
    for (uikit::TableViewCell* cell : cells) {
      cell->setUserInteractionEnabled(enabled);
      cell->setAlpha(enabled ? 1.0 : prefs::kDimmedOpacity);
    }
  }

  uikit::Switch* mode;
  std::array<uikit::TableViewCell*, 19> cells{};
};

void lowPower(bench::Race& race) {
  testing_support::TestDevice device(prefs::bundle());
  auto page = std::make_shared<prefs::LowPowerListController>(device.environment);
  for (auto& row : page->specifiers()) page->buildRow(*row);
  const Bare bare(*page);

  page->scrollViewDidScroll(nullptr);
  const long before = allocations;
  for (int i = 0; i < kEvaluations; ++i) page->scrollViewDidScroll(nullptr);
  race.note("allocations", static_cast<double>(allocations - before) / kEvaluations);

  bool on = false;
  race.add("ours", [&] { page->scrollViewDidScroll(nullptr); });
  race.add("38 flags", [&] {
    bare.run();
    bench::keep(&bare);
  });
  race.run(bench::Clock::Processor, 1, [&] { bare.mode->setOn(on = !on); });
}

}  // namespace

int main(int count, char** arguments) {
  return bench::runRow(count, arguments, {{"lowpower", lowPower}});
}
