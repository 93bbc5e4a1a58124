// Values as SQL text: an engine reads back what was written, alone or with other rows of a transaction.
// With the environment variable KIV_FUZZ_SERVER, the address of an empty database, that is the engine.

#include <cmath>
#include <vector>

#include "base/utf16.h"
#include "core/conversions.h"
#include "database/open.h"
#include "database/sqlite/sqlite_database.h"
#include "database/transaction.h"
#include "fuzz/target.h"
#include "support/temp_folder.h"

using namespace kiv;
using namespace kiv::fuzz;

namespace {

constexpr int kNoTimeout = 0;
constexpr std::int32_t kMostRows = 40;
constexpr const char* kTables[] = {"one", "other"};

const char* Server() {
  static const char* const address = std::getenv("KIV_FUZZ_SERVER");
  return address;
}

database::SqlConnection& Engine() {
  static const test::OpenFolder folder;
  static const auto connection = [] {
    const std::string name = Server() ? Server() : folder.File("sql.db");
    auto opened = database::OpenStudyDatabase(name, database::OpenMode::CreateIfMissing);
    if (!Server()) {
      opened->OpenQuery("PRAGMA journal_mode = MEMORY", kNoTimeout);
      opened->ExecuteSql("PRAGMA synchronous = OFF");
    }
    for (const char* table : kTables) {
      opened->ExecuteSql("CREATE TABLE " + std::string(table) + " (n INTEGER, a TEXT, b BIGINT)");
    }
    return opened;
  }();
  return *connection;
}

Variant AnyValue(Input& input) {
  switch (input.Below(5)) {
    case 0: return {};
    case 1: return input.Number<std::int64_t>();
    case 2: return input.Choice();
    case 3: {
      const auto mantissa = static_cast<double>(input.Number<std::int64_t>());
      return std::ldexp(mantissa, static_cast<std::int8_t>(input.Byte()));
    }
    default: {
      const std::string text = input.Line();
      return Server() ? ToUtf8(ToUtf16(text)) : text;
    }
  }
}

/// What an engine makes of a value that it was given.
bool IsReadAs(const Variant& given, const Variant& read) {
  if (given.IsNull()) return read.IsNull();
  if (const auto* flag = std::get_if<bool>(&given.Value())) return read == Variant(*flag ? "Y" : "N");
  if (const auto* real = std::get_if<double>(&given.Value())) {
    return std::strtod(ToText(read).c_str(), nullptr) == *real;
  }
  return ToText(given) == ToText(read);
}

void CheckList(Input& input) {
  std::vector<Variant> values;
  do values.push_back(AnyValue(input));
  while (!input.Empty() && values.size() < 20);
  std::string list;
  try {
    list = Engine().FormatValueList(values);
  } catch (const Error& refusal) {
    return Require(refusal.Number() == ErrorNumber::InvalidArgument, "only a NUL is refused", refusal.what());
  }
  const auto row = Engine().OpenQuery("SELECT " + list, kNoTimeout);
  for (std::size_t i = 0; i < values.size(); ++i) {
    Require(IsReadAs(values[i], row->FieldAt(static_cast<int>(i))), "a value is read as it was written",
            list);
  }
}

void Clear() {
  for (const char* table : kTables) Engine().ExecuteSql("DELETE FROM " + std::string(table));
}

/// The rows of both tables in the order of their writing.
std::string Rows() {
  std::string text;
  for (const std::string table : kTables) {
    const std::string order = Server() ? " ORDER BY n" : "";
    const auto rows = Engine().OpenQuery("SELECT n, a, b FROM " + table + order, kNoTimeout);
    for (text += table; !rows->EndOfFile(); rows->MoveNext()) {
      for (int i = 0; i < 3; ++i) text += '|' + ToText(rows->FieldAt(i));
      text += '\n';
    }
  }
  return text;
}

/// Writes rows into two tables by turns, with other statements in between.
void CheckTransaction(Input& input) {
  std::string written[2];
  {
    database::Transaction transaction(Engine());
    for (std::int32_t n = 0; !input.Empty() && n < kMostRows; ++n) {
      const std::size_t table = input.Below(2);
      const std::string text = ToUtf8(ToUtf16(input.Line()));
      if (text.find('\0') != std::string::npos) continue;
      const std::vector<Variant> values = {n, text, input.Number<std::int64_t>()};
      Engine().ExecuteSql("INSERT INTO " + std::string(kTables[table]) + " (n, a, b) VALUES (" +
                          Engine().FormatValueList(values) + ")");
      for (const Variant& value : values) written[table] += '|' + ToText(value);
      written[table] += '\n';
      if (input.Below(8) != 0) continue;
      Engine().ExecuteSql("UPDATE one SET n = n WHERE a = " + Engine().FormatValueList({&values[1], 1}));
    }
    transaction.Commit();
  }
  const std::string rows = Rows();
  Require(rows == kTables[0] + written[0] + kTables[1] + written[1], "rows keep their order and values",
          rows);
  Clear();
}

/// What the tables have after an insert behind another one; empty when it fails.
std::string After(const std::string& insert, bool inTransaction) {
  constexpr const char* kFirst = "INSERT INTO one (n, a, b) VALUES (1, 'x', 2)";
  std::string rows;
  try {
    if (inTransaction) Engine().Begin();
    Engine().ExecuteSql(kFirst);
    Engine().ExecuteSql(insert);
    if (inTransaction) Engine().Commit();
    rows = Rows();
  } catch (const host::DatabaseError&) {
    if (inTransaction) Engine().Rollback();
  }
  Clear();
  return rows;
}

/// Whatever stands in an insert, sending it with others makes no difference.
void CheckInsert(const std::string& end) {
  const std::string insert = "INSERT INTO one " + end;
  const std::string alone = After(insert, false);
  const std::string together = After(insert, true);
  Require(alone == together, "a row that waits is the same row", insert + "\n" + alone + "\n" + together);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  switch (input.Below(3)) {
    case 0: CheckList(input); break;
    case 1: CheckTransaction(input); break;
    default: CheckInsert(input.Line());
  }
  return 0;
}
