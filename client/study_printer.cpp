#include "client/study_printer.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <ostream>

#include "client/terminal_text.h"
#include "core/conversions.h"

namespace kiv::client {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kColumns = 7;
using Line = std::array<std::string, kColumns>;
constexpr const char* kWholeStudy = "Study";  // where a problem is that belongs to no tab

/// Texts of a database may be anything; a bad byte must not keep the rest from being printed.
std::string Dump(const Json& json, int indent) {
  return json.dump(indent, ' ', false, Json::error_handler_t::replace);
}

std::string MinutesText(std::int32_t minutes) {
  return minutes == CKivStudyData::kNotGiven ? std::string() : std::to_string(minutes);
}

Json NumberOrNull(std::int32_t number) {
  return number == CKivStudyData::kNotGiven ? Json() : Json(number);
}

Json JsonValue(const Variant& value) {
  if (const auto* number = std::get_if<std::int64_t>(&value.Value())) return *number;
  if (value.IsNull()) return nullptr;
  return ToText(value);
}

/// A list whose entries are a number or a text each, such as channels.
bool IsPlain(const StoredList& list) {
  return std::all_of(list.entries.begin(), list.entries.end(), [](const StoredEntry& entry) {
    return entry.fields.size() == 1 && entry.lists.empty();
  });
}

Json JsonEntry(const StoredEntry& entry) {
  Json json = Json::object();
  for (const NamedValue& field : entry.fields) json[std::string(field.name)] = JsonValue(field.value);
  for (const StoredList& list : entry.lists) {
    const bool plain = IsPlain(list);
    Json entries = Json::array();
    for (const StoredEntry& inner : list.entries) {
      entries.push_back(plain ? JsonValue(inner.fields[0].value) : JsonEntry(inner));
    }
    json[std::string(list.name)] = std::move(entries);
  }
  return json;
}

std::string PlainText(const Json& value) {
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
  if (IsPlain(list)) {
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

void PrintTable(std::vector<Line> lines, std::ostream& out) {
  std::array<std::size_t, kColumns> widths{};
  for (Line& line : lines) {
    for (std::size_t i = 0; i < kColumns; ++i) {
      line[i] = TerminalText(line[i]);
      widths[i] = std::max(widths[i], TerminalWidth(line[i]));
    }
  }
  std::string text;
  for (const Line& line : lines) {
    for (std::size_t i = 0; i < kColumns; ++i) {
      text += line[i];
      const bool last = i + 1 == kColumns;
      if (!last) text.append(widths[i] - TerminalWidth(line[i]) + 2, ' ');
    }
    text += '\n';
  }
  out << text;
}

std::string ScenarioName(const std::vector<host::Document>& scenarios, std::int32_t id) {
  const auto found = std::find_if(scenarios.begin(), scenarios.end(),
                                  [id](const host::Document& scenario) { return scenario.id == id; });
  return found == scenarios.end() ? std::string() : found->name;
}

/// The messages are written for message boxes; here each is one line.
std::string OneLine(std::string text) {
  std::erase(text, '\r');
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

}  // namespace

void PrintStudies(const std::vector<StudySummary>& studies, OutputFormat format, std::ostream& out) {
  if (format == OutputFormat::Json) {
    Json list = Json::array();
    for (const StudySummary& study : studies) {
      list.push_back({{"id", study.id},
                      {"kind", study.kind},
                      {"name", study.name},
                      {"scenario", study.scenario},
                      {"durationMinutes", NumberOrNull(study.duration)},
                      {"modifiedBy", study.modifiedBy},
                      {"modifiedAt", study.modifiedAt}});
    }
    out << Dump(list, 2) << '\n';
    return;
  }
  std::vector<Line> lines = {{"ID", "KIND", "NAME", "SCENARIO", "MINUTES", "CHANGED BY", "CHANGED AT"}};
  lines.reserve(studies.size() + 1);
  for (const StudySummary& study : studies) {
    lines.push_back({std::to_string(study.id), study.kind, study.name, study.scenario,
                     MinutesText(study.duration), study.modifiedBy, study.modifiedAt});
  }
  PrintTable(std::move(lines), out);
}

void PrintStudy(const Study& study, const std::vector<host::Document>& scenarios, OutputFormat format,
                std::ostream& out) {
  const CKivStudyData& record = *study.record;
  Json json = {{"id", record.ID()},
               {"kind", record.AppName()},
               {"name", study.name},
               {"scenario", ScenarioName(scenarios, record.ScenarioID())},
               {"durationMinutes", NumberOrNull(record.Duration())},
               {"pollingIntervalSeconds", NumberOrNull(record.PollingInterval())},
               {"retrieveDelayMinutes", NumberOrNull(record.RetrieveDelay())},
               {"revision", study.revision}};
  const bool complete = study.kindData == KindData::Complete;
  if (format == OutputFormat::Json) {
    json["data"] =
        !complete ? Json()
                  : JsonEntry({{}, record.SubRecord()->StoredFields(), record.SubRecord()->StoredLists()});
    out << Dump(json, 2) << '\n';
    return;
  }
  for (const auto& [name, value] : json.items()) PrintField({}, name, PlainText(value), out);
  if (!complete) return;
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

std::size_t PrintProblems(const StudySession& session, OutputFormat format, std::ostream& out) {
  Json list = Json::array();
  const auto add = [&list](const std::string& tab, const std::string& control, const std::string& message,
                           host::MessageStyle style = host::MessageStyle::Critical) {
    list.push_back({{"tab", tab},
                    {"control", control},
                    {"severity", style == host::MessageStyle::Warning ? "warning" : "error"},
                    {"message", message}});
  };
  if (session.Data() == KindData::Missing) add(kWholeStudy, {}, MissingDataText(session.ID()));
  if (const auto problem = session.NameProblem()) add(kWholeStudy, "studyName", *problem);
  for (const Tab* tab : session.HeaderAndTabs()) {
    for (const Problem& problem : tab->Problems()) {
      add(tab->Title(), problem.control->Name(), problem.message, problem.style);
    }
  }
  if (format == OutputFormat::Json) {
    out << Dump(list, 2) << '\n';
    return list.size();
  }
  for (const Json& problem : list) {
    out << problem["tab"].get<std::string>() << ": " << OneLine(problem["message"]) << '\n';
  }
  if (list.empty()) out << "Study " << session.ID() << " is valid.\n";
  return list.size();
}

}  // namespace kiv::client
