#include "store/network/network_import.h"

#include <memory>
#include <utility>

#include "store/change.h"
#include "store/network/network_files.h"
#include "store/times.h"
#include "store/whole_file.h"

namespace kiv::store {

namespace {

constexpr std::size_t kRowsBetweenReports = 400;
/// Checking takes about as long as writing.
constexpr double kShareOfCheck = 0.5;

/// Leaves the import from wherever the user cancelled it.
struct Cancelled {};

/// Tells how far everything is, of an amount that was known before.
class Progress {
 public:
  Progress(const ImportProgress& tell, double from, double to, std::size_t total)
      : tell_(tell), from_(from), to_(to), total_(total) {}

  void Tell(const std::string& step, std::size_t done) const {
    const double share = total_ == 0 ? 1 : static_cast<double>(done) / static_cast<double>(total_);
    if (tell_ && tell_(step, from_ + share * (to_ - from_)) == ImportChoice::Cancel) throw Cancelled();
  }

 private:
  const ImportProgress& tell_;
  double from_;
  double to_;
  std::size_t total_;
};

/// The good lines of the files as rows to insert.
class Inserts {
 public:
  explicit Inserts(const host::Database& database) : database_(database) {}

  void Add(const NetworkTable& table, std::span<const Variant> row) {
    if (tables_.empty() || tables_.back().table != &table) tables_.push_back({&table, {}, {}});
    Rows& rows = tables_.back();
    rows.texts += database_.FormatValueList(row);
    rows.ends.push_back(rows.texts.size());
    ++count_;
  }

  std::size_t Count() const { return count_; }

  /// Calls `run(table, statement)` for each row. That the rows of a table follow each other as single inserts
  /// of one form lets the connection send them together.
  template <class Run>
  void ForEach(const Run& run) const {
    for (const Rows& rows : tables_) {
      std::string statement = Beginning(*rows.table);
      const std::size_t beginning = statement.size();
      std::size_t start = 0;
      for (const std::size_t end : rows.ends) {
        statement.resize(beginning);
        statement.append(rows.texts, start, end - start) += ')';
        run(*rows.table, statement);
        start = end;
      }
    }
  }

 private:
  /// One after the other: there may be millions.
  struct Rows {
    const NetworkTable* table;
    std::string texts;
    std::vector<std::size_t> ends;
  };

  static std::string Beginning(const NetworkTable& table) {
    std::string columns;
    for (const NetworkColumn& column : table.columns) {
      columns += (columns.empty() ? "" : ", ") + std::string(column.name);
    }
    return "INSERT INTO " + std::string(table.name) + " (" + columns + ") VALUES (";
  }

  const host::Database& database_;
  std::vector<Rows> tables_;
  std::size_t count_ = 0;
};

/// The file of a table, read; nothing when there is not exactly one, which the check then knows.
struct LoadedFile {
  const NetworkTable* table;
  std::string name;
  std::string text;
};

std::vector<LoadedFile> Load(const NetworkFiles& files, NetworkCheck& check) {
  std::vector<LoadedFile> loaded;
  for (const NetworkTable& table : NetworkTables()) {
    const auto& paths = files.ofTable[static_cast<std::size_t>(table.id)];
    if (paths.empty()) check.AddBadFile(FileNameOf(table), "the file is missing");
    for (std::size_t i = 1; i < paths.size(); ++i) {
      check.AddBadFile(FileName(paths[i]), FileName(paths[0]) + " has the same name");
    }
    if (paths.size() != 1) continue;
    try {
      loaded.push_back({&table, FileName(paths[0]), ReadWholeFile(paths[0])});
    } catch (const StoreError& error) {
      check.AddBadFile(FileName(paths[0]), std::string("the file cannot be read: ") + error.what());
    }
  }
  return loaded;
}

NetworkReport Check(const std::string& folder, const ImportProgress& progress, double shareOfAll,
                    const NetworkCheck::RowSink& sink) {
  const NetworkFiles files = FindNetworkFiles(folder);
  NetworkReport report;
  report.unknownFiles = files.unknown;

  std::function<void(std::size_t)> advance;
  NetworkCheck check(sink, [&advance](std::size_t position) { advance(position); });
  const std::vector<LoadedFile> loaded = Load(files, check);
  std::size_t bytes = 0;
  for (const LoadedFile& file : loaded) bytes += file.text.size();
  const Progress told(progress, 0, shareOfAll, bytes);
  std::size_t before = 0;
  for (const LoadedFile& file : loaded) {
    advance = [&](std::size_t position) { told.Tell("Checking " + file.name, before + position); };
    advance(0);
    report.tables.push_back(
        {std::string(file.table->name), check.CheckFile(*file.table, file.name, file.text)});
    before += file.text.size();
  }
  told.Tell("Checked", bytes);
  report.badLines = check.BadLines();
  report.outcome = report.badLines.empty() ? NetworkReport::Outcome::Good : NetworkReport::Outcome::Refused;
  return report;
}

void Write(database::Connection& connection, const Inserts& inserts, const ImportProgress& progress,
           const std::string& user) {
  const Progress told(progress, kShareOfCheck, 1, inserts.Count());
  const Changes changes(connection);
  Change change(changes, {.event = "network", .user = user, .time = UtcNow()});
  for (const NetworkTable& table : NetworkTables()) {
    connection.ExecuteSql("DELETE FROM " + std::string(table.name));
  }
  std::size_t done = 0;
  const NetworkTable* current = nullptr;
  inserts.ForEach([&](const NetworkTable& table, const std::string& statement) {
    if (std::exchange(current, &table) != &table || done % kRowsBetweenReports == 0) {
      told.Tell("Writing " + std::string(table.name), done);
    }
    connection.ExecuteSql(statement);
    ++done;
  });
  told.Tell("Finishing", done);
  change.Commit();
}

NetworkReport CancelledReport() {
  NetworkReport report;
  report.outcome = NetworkReport::Outcome::Cancelled;
  return report;
}

}  // namespace

NetworkReport CheckNetwork(const std::string& folder, const ImportProgress& progress) {
  try {
    return Check(folder, progress, 1, [](const NetworkTable&, std::span<const Variant>) {});
  } catch (const Cancelled&) {
    return CancelledReport();
  }
}

NetworkReport ImportNetwork(database::Connection& connection, const std::string& folder,
                            const ImportProgress& progress, const std::string& user) {
  try {
    Inserts inserts(connection);
    NetworkReport report = Check(
        folder, progress, kShareOfCheck,
        [&inserts](const NetworkTable& table, std::span<const Variant> row) { inserts.Add(table, row); });
    if (report.outcome == NetworkReport::Outcome::Refused) return report;
    Write(connection, inserts, progress, user);
    report.outcome = NetworkReport::Outcome::Imported;
    return report;
  } catch (const Cancelled&) {
    return CancelledReport();
  }
}

}  // namespace kiv::store
