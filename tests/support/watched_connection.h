#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "database/connection.h"

namespace kiv::test {

/// Another connection, with something done before each call that may change the database.
class WatchedConnection : public database::Connection {
 public:
  explicit WatchedConnection(std::shared_ptr<database::Connection> inner) : inner_(std::move(inner)) {}

  std::function<void()> beforeCall = [] {};

  std::shared_ptr<host::Recordset> OpenQuery(const std::string& sql, int timeoutSeconds) override {
    beforeCall();
    return inner_->OpenQuery(sql, timeoutSeconds);
  }
  void ExecuteSql(const std::string& sql) override {
    beforeCall();
    inner_->ExecuteSql(sql);
  }
  bool ColumnExists(const std::string& table, const std::string& column) override {
    beforeCall();
    return inner_->ColumnExists(table, column);
  }
  std::string CallStoredFunction(const std::string& name, const std::string& argument) override {
    beforeCall();
    return inner_->CallStoredFunction(name, argument);
  }
  void Begin() override {
    beforeCall();
    inner_->Begin();
  }
  void BeginReading() override {
    beforeCall();
    inner_->BeginReading();
  }
  void VisitRows(const std::string& sql, int timeoutSeconds, const database::RowVisitor& visit) override {
    beforeCall();
    inner_->VisitRows(sql, timeoutSeconds, visit);
  }
  void Commit() override {
    beforeCall();
    inner_->Commit();
  }
  void Rollback() override {
    beforeCall();
    inner_->Rollback();
  }

  std::string FormatValueList(std::span<const Variant> values) const override {
    return inner_->FormatValueList(values);
  }
  std::string FormatAssignmentList(std::span<const host::Assignment> assignments) const override {
    return inner_->FormatAssignmentList(assignments);
  }
  bool FieldToBoolean(const Variant& field) const override { return inner_->FieldToBoolean(field); }
  bool ReadOnly() const override { return inner_->ReadOnly(); }
  std::string Name() const override { return inner_->Name(); }

 private:
  std::shared_ptr<database::Connection> inner_;
};

}  // namespace kiv::test
