#include "database/schema.h"

#include <span>
#include <string>
#include <string_view>

#include "database/open_error.h"
#include "database/schema_layout.h"
#include "database/schema_steps.h"
#include "database/transaction.h"

namespace kiv::database {

namespace {

/// A statement in the words of an engine; empty when it is for another one.
std::string StatementFor(const SchemaLayout& layout, std::string_view written) {
  constexpr std::string_view kOnly = "-- only ";
  if (written.starts_with(kOnly)) {
    written.remove_prefix(kOnly.size());
    const std::size_t end = written.find('\n');
    if (written.substr(0, end) != layout.Engine()) return {};
    written.remove_prefix(end + 1);
  }
  std::string statement(written);
  for (const SchemaWord& word : layout.Words()) {
    for (std::size_t place = 0; (place = statement.find(word.word, place)) != std::string::npos;) {
      statement.replace(place, word.word.size(), word.meaning);
    }
  }
  return statement;
}

void RunScript(SqlConnection& connection, std::string_view script) {
  constexpr std::string_view kBlankLine = "\n\n";
  while (!script.empty()) {
    const std::size_t end = script.find(kBlankLine);
    const std::string statement = StatementFor(connection.Layout(), script.substr(0, end));
    if (!statement.empty()) connection.ExecuteSql(statement);
    script.remove_prefix(end == std::string_view::npos ? script.size() : end + kBlankLine.size());
  }
}

}  // namespace

int NewestSchemaVersion() {
  return static_cast<int>(SchemaSteps().size());
}

int SchemaVersion(SqlConnection& connection) {
  return connection.Layout().Version(connection);
}

void RefuseNewer(int version, const std::string& name) {
  if (version <= NewestSchemaVersion()) return;
  throw OpenError(OpenProblem::Newer, name,
                  "its layout is number " + std::to_string(version) + ", this program knows " +
                      std::to_string(NewestSchemaVersion()));
}

void UpgradeSchema(SqlConnection& connection, int version) {
  const SchemaLayout& layout = connection.Layout();
  if (version < 1 || version > NewestSchemaVersion()) {
    throw Error(ErrorNumber::InvalidArgument,
                "There is no version " + std::to_string(version) + " of the database layout.");
  }
  // Usually there is nothing to do, and then nobody is kept from writing.
  if (layout.Version(connection) == NewestSchemaVersion()) return;

  Transaction transaction(connection);
  layout.LockOutOthers(connection);
  // Asked again, because another program may have run the steps in the meantime.
  const int present = layout.Version(connection);
  if (present == 0 && layout.IsTaken(connection)) throw OpenError(OpenProblem::Foreign, connection.Name());
  RefuseNewer(present, connection.Name());
  if (present >= version) return;
  for (const std::string_view step : SchemaSteps().subspan(static_cast<std::size_t>(present),
                                                           static_cast<std::size_t>(version - present))) {
    RunScript(connection, step);
  }
  layout.SetVersion(connection, version);
  transaction.Commit();
}

}  // namespace kiv::database
