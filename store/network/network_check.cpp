#include "store/network/network_check.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>

#include "base/ascii.h"
#include "base/utf16.h"
#include "core/numeric_text.h"
#include "store/network/network_csv.h"

namespace kiv::store {

namespace {

constexpr std::size_t kMaxKeyColumns = 4;
constexpr int kLinesBetweenReports = 2000;

std::string Named(std::string_view column, std::string_view value) {
  return std::string(column) + " \"" + std::string(value) + "\"";
}

std::string Joined(const std::vector<std::string_view>& words) {
  std::string text;
  for (const std::string_view word : words) text += (text.empty() ? "" : ", ") + std::string(word);
  return text;
}

/// Whether a text is what a database can keep: UTF-8 without NUL characters.
std::string ProblemWithText(std::string_view text) {
  if (std::ranges::all_of(text, [](char c) { return c >= ' ' && c < 0x7F; })) return {};
  if (text.find('\0') != std::string_view::npos) return " holds a NUL character";
  return ToUtf8(ToUtf16(text)) == text ? "" : " is not UTF-8 text";
}

/// The values of one line by table column.
struct Row {
  std::vector<Variant> values;
  std::vector<std::int32_t> numbers;
  std::vector<bool> good;

  explicit Row(std::size_t columns) : values(columns), numbers(columns), good(columns) {}
  bool AllGood(const std::vector<std::size_t>& columns) const {
    return std::ranges::all_of(columns, [this](std::size_t column) { return good[column]; });
  }
};

void SetEmpty(const NetworkColumn& column, std::size_t index, Row& row) {
  row.numbers[index] = 0;
  switch (column.whenEmpty) {
    case WhenEmpty::Zero: row.values[index] = 0; break;
    case WhenEmpty::EmptyText: row.values[index] = ""; break;
    default: row.values[index] = Variant();
  }
}

/// Takes the number of a value; returns what is wrong with it.
std::string ReadNumber(const NetworkColumn& column, std::string_view text, std::int32_t& number) {
  const std::string_view digits = Trimmed(text);
  const char* const end = digits.data() + digits.size();
  const auto [rest, problem] = std::from_chars(digits.data(), end, number);
  if (rest != end || problem == std::errc::invalid_argument) {
    return Named(column.name, text) + " is not a whole number";
  }
  if (problem == std::errc::result_out_of_range) return Named(column.name, text) + " does not fit in 32 bits";
  if (number < column.lowest) {
    return Named(column.name, text) + " is less than " + std::to_string(column.lowest);
  }
  return {};
}

std::string ReadText(const NetworkColumn& column, std::string_view text) {
  if (std::string problem = ProblemWithText(text); !problem.empty()) {
    return std::string(column.name) + problem;
  }
  if (!column.choices.empty() && std::ranges::find(column.choices, text) == column.choices.end()) {
    return Named(column.name, text) + " is none of: " + Joined(column.choices);
  }
  return {};
}

/// Takes one value into the row; returns what is wrong with it.
std::string ReadValue(const NetworkColumn& column, std::string_view text, std::size_t index, Row& row) {
  row.good[index] = false;
  std::string problem;
  if (Trimmed(text).empty()) {
    if (column.whenEmpty == WhenEmpty::Refuse) return std::string(column.name) + " is empty";
    SetEmpty(column, index, row);
  } else if (column.kind == NetworkColumn::Kind::Number) {
    problem = ReadNumber(column, text, row.numbers[index]);
    if (problem.empty()) row.values[index] = row.numbers[index];
  } else {
    problem = ReadText(column, text);
    if (problem.empty()) row.values[index] = text;
  }
  row.good[index] = problem.empty();
  return problem;
}

/// The values that one key has taken, and where.
class KeyValues {
 public:
  KeyValues(const NetworkTable& table, const NetworkKey& key) : table_(table), key_(key) {}

  void Add(const Row& row, std::int32_t line) {
    if (!row.AllGood(key_.columns)) return;
    if (key_.zero == NetworkKey::Zero::IsUnknown && row.numbers[key_.columns.back()] == 0) return;
    Entry entry{{}, line};
    for (std::size_t i = 0; i < key_.columns.size(); ++i) entry.parts[i] = Part(row, key_.columns[i]);
    entries_.push_back(entry);
  }

  /// Calls `tell(line, reason)` for every line whose key an earlier line has.
  template <class Tell>
  void TellRepeated(Tell tell) {
    if (!std::ranges::is_sorted(entries_)) std::ranges::sort(entries_);
    const Entry* first = nullptr;
    for (const Entry& entry : entries_) {
      if (first && first->parts == entry.parts) {
        tell(entry.line, "line " + std::to_string(first->line) + " has the same" + Text(entry));
      } else {
        first = &entry;
      }
    }
  }

