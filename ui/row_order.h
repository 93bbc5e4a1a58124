#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace kiv::ui {

enum class SortDirection { Ascending, Descending };

/// Sorts row numbers by the text of each, character by character; `texts` stand in the order of `rows`. Rows
/// with the same text stand in the order of their numbers.
void SortRowsByText(std::vector<std::uint32_t>& rows, SortDirection direction,
                    const std::vector<std::string_view>& texts);

/// The same by a key of each row, which is a text or a number. Each key is asked for once.
template <class KeyOf>
void SortRows(std::vector<std::uint32_t>& rows, SortDirection direction, const KeyOf& keyOf) {
  using Key = std::decay_t<decltype(keyOf(std::uint32_t{}))>;
  if constexpr (std::is_convertible_v<Key, std::string_view>) {
    std::vector<Key> keys(rows.size());
    std::transform(rows.begin(), rows.end(), keys.begin(), keyOf);
    SortRowsByText(rows, direction, {keys.begin(), keys.end()});
  } else {
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
}

}  // namespace kiv::ui
