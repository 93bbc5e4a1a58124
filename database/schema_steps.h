#pragma once

#include <span>
#include <string_view>

namespace kiv::database {

/// The scripts of the layout, first step first. In a script a blank line ends a statement, and nothing else
/// does, so that a statement may hold semicolons of its own.
std::span<const std::string_view> SqliteSchemaSteps();
std::span<const std::string_view> PostgresSchemaSteps();

}  // namespace kiv::database
