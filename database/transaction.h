#pragma once

#include "database/connection.h"

namespace kiv::database {

/// A transaction that is rolled back at the end of its scope unless it was committed.
class Transaction {
 public:
  enum class Access { Write, Read };

  explicit Transaction(Connection& connection, Access access = Access::Write) : connection_(connection) {
    access == Access::Read ? connection_.BeginReading() : connection_.Begin();
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction() {
    if (!open_) return;
    try {
      connection_.Rollback();
    } catch (...) {
      // Most likely another failure is on its way up, and that one tells what went wrong first.
    }
  }

  /// When this raises, the transaction is still rolled back at the end of the scope.
  void Commit() {
    connection_.Commit();
    open_ = false;
  }

 private:
  Connection& connection_;
  bool open_ = true;
};

}  // namespace kiv::database
