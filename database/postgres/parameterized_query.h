#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kiv::database {

/// A statement text with parameters in place of some of its numbers.
struct ParameterizedQuery {
  std::string text;
  std::vector<std::string> numbers;  ///< of the type int4, as which the server reads them in the text too
};

/// The text that a query shares with those that differ from it only in whole numbers behind an equals sign.
/// Where a parameter could mean anything else than the number, and where an order that nobody asked for could
/// become another one, the text stays as it is.
ParameterizedQuery Parameterized(std::string_view sql);

/// The query that calls a stored function with its one text argument as parameter.
std::string FunctionCall(std::string_view name);

}  // namespace kiv::database
