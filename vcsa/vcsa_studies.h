#pragma once

namespace kiv {

/// Makes VCSA studies known: their record and their editor with its two tabs.
void RegisterVcsaStudies();

}  // namespace kiv
