#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/fields.h"
#include "core/sub_record.h"

namespace kiv {

/// What keeps a value from being taken over, and where it stands.
struct StoredFault {
  std::string place;
  std::string reason;
};

/// Reads back what a record's StoredFields and StoredLists gave, such as from a file. The record asks for
/// each of its fields and lists by name. What is missing, of another type, too large or not asked for is
/// noted, and reading goes on, so that every fault is known at the end.
class StoredReader {
 public:
  /// The entry must outlive the reader.
  StoredReader(const StoredEntry& entry, std::string place, std::vector<StoredFault>& faults);

  /// 0 when there is no such number.
  std::int32_t Number(std::string_view name);
  /// Nothing also for NULL, which is no fault.
  std::optional<std::int32_t> NumberOrNull(std::string_view name);
  std::string Text(std::string_view name);
  /// Empty also for NULL, which is no fault.
  std::string TextOrNull(std::string_view name);
  /// Whether the text is "Y"; it may also be "N".
  bool YesNo(std::string_view name);
  /// Fills a record by its field table, without its key and what is only inserted.
  template <class Record>
  void Fields(Record& record, std::span<const RecordField<Record>> fields);

  /// Takes an entry into a list; returns how many the list has then. One that leaves the list as long as it
  /// was is noted as standing there twice.
  using AddEntry = std::function<std::int32_t(StoredReader& entry)>;
  /// Of more than this, which no study needs, nothing is read.
  static constexpr std::size_t kMostEntries = 20'000;
  void List(std::string_view name, const AddEntry& add);
  /// A list of numbers.
  static constexpr std::size_t kMostNumbers = 2'000;
  void Numbers(std::string_view name, const std::function<std::int32_t(std::int32_t)>& add);

  void Note(std::string_view name, std::string reason);
  /// Ends the reading: notes what nobody asked for.
  void NoteUnknown();

 private:
  enum class NullIs { Wrong, Permitted };

  const Variant* Find(std::string_view name);
  const Variant* FindNumber(std::string_view name, NullIs null);
  const Variant* FindText(std::string_view name, NullIs null);
  const StoredList* FindList(std::string_view name);
  std::string PlaceOf(std::string_view name) const;
  void ReadEntries(std::string_view name, std::size_t most,
                   const std::function<std::int32_t(const StoredEntry&, std::string)>& read);

  const StoredEntry& entry_;
  std::string place_;
  std::vector<StoredFault>& faults_;
  std::vector<std::string_view> asked_;
};

template <class Record>
void StoredReader::Fields(Record& record, std::span<const RecordField<Record>> fields) {
  for (const RecordField<Record>& field : fields) {
    if (!field.IsContent()) continue;
    const auto null = field.role == FieldRole::Nullable ? NullIs::Permitted : NullIs::Wrong;
    const Variant* value =
        field.IsText() ? FindText(field.name, NullIs::Wrong) : FindNumber(field.name, null);
    if (!value) continue;
    try {
      field.Set(record, *value);
    } catch (const Error&) {
      Note(field.name, "the number is too large");
    }
  }
}

}  // namespace kiv
