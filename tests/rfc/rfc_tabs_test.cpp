#include "rfc/cdma_3g_tab.h"
#include "rfc/detail_tab.h"
#include "rfc/general_tab.h"
#include "support/tab_test.h"
#include "support/temp_folder.h"

namespace kiv {
namespace {

const std::string kNotFound =
    "FAF information was not found for ECP:4\r\n"
    "This can be caused by the FAF information being updated or the 'add_omp' script has not be executed.\r\n"
    "If the the 'add_omp has not been executed, you will need to exit pellavo and run the script.\r\n"
    "The RF Call Trace study can be created once the FAF information is in the Pellavo database.";
const std::string kNotActive =
    "The FAF, RF Calltrace (RFCT), is not active on ECP 3. RF Call Trace studies cannot be started \r\n"
    "on this ECP unless this FAF is active. Select another ECP to study or contact your ECP \r\n"
    "administrator to enable RF Calltrace (RFCT) on this ECP.";

template <class TabType>
class RfcTab : public test::TabTest<TabType> {
 protected:
  RfcTab() : test::TabTest<TabType>(kRfcStudy) {}

  CKivRfcData& Data() { return *this->study_->RfcData(); }
};

/// A network of three ECPs: 2 with the feature, 3 without it, 4 with nothing on record.
class RfcGeneral : public RfcTab<XKivRfcGen> {
 protected:
  RfcGeneral() {
    test::StoreFeatures(*host_.database, 102, "Y", "Y");
    test::StoreFeatures(*host_.database, 103, "y", "Y");
    const std::string query = "select * from vzn_instance_context where context_id=2 and fullkey=";
    for (const auto& [key, parent] : {std::pair{"'1-2-37'", 102}, {"'1-2-38'", 102}, {"'1-3-37'", 103}}) {
      host_.database->answers[query + key] = {{"ParentInstance_Id"}, {{parent}}};
    }
  }

  static host::DraggedNode Ecp(int ecp) { return {"Ecp:" + std::to_string(100 + ecp), 1, ecp, 0, 100 + ecp}; }
  static host::DraggedNode Cell(int ecp, int cell) {
    const int instance = 1000 * ecp + cell;
    return {"Cell:" + std::to_string(instance), 1, ecp, cell, instance};
  }
  std::string Listed() const {
    std::string keys;
    for (const auto& entity : *tab_.dlvwEntity.TheCollection()) keys += entity->Key() + " ";
    return keys;
  }
};

TEST_F(RfcGeneral, OneEcpOrUpToTheLimitOfCells) {
  LoadNew();
  EXPECT_EQ(tab_.dlvwEntity.MaxRows(), 1);
  tab_.dlvwEntity.DropNodes({Ecp(2), Ecp(3)});
  EXPECT_EQ(Listed(), "Ecp:102 ");
  EXPECT_EQ(host_.TakeMessage().substr(0, 43), "You have attempted to add more than 1 ECP.\r");
  EXPECT_TRUE(Data().Faf().F465);

  tab_.optEntityType[1].Click();
  EXPECT_EQ(tab_.dlvwEntity.EntityType(), EntityType::RfcCell);
  EXPECT_EQ(tab_.dlvwEntity.MaxRows(), 8);
  EXPECT_EQ(Listed(), "");
  EXPECT_FALSE(Data().Faf().F465);
  std::vector<host::DraggedNode> cells;
  for (int cell = 37; cell < 45; ++cell) cells.push_back(Cell(2, cell));
  tab_.dlvwEntity.DropNodes(cells);
  EXPECT_EQ(tab_.dlvwEntity.RowCount(), 7U);  // as many as the limit are too many
  EXPECT_EQ(host_.TakeMessage().substr(0, 64),
            "You have attempted to drop more than 8 cells for this study.\r\nNo");
  EXPECT_EQ(tab_.dlvwEntity.Text(0, 2), "37");

  tab_.optEntityType[0].Click();  // the other list is still there
  EXPECT_EQ(Listed(), "Ecp:102 ");
  EXPECT_EQ(tab_.dlvwEntity.MaxRows(), 1);
  EXPECT_EQ(host_.TakeMessage(), "");
}

TEST_F(RfcGeneral, WhatAnEcpWithoutTheFeatureAddedIsTakenOutAgain) {
  LoadNew();
  const struct {
    std::size_t type;
    host::DraggedNode node;
    std::string message;
  } cases[] = {{0, Ecp(3), kNotActive},
               {0, Ecp(4), kNotFound},
               {1, Cell(3, 37), kNotActive},
               {1, Cell(4, 37), kNotFound}};
  for (const auto& one : cases) {
    tab_.optEntityType[one.type].Click();
    host_.editor->changes.clear();
    tab_.dlvwEntity.DropNodes({one.node});
    EXPECT_EQ(host_.messages->shown.at(0).style, host::MessageStyle::Critical);
    EXPECT_EQ(host_.TakeMessage(), one.message);
    EXPECT_EQ(Listed(), "");
    EXPECT_EQ(tab_.dlvwEntity.RowCount(), 0U);
    EXPECT_EQ(Data().Faf().InstanceId, 0);
    EXPECT_TRUE(host_.editor->changes.empty());
  }
  host_.database->failure = "gone";
  EXPECT_THROW(tab_.dlvwEntity.DropNodes({Cell(2, 37)}), host::DatabaseError);
  EXPECT_EQ(Listed(), "");
}

TEST_F(RfcGeneral, TheFeatureIsCheckedWhenTheEcpChanges) {
  LoadNew();
  tab_.optEntityType[1].Click();
  tab_.dlvwEntity.DropNodes({Cell(2, 37)});
  EXPECT_EQ(host_.database->queries.size(), 2U);  // the ECP of the cell, and its features
  tab_.dlvwEntity.DropNodes({Cell(2, 38)});
  EXPECT_EQ(host_.database->queries.size(), 2U);
  EXPECT_EQ(host_.editor->changes.size(), 3U);
  tab_.dlvwEntity.RemoveAll();
  EXPECT_EQ(Data().Faf().InstanceId, 0);
  EXPECT_EQ(host_.database->queries.size(), 2U);
  tab_.dlvwEntity.DropNodes({Cell(2, 38)});
  EXPECT_EQ(Data().Faf().InstanceId, 102);

  tab_.optEntityType[0].Click();
  host_.editor->changes.clear();
  host_.database->failure = "gone";
  EXPECT_THROW(tab_.optEntityType[1].Click(), host::DatabaseError);
  EXPECT_EQ(host_.editor->changes.size(), 1U);
  host_.database->failure.clear();
  tab_.dlvwEntity.DropNodes({Cell(2, 37)});
  EXPECT_EQ(Data().Faf().InstanceId, 102) << "an ECP whose check failed is not taken for checked";
}

TEST_F(RfcGeneral, AStoredStudyIsShownWhateverItsFeatures) {
  study_->SetDuration(45);
  Data().Initialize(9, "t", "N", "N", "N", "/d", 0, 0);
  Data().AddCell(3037, 1, 3, 37);
  LoadStored();
  EXPECT_EQ(host_.TakeMessage(), kNotActive);
  host_.database->failure = "gone";
  LoadStored();
  EXPECT_EQ(host_.errors->reports, std::vector<std::string>{"gone"});
  EXPECT_FALSE(tab_.chkClearLog.Checked());
  EXPECT_EQ(tab_.optEntityType.Index(), 1);
  EXPECT_EQ(Listed(), "Cell:3037 ");
  EXPECT_EQ(Refusal(), "");
  EXPECT_TRUE(host_.editor->changes.empty());
}

TEST_F(RfcGeneral, SavesItsTagAndTheEntitiesOfTheChosenType) {
  LoadNew();
  tab_.dlvwEntity.DropNodes({Ecp(2)});
  tab_.chkClearLog.Click();
  ExpectRefusals(tab_.txtTag, {{".x", "Tag cannot start with a '.'"}, {"", "Tag is a required field."}});
  tab_.txtTag.Type("a-b c_1.Z$\b\U0001D441\U0001D440Y");  // pairs with the low bytes of 5A and 5@
  EXPECT_EQ(host_.beeper->beeps, 4);
  tab_.SaveData();
  EXPECT_EQ(Data().UseEcp() + Data().ClearLog() + Data().Tag(), "YNabc_1.\U0001D441Y");
  EXPECT_TRUE(Data().Entities()->Contains("Ecp:102"));
  for (const int type : {ui::kNoSelection, 1}) {  // what is no ECP is cells
    tab_.optEntityType.SetIndex(type);
    EXPECT_EQ(tab_.dlvwEntity.EntityType(), EntityType::RfcCell);
    EXPECT_EQ(Refusal(), "Please select at least one cell for the study.");
  }
  tab_.dlvwEntity.DropNodes({Cell(2, 38), Cell(2, 37)});
  tab_.SaveData();
  EXPECT_EQ(Data().UseEcp(), "");
  ASSERT_EQ(Data().Entities()->Count(), 2);
  EXPECT_EQ(AsCell(*Data().Entities()->begin()).CellID(), 38);
}

class RfcDetail : public RfcTab<XKivRfcDetail> {
 protected:
  RfcDetail() {
    test::StoreFeatures(*host_.database, 5, "Y", "Y");
    test::StoreFeatures(*host_.database, 6, "Y", "N");
  }

