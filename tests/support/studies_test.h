#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "database/open.h"
#include "database/schema.h"
#include "host/scope.h"
#include "session/study_session.h"
#include "store/studies/study_store.h"
#include "support/engine.h"
#include "support/fake_host.h"
#include "support/rows_text.h"
#include "support/temp_folder.h"

namespace kiv::test {

/// Studies through their tabs on a real database of one engine, with the rest of the host faked.
class StudiesTest {
 protected:
  explicit StudiesTest(const Engine& engine, int layout = database::NewestSchemaVersion())
      : database_(engine.start()),
        // The program's way also brings the stored functions along.
        connection_(
            layout < database::NewestSchemaVersion()
                ? database_->Connect()
                : database::OpenStudyDatabase(database_->Name(), database::OpenMode::CreateIfMissing)) {
    database::UpgradeSchema(*connection_, layout);
    scenario_ = AddScenario("Down'town");
  }
  ~StudiesTest() = default;

  std::int32_t AddScenario(const std::string& name) {
    const std::int32_t id = store_.Scenarios().Add(name);
    host_.documents->documents = store_.Scenarios().List();
    return id;
  }
  std::unique_ptr<session::StudySession> NewSession(std::string_view kind) {
    return std::make_unique<session::StudySession>(store_, store_.New(std::string(kind)));
  }
  std::unique_ptr<session::StudySession> Reopened(std::int32_t id) {
    return std::make_unique<session::StudySession>(store_, store_.Load(id));
  }
  bool Save(session::StudySession& session) {
    const bool saved = session.Save("ann");
    EXPECT_EQ(host_.TakeMessage(), "");
    return saved;
  }
  std::string Rows(const std::string& columns, const std::string& table) {
    return RowsText(*connection_, columns, table);
  }

  FakeHost host_;
  TempFolder folder_;
  const std::shared_ptr<store::ErrorLog> errors_ = std::make_shared<store::ErrorLog>();
  const std::unique_ptr<TestDatabase> database_;
  const std::shared_ptr<database::SqlConnection> connection_;
  const host::Scope scope_{
      {.openDatabase = [opened = connection_] { return opened; }, .errorReporter = errors_},
      host::Rest::AsBefore};
  store::StudyStore store_{connection_, errors_};
  std::int32_t scenario_ = 0;
};

/// The page of this class in an editor.
template <class TabType>
TabType& Page(const session::StudySession& session) {
  for (Tab* tab : session.HeaderAndTabs()) {
    if (auto* page = dynamic_cast<TabType*>(tab)) return *page;
  }
  throw Error(ErrorNumber::InvalidArgument, "no such page");
}

}  // namespace kiv::test
