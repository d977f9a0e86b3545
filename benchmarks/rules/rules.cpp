// One evaluation of the low-power page beside its bare cost: setting the 38 flags of its 19
// dependent rows by the state of the mode's switch, through 20 pointers looked up beforehand.
// Rounds of both are interleaved; medians are printed, and how often an evaluation allocates.
#include <array>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "benchmarks/rules/measure.h"
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

constexpr int kRounds = 501, kEvaluations = 2000;

// What an evaluation can't do without.
struct Bare {
  explicit Bare(prefs::LowPowerListController& page) {
    mode = dynamic_cast<uikit::Switch*>(
        page.getViewForID(std::string(prefs::key::lowpowermodeenabled)));
    std::size_t next = 0;
    for (const prefs::DependencyRule& rule : page.rules().first(cells.size()))
      cells[next++] = page.getCellForID(std::string(rule.dependentRow));
  }

  void run() const {
    const bool enabled = !mode->isOn();
    for (uikit::TableViewCell* cell : cells) {
      cell->setUserInteractionEnabled(enabled);
      cell->setAlpha(enabled ? 1.0 : prefs::kDimmedOpacity);
    }
  }

  uikit::Switch* mode;
  std::array<uikit::TableViewCell*, 19> cells{};
};

template <class Evaluation>
double nanosecondsOfOne(Evaluation evaluation) {
  return bench::nanosecondsFor([&] {
           for (int i = 0; i < kEvaluations; ++i) {
             evaluation();
             asm volatile("" ::: "memory");
           }
         }) /
         kEvaluations;
}

}  // namespace

int main() {
  testing_support::TestDevice device(prefs::bundle());
  auto page = std::make_shared<prefs::LowPowerListController>(device.environment);
  for (auto& row : page->specifiers()) page->buildRow(*row);
  const Bare bare(*page);

  const long before = allocations;
  for (int i = 0; i < kEvaluations; ++i) page->scrollViewDidScroll(nullptr);
  const long allocated = allocations - before;

  std::vector<double> evaluated, set, ratios;
  for (int round = 0; round < kRounds; ++round) {
    bare.mode->setOn(round % 2 == 1);
    evaluated.push_back(nanosecondsOfOne([&] { page->scrollViewDidScroll(nullptr); }));
    set.push_back(nanosecondsOfOne([&] { bare.run(); }));
    ratios.push_back(evaluated.back() / set.back());
  }
  std::printf("one evaluation        %7.1f ns\n", bench::median(evaluated));
  std::printf("38 flags, 20 pointers %7.1f ns\n", bench::median(set));
  std::printf("ratio within a round  %7.2f\n", bench::median(ratios));
  std::printf("allocations           %7ld in %d evaluations\n", allocated, kEvaluations);
}
