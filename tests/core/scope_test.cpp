#include "host/scope.h"

#include <gtest/gtest.h>

#include <optional>

#include "core/msql.h"
#include "support/fake_host.h"

namespace kiv {
namespace {

TEST(Scopes, NestAndGiveBackWhatTheyFound) {
  int opened = 0;
  const auto counted = [&opened] {
    ++opened;
    return std::make_shared<test::FakeDatabase>();
  };
  const host::Scope process(
      {.openDatabase = counted, .messageBoxes = std::make_shared<test::FakeMessageBox>()});
  host::Database* const database = &MSQL::Database();
  host::MessageBoxes* const messages = &host::TheMessageBoxes();
  {
    const host::Scope inner({.errorReporter = std::make_shared<test::FakeErrorReporter>()},
                            host::Rest::AsBefore);
    EXPECT_EQ(&host::TheMessageBoxes(), messages);
    EXPECT_NO_THROW(host::TheErrorReporter());
    EXPECT_EQ(&MSQL::Database(), database);
    auto connection = std::make_shared<test::FakeDatabase>();
    const host::Scope another({.openDatabase = [connection] { return connection; }}, host::Rest::AsBefore);
    EXPECT_EQ(&MSQL::Database(), connection.get());
    const test::FakeHost stranger;
    EXPECT_EQ(&MSQL::Database(), stranger.database.get());
  }
  EXPECT_EQ(&MSQL::Database(), database);
  EXPECT_THROW(host::TheErrorReporter(), Error);
  EXPECT_EQ(opened, 1);
  process.ReleaseDatabase();
  MSQL::Database();
  EXPECT_EQ(opened, 2);
  const host::Scope none{host::Services()};
  EXPECT_THROW(MSQL::Database(), Error);
}

TEST(Scopes, ReplacingAServiceCutsNobodyOff) {
  const test::FakeHost host;
  std::string heard;
  const ScopedConnection documents = host::TheEvents().DocumentsChanged.Connect([&] { heard += 'd'; });
  const ScopedConnection settings =
      host::TheEvents().appGeneralState_StateChange.Connect([&] { heard += 's'; });
  const host::Scope inner({.settings = std::make_shared<test::FakeSettings>(),
                           .documents = std::make_shared<test::FakeDocuments>()},
                          host::Rest::AsBefore);
  host::TheEvents().DocumentsChanged.Raise();
  host::TheEvents().appGeneralState_StateChange.Raise();
  const test::FakeHost stranger;
  host::TheEvents().DocumentsChanged.Raise();
  EXPECT_EQ(heard, "ds");
}

TEST(Scopes, AHostMayDoWithoutAny) {
  const auto messages = std::make_shared<test::FakeMessageBox>();
  std::string heard;
  const ScopedConnection settings =
      host::TheEvents().appGeneralState_StateChange.Connect([&] { heard += 's'; });
  host::InstallServices({.messageBoxes = messages});
  EXPECT_EQ(&host::TheMessageBoxes(), messages.get());
  {
    const test::FakeHost inner;
    EXPECT_NE(&host::TheMessageBoxes(), messages.get());
  }
  host::InstallServices({.messageBoxes = std::make_shared<test::FakeMessageBox>()});
  host::TheEvents().appGeneralState_StateChange.Raise();
  EXPECT_EQ(heard, "s");
  EXPECT_EQ(messages.use_count(), 1);
  host::InstallServices({});
  EXPECT_THROW(host::TheMessageBoxes(), Error);
}

TEST(Scopes, EndInAnyOrderWithoutHarm) {
  std::optional<host::Scope> outer;
  outer.emplace(host::Services{.messageBoxes = std::make_shared<test::FakeMessageBox>()});
  {
    const test::FakeHost inner;
    outer.reset();
    EXPECT_EQ(&host::TheMessageBoxes(), inner.messages.get());
  }
  EXPECT_THROW(host::TheMessageBoxes(), Error);
}

}  // namespace
}  // namespace kiv
