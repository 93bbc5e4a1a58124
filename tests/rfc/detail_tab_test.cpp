#include "rfc/detail_tab.h"

#include "support/tab_test.h"
#include "support/temp_folder.h"

namespace kiv {
namespace {

class RfcDetail : public test::TabTest<XKivRfcDetail> {
 protected:
  RfcDetail() : TabTest(kRfcStudy) {
    test::StoreFeatures(*host_.database, 5, "Y", "Y");
    test::StoreFeatures(*host_.database, 6, "Y", "N");
  }

  enum class Ecp : std::int32_t { WithMultipleDns = 5, WithSingleDn = 6 };
  /// The general tab chose another ECP, and the user came back.
  void Choose(Ecp ecp) {
    Data().LookupFAF(static_cast<std::int32_t>(ecp));
    host_.editor->notifications.cdtnNotify_TabShow.Raise("XKivRfcDetail");
  }
  CKivRfcData& Data() { return *study_->RfcData(); }
  void Enter(std::size_t row, const std::string& dn, const std::string& file) {
    ui::MaskedEdit& box = tab_.txtDirectoryNumber[row].edit;
    box.Select(0, box.Text().size());
    box.Backspace();
    box.Type(dn);
    tab_.txtFilename[row].Edit(file);
  }
  /// The rows with a DN, such as "0:5551/a ".
  std::string Rows() const {
    std::string text;
    for (std::size_t row = 0; row < XKivRfcDetail::kRows; ++row) {
      const std::string dn = tab_.txtDirectoryNumber[row].Text();
      if (!dn.empty()) text += std::to_string(row) + ":" + dn + "/" + tab_.txtFilename[row].Text() + " ";
    }
    return text;
  }
  std::string SavedDns() {
    std::string text = Data().MultipleDns() + " ";
    for (const auto& dn : *Data().DNs()) text += dn->Dn() + "/" + dn->DataFile() + " ";
    return text;
  }

