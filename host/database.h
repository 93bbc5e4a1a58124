#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "base/error.h"
#include "base/variant.h"

namespace kiv::host {

/// How long a query of the library may take.
inline constexpr int kQueryTimeoutSeconds = 60;

/// A failed statement or connection, told in the driver's own words.
class DatabaseError : public Error {
 public:
  DatabaseError(const std::string& driverText, std::string statement)
      : Error(ErrorNumber::DatabaseFailure, driverText), statement_(std::move(statement)) {}

  /// The statement that failed; empty when none was running.
  const std::string& Statement() const { return statement_; }

 private:
  std::string statement_;
};

/// The rows of one query, read forward from the first.
class Recordset {
 public:
  virtual ~Recordset() = default;

  virtual bool EndOfFile() const = 0;
  virtual std::int32_t RecordCount() const = 0;
  virtual void MoveNext() = 0;
  /// Releases the rows; the set is at its end afterwards.
  virtual void Close() = 0;
  /// Position of a field, found without regard to case. Raises error 5 for an unknown name.
  virtual int FieldIndex(std::string_view name) const = 0;
  /// Value in the current row. Raises error 5 past the end or for a bad index.
  virtual Variant FieldAt(int index) const = 0;

  Variant Field(std::string_view name) const { return FieldAt(FieldIndex(name)); }
};

/// One column name with its new value in an update.
struct Assignment {
  std::string_view name;
  Variant value;
};

/// A question that is going to be asked: the query of an OpenQuery with the library's time-out, or the stored
/// function of a CallStoredFunction with its argument.
struct Announcement {
  std::string text;
  std::optional<std::string> argument = {};  ///< of a function
};

/// The host's relational database. Failures are raised as DatabaseError.
class Database {
 public:
  virtual ~Database() = default;

  /// Runs a query; null when no result set came back.
  virtual std::shared_ptr<Recordset> OpenQuery(const std::string& sql, int timeoutSeconds) = 0;
  /// Runs a statement that yields no rows.
  virtual void ExecuteSql(const std::string& sql) = 0;
  /// The text between the parentheses of a VALUES clause.
  virtual std::string FormatValueList(std::span<const Variant> values) const = 0;
  /// The text between SET and WHERE, with a blank at both ends.
  virtual std::string FormatAssignmentList(std::span<const Assignment> assignments) const = 0;
  /// Whether a table has a column; names without regard to case, an unknown table has none.
  virtual bool ColumnExists(const std::string& table, const std::string& column) = 0;
  /// Calls a stored function with one text argument and returns its text.
  virtual std::string CallStoredFunction(const std::string& name, const std::string& argument) = 0;
  virtual bool FieldToBoolean(const Variant& field) const = 0;

  /// How many questions it is of use to announce at a time; 0 where none is.
  virtual std::size_t AnnouncementsWanted() const { return 0; }
  /// Tells what is going to be asked behind what was announced before, in this order; some of it may be left
  /// out then. An empty list takes back what has not been asked. A database that is far away can thus answer
  /// many questions in the time of one. The answers are those that the questions would get without it.
  virtual void Announce(std::span<const Announcement> /*next*/) {}
};

}  // namespace kiv::host
