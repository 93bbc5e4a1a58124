#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kiv::database {

/// A statement with question marks in the place of numbers.
struct SharedText {
  std::string text;
  std::vector<std::size_t> places;  ///< of the question marks that stand for numbers

  /// Whether a statement is this one with numbers, which are then taken. So says ShareText of it as well, but
  /// that takes longer.
  bool Fits(std::string_view sql, std::vector<std::int64_t>& numbers) const;
};

/// What statements that differ in numbers alone have in common. Only numbers of which nothing but their value
/// can matter are taken out: whole ones directly behind an equals sign in the outermost WHERE clause of a
/// SELECT, UPDATE or DELETE. There a number is no column of the result, whose name it would be part of, and
/// neither a position, as in ORDER BY, nor part of a type. Without places when there is none, or when the
/// text has parameters of its own.
SharedText ShareText(std::string_view sql, std::vector<std::int64_t>& numbers);

}  // namespace kiv::database
