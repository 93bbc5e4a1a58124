#include "rfc/cdma_3g_tab.h"

#include "support/tab_test.h"

namespace kiv {
namespace {

class RfcCdma3G : public test::TabTest<XKivRfcCDMA3G> {
 protected:
  RfcCdma3G() : TabTest(kRfcStudy) {}

  /// What a save stores, such as "3 0".
  std::string Saved() {
    tab_.SaveData();
    return std::to_string(study_->RfcData()->ForwardRateRestriction()) + " " +
           std::to_string(study_->RfcData()->ReverseRateRestriction());
  }
};

TEST_F(RfcCdma3G, ARateIsRestrictedWhileItsBoxIsChecked) {
  LoadNew();
  EXPECT_FALSE(tab_.frameForward.Enabled() || tab_.FrameReverse.Enabled());
  EXPECT_EQ(tab_.optForwardRate.Index(), 0);
  EXPECT_EQ(Saved(), "0 0");
  EXPECT_TRUE(host_.editor->changes.empty());
  tab_.chkRestrictForward.Click();
  EXPECT_TRUE(tab_.frameForward.Enabled());
  EXPECT_EQ(Saved(), "1 0");
  tab_.optForwardRate[2].Click();
  EXPECT_EQ(tab_.optForwardRate[2].Caption(), "8X (76.8 K)");
  EXPECT_EQ(Saved(), "3 0");
  EXPECT_EQ(host_.editor->changes.size(), 2U);
  tab_.chkRestrictForward.Click();
  EXPECT_FALSE(tab_.frameForward.Enabled());
  EXPECT_EQ(Saved(), "0 0");
  EXPECT_TRUE(tab_.IsTabValid(""));
}

TEST_F(RfcCdma3G, StoredRatesThatThereAreNotStayUntilTheUserChooses) {
  study_->RfcData()->SetForwardRateRestriction(6);
  study_->RfcData()->SetReverseRateRestriction(-1);
  LoadStored();
  EXPECT_TRUE(tab_.chkRestrictForward.Checked() && tab_.frameForward.Enabled());
  EXPECT_EQ(tab_.optForwardRate.Index(), ui::kNoSelection);
  EXPECT_FALSE(tab_.chkRestrictReverse.Checked());
  EXPECT_EQ(Saved(), "6 -1");
  EXPECT_TRUE(host_.editor->changes.empty());
  tab_.chkRestrictReverse.Click();  // the other direction
  EXPECT_TRUE(tab_.FrameReverse.Enabled());
  EXPECT_EQ(Saved(), "6 1");
  tab_.chkRestrictForward.Click();
  tab_.chkRestrictForward.Click();
  EXPECT_EQ(Saved(), "0 1");
  tab_.optForwardRate[4].Click();
  EXPECT_EQ(Saved(), "5 1");
}

}  // namespace
}  // namespace kiv
