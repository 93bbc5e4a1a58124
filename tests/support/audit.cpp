#include "support/audit.h"

#include <zlib.h>

#include <cstdint>
#include <map>
#include <nlohmann/json.hpp>
#include <vector>

namespace kiv::test {

namespace {

using Json = nlohmann::json;

/// Queries that a sound database answers with no row, and what their rows mean.
struct Rule {
  const char* broken;
  std::string query;
};

std::vector<Rule> Rules() {
  std::vector<Rule> rules = {
      {"history with a gap",
       "SELECT study_id FROM kiv_study_history GROUP BY study_id "
       "HAVING count(*) <> max(revision) - min(revision) + 1"},
      {"history that does not begin with its study",
       "SELECT study_id FROM kiv_study_history h WHERE event NOT IN ('created', 'known') AND NOT EXISTS "
       "(SELECT 1 FROM kiv_study_history b WHERE b.study_id = h.study_id AND b.revision = h.revision - 1)"},
      {"study created twice",
       "SELECT study_id FROM kiv_study_history WHERE event = 'created' GROUP BY study_id HAVING count(*) > "
       "1"},
      {"study whose newest entry is another revision",
       "SELECT s.id FROM kiv_study s WHERE s.revision <> "
       "(SELECT coalesce(max(revision), -1) FROM kiv_study_history h WHERE h.study_id = s.id)"},
      {"study that is gone without being deleted, or deleted without being gone",
       "SELECT h.study_id FROM kiv_study_history h WHERE NOT EXISTS (SELECT 1 FROM kiv_study_history l WHERE "
       "l.study_id = h.study_id AND l.revision > h.revision) AND (h.event = 'deleted') = "
       "EXISTS (SELECT 1 FROM kiv_study s WHERE s.id = h.study_id)"},
      {"change without its entries",
       "SELECT token FROM kiv_change c WHERE c.studies <> (SELECT count(*) FROM kiv_study_history h "
       "WHERE h.change_token = c.token AND h.event <> 'known')"},
      {"entry without its change",
       "SELECT study_id FROM kiv_study_history WHERE change_token NOT IN (SELECT token FROM kiv_change)"}};
  for (const char* table :
       {"KIV_HomStudy", "KIV_PlmStudy", "KIV_RfcStudy", "KIV_VcsStudy", "KIV_RfcDnList"}) {
    rules.push_back({"row without a study",
                     "SELECT Id FROM " + std::string(table) + " WHERE Id NOT IN (SELECT id FROM kiv_study)"});
  }
  for (const char* table : {"KIV_Cell_List", "KIV_Antenna_List", "KIV_Carrier_List", "KIV_Ecp_List"}) {
    rules.push_back({"list without a study", "SELECT kiv_list_id FROM " + std::string(table) +
                                                 " WHERE kiv_list_id NOT IN (SELECT id FROM kiv_study)"});
  }
  for (const char* table : {"KIV_PlmMode", "KIV_PlmChannelList"}) {
    rules.push_back({"mode without a study", "SELECT Id FROM " + std::string(table) +
                                                 " WHERE Id NOT IN (SELECT Id FROM KIV_PlmStudy)"});
  }
  return rules;
}

std::string TextOf(const Variant& value) {
  if (const auto* number = std::get_if<std::int64_t>(&value.Value())) return std::to_string(*number);
  const auto* text = std::get_if<std::string>(&value.Value());
  return text ? *text : std::string();
}
std::string TextOf(const Json& value) {
  return value.is_string() ? value.get<std::string>() : value.is_null() ? std::string() : value.dump();
}

std::string FirstValue(host::Database& database, const std::string& query) {
  const auto rows = database.OpenQuery(query, host::kQueryTimeoutSeconds);
  return rows->EndOfFile() ? std::string() : TextOf(rows->FieldAt(0));
}

/// A content of the history as the documentation of the tables describes it.
std::string Unpack(const std::string& stored) {
  constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  if (stored.empty() || stored[0] == '{') return stored;
  std::string packed;
  std::uint32_t bits = 0;
  int count = 0;
  for (const char digit : stored) {
    if (digit == '=') break;
    bits = bits << 6 | static_cast<std::uint32_t>(kDigits.find(digit));
    if ((count += 6) < 8) continue;
    count -= 8;
    packed += static_cast<char>(bits >> count & 0xFF);
  }
  uLongf length = 0;
  for (std::size_t i = 0; i < 4; ++i) length = length << 8 | static_cast<unsigned char>(packed.at(i));
  std::string content(length, '\0');
  const int code = uncompress(reinterpret_cast<Bytef*>(content.data()), &length,
                              reinterpret_cast<const Bytef*>(packed.data()) + 4, packed.size() - 4);
  return code == Z_OK ? content : std::string();
}

/// Where the lists of a content are stored, and the lists of their entries, which stand in tables of their
/// own.
const std::map<std::string, std::string> kListTables = {
    {"Cells", "KIV_Cell_List WHERE kiv_list_id"},
    {"Ecps", "KIV_Ecp_List WHERE kiv_list_id"},
    {"DNs", "KIV_RfcDnList WHERE Id"},
    {"Modes", "KIV_PlmMode WHERE Id"},
    {"Channels", "KIV_PlmChannelList WHERE Id"},
    {"Antennas", "KIV_Antenna_List WHERE kiv_list_id"},
    {"Carriers", "KIV_Carrier_List WHERE kiv_list_id"},
};
const std::map<std::string, std::string> kKindTables = {{"HOM Study", "KIV_HomStudy"},
                                                        {"PLM Study", "KIV_PlmStudy"},
                                                        {"RF Call Trace Study", "KIV_RfcStudy"},
                                                        {"VCSA Study", "KIV_VcsStudy"}};

void CountLists(const Json& entry, std::map<std::string, std::size_t>& counts) {
  for (const auto& [name, value] : entry.items()) {
    if (!value.is_array()) continue;
    counts[name] += value.size();
    for (const Json& inner : value) {
      if (inner.is_object()) CountLists(inner, counts);
    }
  }
}

/// What differs between a study's rows and the newest content of its history.
std::string Difference(host::Database& database, const std::string& id, const std::string& kind) {
  const std::string kept =
      FirstValue(database, "SELECT content FROM kiv_study_history WHERE study_id = " + id +
                               " ORDER BY revision DESC LIMIT 1");
  const Json content = Json::parse(Unpack(kept), nullptr, false);
  if (!content.is_object() || content.at("kind") != kind) return "no content";
  const Json& data = content.at("data");
  const auto shared =
      database.OpenQuery("SELECT name, duration FROM kiv_study WHERE id = " + id, host::kQueryTimeoutSeconds);
  if (content.at("name") != TextOf(shared->FieldAt(0))) return "name";
  const std::string duration = TextOf(shared->FieldAt(1));
  if (TextOf(content.at("durationMinutes")) != (duration == "-1" ? "" : duration)) return "duration";
  const auto row = database.OpenQuery("SELECT * FROM " + kKindTables.at(kind) + " WHERE Id = " + id,
                                      host::kQueryTimeoutSeconds);
  if (row->EndOfFile()) return "no row of its kind";
  for (const auto& [name, value] : data.items()) {
    if (!value.is_array() && TextOf(value) != TextOf(row->Field(name))) return name;
  }
  std::map<std::string, std::size_t> counts;
  CountLists(data, counts);
  for (const auto& [list, count] : counts) {
    const std::string stored =
        FirstValue(database, "SELECT count(*) FROM " + kListTables.at(list) + " = " + id);
    if (stored != std::to_string(count)) return list + ": " + stored + " instead of " + std::to_string(count);
  }
  return {};
}

}  // namespace

std::string Audit(host::Database& database) {
  std::string broken;
  for (const Rule& rule : Rules()) {
    const std::string first = FirstValue(database, rule.query);
    if (!first.empty()) broken.append(rule.broken).append(": ").append(first).append("\n");
  }
  const auto studies = database.OpenQuery("SELECT id, kind FROM kiv_study", host::kQueryTimeoutSeconds);
  for (; !studies->EndOfFile(); studies->MoveNext()) {
    const std::string id = TextOf(studies->FieldAt(0));
    const std::string difference = Difference(database, id, TextOf(studies->FieldAt(1)));
    if (!difference.empty()) broken.append("study ").append(id).append(": ").append(difference).append("\n");
  }
  return broken;
}

std::string AuditFile(host::Database& database) {
  const std::string integrity = FirstValue(database, "PRAGMA integrity_check");
  const std::string reference = FirstValue(database, "SELECT \"table\" FROM pragma_foreign_key_check");
  return (integrity == "ok" ? "" : "integrity: " + integrity + "\n") +
         (reference.empty() ? "" : "foreign key: " + reference + "\n") + Audit(database);
}

}  // namespace kiv::test
