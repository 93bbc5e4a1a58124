#include "client/cli/history_printer.h"

#include <ostream>

#include "client/cli/text_table.h"
#include "store/exchange/json.h"
#include "store/times.h"

namespace kiv::client {

namespace {

using Kind = store::StudyDifference::Kind;

store::Json JsonOf(const std::vector<store::StudyDifference>& differences) {
  store::Json list = store::Json::array();
  for (const store::StudyDifference& difference : differences) {
    list.push_back(
        {{"place", difference.place},
         {"change", ChangeWord(difference.kind)},
         {"before", difference.kind == Kind::Added ? store::Json() : store::Json(difference.before)},
         {"after", difference.kind == Kind::Removed ? store::Json() : store::Json(difference.after)}});
  }
  return list;
}

store::Json JsonOf(const store::HistoryEntry& entry) {
  return {{"id", entry.study},
          {"revision", entry.revision},
          {"event", store::EventName(entry.event)},
          {"changedBy", entry.changedBy},
          {"loginRole", entry.loginRole.empty() ? store::Json() : store::Json(entry.loginRole)},
          {"changedAt", entry.changedAt},
          {"kind", entry.kind},
          {"name", entry.name}};
}

}  // namespace

void PrintHistory(const std::vector<HistoryStep>& steps, OutputFormat format, std::ostream& out) {
  if (format == OutputFormat::Json) {
    store::Json list = store::Json::array();
    for (const HistoryStep& step : steps) {
      list.push_back(JsonOf(step.entry));
      list.back()["changes"] = step.damage.empty() ? JsonOf(step.differences) : store::Json();
    }
    out << store::ShownJson(list) << '\n';
    return;
  }
  TextTable table(5, out);
  table.AddLine({"REVISION", "WHEN", "WHO", "WHAT", "CHANGED"});
  for (const HistoryStep& step : steps) {
    const store::HistoryEntry& entry = step.entry;
    table.AddLine({std::to_string(entry.revision), store::LocalTimeText(entry.changedAt), WhoText(entry),
                   store::EventName(entry.event), step.Summary()});
  }
  table.Print();
}

void PrintDifferences(const std::vector<store::StudyDifference>& differences, OutputFormat format,
                      std::ostream& out) {
  if (format == OutputFormat::Json) {
    out << store::ShownJson(JsonOf(differences)) << '\n';
    return;
  }
  if (differences.empty()) out << "Nothing was changed.\n";
  TextTable table(2, out);
  for (const store::StudyDifference& difference : differences) {
    table.AddLine({difference.place, DifferenceText(difference)});
  }
  table.Print();
}

void PrintDeletedStudies(const std::vector<store::HistoryEntry>& studies, OutputFormat format,
                         std::ostream& out) {
  if (format == OutputFormat::Json) {
    store::Json list = store::Json::array();
    for (const store::HistoryEntry& entry : studies) list.push_back(JsonOf(entry));
    out << store::ShownJson(list) << '\n';
    return;
  }
  TextTable table(5, out);
  table.AddLine({"ID", "KIND", "NAME", "DELETED BY", "DELETED AT"});
  for (const store::HistoryEntry& entry : studies) {
    table.AddLine({std::to_string(entry.study), entry.kind, entry.name, WhoText(entry),
                   store::LocalTimeText(entry.changedAt)});
  }
  table.Print();
}

}  // namespace kiv::client
