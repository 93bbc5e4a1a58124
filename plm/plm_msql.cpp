#include "plm/plm_msql.h"

#include <cstddef>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/conversions.h"
#include "core/fields.h"
#include "core/msql.h"
#include "core/study_kinds.h"
#include "plm/mode_names.h"

namespace kiv::MSQL {

namespace {

const std::string kStudyTable(CKivPlmData::kTable);
const std::string kModeTable = "KIV_PlmMode";
const std::string kChannelTable = "KIV_PlmChannelList";

/// One row of the channel table, whose study and mode are those of the mode that has the channel.
struct ChannelRow {
  std::int32_t id;
  std::int32_t plmMode;
  std::int32_t channel;

  static std::span<const RecordField<ChannelRow>> Fields() {
    static const RecordField<ChannelRow> fields[] = {
        {"Id", &ChannelRow::id},
        {"PlmMode", &ChannelRow::plmMode},
        {"Channel", &ChannelRow::channel},
    };
    return fields;
  }
};

template <class Record>
void Insert(const std::string& table, const Record& record) {
  host::Database& database = Database();
  database.ExecuteSql(InsertStatementOf(database, table, record));
}

std::string ChannelsQuery(const CKivPlmMode& mode) {
  return "SELECT * FROM " + kChannelTable + " WHERE ID = " + std::to_string(mode.ID()) +
         " AND PlmMode = " + std::to_string(mode.PlmMode()) + " ORDER BY PlmMode, Channel";
}

}  // namespace

void LoadPlmData(std::int32_t id, CKivPlmData& record) {
  ReadStudyRow("Select * From Kiv_PlmStudy Where ID = " + std::to_string(id), kPlmStudy, "LoadPlmData",
               "Unable to load study data from " + kStudyTable, [&](const host::Recordset& rows) {
                 if (rows.EndOfFile()) return;
                 const auto fields = CKivPlmData::Fields();
                 LoadFields(record, rows, fields, FindOptionalFields(Database(), kStudyTable, fields), id);
               });
}

void LoadPlmModes(std::int32_t id, CKivPlmData& record) {
  const auto rows =
      OpenQuery("SELECT * FROM " + kModeTable + " WHERE Id = " + std::to_string(id) + " ORDER BY PlmMode");
  if (!rows || rows->EndOfFile()) return;
  const auto fields = CKivPlmMode::Fields();
  const auto optional = FindOptionalFields(Database(), kModeTable, fields);
  std::vector<std::shared_ptr<CKivPlmMode>> modes;
  std::exception_ptr failure;
  try {
    for (; !rows->EndOfFile(); rows->MoveNext()) {
      const auto mode = std::make_shared<CKivPlmMode>();
      LoadFields(*mode, *rows, fields, optional, id);
      if (mode->PlmMode() > 0) modes.push_back(mode);
    }
  } catch (const Error&) {  // told behind the modes before
    failure = std::current_exception();
  }
  Announcer ahead([&modes, next = std::size_t{0}](std::vector<host::Announcement>& questions) mutable {
    if (next == modes.size()) return false;
    questions.push_back({ChannelsQuery(*modes[next++])});
    return true;
  });
  for (const auto& mode : modes) {
    ahead.BeginRound();
    record.AddMode(MKivStudyCtls::ModeName(mode->PlmMode()), mode);
    mode->LoadChannelList();
  }
  if (failure) std::rethrow_exception(failure);
}

void LoadPlmChannels(CKivPlmMode& mode) {
  const auto rows = OpenQuery(ChannelsQuery(mode));
  if (!rows || rows->EndOfFile()) return;
  const auto column = [&rows](std::size_t field) {
    return rows->FieldIndex(ChannelRow::Fields()[field].name);
  };
  const int columns[] = {column(0), column(1), column(2)};  // found once: a list may have thousands of rows
  for (; !rows->EndOfFile(); rows->MoveNext()) {
    const std::int32_t channel = ToInt32(rows->FieldAt(columns[2]));
    mode.AddChannel(ToInt32(rows->FieldAt(columns[0])), ToInt32(rows->FieldAt(columns[1])), channel,
                    ChannelKey(std::to_string(channel)));
  }
}

void InsertPlmData(const CKivPlmData& record) {
  Insert(kStudyTable, record);
}

void InsertPlmMode(const CKivPlmMode& mode) {
  Insert(kModeTable, mode);
}

void InsertPlmChannels(const CKivPlmMode& mode) {
  for (const auto& channel : *mode.ChannelList()) {
    Insert(kChannelTable, ChannelRow{mode.ID(), mode.PlmMode(), channel->Channel()});
  }
}

void DeletePlmChannels(std::int32_t id) {
  Database().ExecuteSql("Delete From " + kChannelTable + " Where ID=" + std::to_string(id));
}

void DeletePlmData(std::int32_t id) {
  Database().ExecuteSql("Delete From " + kStudyTable + " Where ID=" + std::to_string(id));
}

}  // namespace kiv::MSQL
