#pragma once

namespace kiv {

/// Makes RF call trace studies known.
void RegisterRfcStudies();

}  // namespace kiv
