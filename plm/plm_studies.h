#pragma once

namespace kiv {

/// Makes PLM studies known: their record and their editor with its three tabs.
void RegisterPlmStudies();

}  // namespace kiv
