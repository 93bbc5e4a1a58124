#include "core/field_rule.h"

#include <algorithm>
#include <utility>

#include "base/utf16.h"
#include "core/conversions.h"

namespace kiv {

namespace {

const std::string* TextIn(const Variant& value) {
  return std::get_if<std::string>(&value.Value());
}

std::string Quoted(std::string_view text) {
  return "\"" + std::string(text) + "\"";
}

}  // namespace

std::string FieldRule::FaultText(std::string_view field, const Variant& value) const {
  const std::string shown = value.IsNull() ? "empty" : TextIn(value) ? Quoted(ToText(value)) : ToText(value);
  return std::string(field) + " must be " + words + ", not " + shown;
}

FieldRule Between(std::int32_t low, std::int32_t high) {
  return {[low, high](const Variant& value) {
            const auto* number = std::get_if<std::int64_t>(&value.Value());
            return number && *number >= low && *number <= high;
          },
          "between " + std::to_string(low) + " and " + std::to_string(high)};
}

FieldRule YesOrNo() {
  return {[](const Variant& value) {
            const std::string* text = TextIn(value);
            return text && (*text == "Y" || *text == "N" || text->empty());
          },
          R"("Y" or "N")"};
}

FieldRule OneOf(std::vector<std::string_view> words) {
  std::string list;
  for (std::size_t i = 0; i < words.size(); ++i) {
    list += (i == 0                  ? ""
             : i + 1 == words.size() ? " or "
                                     : ", ") +
            (words[i].empty() ? std::string("empty") : Quoted(words[i]));
  }
  return {[words = std::move(words)](const Variant& value) {
            const std::string* text = TextIn(value);
            return text && std::ranges::find(words, *text) != words.end();
          },
          std::move(list)};
}

FieldRule MadeOf(std::function<bool(char16_t)> passes, std::string words) {
  return {[passes = std::move(passes)](const Variant& value) {
            const std::string* text = TextIn(value);
            return text && std::ranges::all_of(ToUtf16(*text), passes);
          },
          std::move(words)};
}

FieldRule NullOr(FieldRule rule) {
  return {[allows = std::move(rule.allows)](const Variant& value) { return value.IsNull() || allows(value); },
          std::move(rule.words)};
}

}  // namespace kiv