 private:
  struct Entry {
    std::array<std::int32_t, kMaxKeyColumns> parts;
    std::int32_t line;
    friend auto operator<=>(const Entry&, const Entry&) = default;  // NOLINT(modernize-use-nullptr)
  };

  bool IsText(std::size_t column) const { return table_.columns[column].kind == NetworkColumn::Kind::Text; }

  std::int32_t Part(const Row& row, std::size_t column) {
    if (!IsText(column)) return row.numbers[column];
    const auto [place, isNew] = textNumbers_.try_emplace(std::get<std::string>(row.values[column].Value()),
                                                         static_cast<std::int32_t>(texts_.size()));
    if (isNew) texts_.push_back(&place->first);
    return place->second;
  }

  std::string Text(const Entry& entry) const {
    std::string text;
    for (std::size_t i = 0; i < key_.columns.size(); ++i) {
      const std::size_t column = key_.columns[i];
      text += (i == 0 ? " " : ", ") + std::string(table_.columns[column].name) + " ";
      text += IsText(column) ? "\"" + *texts_[static_cast<std::size_t>(entry.parts[i])] + "\""
                             : std::to_string(entry.parts[i]);
    }
    return text;
  }

  const NetworkTable& table_;
  const NetworkKey& key_;
  std::vector<Entry> entries_;
  std::unordered_map<std::string, std::int32_t> textNumbers_;
  std::vector<const std::string*> texts_;
};

}  // namespace

/// The check of one file.
class NetworkCheck::File {
 public:
  File(NetworkCheck& check, const NetworkTable& table, const std::string& file, std::string_view text)
      : check_(check), table_(table), file_(file), reader_(text), row_(table.columns.size()) {
    for (const NetworkKey& key : table.keys) keys_.emplace_back(table, key);
  }

  std::int32_t Run() {
    std::int32_t lines = 0;
    if (ReadHeader()) {
      if (table_.id == NetworkTableId::Entities) check_.hasEntities_ = true;
      while (reader_.Next()) {
        ++lines;
        CheckLine();
        if (lines % kLinesBetweenReports == 0) check_.advance_(reader_.Position());
      }
      for (const Child& child : children_) {
        Tell(child.line, check_.entities_.ProblemWithParent(child.path, ColumnName(entity_column::kParent),
                                                            child.parent));
      }
      for (KeyValues& key : keys_) {
        key.TellRepeated([this](std::int32_t line, const std::string& reason) { Tell(line, reason); });
      }
    }
    for (const auto& [line, reason] : reasons_) check_.badLines_.push_back({file_, line, reason});
    return lines;
  }

 private:
  struct Child {
    EntityPath path;
    std::int32_t parent;
    std::int32_t line;
  };

  std::string_view ColumnName(std::size_t column) const { return table_.columns[column].name; }

  void Tell(std::int32_t line, const std::string& reason) {
    if (reason.empty()) return;
    std::string& reasons = reasons_[line];
    reasons += (reasons.empty() ? "" : "; ") + reason;
  }

  /// False when the lines cannot be read by it.
  bool ReadHeader() {
    if (!reader_.Next()) {
      Tell(0, "the file is empty; its first line has to name the columns");
      return false;
    }
    const std::int32_t line = reader_.Line();
    Tell(line, std::string(reader_.Fault()));
    std::vector<bool> present(table_.columns.size());
    for (const std::string_view field : reader_.Fields()) {
      const std::string_view name = Trimmed(field);
      const auto column = std::ranges::find_if(
          table_.columns, [name](const NetworkColumn& known) { return SameInAnyCase(known.name, name); });
      const auto index = static_cast<std::size_t>(column - table_.columns.begin());
      if (column == table_.columns.end()) {
        Tell(line, "the column \"" + std::string(field) + "\" is unknown");
      } else if (present[index]) {
        Tell(line, "the column " + std::string(column->name) + " is named twice");
      } else {
        present[index] = true;
      }
      columnOf_.push_back(index);
    }
    for (std::size_t i = 0; i < present.size() && reader_.Fault().empty(); ++i) {
      const NetworkColumn& column = table_.columns[i];
      if (present[i]) continue;
      if (column.whenEmpty == WhenEmpty::Refuse) {
        Tell(line, "the column " + std::string(column.name) + " is missing");
      }
      SetEmpty(column, i, row_);
      row_.good[i] = true;
    }
    return reasons_.empty();
  }

