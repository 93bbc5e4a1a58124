#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace kiv::client {

/// Prints lines with the same number of columns so that each column begins at the same place. The texts may
/// be anything.
void PrintTable(std::vector<std::vector<std::string>> lines, std::ostream& out);

}  // namespace kiv::client
