#include "plm/word_list.h"

#include <algorithm>
#include <utility>

namespace kiv {

void FillWords(ui::ComboBox& list, std::span<const WordChoice> choices) {
  ui::ItemList items;
  for (const WordChoice& choice : choices) {
    items.push_back({std::string(choice.text), static_cast<std::int32_t>(items.size())});
  }
  list.SetItems(std::move(items));
}

void SelectWord(ui::ComboBox& list, std::span<const WordChoice> choices, std::string_view word) {
  const auto found = std::find_if(choices.begin(), choices.end(),
                                  [word](const WordChoice& choice) { return choice.word == word; });
  list.SetListIndex(found == choices.end() ? ui::kNoSelection : static_cast<int>(found - choices.begin()));
}

std::string SelectedWord(const ui::ComboBox& list, std::span<const WordChoice> choices,
                         const std::string& whenNone) {
  if (list.ListIndex() == ui::kNoSelection) return whenNone;
  return std::string(choices[static_cast<std::size_t>(list.ListIndex())].word);
}

}  // namespace kiv
