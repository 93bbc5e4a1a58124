#pragma once

#include <cstdint>

#include "core/kiv_study_ctls.h"
#include "ui/combo_box.h"

/// The small functions that know controls.
namespace kiv::MKivStudyCtls {

/// Index of the first entry whose item data equals the value; -1 when there is none.
std::int32_t FindItemDataIndex(const ui::ItemList& list, std::int32_t data);

/// Key filter of numeric boxes: lets Backspace and digits pass, swallows any other key with a beep.
void NumericKeyFilter(std::int16_t& keyCode);

}  // namespace kiv::MKivStudyCtls
