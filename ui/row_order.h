#pragma once

#include <algorithm>
#include <cstdint>
#include <type_traits>
#include <utility>
#include <vector>

namespace kiv::ui {

enum class SortDirection { Ascending, Descending };

/// Sorts row numbers by a key of each row; rows with the same key stand in the order of their numbers. Each
/// key is asked for once.
template <class KeyOf>
void SortRows(std::vector<std::uint32_t>& rows, SortDirection direction, const KeyOf& keyOf) {
  using Key = std::decay_t<decltype(keyOf(std::uint32_t{}))>;
  std::vector<std::pair<Key, std::uint32_t>> keys;
  keys.reserve(rows.size());
  for (const std::uint32_t row : rows) keys.emplace_back(keyOf(row), row);
  if (direction == SortDirection::Ascending) {
    std::sort(keys.begin(), keys.end());
  } else {
    std::sort(keys.begin(), keys.end(), [](const auto& left, const auto& right) {
      return left.first != right.first ? left.first > right.first : left.second < right.second;
    });
  }
  std::transform(keys.begin(), keys.end(), rows.begin(), [](const auto& key) { return key.second; });
}

}  // namespace kiv::ui
