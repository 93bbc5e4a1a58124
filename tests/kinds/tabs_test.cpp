// What holds for every tab of every study kind.

#include "editor/study_tabs.h"
#include "support/raised.h"
#include "support/tab_test.h"

namespace kiv {
namespace {

TEST(EveryTab, RefusesToWorkWithoutAStudyOfItsKind) {
  test::FakeHost host;
  for (const StudyKind& kind : StudyKinds()) {
    const bool isHom = kind.name == kHomStudy;
    const auto other = test::NewStudy(isHom ? kPlmStudy : kHomStudy);
    for (const StudyTab& made : kind.tabs) {
      SCOPED_TRACE(made.className);
      const auto tab = made.create();
      tab->LoadState();
      EXPECT_EQ(test::NumberRaisedBy([&] { tab->SaveData(); }), ErrorNumber::ObjectNotSet);
      EXPECT_EQ(test::NumberRaisedBy([&] { tab->IsTabValid(""); }), ErrorNumber::ObjectNotSet);
      EXPECT_TRUE(tab->Problems().empty());
      EXPECT_EQ(test::NumberRaisedBy([&] { tab->LoadData(Variant(1), "", host.editor); }),
                ErrorNumber::TypeMismatch);
      EXPECT_EQ(test::NumberRaisedBy([&] { tab->LoadData(Variant(other), "", host.editor); }),
                ErrorNumber::ObjectNotSet);
      EXPECT_EQ(test::NumberRaisedBy([&] { tab->SaveData(); }), ErrorNumber::ObjectNotSet);
      EXPECT_FALSE(tab->HandleTabProcess("anything"));
    }
  }
  EXPECT_TRUE(host.messages->shown.empty());
}

}  // namespace
}  // namespace kiv
