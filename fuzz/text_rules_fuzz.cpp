// Texts as users enter them: UTF-8, numbers, file names by a pattern, boxes with and without a mask.

#include <cmath>
#include <cstdlib>

#include "base/error.h"
#include "base/utf16.h"
#include "core/conversions.h"
#include "core/kiv_study_ctls.h"
#include "core/numeric_text.h"
#include "editor/name_preview.h"
#include "fuzz/studies.h"
#include "fuzz/target.h"
#include "ui/masked_edit.h"
#include "ui/text_box.h"

using namespace kiv;
using namespace kiv::fuzz;

namespace {

constexpr std::int64_t kMostExact = (std::int64_t{1} << 40) - 1;

void CheckUtf8(const std::string& text) {
  const std::string proper = ToUtf8(ToUtf16(text));
  Require(ToUtf8(ToUtf16(proper)) == proper, "proper UTF-8 stays as it is", text);
  Require(CharacterCount(text) == ToUtf16(text).size(), "characters are counted", text);
}

/// What a text with few digits is, by the machine's own arithmetic, which rounds half to even.
void CheckAgainstMachine(const std::string& text, std::int64_t number) {
  constexpr std::size_t kExactDigits = 15;
  if (text.size() > kExactDigits) return;
  const double expected = std::nearbyint(std::strtod(text.c_str(), nullptr));
  Require(expected == static_cast<double>(number), "a number is its digits", text);
}

void CheckNumber(const std::string& text) {
  const auto number = ParseNumber(text);
  const std::string blanks = "  " + text + " ";
  Require(ParseNumber(blanks) == number, "blanks do not count", text);
  const std::int32_t held = NumberOr(text, -1);
  try {
    const std::int32_t value = ToInt32(Variant(text));
    Require(number == value && held == value && IsNumberBetween(text, value, value), "a number is a number",
            text);
  } catch (const Error& error) {
    Require(number.has_value() == (error.Number() == ErrorNumber::Overflow), "a refusal tells the reason",
            text);
  }
  if (!number) return Require(held == -1 && !IsNumberBetween(text, INT32_MIN, INT32_MAX), "no number", text);
  if (std::abs(*number) > kMostExact) return;  // as large as numbers that are only known to be too large
  Require(ParseNumber(std::to_string(*number)) == number, "a number that is written can be read", text);
  CheckAgainstMachine(std::string(Trimmed(text)), *number);
}

void CheckPattern(const std::string& pattern) {
  const NameTokens tokens = {.time = TheHost().session->now, .user = "ops", .studyId = 12};
  const std::string name = ExpandNamePattern(pattern, tokens);
  if (pattern.find('$') == std::string::npos) Require(name == pattern, "what is no token stays", pattern);
  Require(ExpandNamePattern(pattern + "$YY", tokens) == name + "26" || pattern.ends_with('$'),
          "a token is expanded wherever it stands", pattern);
  Require(MKivStudyCtls::PatternNameLength(pattern) >= 0, "a length is no debt", pattern);
}

void CheckPlaces(const auto& box, const std::string& story) {
  const std::size_t length = CharacterCount(box.Text());
  Require(box.CaretPosition() <= length && box.AnchorPosition() <= length, "the caret is in the text", story);
  Require(ToUtf8(ToUtf16(box.Text())) == box.Text(), "what is shown is UTF-8", story + "|" + box.Text());
}

/// Verbs, each a line: a letter that says which, and the text or the length that belongs to it.
void WorkBox(auto& box, Input& input, const auto& check) {
  std::string story;
  while (!input.Empty()) {
    const std::string line = input.Line();
    story += line + '\n';
    if (line.empty()) continue;
    const std::string text = ToUtf8(ToUtf16(line.substr(1)));
    switch (line[0]) {
      case 't': box.Type(text); break;
      case 'p': box.Paste(text); break;
      case 'b': box.Backspace(); break;
      case 'd': box.Delete(); break;
      case 's': box.Select(text.size(), text.size() / 2); break;
      case 'e': box.Edit(text, text.size() / 2); break;
      case 'E': box.Edit(box.Text() + text, CharacterCount(box.Text() + text)); break;
      default: box.SetText(ui::OneLine(text));  // what a program sets stays as it is
    }
    CheckPlaces(box, story);
    check(story);
  }
}

void WorkMaskedBox(Input& input) {
  const std::string mask = ToUtf8(ToUtf16(input.Line()));
  ui::MaskedEdit box(nullptr, "box");
  box.SetMask(mask);
  WorkBox(box, input, [&](const std::string& story) {
    if (mask.empty()) return Require(box.Text() == box.ClipText(), "without a mask all is shown", story);
    Require(box.ClipText().find_first_not_of("0123456789") == std::string::npos, "digits only", story);
    ui::MaskedEdit twin(nullptr, "twin");
    twin.SetMask(mask);
    twin.SetText(box.ClipText());
    Require(twin.Text() == box.Text(), "what is shown comes from the digits alone", story);
  });
}

void WorkTextBox(Input& input) {
  ui::TextBox box(nullptr, "box");
  WorkBox(box, input, [&](const std::string& story) {
    ui::TextBox twin(nullptr, "twin");
    twin.Paste(box.Text());
    const auto shown = ui::Trimmed(box.Text());
    Require(ui::Trimmed(twin.Text()) == shown, "what is copied can be pasted", story);
  });
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  TheHost();
  Input input(data, size);
  switch (input.Below(4)) {
    case 0: {
      const std::string text = input.Rest();
      CheckUtf8(text);
      CheckNumber(text);
      break;
    }
    case 1: CheckPattern(input.Rest()); break;
    case 2: WorkMaskedBox(input); break;
    default: WorkTextBox(input);
  }
  return 0;
}
