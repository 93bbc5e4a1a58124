#pragma once

#include <string>
#include <vector>

#include "store/studies/study_store.h"

namespace kiv::test {

/// Makes the study kinds known and names them; each can be filled.
std::vector<std::string> RichKinds();

/// Gives a study content with long lists. Two variants differ in every field and in the length of each list.
void Fill(store::Study& study, int variant);

/// All that is stored of a study but its revision.
std::string Content(const store::Study& study);

}  // namespace kiv::test