  void CheckLine() {
    const std::int32_t line = reader_.Line();
    const auto& fields = reader_.Fields();
    if (!reader_.Fault().empty()) return Tell(line, std::string(reader_.Fault()));
    if (fields.size() != columnOf_.size()) {
      return Tell(line, std::to_string(fields.size()) + (fields.size() == 1 ? " value" : " values") +
                            " where the header names " + std::to_string(columnOf_.size()) + " columns");
    }
    for (std::size_t i = 0; i < fields.size(); ++i) {
      Tell(line, ReadValue(table_.columns[columnOf_[i]], fields[i], columnOf_[i], row_));
    }
    CheckMeaning(line);
    for (KeyValues& key : keys_) key.Add(row_, line);
    if (!reasons_.contains(line)) check_.sink_(table_, row_.values);
  }

  /// What no value tells by itself.
  void CheckMeaning(std::int32_t line) {
    if (table_.id == NetworkTableId::Entities) return CheckEntity(line);
    if (!check_.hasEntities_) return;
    if (!table_.place.empty() && row_.AllGood(table_.place)) {
      EntityPath path{row_.numbers[table_.place[0]], row_.numbers[table_.place[1]], 0};
      if (table_.place.size() == 3) path.cell = row_.numbers[table_.place[2]];
      Tell(line, check_.entities_.ProblemWithPlace(path));
    }
    if (table_.id == NetworkTableId::Features && row_.good[feature_column::kInstance]) {
      Tell(line, check_.entities_.ProblemWithEcp(ColumnName(feature_column::kInstance),
                                                 row_.numbers[feature_column::kInstance]));
    }
    if (table_.id == NetworkTableId::Contexts) CheckContext(line);
  }

  void CheckContext(std::int32_t line) {
    using namespace context_column;
    if (!row_.AllGood({kContext, kFullKey, kParent}) || row_.numbers[kContext] != kOwnerContext) return;
    Tell(line, check_.entities_.ProblemWithKeyAndParent(std::get<std::string>(row_.values[kFullKey].Value()),
                                                        ColumnName(kParent), row_.numbers[kParent]));
  }

  void CheckEntity(std::int32_t line) {
    using namespace entity_column;
    if (!row_.AllGood({kSystem, kEcp, kCell}) || !HasDepthOfKind(line)) return;
    // An entity with another fault still counts, so that what refers to it is not found bad as well.
    const EntityPath path{row_.numbers[kSystem], row_.numbers[kEcp], row_.numbers[kCell]};
    check_.entities_.Add(path, row_.good[kInstance] ? row_.numbers[kInstance] : 0);
    // The entity that it belongs to may stand further down.
    if (row_.good[kParent]) children_.push_back({path, row_.numbers[kParent], line});
  }

  bool HasDepthOfKind(std::int32_t line) {
    using namespace entity_column;
    if (!row_.good[kKind]) return true;  // it has been told, and any depth could be right
    const std::string& kind = std::get<std::string>(row_.values[kKind].Value());
    const bool ecpFits = HasNumberWhere(kEcp, line, kind, kind != kSystemKind);
    const bool cellFits = HasNumberWhere(kCell, line, kind, kind == kCellKind);
    const bool parentFits = !row_.good[kParent] || HasNumberWhere(kParent, line, kind, kind != kSystemKind);
    return ecpFits && cellFits && parentFits;
  }

  bool HasNumberWhere(std::size_t column, std::int32_t line, const std::string& kind, bool wanted) {
    if ((row_.numbers[column] != 0) == wanted) return true;
    Tell(line, "the kind \"" + kind + (wanted ? "\" needs a value in " : "\" must not have a value in ") +
                   std::string(ColumnName(column)));
    return false;
  }

  NetworkCheck& check_;
  const NetworkTable& table_;
  const std::string& file_;
  CsvReader reader_;
  Row row_;
  std::vector<std::size_t> columnOf_;  ///< by position in the file
  std::vector<KeyValues> keys_;
  std::vector<Child> children_;
  std::map<std::int32_t, std::string> reasons_;
};

NetworkCheck::NetworkCheck(RowSink sink, Advance advance)
    : sink_(std::move(sink)), advance_(std::move(advance)) {}

std::int32_t NetworkCheck::CheckFile(const NetworkTable& table, const std::string& file,
                                     std::string_view text) {
  return File(*this, table, file, text).Run();
}

void NetworkCheck::AddBadFile(const std::string& file, const std::string& reason) {
  badLines_.push_back({file, 0, reason});
}

}  // namespace kiv::store
