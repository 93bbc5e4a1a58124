#include "client/cli/network_printer.h"

#include <unistd.h>

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "client/cli/terminal_text.h"
#include "client/texts/import_text.h"
#include "store/exchange/json.h"

namespace kiv::client {

namespace {

std::string_view OutcomeWord(store::NetworkReport::Outcome outcome) {
  using enum store::NetworkReport::Outcome;
  switch (outcome) {
    case Good: return "good";
    case Imported: return "imported";
    case Refused: return "refused";
    case Cancelled: return "cancelled";
  }
  return "";
}

void PrintJson(const store::NetworkReport& report, std::ostream& out) {
  store::Json tables = store::Json::array();
  for (const store::NetworkReport::Table& table : report.tables) {
    tables.push_back({{"table", table.name}, {"rows", table.rows}});
  }
  store::Json badLines = store::Json::array();
  for (const store::BadLine& bad : report.badLines) {
    badLines.push_back({{"file", bad.file},
                        {"line", bad.line == 0 ? store::Json() : store::Json(bad.line)},
                        {"reason", bad.reason}});
  }
  const store::Json all = {{"outcome", OutcomeWord(report.outcome)},
                           {"tables", tables},
                           {"badLines", badLines},
                           {"unknownFiles", report.unknownFiles}};
  out << store::ShownJson(all) << '\n';
}

}  // namespace

void PrintNetworkReport(const store::NetworkReport& report, OutputFormat format, std::ostream& out,
                        std::ostream& err) {
  if (format == OutputFormat::Json) return PrintJson(report, out);
  std::size_t width = 0;
  for (const store::NetworkReport::Table& table : report.tables) width = std::max(width, table.name.size());
  for (const store::NetworkReport::Table& table : report.tables) {
    out << std::left << std::setw(static_cast<int>(width)) << table.name << std::right << std::setw(10)
        << table.rows << '\n';
  }
  for (const std::string& file : report.unknownFiles) {
    err << TerminalText(file) << ": ignored, it is not one of the files of a network\n";
  }
  for (const store::BadLine& bad : report.badLines) err << TerminalText(BadLineText(bad)) << '\n';
  (report.outcome == store::NetworkReport::Outcome::Refused ? err : out) << OutcomeText(report) << '\n';
}

store::ImportProgress ProgressOnTerminal(std::ostream& stream) {
  if (&stream != &std::cerr || isatty(STDERR_FILENO) == 0) return {};
  return [&stream, shown = std::string()](std::string_view step, double done) mutable {
    std::string text = std::to_string(static_cast<int>(done * 100)) + " % " + std::string(step);
    if (text == shown) return store::ImportChoice::GoOn;
    // At the end the line is cleared, for the results come next.
    constexpr const char* kClearLine = "\r\x1B[K";
    stream << kClearLine << (done < 1 ? text : "") << std::flush;
    shown = std::move(text);
    return store::ImportChoice::GoOn;
  };
}

}  // namespace kiv::client