  test::TempFolder folder_;
};

TEST_F(RfcDetail, ChecksRunInOrder) {
  LoadNew();
  Choose(Ecp::WithMultipleDns);
  tab_.txtPollingInterval.SetText("x");
  EXPECT_EQ(Refusal(), "Data File Destination Path is a required field.");
  EXPECT_TRUE(tab_.txtPath.HasFocus());
  tab_.txtPath.SetText("/dev/shm");
  EXPECT_FALSE(tab_.IsTabValid(""));
  EXPECT_EQ(host_.messages->shown.at(0).style, host::MessageStyle::Warning);
  EXPECT_EQ(host_.TakeMessage(), "Only hard disks and network drives are valid data file destination.");
  tab_.txtPath.SetText(folder_.Path() + "/missing");
  EXPECT_FALSE(tab_.IsTabValid(""));
  EXPECT_EQ(host_.messages->shown.at(0).style, host::MessageStyle::Critical);
  EXPECT_EQ(host_.TakeMessage(), "Data File Destination Path does not exist.");
  tab_.txtPath.SetText(folder_.Path());

  EXPECT_EQ(Refusal(), "You must enter at least one DN. Please enter a DN.");
  EXPECT_TRUE(tab_.txtDirectoryNumber[1].edit.HasFocus());
  Enter(2, "5551", "a b");
  Enter(3, "5552", "a b");
  Enter(4, "5551", "");
  EXPECT_EQ(Refusal(), "Duplicate DN entered. Please enter a unique DN.");
  EXPECT_TRUE(tab_.txtDirectoryNumber[4].edit.HasFocus());
  Enter(4, "5553", "");
  EXPECT_EQ(Refusal(), "Duplicate study data file name entered. Please enter a unique study data file name.");
  EXPECT_TRUE(tab_.txtFilename[3].HasFocus());
  const std::string length =
      "A filename must have at least 1 but no more than 12 characters\r\n"
      "and cannot include any of the following characters: \\ / : * ? \" < > |";
  const std::string first = "The first character of the filename must be AlphaNumeric. ";
  const std::pair<const char*, std::string> names[] = {
      {"b", "Data File Destination Filename cannot contain spaces."},  // of row 2, before any other
      {"_b", first},
      {"b123456789012", length},
      {"b$$$$$$$$$$$$", length},
      {"b12345678901", "If you entered a DN you must have a corresponding study data file name."}};
  for (const auto& [name, message] : names) {
    Enter(3, "5552", name);
    EXPECT_EQ(Refusal(), message) << name;
    Enter(2, "5551", "a");
  }
  EXPECT_TRUE(tab_.txtFilename[4].HasFocus());
  Enter(4, "5553", "c");
  EXPECT_EQ(Refusal(), "Polling Interval must be numeric.");
  tab_.txtPollingInterval.SetText("2");
  host_.settings->general["Phone Number Mask"] = "###-####";
  EXPECT_EQ(Refusal(), "Number of digits in DN doesn't match mask.");
  host_.settings->general.clear();
  EXPECT_EQ(Refusal(), "");
}

TEST_F(RfcDetail, TheLeastIntervalDependsOnTheNumberOfDns) {
  LoadNew();
  EXPECT_EQ(tab_.txtPollingInterval.Text(), "2");
  EXPECT_EQ(tab_.lblInterval.Caption(), "(at least 2)");
  Choose(Ecp::WithMultipleDns);
  tab_.txtPath.SetText(folder_.Path());
  const int least[] = {2, 2, 2, 2, 3, 3, 4, 4, 5, 5};
  for (std::size_t row = 1; row <= 10; ++row) {
    Enter(row, "555" + std::to_string(row), "f" + std::to_string(row));
    const int low = least[row - 1];
    const std::string range =
        "Polling Interval must be between " + std::to_string(low) + " and 60 seconds inclusive.";
    for (const auto& [interval, message] : {std::pair{std::to_string(low - 1), range},
                                            {std::to_string(low), std::string()},
                                            {"60", std::string()},
                                            {"61", range},
                                            {"", range},
                                            {"-5", range}}) {
      tab_.txtPollingInterval.SetText(interval);
      EXPECT_EQ(Refusal(), message) << interval << " for " << row;
    }
    EXPECT_EQ(tab_.txtPollingInterval.Text(), "-5");  // told, not changed
  }
  EXPECT_EQ(tab_.lblInterval.Caption(), "(at least 5 for 10 DNs)");
}

TEST_F(RfcDetail, RowsFollowTheEcp) {
  LoadNew();
  Choose(Ecp::WithSingleDn);
  EXPECT_TRUE(tab_.txtDirectoryNumber[0].edit.Enabled() && tab_.txtFilename[0].Enabled());
  EXPECT_FALSE(tab_.txtDirectoryNumber[1].edit.Enabled() || tab_.txtFilename[10].Enabled());
  Enter(0, "5551", "a");
  Enter(1, "5559", "z");  // cannot be used
  EXPECT_EQ(Rows(), "0:5551/a ");
  host_.editor->changes.clear();

  Choose(Ecp::WithMultipleDns);
  EXPECT_FALSE(tab_.txtDirectoryNumber[0].edit.Enabled() || tab_.txtFilename[0].Enabled());
  EXPECT_EQ(Rows(), "1:5551/a ");
  EXPECT_TRUE(host_.editor->changes.empty());
  Enter(3, "5553", "c");
  tab_.SaveData();
  EXPECT_EQ(SavedDns(), "Y 5551/a.rft 5553/c.rft ");

  Data().LookupFAF(6);  // the user saves without coming back to this tab
  tab_.txtPath.SetText(folder_.Path());
  EXPECT_EQ(Refusal(), "You must enter at least one DN. Please enter a DN.");
  EXPECT_EQ(Rows(), "1:5551/a 3:5553/c ") << "checking moves nothing";
  tab_.txtFilename[0].Edit("typed");
  Choose(Ecp::WithSingleDn);
  EXPECT_EQ(Rows(), "1:5551/a 3:5553/c ") << "nothing moves over what was typed";
  EXPECT_EQ(tab_.txtFilename[0].Text(), "typed");
  tab_.txtFilename[0].Edit("");
  Choose(Ecp::WithMultipleDns);
  Choose(Ecp::WithSingleDn);
  EXPECT_EQ(Rows(), "0:5551/a 3:5553/c ");
  EXPECT_EQ(tab_.lblUnused.Caption(), "1 DN is unused: this ECP traces a single DN.");
  EXPECT_EQ(Refusal(), "");
  tab_.SaveData();
  EXPECT_EQ(SavedDns(), "N 5551/a.rft ");
  Choose(Ecp::WithMultipleDns);
  EXPECT_EQ(Rows(), "1:5551/a 3:5553/c ");
  EXPECT_EQ(tab_.lblUnused.Caption(), "");
  tab_.SaveData();
  tab_.SaveState();  // stored by now
  Choose(Ecp::WithSingleDn);
  EXPECT_EQ(Refusal(), "DN 5553 is stored with this study, but this ECP traces a single DN.");
}

TEST_F(RfcDetail, AStoredStudyFillsTheRowsOfItsEcp) {
  study_->SetPollingInterval(7);
  Data().SetPath("/d");
  Data().AddDn("5552", "b.rft");
  LoadStored();
  EXPECT_EQ(Rows(), "0:5552/b ");
  EXPECT_EQ(tab_.txtPath.Text() + tab_.txtPollingInterval.Text(), "/d7");
  Data().AddDn("5551", "a.txt");
  Data().LookupFAF(6);
  LoadStored();
  tab_.txtPath.SetText(folder_.Path());
  EXPECT_EQ(Rows(), "0:5552/b 1:5551/a.txt ");
  EXPECT_EQ(Refusal(), "DN 5551 is stored with this study, but this ECP traces a single DN.");
  tab_.cmdRemoveUnused.Click();
  EXPECT_EQ(Refusal(), "");
  Data().LookupFAF(5);
  host_.editor->changes.clear();
  LoadStored();
  EXPECT_EQ(Rows(), "1:5552/b 2:5551/a.txt ");
  EXPECT_EQ(tab_.lblInterval.Caption(), "(at least 2 for 2 DNs)");
  EXPECT_TRUE(host_.editor->changes.empty());
  host_.folders->answer = "/chosen";
  tab_.cmdBrowse.Click();
  EXPECT_EQ(host_.editor->changes.size(), 1U);
  tab_.cmdBrowse.Click();  // the same folder once more
  EXPECT_EQ(host_.editor->changes.size(), 2U);
  tab_.SaveData();
  EXPECT_EQ(Data().Path() + std::to_string(study_->PollingInterval()), "/chosen7");
}

TEST_F(RfcDetail, WhatNoRowCanShowStaysAndIsTold) {
  // No features are on record for the ECP.
  Data().SetMultipleDns("Y");
  for (int dn = 1; dn <= 11; ++dn) Data().AddDn("55" + std::to_string(dn), "f" + std::to_string(dn) + ".rft");
  LoadStored();
  tab_.txtPath.SetText(folder_.Path());
  tab_.txtPollingInterval.SetText("5");
  EXPECT_EQ(Refusal(), "DN 5511 is stored with this study, but no row can show it.");
  tab_.SaveData();
  EXPECT_EQ(Data().MultipleDns() + std::to_string(Data().DNs()->Count()), "Y11");
  Enter(4, "", "");
  host_.editor->notifications.cdtnNotify_TabShow.Raise("XKivRfcDetail");
  EXPECT_EQ(tab_.txtDirectoryNumber[4].Text(), "5511");
  EXPECT_EQ(Refusal(), "");
}

}  // namespace
}  // namespace kiv
