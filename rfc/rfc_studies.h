#pragma once

namespace kiv {

/// Makes RF call trace studies known: their record and their editor with its three tabs.
void RegisterRfcStudies();

}  // namespace kiv
