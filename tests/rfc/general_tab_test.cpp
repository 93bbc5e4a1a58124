#include "rfc/general_tab.h"

#include "support/tab_test.h"

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

/// A network of three ECPs: 2 with the feature, 3 without it, 4 with nothing on record.
class RfcGeneral : public test::TabTest<XKivRfcGen> {
 protected:
  RfcGeneral() : TabTest(kRfcStudy) {
    test::StoreFeatures(*host_.database, 102, "Y", "Y");
    test::StoreFeatures(*host_.database, 103, "y", "Y");
    const std::string query = "select * from vzn_instance_context where context_id=2 and fullkey=";
    for (const auto& [key, parent] : {std::pair{"'1-2-37'", 102}, {"'1-2-38'", 102}, {"'1-3-37'", 103}}) {
      host_.database->answers[query + key] = {{"ParentInstance_Id"}, {{parent}}};
    }
  }

  CKivRfcData& Data() { return *study_->RfcData(); }
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

TEST_F(RfcGeneral, ATagHasLettersDigitsDotsAndUnderscoresOnly) {
  LoadNew();
  tab_.dlvwEntity.DropNodes({Ecp(2)});
  tab_.txtTag.SetText(".x");
  EXPECT_EQ(Refusal(), "Tag cannot start with a '.'");
  tab_.txtTag.SetText("");
  tab_.txtTag.Type("a-b c_1.Z$\b\U0001D441\U0001D440Y");  // pairs with the low bytes of 5A and 5@
  EXPECT_EQ(tab_.txtTag.Text(), "abc_1.\U0001D441Y");
  EXPECT_EQ(host_.beeper->beeps, 4);
}

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
  EXPECT_FALSE(tab_.chkClearLog.Checked());
  EXPECT_EQ(tab_.optEntityType.Index(), 1);
  EXPECT_EQ(Listed(), "Cell:3037 ");
  EXPECT_EQ(Refusal(), "");
  EXPECT_TRUE(host_.editor->changes.empty());
}

TEST_F(RfcGeneral, SavesTheEntitiesOfTheChosenType) {
  LoadNew();
  tab_.dlvwEntity.DropNodes({Ecp(2)});
  tab_.chkClearLog.Click();
  tab_.SaveData();
  EXPECT_EQ(Data().UseEcp() + Data().ClearLog() + Data().Tag(), "YNdata");
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

}  // namespace
}  // namespace kiv
