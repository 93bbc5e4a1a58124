#include "store/exchange/json.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <iterator>
#include <utility>

#include "base/steering.h"
#include "base/utf16.h"
#include "core/conversions.h"

namespace kiv::store {

namespace {

Json JsonOf(const Variant& value) {
  if (const auto* number = std::get_if<std::int64_t>(&value.Value())) return *number;
  if (value.IsNull()) return nullptr;
  return ToText(value);
}

Json JsonOf(const StoredEntry& entry) {
  Json json = Json::object();
  for (const NamedValue& field : entry.fields) json[std::string(field.name)] = JsonOf(field.value);
  for (const StoredList& list : entry.lists) {
    const bool plain = IsPlain(list);
    Json entries = Json::array();
    for (const StoredEntry& inner : list.entries) {
      entries.push_back(plain ? JsonOf(inner.fields[0].value) : JsonOf(inner));
    }
    json[std::string(list.name)] = std::move(entries);
  }
  return json;
}

/// Whether a text stands in JSON as it is.
bool IsPlainText(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return c >= ' ' && c < 0x7F && c != '"' && c != '\\'; });
}

/// JSON has escapes of its own for characters below a blank; the other ones stand in texts only.
std::string WithoutSteering(std::string json) {
  if (std::ranges::all_of(json, [](char c) { return c < 0x7F && c >= 0; })) return json;
  const std::u16string units = ToUtf16(json);
  std::u16string escaped;
  for (const char16_t unit : units) {
    if (unit < ' ' || !IsSteering(unit)) {
      escaped += unit;
      continue;
    }
    char number[16];
    std::snprintf(number, sizeof number, "\\u%04x", static_cast<unsigned>(unit));
    escaped += ToUtf16(number);
  }
  return ToUtf8(escaped);
}

std::string CompactJson(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

void Append(const Variant& value, std::string& text) {
  const auto* string = std::get_if<std::string>(&value.Value());
  if (string && !IsPlainText(*string)) {
    text += CompactJson(*string);
  } else if (string) {
    text.append("\"").append(*string).append("\"");
  } else if (const auto* number = std::get_if<std::int64_t>(&value.Value())) {
    char digits[24];
    text.append(digits, std::to_chars(std::begin(digits), std::end(digits), *number).ptr);
  } else {
    text += CompactJson(JsonOf(value));
  }
}

void Append(const std::vector<NamedValue>& fields, const std::vector<StoredList>& lists, std::string& text) {
  char separator = '{';
  const auto name = [&](std::string_view key) {
    text += std::exchange(separator, ',');
    text.append("\"").append(key).append("\":");
  };
  for (const NamedValue& field : fields) {
    name(field.name);
    Append(field.value, text);
  }
  for (const StoredList& list : lists) {
    name(list.name);
    text += '[';
    const bool plain = IsPlain(list);
    for (const StoredEntry& entry : list.entries) {
      if (&entry != list.entries.data()) text += ',';
      if (plain) {
        Append(entry.fields[0].value, text);
      } else {
        Append(entry.fields, entry.lists, text);
      }
    }
    text += ']';
  }
  text += separator == '{' ? "{}" : "}";
}

/// All but what belongs to the kind.
Json SharedContentOf(const Study& study, const std::string& scenario) {
  const CKivStudyData& record = *study.record;
  Json json = {{key::kKind, record.AppName()},
               {key::kName, study.name},
               {key::kScenario, scenario.empty() ? Json() : Json(scenario)}};
  for (const SharedNumber& number : kSharedNumbers) json[number.name] = NumberOrNull((record.*number.get)());
  return json;
}

Variant ValueOf(const Json& json) {
  if (json.is_null()) return {};
  if (json.is_string()) return json.get_ref<const std::string&>();
  const bool tooLarge = json.is_number_unsigned() && json.get<std::uint64_t>() > INT64_MAX;
  if (json.is_number_integer() && !tooLarge) return json.get<std::int64_t>();
  if (json.is_number()) return json.get<double>();
  return true;
}

}  // namespace

std::string ShownJson(const Json& json, BadText badText) {
  using Handler = Json::error_handler_t;
  return WithoutSteering(
      json.dump(2, ' ', false, badText == BadText::Raises ? Handler::strict : Handler::replace));
}

Json NumberOrNull(std::int32_t number) {
  return number == CKivStudyData::kNotGiven ? Json() : Json(number);
}

bool IsPlain(const StoredList& list) {
  return std::all_of(list.entries.begin(), list.entries.end(), [](const StoredEntry& entry) {
    return entry.fields.size() == 1 && entry.lists.empty();
  });
}

Json ContentOf(const Study& study, const std::string& scenario) {
  Json json = SharedContentOf(study, scenario);
  if (study.kindData != KindData::Complete) {
    json[key::kData] = nullptr;
  } else {
    const ISubRecord& record = *study.record->SubRecord();
    json[key::kData] = JsonOf(StoredEntry{{}, record.StoredFields(), record.StoredLists()});
  }
  return json;
}

std::string ContentText(const Study& study, const std::string& scenario,
                        const std::vector<StoredList>& lists) {
  std::string text = CompactJson(SharedContentOf(study, scenario));
  text.back() = ',';
  text.append("\"").append(key::kData).append("\":");
  if (study.kindData == KindData::Complete) {
    Append(study.record->SubRecord()->StoredFields(), lists, text);
  } else {
    text += "null";
  }
  return text + "}";
}

StoredEntry EntryOf(const Json& object) {
  StoredEntry entry;
  if (!object.is_object()) {
    entry.fields.push_back({{}, ValueOf(object)});
    return entry;
  }
  for (auto field = object.begin(); field != object.end(); ++field) {
    const std::string& name = field.key();  // lives as long as the object
    const Json& value = field.value();
    if (!value.is_array()) {
      entry.fields.push_back({name, ValueOf(value)});
      continue;
    }
    StoredList& list = entry.lists.emplace_back(StoredList{name, {}});
    list.entries.reserve(value.size());
    for (const Json& inner : value) list.entries.push_back(EntryOf(inner));
  }
  return entry;
}

}  // namespace kiv::store
