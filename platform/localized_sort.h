#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <numeric>
#include <string_view>
#include <vector>

#include "platform/services.h"

namespace platform {

// Sorts by what `text` gives of each item (a std::string of its own) in the collator's order; equal
// ones stay in theirs.
template <class Item, class Text = std::identity>
void sortLocalized(std::vector<Item>& items, Collator& collator, Text text = {}) {
  std::vector<std::string_view> texts;
  texts.reserve(items.size());
  for (const Item& item : items) texts.push_back(std::invoke(text, item));
  const auto keys = collator.sortKeys(texts);
  std::vector<std::size_t> order(items.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, [&](std::size_t a, std::size_t b) {
    const int byKeys = keys ? (*keys)[a].compare((*keys)[b]) : 0;
    return byKeys != 0 ? byKeys < 0 : collator.compare(texts[a], texts[b]) < 0;
  });
  std::vector<Item> sorted;
  sorted.reserve(items.size());
  for (const std::size_t index : order) sorted.push_back(std::move(items[index]));
  items = std::move(sorted);
}

}  // namespace platform
