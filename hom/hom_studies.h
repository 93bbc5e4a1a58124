#pragma once

namespace kiv {

/// Makes HOM studies known: their record and their editor with its three tabs.
void RegisterHomStudies();

}  // namespace kiv
