// The files of a network configuration: the first byte chooses the table, or the reader alone.

#include <algorithm>
#include <vector>

#include "fuzz/target.h"
#include "store/network/network_check.h"
#include "store/network/network_csv.h"

using namespace kiv;
using namespace kiv::fuzz;

namespace {

/// What the lines of the other tables may refer to.
constexpr const char* kEntities =
    "instance_id,kind,parent_instance_id,system_id,ecp_id,cell_id,name,technology\n"
    "1,system,,1,,,S,\n2,ecp,1,1,2,,E,\n3,cell,2,1,2,3,C,CDMA\n";

using Records = std::vector<std::vector<std::string>>;

/// The records without a fault.
Records Read(const std::string& text) {
  Records records;
  store::CsvReader reader(text);
  std::int32_t line = 0;
  const auto lines = static_cast<std::int32_t>(std::ranges::count(text, '\n')) + 1;
  for (std::size_t before = reader.Position(); reader.Next(); before = reader.Position()) {
    Require(reader.Position() > before, "reading goes on", text);
    Require(reader.Line() > line && reader.Line() <= lines, "lines are counted", text);
    line = reader.Line();
    Require(reader.Fields().empty() != reader.Fault().empty(), "a record has values or a fault", text);
    if (reader.Fault().empty()) records.emplace_back(reader.Fields().begin(), reader.Fields().end());
  }
  Require(reader.Position() == text.size(), "all is read", text);
  return records;
}

std::string Written(const Records& records) {
  std::string text;
  for (const auto& record : records) {
    for (std::size_t i = 0; i < record.size(); ++i) {
      text += i == 0 ? "\"" : ",\"";
      for (const char character : record[i]) text.append(character == '"' ? 2 : 1, character);
      text += '"';
    }
    text += "\r\n";
  }
  return text;
}

void Check(const store::NetworkTable& table, const std::string& text) {
  std::int32_t rows = 0;
  store::NetworkCheck check(
      [&](const store::NetworkTable& rowOf, std::span<const Variant> row) {
        if (&rowOf != &table) return;
        ++rows;
        Require(row.size() == table.columns.size(), "a row has every column", text);
      },
      [](std::size_t) {});
  if (table.id != store::NetworkTableId::Entities) {
    check.CheckFile(store::TableOf(store::NetworkTableId::Entities), "kiv_network.csv", kEntities);
    Require(check.BadLines().empty(), "a good file is good");
  }
  const std::int32_t lines = check.CheckFile(table, "file.csv", text);
  Require(rows <= lines, "a line is one row at most", text);
  Require(rows == lines || !check.BadLines().empty(), "a line that is no row is told", text);
  for (const store::BadLine& bad : check.BadLines()) {
    Require(!bad.reason.empty() && bad.file == "file.csv", "a refusal says why", text);
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto& tables = store::NetworkTables();
  Input input(data, size);
  const std::size_t table = input.Below(std::size(tables) + 1);
  const std::string text = input.Rest();
  const Records records = Read(text);
  const std::string written = Written(records);
  Require(Read(written) == records, "what is written can be read", written);
  if (table < std::size(tables)) Check(tables[table], text);
  return 0;
}
