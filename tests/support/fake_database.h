#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "base/ascii.h"
#include "host/database.h"
#include "host/sql_rendering.h"

namespace kiv::test {

/// Rows that a test puts behind a query.
struct FakeRows {
  std::vector<std::string> names;
  std::vector<std::vector<Variant>> rows;
};

class FakeRecordset : public host::Recordset {
 public:
  explicit FakeRecordset(FakeRows rows) : rows_(std::move(rows)) {}

  bool EndOfFile() const override { return position_ >= rows_.rows.size(); }
  std::int32_t RecordCount() const override { return static_cast<std::int32_t>(rows_.rows.size()); }
  void MoveNext() override { ++position_; }
  void Close() override { rows_.rows.clear(); }
  int FieldIndex(std::string_view name) const override {
    for (std::size_t i = 0; i < rows_.names.size(); ++i) {
      if (SameInAnyCase(rows_.names[i], name)) return static_cast<int>(i);
    }
    throw Error(ErrorNumber::InvalidArgument, "no field " + std::string(name));
  }
  Variant FieldAt(int index) const override {
    if (EndOfFile() || index < 0 || std::size_t(index) >= rows_.names.size()) {
      throw Error(ErrorNumber::InvalidArgument, "no field " + std::to_string(index));
    }
    return rows_.rows[position_][std::size_t(index)];
  }

 private:
  FakeRows rows_;
  std::size_t position_ = 0;
};

/// Records every statement and question, and answers from a script. The ready rendering is the real one.
class FakeDatabase : public host::Database {
 public:
  std::vector<std::string> statements;       // texts given to ExecuteSql
  std::vector<std::string> queries;          // texts given to OpenQuery
  std::vector<int> timeouts;                 // time-outs given to OpenQuery
  std::vector<std::string> columnQuestions;  // "TABLE.COLUMN"
  std::map<std::string, FakeRows> answers;   // rows by query text; any other query has no rows
  std::set<std::string> missingColumns;      // "TABLE.COLUMN"
  std::map<std::string, std::map<std::string, std::string>> functions;  // results by name and argument
  bool noResultSet = false;
  std::string failure;          // when set, queries and statements raise it
  std::string questionFailure;  // when set, questions for columns raise it

  std::shared_ptr<host::Recordset> OpenQuery(const std::string& sql, int timeoutSeconds) override {
    queries.push_back(sql);
    timeouts.push_back(timeoutSeconds);
    FailIfTold(sql);
    if (noResultSet) return nullptr;
    return std::make_shared<FakeRecordset>(answers[sql]);
  }
  void ExecuteSql(const std::string& sql) override {
    FailIfTold(sql);
    statements.push_back(sql);
  }
  std::string FormatValueList(std::span<const Variant> values) const override {
    return host::RenderValueList(values);
  }
  std::string FormatAssignmentList(std::span<const host::Assignment> assignments) const override {
    return host::RenderAssignmentList(assignments);
  }
  bool ColumnExists(const std::string& table, const std::string& column) override {
    if (!questionFailure.empty()) throw host::DatabaseError(questionFailure, {});
    columnQuestions.push_back(table + "." + column);
    return !missingColumns.contains(columnQuestions.back());
  }
  std::string CallStoredFunction(const std::string& name, const std::string& argument) override {
    return functions[name][argument];
  }
  bool FieldToBoolean(const Variant& field) const override { return host::RenderedAsTrue(field); }

 private:
  void FailIfTold(const std::string& sql) const {
    if (!failure.empty()) throw host::DatabaseError(failure, sql);
  }
};

/// Puts features on record for an ECP: whether it can trace calls, and several DNs in one study.
inline void StoreFeatures(FakeDatabase& database, std::int32_t ecp, const char* traces,
                          const char* multipleDns) {
  database.answers["SELECT * FROM KIV_FAF WHERE InstanceId = " + std::to_string(ecp)] = {
      {"InstanceId", "OmpHostName", "F121", "F161", "F276", "F297", "F368", "F430", "F465", "F545", "F559"},
      {{ecp, "omp", "N", traces, "N", "N", "N", "N", multipleDns, "N", "N"}}};
}

}  // namespace kiv::test
