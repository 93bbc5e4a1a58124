#pragma once

#include <span>
#include <string>
#include <string_view>

#include "plm/mode_choices.h"
#include "ui/combo_box.h"

/// Drop-down lists whose entries are stored as words. An entry is found by its word, never by its place.
namespace kiv {

void FillWords(ui::ComboBox& list, std::span<const WordChoice> choices);

/// Selects the entry of a word; none when no entry has it.
void SelectWord(ui::ComboBox& list, std::span<const WordChoice> choices, std::string_view word);

/// The word of the selected entry; `whenNone` when none is selected.
std::string SelectedWord(const ui::ComboBox& list, std::span<const WordChoice> choices,
                         const std::string& whenNone);

}  // namespace kiv
