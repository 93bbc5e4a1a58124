// What holds for every tab of every study kind.

#include <gtest/gtest.h>

#include <functional>

#include "core/study_kinds.h"
#include "editor/study_tabs.h"
#include "support/fake_host.h"

namespace kiv {
namespace {

TEST(EveryTab, RefusesToWorkWithoutAStudyOfItsKind) {
  test::FakeHost host;
  const auto number = [](const std::function<void()>& action) {
    try {
      action();
    } catch (const Error& error) {
      return error.Number();
    }
    return ErrorNumber{};
  };
  for (const StudyKind& kind : StudyKinds()) {
    const bool isHom = kind.name == kHomStudy;
    auto other = std::make_shared<CKivStudyData>();
    other->InitNew(std::string(isHom ? kPlmStudy : kHomStudy), "", other->StudyType(), other->ScenarioType(),
                   0);
    for (const StudyTab& made : kind.tabs) {
      SCOPED_TRACE(made.className);
      const auto tab = made.create();
      tab->LoadState();
      EXPECT_EQ(number([&] { tab->SaveData(); }), ErrorNumber::ObjectNotSet);
      EXPECT_EQ(number([&] { tab->IsTabValid(""); }), ErrorNumber::ObjectNotSet);
      EXPECT_TRUE(tab->Problems().empty());
      EXPECT_EQ(number([&] { tab->LoadData(Variant(1), "", host.editor); }), ErrorNumber::TypeMismatch);
      EXPECT_EQ(number([&] { tab->LoadData(Variant(other), "", host.editor); }), ErrorNumber::ObjectNotSet);
      EXPECT_EQ(number([&] { tab->SaveData(); }), ErrorNumber::ObjectNotSet);
      EXPECT_FALSE(tab->HandleTabProcess("anything"));
    }
  }
  EXPECT_TRUE(host.messages->shown.empty());
}

}  // namespace
}  // namespace kiv
