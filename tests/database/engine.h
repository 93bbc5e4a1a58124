#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string>

#include "database/connection.h"

namespace kiv::database {

/// One empty database of one kind, that any number of connections may use.
class TestDatabase {
 public:
  virtual ~TestDatabase() = default;

  virtual std::shared_ptr<Connection> Connect() = 0;
  /// Gives the database a stored function that puts its argument in brackets.
  virtual void AddBracketFunction(Connection& connection, const std::string& name) = 0;
};

/// A kind of database that has to pass the conformance suite.
struct Engine {
  std::string name;
  std::function<std::unique_ptr<TestDatabase>()> start;

  friend std::ostream& operator<<(std::ostream& stream, const Engine& engine) {
    return stream << engine.name;
  }
};

Engine SqliteEngine();

}  // namespace kiv::database