  enum class Ecp : std::int32_t { WithMultipleDns = 5, WithSingleDn = 6 };
  /// The general tab chose another ECP, and the user came back.
  void Choose(Ecp ecp) {
    Data().LookupFAF(static_cast<std::int32_t>(ecp));
    host_.editor->notifications.cdtnNotify_TabShow.Raise("XKivRfcDetail");
  }
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
  for (const auto& [path, style] : {std::pair{std::string("/dev/shm"), host::MessageStyle::Warning},
                                    {folder_.File("missing"), host::MessageStyle::Critical}}) {
    tab_.txtPath.SetText(path);
    EXPECT_FALSE(tab_.IsTabValid(""));
    EXPECT_EQ(host_.messages->shown.at(0).style, style);
    EXPECT_NE(host_.TakeMessage(), "");
  }
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
    SCOPED_TRACE(row);
    ExpectRefusals(tab_.txtPollingInterval, {{std::to_string(low - 1), range},
                                             {std::to_string(low), ""},
                                             {"60", ""},
                                             {"61", range},
                                             {"", range},
                                             {"-5", range}});
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
  Enter(0, "", "mine");  // what is left over comes into no row that the user emptied
  tab_.IsTabValid({});
  host_.editor->notifications.cdtnNotify_TabShow.Raise("XKivRfcDetail");
  EXPECT_EQ(tab_.txtDirectoryNumber[0].Text() + tab_.txtFilename[0].Text(), "mine");
  EXPECT_EQ(tab_.txtDirectoryNumber[1].Text(), "5551");
  Enter(0, "5552", "b");
  EXPECT_NE(host_.TakeMessage(), "");
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

class RfcCdma3G : public RfcTab<XKivRfcCDMA3G> {
 protected:
  /// What a save stores, such as "3 0".
  std::string Saved() {
    tab_.SaveData();
    return std::to_string(Data().ForwardRateRestriction()) + " " +
           std::to_string(Data().ReverseRateRestriction());
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
  Data().SetForwardRateRestriction(6);
  Data().SetReverseRateRestriction(-1);
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
