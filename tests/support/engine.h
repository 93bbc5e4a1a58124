#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "database/sql_connection.h"

namespace kiv::test {

/// One empty database of one kind, that any number of connections may use.
class TestDatabase {
 public:
  virtual ~TestDatabase() = default;

  virtual std::shared_ptr<database::SqlConnection> Connect() = 0;
  /// As --database takes it.
  virtual std::string Name() const = 0;
  /// Gives the database a stored function that puts its argument in brackets.
  virtual void AddBracketFunction(database::Connection& connection, const std::string& name) = 0;
  /// Lets every insert into a table fail with a text.
  virtual void BreakInserts(database::Connection& connection, const std::string& table,
                            const std::string& text) = 0;
  virtual void MendInserts(database::Connection& connection, const std::string& table) = 0;
};

/// A kind of database that has to pass what is asked of every kind.
struct Engine {
  std::string name;
  std::function<std::unique_ptr<TestDatabase>()> start;

  friend std::ostream& operator<<(std::ostream& stream, const Engine& engine) {
    return stream << engine.name;
  }
};

Engine SqliteEngine();
Engine PostgresEngine();

/// Every kind that this build has.
std::vector<Engine> Engines();

}  // namespace kiv::test
