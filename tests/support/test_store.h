#pragma once

#include <memory>

#include "database/open.h"
#include "store/studies/error_log.h"
#include "store/studies/study_store.h"
#include "support/engine.h"
#include "support/fake_host.h"

namespace kiv::test {

/// The program's store on one connection, with the rest of the host faked.
class TestStore {
 public:
  explicit TestStore(const std::shared_ptr<database::Connection>& connection)
      : scope_({.openDatabase = [connection] { return connection; }, .errorReporter = errors_},
               host::Rest::AsBefore),
        store_(connection, errors_) {}

  explicit TestStore(const TestDatabase& studies)
      : TestStore(database::OpenStudyDatabase(studies.Name(), database::OpenMode::CreateIfMissing)) {}

  store::StudyStore* operator->() { return &store_; }
  store::StudyStore& operator*() { return store_; }

 private:
  FakeHost host_;
  std::shared_ptr<store::ErrorLog> errors_ = std::make_shared<store::ErrorLog>();
  host::Scope scope_;
  store::StudyStore store_;
};

}  // namespace kiv::test
