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
  std::function<void(database::Connection& inner)> commit = [](auto& inner) { inner.Commit(); };

  std::shared_ptr<host::Recordset> OpenQuery(const std::string& sql, int timeoutSeconds) override {
    return Watched().OpenQuery(sql, timeoutSeconds);
  }
  void ExecuteSql(const std::string& sql) override { Watched().ExecuteSql(sql); }
  bool ColumnExists(const std::string& table, const std::string& column) override {
    return Watched().ColumnExists(table, column);
  }
  std::string CallStoredFunction(const std::string& name, const std::string& argument) override {
    return Watched().CallStoredFunction(name, argument);
  }
  void Begin() override { Watched().Begin(); }
  void BeginReading() override { Watched().BeginReading(); }
  void VisitRows(const std::string& sql, int timeoutSeconds, const database::RowVisitor& visit) override {
    Watched().VisitRows(sql, timeoutSeconds, visit);
  }
  void Commit() override { commit(Watched()); }
  void Rollback() override { Watched().Rollback(); }

  void SetWaitHandler(database::WaitHandler handler) override { inner_->SetWaitHandler(std::move(handler)); }
  void SetStatementLimit(std::chrono::seconds limit) override { inner_->SetStatementLimit(limit); }
  std::string FormatValueList(std::span<const Variant> values) const override {
    return inner_->FormatValueList(values);
  }
  std::string FormatAssignmentList(std::span<const host::Assignment> assignments) const override {
    return inner_->FormatAssignmentList(assignments);
  }
  std::size_t AnnouncementsWanted() const override { return inner_->AnnouncementsWanted(); }
  void Announce(std::span<const host::Announcement> next) override { Watched().Announce(next); }
  bool FieldToBoolean(const Variant& field) const override { return inner_->FieldToBoolean(field); }
  bool ReadOnly() const override { return inner_->ReadOnly(); }
  std::string Name() const override { return inner_->Name(); }

 private:
  database::Connection& Watched() {
    beforeCall();
    return *inner_;
  }

  std::shared_ptr<database::Connection> inner_;
};

}  // namespace kiv::test
