#include "sample_vcsa.h"

#include <array>
#include <string>

namespace kiv::bench {

void FillVcsaStudy(CKivVcsData& data, int cells) {
  std::array<std::string, CKivVcsData::kTexts> texts;
  texts.fill("N");
  data.Initialize(data.ID(), texts);
  for (int i = 1; i <= cells; ++i) {
    const int ecp = 1 + (i - 1) / 100;
    data.AddCell(i, 1, ecp, i);
    CCell& cell = AsCell(data.Cells()->Item("Cell:" + std::to_string(i)));
    for (int antenna = 1; antenna <= 6; ++antenna) cell.AddAntenna(0, 1, ecp, i, antenna, antenna == 1);
    for (const char* carrier : {"384", "425", "466"}) {
      cell.AddCarrier(0, "1", std::to_string(ecp), std::to_string(i), carrier, false);
    }
  }
}

}  // namespace kiv::bench
