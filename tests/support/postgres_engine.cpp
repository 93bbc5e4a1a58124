#include "database/postgres/postgres_database.h"
#include "support/engine.h"
#include "support/postgres_server.h"

namespace kiv::test {

namespace {

class PostgresTestDatabase : public TestDatabase {
 public:
  std::shared_ptr<database::SqlConnection> Connect() override {
    return database::PostgresDatabase::Open(address_);
  }
  std::string Name() const override { return address_; }
  void AddBracketFunction(database::Connection& connection, const std::string& name) override {
    const std::size_t dot = name.find('.');
    if (dot != std::string::npos) {
      connection.ExecuteSql("CREATE SCHEMA IF NOT EXISTS " + name.substr(0, dot));
    }
    connection.ExecuteSql("CREATE FUNCTION " + name +
                          "(argument TEXT) RETURNS TEXT LANGUAGE sql AS $$ SELECT '[' || argument || ']' $$");
  }
  void BreakInserts(database::Connection& connection, const std::string& table,
                    const std::string& text) override {
    connection.ExecuteSql("CREATE FUNCTION broken() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN RAISE '" +
                          text + "'; END $$");
    connection.ExecuteSql("CREATE TRIGGER broken BEFORE INSERT ON " + table +
                          " FOR EACH ROW EXECUTE FUNCTION broken()");
  }
  void MendInserts(database::Connection& connection, const std::string& table) override {
    connection.ExecuteSql("DROP TRIGGER broken ON " + table);
    connection.ExecuteSql("DROP FUNCTION broken()");
  }

 private:
  std::string address_ = PostgresServer::Shared().NewDatabase();
};

}  // namespace

Engine PostgresEngine() {
  return {"Postgres", [] { return std::make_unique<PostgresTestDatabase>(); }};
}

}  // namespace kiv::test
