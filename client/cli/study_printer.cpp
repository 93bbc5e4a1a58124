#include "client/cli/study_printer.h"

#include <algorithm>
#include <ostream>

#include "client/cli/terminal_text.h"
#include "client/cli/text_table.h"
#include "core/conversions.h"
#include "store/exchange/json.h"

namespace kiv::client {

namespace {

std::string MinutesText(std::int32_t minutes) {
  return minutes == CKivStudyData::kNotGiven ? std::string() : std::to_string(minutes);
}

std::string PlainText(const store::Json& value) {
  if (value.is_null()) return {};
  return value.is_string() ? value.get<std::string>() : value.dump();
}

void PrintField(const std::string& indent, const std::string& name, const std::string& value,
                std::ostream& out) {
  constexpr std::size_t kNameWidth = 24;
  out << indent << name << std::string(kNameWidth - std::min(name.size(), kNameWidth - 1), ' ')
      << TerminalText(value) << '\n';
}

/// Every entry under its name, without what is not set; nothing but values in one line.
void PrintList(const StoredList& list, const std::string& indent, std::ostream& out) {
  const std::string inner = indent + "  ";
  if (store::IsPlain(list)) {
    std::string values;
    for (const StoredEntry& entry : list.entries) {
      values += (values.empty() ? "" : ", ") + ToText(entry.fields[0].value);
    }
    PrintField(indent, std::string(list.name), values, out);
    return;
  }
  out << indent << list.name << '\n';
  for (std::size_t i = 0; i < list.entries.size(); ++i) {
    const StoredEntry& entry = list.entries[i];
    out << inner << (entry.name.empty() ? std::to_string(i + 1) : TerminalText(entry.name)) << '\n';
    for (const NamedValue& field : entry.fields) {
      const std::string value = ToText(field.value);
      if (!value.empty()) PrintField(inner + "  ", std::string(field.name), value, out);
    }
    for (const StoredList& deeper : entry.lists) {
      if (!deeper.entries.empty()) PrintList(deeper, inner + "  ", out);
    }
  }
}

}  // namespace

void PrintStudies(const store::StudyStore& store, OutputFormat format, std::ostream& out) {
  if (format == OutputFormat::Json) {
    store::Json list = store::Json::array();
    store.ForEach([&list](const store::StudyLine& study) {
      list.push_back({{"id", study.id},
                      {"kind", study.kind},
                      {"name", study.name},
                      {"scenario", study.scenario},
                      {"durationMinutes", store::NumberOrNull(study.duration)},
                      {"modifiedBy", study.modifiedBy},
                      {"modifiedAt", study.modifiedAt}});
    });
    out << store::ShownJson(list) << '\n';
    return;
  }
  TextTable table(7, out);
  table.AddLine({"ID", "KIND", "NAME", "SCENARIO", "MINUTES", "CHANGED BY", "CHANGED AT"});
  store.ForEach([&table](const store::StudyLine& study) {
    table.AddLine({std::to_string(study.id), study.kind, study.name, study.scenario,
                   MinutesText(study.duration), study.modifiedBy, study.modifiedAt});
  });
  table.Print();
}

void PrintStudy(const store::Study& study, const std::vector<host::Document>& scenarios, OutputFormat format,
                std::ostream& out) {
  const CKivStudyData& record = *study.record;
  store::Json json = {{"id", record.ID()}, {"revision", study.revision}};
  json.update(store::ContentOf(study, store::NameOf(scenarios, record.ScenarioID())));
  if (format == OutputFormat::Json) {
    out << store::ShownJson(json) << '\n';
    return;
  }
  json.erase(store::key::kData);
  for (const auto& [name, value] : json.items()) PrintField({}, name, PlainText(value), out);
  if (study.kindData != store::KindData::Complete) return;
  out << '\n';
  for (const NamedValue& field : record.SubRecord()->StoredFields()) {
    PrintField({}, std::string(field.name), ToText(field.value), out);
  }
  for (const StoredList& list : record.SubRecord()->StoredLists()) {
    if (list.entries.empty()) continue;
    out << '\n';
    PrintList(list, {}, out);
  }
}

void PrintProblems(std::int32_t id, const std::vector<session::StudyProblem>& problems, OutputFormat format,
                   std::ostream& out) {
  if (format == OutputFormat::Json) {
    store::Json list = store::Json::array();
    for (const session::StudyProblem& problem : problems) {
      list.push_back({{"tab", problem.tab},
                      {"control", problem.control},
                      {"severity", problem.severity == session::Severity::Warning ? "warning" : "error"},
                      {"message", problem.message}});
    }
    out << store::ShownJson(list) << '\n';
    return;
  }
  for (const session::StudyProblem& problem : problems) {
    out << TerminalText(session::ProblemText(problem)) << '\n';
  }
  if (!session::HasErrors(problems)) out << "Study " << id << " is valid.\n";
}

}  // namespace kiv::client
