#pragma once

#include <memory>
#include <string>
#include <vector>

namespace kiv::bench {

/// A C library as a programmer uses it who sends one statement after the other. A failure ends the program.
class PlainLibrary {
 public:
  virtual ~PlainLibrary() = default;

  virtual void Run(const std::string& sql) = 0;
  /// Takes every value of a query's rows, numbers as numbers, texts as texts; returns the number of rows.
  virtual int Fetch(const std::string& sql) = 0;

  void RunInTransaction(const std::vector<std::string>& texts);
};

/// Opens a file with the settings that the program's own connections have.
std::unique_ptr<PlainLibrary> PlainSqlite(const std::string& file);
std::unique_ptr<PlainLibrary> PlainPostgres(const std::string& address);

}  // namespace kiv::bench
