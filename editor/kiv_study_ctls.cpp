#include "editor/kiv_study_ctls.h"

#include <algorithm>

#include "base/ascii.h"
#include "host/services.h"
#include "ui/text_box.h"

namespace kiv::MKivStudyCtls {

std::int32_t FindItemDataIndex(const ui::ItemList& list, std::int32_t data) {
  const auto found = std::ranges::find(list, data, &ui::ListItem::data);
  return found == list.end() ? ui::kNoSelection : static_cast<std::int32_t>(found - list.begin());
}

void NumericKeyFilter(std::int16_t& keyCode) {
  if (keyCode == ui::kBackspaceKey || IsAsciiDigit(static_cast<char16_t>(keyCode))) return;
  keyCode = 0;
  host::TheBeeper().Beep();
}

}  // namespace kiv::MKivStudyCtls
