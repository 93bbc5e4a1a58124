#include "rfc/rfc_msql.h"

#include <functional>
#include <string>
#include <string_view>

#include "core/conversions.h"
#include "core/entity_lists.h"
#include "core/msql.h"
#include "core/study_kinds.h"
#include "core/study_row.h"
#include "host/constants.h"

namespace kiv::MSQL {

namespace {

constexpr StudyTable kTable = {kRfcStudy, CKivRfcData::kTable};
const std::string kDnTable = "KIV_RfcDnList";
const std::string kFafTable = "KIV_FAF";

struct FafFlag {
  std::string_view name;
  bool FafRow::*flag;
};

using namespace host::feature;
constexpr FafFlag kFafFlags[] = {{kF121, &FafRow::F121}, {kF161, &FafRow::F161}, {kF276, &FafRow::F276},
                                 {kF297, &FafRow::F297}, {kF368, &FafRow::F368}, {kF430, &FafRow::F430},
                                 {kF465, &FafRow::F465}, {kF545, &FafRow::F545}, {kF559, &FafRow::F559}};

}  // namespace

void LoadRfcData(std::int32_t id, CKivRfcData& record) {
  LoadStudyRow(kTable, "LoadRfcData", id, record);
}

bool InsertRfcData(const CKivRfcData& record) {
  return InsertStudyRow(kTable, "InsertRfcData", record);
}

bool UpdateRfcData(const CKivRfcData& record) {
  return UpdateStudyRow(kTable, "UpdateRfcData", record);
}

void LoadRfcCellList(std::int32_t listId, CKivRfcData& record) {
  LoadCellList(listId, std::bind_front(&CKivRfcData::AddCell, &record));
}

void LoadRfcEcpList(std::int32_t listId, CKivRfcData& record) {
  LoadEcpList(listId, std::bind_front(&CKivRfcData::AddEcp, &record));
}

void LoadRfcDnList(std::int32_t id, CKivRfcData& record) {
  const auto rows = OpenQuery("SELECT * FROM " + kDnTable + " WHERE Id = " + std::to_string(id));
  if (!rows) return;
  const auto fields = CDn::Fields();
  const auto optional = FindOptionalFields(Database(), kDnTable, fields);
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    CDn row;
    LoadFields(row, *rows, fields, optional, id);
    record.AddDn(row.Dn(), row.DataFile());
  }
  rows->Close();
}

void DeleteRfcDnList(std::int32_t id) {
  Database().ExecuteSql("Delete From " + kDnTable + " Where ID=" + std::to_string(id));
}

bool InsertRfcDn(std::int32_t id, const CDn& dn) {
  return TrapErrors(kTable.kind, "InsertRfcDn", [&](host::Database& database) {
    CDn row = dn;
    row.SetID(id);
    database.ExecuteSql(InsertStatementOf(database, kDnTable, row));
  });
}

bool LookupFaf(std::int32_t instanceId, FafRow& faf) {
  faf = {};
  const auto rows =
      OpenQuery("SELECT * FROM " + kFafTable + " WHERE InstanceId = " + std::to_string(instanceId));
  if (!rows) return false;
  const bool found = !rows->EndOfFile() && rows->RecordCount() > 0;
  if (found) {
    FafRow row;  // whole or not at all
    row.InstanceId = instanceId;
    row.OmpHostName = ToText(rows->Field("OmpHostName"));
    for (const FafFlag& column : kFafFlags) row.*column.flag = ToText(rows->Field(column.name)) == "Y";
    faf = row;
  }
  rows->Close();
  return found;
}

}  // namespace kiv::MSQL
