#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/study_data.h"
#include "core/study_kinds.h"
#include "editor/tab.h"
#include "support/fake_host.h"

namespace kiv::test {

inline std::shared_ptr<CKivStudyData> NewStudy(std::string_view kind, std::int32_t id = 0) {
  auto study = std::make_shared<CKivStudyData>();
  study->InitNew(std::string(kind), FindStudyKind(kind)->editorName, study->StudyType(),
                 study->ScenarioType(), id);
  return study;
}

/// A host and a new study.
class StudyTest : public ::testing::Test {
 protected:
  explicit StudyTest(std::string_view kind) : study_(NewStudy(kind)) {}

  void Load(Tab& tab) {
    tab.LoadState();
    tab.LoadData(Variant(study_), "", host_.editor);
  }
  /// The message of a refusal; empty when the tab is valid.
  std::string RefusalOf(Tab& tab) {
    const bool valid = tab.IsTabValid("");
    std::string text = host_.TakeMessage();
    EXPECT_EQ(valid, text.empty());
    return text;
  }
  /// A text for a box, and the message of the refusal that it meets, if any.
  using Refused = std::pair<std::string, std::string>;
  void ExpectRefusals(Tab& tab, auto& box, const std::vector<Refused>& cases) {
    for (const auto& [text, message] : cases) {
      box.SetText(text);
      EXPECT_EQ(RefusalOf(tab), message) << text;
    }
  }

  FakeHost host_;
  std::shared_ptr<CKivStudyData> study_;
};

/// One tab on a study, driven as a host does.
template <class TabType>
class TabTest : public StudyTest {
 protected:
  using StudyTest::StudyTest;

  void LoadNew() { Load(tab_); }
  void LoadStored() {
    study_->SetIsNew(false);
    LoadNew();
  }
  std::string Refusal() { return RefusalOf(tab_); }
  void ExpectRefusals(auto& box, const std::vector<Refused>& cases) {
    StudyTest::ExpectRefusals(tab_, box, cases);
  }

  TabType tab_;
};

}  // namespace kiv::test
