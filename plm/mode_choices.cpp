#include "plm/mode_choices.h"

#include <algorithm>
#include <vector>

namespace kiv {

namespace {

constexpr std::array kMode2Methods = {selection::kAutomatic, selection::kManual};
constexpr std::array kMode5Methods = {selection::kAutomatic, selection::kManual,
                                      WordChoice{"Study All Channels (not CDMA/AMPS)", selection::kAllWord}};
constexpr std::array kMode6Methods = {WordChoice{"Study All Channels", selection::kAllWord},
                                      selection::kManual};

constexpr std::array kFer1Options = std::to_array<NumberChoice>({
    {0, "(8k) 2G Voice 8K RC1"},
    {1, "(13k) 2G Voice 13K RC2"},
    {2, "(EVRC) 2G Voice EVRC RC1"},
    {17, "(2GSMV) 2G Voice Selectable Mode Vocoder RC1"},
    {3, "(3G8k) 3G1X Voice 8K RC3"},
    {4, "(3G13k) 3G1X Voice 13K RC4"},
    {5, "(3EVRC) 3G1X Voice EVRC RC3"},
    {18, "(3GSMV) 3G Voice Selectable Mode Vocoder RC3"},
    {6, "(9R3) 3G1X Data FCH 9.6 kbps RC3"},
    {7, "(19R3) 3G1X Data SCH 19.2 kbps RC3"},
    {8, "(38R3) 3G1X Data SCH 38.4 kbps RC3"},
    {9, "(76R3) 3G1X Data SCH 76.8 kbps RC3"},
    {10, "(153R3) 3G1X Data SCH 153.6 kbps RC3"},
});
constexpr std::array kFer2Options = std::to_array<NumberChoice>({
    kFer1Options[1],
    kFer1Options[9],
    kFer1Options[10],
    kFer1Options[11],
    kFer1Options[12],
    {11, "(19R4) 3G1X Data SCH 19.2 kbps RC4"},
    {12, "(38R4) 3G1X Data SCH 38.4 kbps RC4"},
    {13, "(76R4) 3G1X Data SCH 76.8 kbps RC4"},
    {14, "(153R4) 3G1X Data SCH 153.6 kbps RC4"},
    {15, "(13kR5) 3G1X Voice 13K RC5"},
});

}  // namespace

std::span<const WordChoice> SelectionMethods(std::int32_t mode) {
  switch (mode) {
    case 2: return kMode2Methods;
    case 5: return kMode5Methods;
    case 6: return kMode6Methods;
    default: return {};
  }
}

std::span<const NumberChoice> ServiceOptions(std::int32_t mode) {
  switch (mode) {
    case 7: return kFer1Options;
    case 8: return kFer2Options;
    default: return {};
  }
}

bool HasGenerationType(std::int32_t mode) {
  return mode >= 11 && mode <= 15;
}

std::string TextOf(std::span<const NumberChoice> choices, std::int32_t number) {
  const auto found = std::ranges::find(choices, number, &NumberChoice::number);
  return found == choices.end() ? std::string() : std::string(found->text);
}

FieldRule WordOf(std::span<const WordChoice> choices) {
  std::vector<std::string_view> words;
  for (const WordChoice& choice : choices) words.push_back(choice.word);
  FieldRule rule = OneOf(words);
  words.emplace_back();
  return {OneOf(words).allows, std::move(rule.words)};
}

FieldRule NumberOf(std::span<const NumberChoice> choices) {
  std::string words = "one of";
  for (const NumberChoice& choice : choices) words += " " + std::to_string(choice.number);
  return {[choices](const Variant& value) {
            const auto* number = std::get_if<std::int64_t>(&value.Value());
            return number && std::ranges::find(choices, *number, &NumberChoice::number) != choices.end();
          },
          std::move(words)};
}

}  // namespace kiv
