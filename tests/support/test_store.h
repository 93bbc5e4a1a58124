#pragma once

#include <memory>
#include <utility>

#include "core/msql.h"
#include "database/connection.h"
#include "store/studies/error_log.h"
#include "store/studies/study_store.h"
#include "support/fake_host.h"

namespace kiv::test {

/// The program's store on one connection, with the rest of the host faked. One at a time in a process.
class TestStore {
 public:
  explicit TestStore(const std::shared_ptr<database::Connection>& connection) : store_(connection, errors_) {
    MSQL::ReleaseDatabase();
    host::Services services = host::InstalledServices();
    services.openDatabase = [connection] { return connection; };
    services.errorReporter = errors_;
    host::InstallServices(services);
  }

  store::StudyStore* operator->() { return &store_; }

 private:
  FakeHost host_;
  std::shared_ptr<store::ErrorLog> errors_ = std::make_shared<store::ErrorLog>();
  store::StudyStore store_;
};

}  // namespace kiv::test
