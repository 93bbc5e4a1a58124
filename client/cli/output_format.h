#pragma once

namespace kiv::client {

/// For people or for programs.
enum class OutputFormat { Text, Json };

}  // namespace kiv::client
