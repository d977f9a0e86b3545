#include "platform/foundation/damaged_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <vector>

namespace foundation {
namespace {

using platform::Result;

constexpr std::size_t kKept = 5;

std::string asideName(const std::string& name, std::uint64_t number) {
  return name + ".unreadable-" + std::to_string(number);
}

// In rising order.
Result<std::vector<std::uint64_t>> numbersOf(const Directory& folder, const std::string& name) {
  const auto names = folder.names();
  if (!names) return names.error();
  std::vector<std::uint64_t> numbers;
  for (const std::string& each : *names) {
    const std::size_t digits = each.find_last_not_of("0123456789") + 1;
    std::uint64_t number = 0;
    std::from_chars(each.data() + digits, each.data() + each.size(), number);
    if (number > 0 && each == asideName(name, number)) numbers.push_back(number);
  }
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

}  // namespace

Result<std::string> keepAside(const Directory& folder, const std::string& name) {
  const auto numbers = numbersOf(folder, name);
  if (!numbers) return numbers.error();
  std::string aside = asideName(name, numbers->empty() ? 1 : numbers->back() + 1);
  if (linkat(folder.descriptor(), name.c_str(), folder.descriptor(), aside.c_str(), 0) != 0)
    return folder.error(name, errno, "keep aside as " + aside);
  return aside;
}

void removeOldest(const Directory& folder, const std::string& name) {
  const auto numbers = numbersOf(folder, name);
  if (!numbers || numbers->size() <= kKept) return;
  for (std::size_t i = 0; i + kKept < numbers->size(); ++i)
    unlinkat(folder.descriptor(), asideName(name, (*numbers)[i]).c_str(), 0);
}

}  // namespace foundation
