#pragma once

#include <span>
#include <string_view>

namespace kiv::database {

/// The scripts of the layout, first step first; every engine has the same. In a script a blank line ends a
/// statement, and nothing else does, so that a statement may hold semicolons of its own. A statement that
/// begins with the line `-- only ENGINE` is for that engine alone, and a word such as `@WITHOUT_ROWID@`
/// stands for what an engine calls it.
std::span<const std::string_view> SchemaSteps();

}  // namespace kiv::database
