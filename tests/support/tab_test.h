#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/study_data.h"
#include "core/study_kinds.h"
#include "support/fake_host.h"

namespace kiv::test {

/// One tab on a study, driven as a host does.
template <class TabType>
class TabTest : public ::testing::Test {
 protected:
  explicit TabTest(std::string_view kind) {
    study_->InitNew(std::string(kind), FindStudyKind(kind)->editorName, study_->StudyType(),
                    study_->ScenarioType(), 0);
  }

  void LoadNew() {
    tab_.LoadState();
    tab_.LoadData(Variant(study_), "", host_.editor);
  }
  void LoadStored() {
    study_->SetIsNew(false);
    LoadNew();
  }
  /// The message of a refusal; empty when the tab is valid.
  std::string Refusal() {
    const bool valid = tab_.IsTabValid("");
    std::string text = host_.TakeMessage();
    EXPECT_EQ(valid, text.empty());
    return text;
  }

  FakeHost host_;
  std::shared_ptr<CKivStudyData> study_ = std::make_shared<CKivStudyData>();
  TabType tab_;
};

}  // namespace kiv::test
