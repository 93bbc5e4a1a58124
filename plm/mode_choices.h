#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/field_rule.h"

/// What the pages offer for each measurement mode, and the words and numbers that are stored for it.
namespace kiv {

/// What is shown, and the word that is stored for it.
struct WordChoice {
  std::string_view text;
  std::string_view word;
};

/// What is shown, and the number that is stored for it.
struct NumberChoice {
  std::int32_t number;
  std::string_view text;
};

/// Ways of selecting channels.
namespace selection {
inline constexpr WordChoice kAutomatic = {"Automatic Method", "Auto"};
inline constexpr WordChoice kManual = {"Manual Method", "Manual"};
inline constexpr std::string_view kAllWord = "All";
inline constexpr std::string_view kNoMethodWord = "No Selection Method";
}  // namespace selection

inline constexpr std::string_view kExpand = "Expand";
inline constexpr std::string_view kRestrict = "Restrict";

inline constexpr std::array<WordChoice, 3> kSortings = {
    {{"Member Number", "Member"}, {"Channel Number", "Channel"}, {"Radio Number", "Radio"}}};
inline constexpr std::array<WordChoice, 2> kListEnds = {
    {{"From the Beginning", "Begin"}, {"From the End", "End"}}};

inline constexpr std::array kGenerationTypes = std::to_array<NumberChoice>({
    {0, "(2Gv) 2G Voice"},
    {1, "(2G3G) 2G and 3G1X Calls"},
    {2, "(3Gv) 3G1X Voice"},
    {3, "(3Gd) 3G1X Data"},
});

/// The methods of a TDMA/AMPS mode; none for one without a choice.
std::span<const WordChoice> SelectionMethods(std::int32_t mode);
/// The mode that stores a word of its own while no method is chosen.
inline constexpr std::int32_t kModeWithoutMethod = 6;
/// The service options of a CDMA mode in the order of its list; none for one without a choice.
std::span<const NumberChoice> ServiceOptions(std::int32_t mode);
/// Whether a CDMA mode has a generation type.
bool HasGenerationType(std::int32_t mode);

/// What is shown for a number; empty when none of the choices has it.
std::string TextOf(std::span<const NumberChoice> choices, std::int32_t number);

/// One of the words of a choice, or none.
FieldRule WordOf(std::span<const WordChoice> choices);
/// One of the numbers of a choice.
FieldRule NumberOf(std::span<const NumberChoice> choices);

}  // namespace kiv
