#pragma once

#include "support/temp_folder.h"

namespace kiv::test {

/// A folder of its own for one test, which every user may enter and write, removed with what is in it.
struct OpenFolder : TempFolder {
  OpenFolder() : TempFolder(std::filesystem::temp_directory_path()) {
    std::filesystem::permissions(Path(), std::filesystem::perms::all);
  }
};

}  // namespace kiv::test
