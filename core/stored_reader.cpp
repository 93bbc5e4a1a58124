#include "core/stored_reader.h"

#include <algorithm>
#include <utility>

#include "base/error.h"

namespace kiv {

namespace {

constexpr const char* kTooLarge = "the number is too large";

/// Whether an entry is one plain value, which has no name.
bool IsPlain(const StoredEntry& entry) {
  return entry.fields.size() == 1 && entry.fields[0].name.empty();
}

bool IsWhole(const Variant& value) {
  return std::holds_alternative<std::int64_t>(value.Value());
}

}  // namespace

StoredReader::StoredReader(const StoredEntry& entry, std::string place, std::vector<StoredFault>& faults)
    : entry_(entry), place_(std::move(place)), faults_(faults) {}

std::string StoredReader::PlaceOf(std::string_view name) const {
  std::string place = place_;
  if (!place.empty() && !name.empty()) place += ": ";
  return place.append(name);
}

void StoredReader::Note(std::string_view name, std::string reason) {
  faults_.push_back({PlaceOf(name), std::move(reason)});
}

/// Null when the field is missing, which is noted.
const Variant* StoredReader::Find(std::string_view name) {
  asked_.push_back(name);
  const auto found = std::ranges::find(entry_.fields, name, &NamedValue::name);
  if (found != entry_.fields.end()) return &found->value;
  const bool isList = std::ranges::find(entry_.lists, name, &StoredList::name) != entry_.lists.end();
  Note(name, isList ? "must be one value, not a list" : "is missing");
  return nullptr;
}

const Variant* StoredReader::FindNumber(std::string_view name, NullIs null) {
  const Variant* value = Find(name);
  if (!value || IsWhole(*value) || (value->IsNull() && null == NullIs::Permitted)) return value;
  Note(name, null == NullIs::Permitted ? "must be a whole number or null" : "must be a whole number");
  return nullptr;
}

const Variant* StoredReader::FindText(std::string_view name, NullIs null) {
  const Variant* value = Find(name);
  if (!value || (value->IsNull() && null == NullIs::Permitted)) return value;
  const auto* text = std::get_if<std::string>(&value->Value());
  if (!text) {
    Note(name, "must be a text in quotation marks");
  } else if (text->find('\0') != std::string::npos) {
    Note(name, "must not hold a NUL character");
    text = nullptr;
  }
  return text ? value : nullptr;
}

std::optional<std::int32_t> StoredReader::NumberOrNull(std::string_view name) {
  const Variant* value = FindNumber(name, NullIs::Permitted);
  if (!value || value->IsNull()) return std::nullopt;
  try {
    return ToInt32(*value);
  } catch (const Error&) {
    Note(name, kTooLarge);
    return std::nullopt;
  }
}

std::int32_t StoredReader::Number(std::string_view name) {
  const Variant* value = FindNumber(name, NullIs::Wrong);
  if (!value) return 0;
  try {
    return ToInt32(*value);
  } catch (const Error&) {
    Note(name, kTooLarge);
    return 0;
  }
}

std::string StoredReader::Text(std::string_view name) {
  const Variant* value = FindText(name, NullIs::Wrong);
  return value ? ToText(*value) : std::string();
}

std::string StoredReader::TextOrNull(std::string_view name) {
  const Variant* value = FindText(name, NullIs::Permitted);
  return value ? ToText(*value) : std::string();
}

bool StoredReader::YesNo(std::string_view name) {
  const Variant* value = FindText(name, NullIs::Wrong);
  if (!value) return false;
  const auto& text = std::get<std::string>(value->Value());
  if (text != "Y" && text != "N") Note(name, R"(must be "Y" or "N")");
  return text == "Y";
}

const StoredList* StoredReader::FindList(std::string_view name) {
  asked_.push_back(name);
  const auto found = std::ranges::find(entry_.lists, name, &StoredList::name);
  if (found != entry_.lists.end()) return &*found;
  const bool isField = std::ranges::find(entry_.fields, name, &NamedValue::name) != entry_.fields.end();
  Note(name, isField ? "must be a list in square brackets" : "is missing");
  return nullptr;
}

/// Reads entry by entry; `read` returns how many entries the record has then.
void StoredReader::ReadEntries(std::string_view name, std::size_t most,
                               const std::function<std::int32_t(const StoredEntry&, std::string)>& read) {
  const StoredList* list = FindList(name);
  if (!list) return;
  if (list->entries.size() > most) {
    return Note(name, "has " + std::to_string(list->entries.size()) + " entries; at most " +
                          std::to_string(most) + " are possible");
  }
  std::int32_t count = 0;
  for (std::size_t i = 0; i < list->entries.size(); ++i) {
    const std::string place = PlaceOf(name) + " " + std::to_string(i + 1);
    const std::size_t faultsBefore = faults_.size();
    std::int32_t after = count;  // NOLINT(clang-analyzer-deadcode.DeadStores): read after a failure
    try {
      after = read(list->entries[i], place);
    } catch (const Error& error) {
      if (error.Number() != ErrorNumber::DuplicateKey) faults_.push_back({place, error.what()});
    }
    if (after == count && faults_.size() == faultsBefore) {
      faults_.push_back({place, "stands in the list already"});
    }
    count = after;
  }
}

void StoredReader::List(std::string_view name, const AddEntry& add) {
  ReadEntries(name, kMostEntries, [&](const StoredEntry& entry, std::string place) {
    if (IsPlain(entry)) throw Error(ErrorNumber::TypeMismatch, "must be an object in braces");
    StoredReader reader(entry, std::move(place), faults_);
    const std::int32_t count = add(reader);
    reader.NoteUnknown();
    return count;
  });
}

void StoredReader::Numbers(std::string_view name, const std::function<std::int32_t(std::int32_t)>& add) {
  ReadEntries(name, kMostNumbers, [&](const StoredEntry& entry, const std::string&) {
    const bool isNumber = IsPlain(entry) && IsWhole(entry.fields[0].value);
    if (!isNumber) throw Error(ErrorNumber::TypeMismatch, "must be a whole number");
    try {
      return add(ToInt32(entry.fields[0].value));
    } catch (const Error& error) {
      if (error.Number() == ErrorNumber::Overflow) throw Error(error.Number(), kTooLarge);
      throw;
    }
  });
}

void StoredReader::NoteUnknown() {
  const auto note = [this](std::string_view name) {
    if (std::ranges::find(asked_, name) == asked_.end()) Note(name, "is unknown here; remove it");
  };
  for (const NamedValue& field : entry_.fields) note(field.name);
  for (const StoredList& list : entry_.lists) note(list.name);
}

}  // namespace kiv
