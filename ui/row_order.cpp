#include "ui/row_order.h"

#include <cstddef>
#include <iterator>

namespace kiv::ui {

namespace {

constexpr std::size_t kStep = sizeof(std::uint64_t);
constexpr std::size_t kMostSteps = 8;  // texts that are alike for longer are few

/// Some characters of a row's text as one number, because comparing long texts that begin alike takes most of
/// the time of a sort.
struct SortedRow {
  std::uint64_t characters;
  std::uint32_t number;
  std::uint32_t text;
};
using Place = std::vector<SortedRow>::iterator;

std::uint64_t CharactersAt(std::string_view text, std::size_t from) {
  std::uint64_t characters = 0;
  for (std::size_t i = from; i < from + kStep; ++i) {
    characters = characters << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
  }
  return characters;
}

void SortWhole(Place begin, Place end, SortDirection direction, const std::vector<std::string_view>& texts) {
  std::sort(begin, end, [&](const SortedRow& left, const SortedRow& right) {
    const int order = texts[left.text].compare(texts[right.text]);
    if (order == 0) return left.number < right.number;
    return direction == SortDirection::Ascending ? order < 0 : order > 0;
  });
}

/// Sorts rows whose texts are alike before a character.
void SortFrom(std::size_t from, Place begin, Place end, SortDirection direction,
              const std::vector<std::string_view>& texts) {
  if (from == kMostSteps * kStep) return SortWhole(begin, end, direction, texts);
  for (Place row = begin; row != end; ++row) {
    row->characters = CharactersAt(texts[row->text], from);
    if (direction == SortDirection::Descending) row->characters = ~row->characters;
  }
  const auto before = [](const SortedRow& left, const SortedRow& right) {
    return left.characters != right.characters ? left.characters < right.characters
                                               : left.number < right.number;
  };
  if (!std::is_sorted(begin, end, before)) std::sort(begin, end, before);
  while (begin != end) {
    const Place next = std::find_if(begin, end, [characters = begin->characters](const SortedRow& row) {
      return row.characters != characters;
    });
    const bool goesOn =
        std::any_of(begin, next, [&](const SortedRow& row) { return texts[row.text].size() > from + kStep; });
    if (goesOn && std::distance(begin, next) > 1) SortFrom(from + kStep, begin, next, direction, texts);
    begin = next;
  }
}

}  // namespace

void SortRowsByText(std::vector<std::uint32_t>& rows, SortDirection direction,
                    const std::vector<std::string_view>& texts) {
  std::vector<SortedRow> sorted(rows.size());
  for (std::uint32_t i = 0; i < rows.size(); ++i) sorted[i] = {0, rows[i], i};
  SortFrom(0, sorted.begin(), sorted.end(), direction, texts);
  std::transform(sorted.begin(), sorted.end(), rows.begin(), [](const SortedRow& row) { return row.number; });
}

}  // namespace kiv::ui
