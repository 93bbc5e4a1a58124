#include "support/engine.h"

#include "database/sqlite/sqlite_database.h"
#include "support/temp_folder.h"

namespace kiv::test {

namespace {

class SqliteTestDatabase : public TestDatabase {
 public:
  std::shared_ptr<database::SqlConnection> Connect() override {
    return database::SqliteDatabase::Open(Name(), database::OpenMode::CreateIfMissing);
  }
  std::string Name() const override { return folder_.File("studies.db"); }
  void AddBracketFunction(database::Connection& connection, const std::string& name) override {
    dynamic_cast<database::SqliteDatabase&>(connection)
        .RegisterTextFunction(name, [](const std::string& text) { return "[" + text + "]"; });
  }
  void BreakInserts(database::Connection& connection, const std::string& table,
                    const std::string& text) override {
    connection.ExecuteSql("CREATE TRIGGER broken BEFORE INSERT ON " + table + " BEGIN SELECT raise(ABORT, '" +
                          text + "'); END");
  }
  void MendInserts(database::Connection& connection, const std::string&) override {
    connection.ExecuteSql("DROP TRIGGER broken");
  }

 private:
  TempFolder folder_;
};

}  // namespace

Engine SqliteEngine() {
  return {"Sqlite", [] { return std::make_unique<SqliteTestDatabase>(); }};
}

std::vector<Engine> Engines() {
#ifdef KIV_WITH_POSTGRES
  return {SqliteEngine(), PostgresEngine()};
#else
  return {SqliteEngine()};
#endif
}

}  // namespace kiv::test
