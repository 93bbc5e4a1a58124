#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <map>

#include "core/conversions.h"
#include "database/open.h"
#include "host/constants.h"
#include "samples/network_maker.h"
#include "store/network/network_csv.h"
#include "store/network/network_files.h"
#include "store/network/network_import.h"
#include "store/store_error.h"
#include "store/whole_file.h"
#include "support/engine.h"
#include "support/rows_text.h"
#include "support/temp_folder.h"

namespace kiv::client {
namespace {

/// Records as `line: field|field`, faults as `line! fault`.
std::vector<std::string> Read(std::string_view text) {
  std::vector<std::string> records;
  store::CsvReader reader(text);
  while (reader.Next()) {
    std::string record = std::to_string(reader.Line()) + (reader.Fault().empty() ? ": " : "! ");
    record += reader.Fault();
    for (std::size_t i = 0; i < reader.Fields().size(); ++i) {
      record += (i == 0 ? "" : "|") + std::string(reader.Fields()[i]);
    }
    records.push_back(record);
  }
  EXPECT_EQ(reader.Position(), text.size());
  return records;
}

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(NetworkCsv, ReadsLinesQuotedValuesAndEmptyOnes) {
  EXPECT_THAT(Read(""), IsEmpty());
  EXPECT_THAT(Read("\xEF\xBB\xBF\n\r\n"), IsEmpty());
  EXPECT_THAT(Read("\xEF\xBB\xBF"
                   "a,b\r\n1,\n\n,2"),
              ElementsAre("1: a|b", "2: 1|", "4: |2"));
  EXPECT_THAT(Read("\"a,\"\"b\"\"\",\"\",\"x\r\ny\"\r\n\"\"\"\"\nlast\n"),
              ElementsAre("1: a,\"b\"||x\r\ny", "3: \"", "4: last"));
  EXPECT_THAT(Read("a\rb, c \n"), ElementsAre("1: a\rb| c "));
}

TEST(NetworkCsv, AFaultHidesNothingThatFollows) {
  const std::string inside = "! a quotation mark stands inside a value that does not begin with one";
  const std::string after = "! text follows a closing quotation mark";
  const std::string open = "! a quotation mark is never closed";
  EXPECT_THAT(Read("a,b\"c\n1,2\n"), ElementsAre("1" + inside, "2: 1|2"));
  EXPECT_THAT(Read("\"a\"b,c\r\n1,2"), ElementsAre("1" + after, "2: 1|2"));
  // The mark that was forgotten on line 1 seems to be the one that opens on line 2.
  EXPECT_THAT(Read("\"a,b\n1,\"2\"\n3,4"), ElementsAre("1" + after, "2: 1|2", "3: 3|4"));
  EXPECT_THAT(Read("1,2\n\"a\n3,4\n"), ElementsAre("1: 1|2", "2" + open, "3: 3|4"));
}

using Outcome = store::NetworkReport::Outcome;
using ::testing::ElementsAre;

/// The smallest network that has a row in every table.
const std::map<std::string, std::string>& GoodFiles() {
  static const std::map<std::string, std::string> files = {
      {"kiv_network",
       "instance_id,kind,parent_instance_id,system_id,ecp_id,cell_id,name,technology\n"
       "1,system,,1,,,North,\n10,ecp,1,1,2,,Harbour,\n100,cell,10,1,2,37,Mill,CDMA\n"},
      {"luc_cfg_ceqsu2", "Instance_Id,system_id,ecp,cell,rfpi,dsetup\n0,1,2,37,1,y\n0,1,2,37,2,n\n"},
      {"luc_cfg_cdma_car_chans", "cdma_carr_id,system_id,ecp,cell,keyid\n3,1,2,37,1\n3,1,2,37,2\n"},
      {"luc_cfg_cgsa_cdma_cars", "carrier_no,system_id,ecp,cgsano\n4,1,2,1\n"},
      {"luc_cfg_cgsa_cell_list", "system_id,ecp,cgsano,cell\n1,2,1,37\n"},
      {"vzn_instance_context", "context_id,fullkey,ParentInstance_Id\n1,1-2-37,1\n2,1-2-37,10\n2,1-2,1\n"},
      {"KIV_FAF",
       "InstanceId,OmpHostName,F121,F161,F276,F297,F368,F430,F465,F545,F559\n10,omp,,Y,,,,,N,,\n"}};
  return files;
}

class NetworkImport : public ::testing::TestWithParam<test::Engine> {
 protected:
  NetworkImport() {
    std::filesystem::create_directories(folder_);
    for (const auto& [name, text] : GoodFiles()) Write(name, text);
  }

  void Write(const std::string& table, const std::string& text) const {
    std::ofstream(folder_ + "/" + table + ".csv", std::ios::binary) << text;
  }
  void AddLines(const std::string& table, const std::string& lines) const {
    Write(table, GoodFiles().at(table) + lines);
  }
  store::NetworkReport Import(const store::ImportProgress& progress = {}) {
    return store::ImportNetwork(*database_, folder_, progress);
  }
  std::string Value(const std::string& query) { return ToText(test::ValueOf(*database_, query)); }
  /// Every row of every table.
  std::string Content() {
    std::string content;
    for (const store::NetworkTable& table : store::NetworkTables()) {
      std::string columns;
      for (const store::NetworkColumn& column : table.columns) {
        columns.append(columns.empty() ? "" : ", ").append(column.name);
      }
      const std::string name(table.name);
      content += name + " " + test::RowsText(*database_, columns, name + " ORDER BY " + columns) + "\n";
    }
    return content;
  }
  static std::vector<std::string> Texts(const store::NetworkReport& report) {
    std::vector<std::string> texts;
    for (const store::BadLine& bad : report.badLines) {
      texts.push_back(bad.file + ":" + std::to_string(bad.line) + ": " + bad.reason);
    }
    return texts;
  }

  test::TempFolder temp_;
  std::string folder_ = temp_.File("network");
  const std::unique_ptr<test::TestDatabase> empty_ = GetParam().start();
  const std::shared_ptr<database::SqlConnection> database_ =
      database::OpenStudyDatabase(empty_->Name(), database::OpenMode::CreateIfMissing);
};

INSTANTIATE_TEST_SUITE_P(Engines, NetworkImport, ::testing::ValuesIn(test::Engines()),
                         [](const auto& engine) { return engine.param.name; });

TEST_P(NetworkImport, TheSampleIsTheOutputOfTheMakerAndIsImported) {
  const std::string sample = KIV_SAMPLE_NETWORK;
  const std::string made = temp_.File("made");
  samples::WriteNetwork({}, made);
  for (const store::NetworkTable& table : store::NetworkTables()) {
    const auto file = std::filesystem::path("") / store::FileNameOf(table);
    EXPECT_TRUE(store::ReadWholeFile(made / file) == store::ReadWholeFile(sample / file))
        << file << " differs: run kivstudy_make_network samples/network";
  }
  const store::NetworkReport report = store::ImportNetwork(*database_, sample);
  EXPECT_THAT(Texts(report), ElementsAre());
  ASSERT_EQ(report.outcome, Outcome::Imported);
  for (const store::NetworkReport::Table& table : report.tables) {
    EXPECT_EQ(Value("SELECT count(*) FROM " + table.name), std::to_string(table.rows)) << table.name;
  }

  // What editors need to meet is there.
  EXPECT_EQ(Value("SELECT count(DISTINCT technology) FROM kiv_network WHERE kind = 'cell'"), "5");
  EXPECT_EQ(Value("SELECT min(n) || '-' || max(n) FROM (SELECT count(*) AS n FROM luc_cfg_ceqsu2 "
                  "GROUP BY system_id, ecp, cell) AS antennas"),
            "3-6");
  EXPECT_NE(Value("SELECT count(*) FROM luc_cfg_cgsa_cell_list l WHERE NOT EXISTS (SELECT 1 FROM "
                  "luc_cfg_cdma_car_chans c WHERE c.system_id = l.system_id AND c.ecp = l.ecp AND "
                  "c.cell = l.cell)"),
            "0");
  EXPECT_EQ(test::RowsText(*database_, "F161, F465",
                           "kiv_network LEFT JOIN KIV_FAF ON InstanceId = instance_id WHERE kind = 'ecp' AND "
                           "system_id = 1 ORDER BY ecp_id"),
            "Y|Y;Y|N;N|N;NULL|NULL;");
}

TEST_P(NetworkImport, TheTechnologyOfACellIsAStoredFunction) {
  ASSERT_EQ(Import().outcome, Outcome::Imported);
  const auto technology = [this](const std::string& instance) {
    return database_->CallStoredFunction(host::kFindCellTech, instance);
  };
  EXPECT_EQ(technology("100"), "CDMA");
  for (const char* unknown : {"10", "0", "-1", "101", "", "x", "100 OR 1", "99999999999"}) {
    EXPECT_EQ(technology(unknown), "") << unknown;
  }
  // Opened again, it is there again.
  const auto again = database::OpenStudyDatabase(empty_->Name(), database::OpenMode::MustExist);
  EXPECT_EQ(again->CallStoredFunction(host::kFindCellTech, "100"), "CDMA");
}

TEST_P(NetworkImport, ColumnsMayComeInAnyOrderAndOptionalOnesNotAtAll) {
  ASSERT_EQ(Import().outcome, Outcome::Imported);
  const std::string before = Content();
  EXPECT_THAT(before, ::testing::HasSubstr("KIV_FAF 10|omp|NULL|Y|NULL|NULL|NULL|NULL|N|NULL|NULL;\n"));
  Write("kiv_network",
        "\xEF\xBB\xBF\" NAME \",KIND,cell_id,Technology,system_id,parent_instance_id,instance_id,ecp_id\r\n"
        "Mill,cell, 37 ,CDMA,1,10,100,2\r\n\r\nHarbour,ecp,0,,1,1,10,2\r\n\"North\",system,,,1,,1,0");
  Write("KIV_FAF", "F465,OmpHostName,F161,InstanceId\nN,omp,Y,10\n");
  std::filesystem::rename(folder_ + "/KIV_FAF.csv", folder_ + "/kiv_faf.CSV");
  ASSERT_EQ(Texts(Import()), std::vector<std::string>());
  EXPECT_EQ(Content(), before);
}

TEST_P(NetworkImport, ReplacesTheNetworkBeforeAndKeepsStudies) {
  database_->ExecuteSql(
      "INSERT INTO kiv_study (kind, name, modified_by, modified_at) VALUES ('HOM Study', 'Kept', 'a', 'b')");
  samples::WriteNetwork({.systems = 2, .ecps = 5, .cells = 1500, .seed = 7}, temp_.File("large"));
  ASSERT_EQ(store::ImportNetwork(*database_, temp_.File("large")).outcome, Outcome::Imported);
  EXPECT_EQ(Value("SELECT count(*) FROM kiv_network"), "1507");
  Write("luc_cfg_ceqsu2_old", "");
  AddLines("kiv_network", "101,cell,10,1,2,38,\"O'Hara \"\"\xC3\x9C\"\", Lane\nSouth\",AMPS/CDMA\n");
  const store::NetworkReport report = Import();
  ASSERT_EQ(report.outcome, Outcome::Imported);
  EXPECT_THAT(report.unknownFiles, ElementsAre("luc_cfg_ceqsu2_old.csv"));
  EXPECT_EQ(test::RowsText(*database_, "instance_id", "kiv_network ORDER BY instance_id"), "1;10;100;101;");
  EXPECT_EQ(Value("SELECT name FROM kiv_network WHERE instance_id = 101"),
            "O'Hara \"\xC3\x9C\", Lane\nSouth");
  EXPECT_EQ(Value("SELECT count(*) FROM vzn_instance_context"), "3");
  EXPECT_EQ(Value("SELECT name FROM kiv_study"), "Kept");
}

TEST_P(NetworkImport, EveryBadLineIsNamedAndNothingIsKept) {
  ASSERT_EQ(Import().outcome, Outcome::Imported);
  const std::string before = Content();
  AddLines("kiv_network",
           "101,cell,10,1,2,38,One\n"           // 5
           "102,cell,10,1,2,39,\"One,AMPS\n"    // 6
           "x,cell,10,1,2,40,,AMPS\n"           // 7
           "99999999999,cell,10,1,2,41,One,\n"  // 8
           "104,hill,10,1,2,42,One,\n"          // 9
           "105,ecp,,1,3,1,One,\n"              // 10
           "106,cell,10,1,9,1,One,\n"           // 11
           "107,cell,100,1,2,44,One,\n"         // 12
           "100,cell,10,1,2,45,One,\n"          // 13
           "108,cell,10,1,2,37,One,\n"          // 14
           "109,cell,10,1,2,-1,One\xFF,\n");    // 15
  AddLines("luc_cfg_ceqsu2",
           "1,1,2,42,1,Y\n"  // 4: the cell stands on a line with another fault
           "2,1,2,99,1,y\n"  // 5
           "\n"
           "3,1,2,37,1,y\n"    // 7
           "3,1,2,37,3,y\n");  // 8
  Write("luc_cfg_cdma_car_chans", "cdma_carr_id,system_id,ecp,cell,channel,ECP\n3,1,2,37,1,2\n");
  AddLines("luc_cfg_cgsa_cdma_cars", "4,1,3,1\n1.5,1,2,1\n");
  Write("luc_cfg_cgsa_cell_list", "");
  AddLines("vzn_instance_context", "2,1-2-99,10\n2,1-2-40,100\n2,1-2-37,10\n2,x,1\n9,anything,77\n");
  std::filesystem::remove(folder_ + "/KIV_FAF.csv");

  const store::NetworkReport report = Import();
  EXPECT_EQ(report.outcome, Outcome::Refused);
  EXPECT_THAT(
      Texts(report),
      ElementsAre(
          "KIV_FAF.csv:0: the file is missing",
          "kiv_network.csv:5: 7 values where the header names 8 columns",
          "kiv_network.csv:6: a quotation mark is never closed",
          "kiv_network.csv:7: instance_id \"x\" is not a whole number; name is empty",
          "kiv_network.csv:8: instance_id \"99999999999\" does not fit in 32 bits",
          "kiv_network.csv:9: kind \"hill\" is none of: system, ecp, cell",
          "kiv_network.csv:10: the kind \"ecp\" must not have a value in cell_id; the kind \"ecp\" needs a "
          "value in parent_instance_id",
          "kiv_network.csv:11: ECP 1-9 is not in kiv_network.csv",
          "kiv_network.csv:12: parent_instance_id 100 is not the instance of ECP 1-2, which is 10",
          "kiv_network.csv:13: line 4 has the same instance_id 100",
          "kiv_network.csv:14: line 4 has the same system_id 1, ecp_id 2, cell_id 37",
          "kiv_network.csv:15: cell_id \"-1\" is less than 0; name is not UTF-8 text",
          "luc_cfg_ceqsu2.csv:4: dsetup \"Y\" is none of: y, n",
          "luc_cfg_ceqsu2.csv:5: cell 1-2-99 is not in kiv_network.csv",
          "luc_cfg_ceqsu2.csv:7: line 2 has the same system_id 1, ecp 2, cell 37, rfpi 1",
          "luc_cfg_ceqsu2.csv:8: line 7 has the same Instance_Id 3",
          "luc_cfg_cdma_car_chans.csv:1: the column \"channel\" is unknown; the column ecp is named twice; "
          "the "
          "column keyid is missing",
          "luc_cfg_cgsa_cdma_cars.csv:3: ECP 1-3 is not in kiv_network.csv",
          "luc_cfg_cgsa_cdma_cars.csv:4: carrier_no \"1.5\" is not a whole number",
          "luc_cfg_cgsa_cell_list.csv:0: the file is empty; its first line has to name the columns",
          "vzn_instance_context.csv:5: \"1-2-99\" is not in kiv_network.csv",
          "vzn_instance_context.csv:6: ParentInstance_Id 100 is not the instance of ECP 1-2, which is 10",
          "vzn_instance_context.csv:7: line 3 has the same fullkey \"1-2-37\", context_id 2",
          "vzn_instance_context.csv:8: \"x\" is not in kiv_network.csv"));
  EXPECT_EQ(Content(), before);

  // Without its entities nothing else is said of what refers to them.
  std::filesystem::remove_all(folder_);
  std::filesystem::create_directories(folder_);
  Write("luc_cfg_ceqsu2", GoodFiles().at("luc_cfg_ceqsu2"));
  EXPECT_EQ(Import().badLines.size(), store::NetworkTables().size() - 1);
  EXPECT_THROW(store::ImportNetwork(*database_, folder_ + "/none"), store::StoreError);
}

TEST_P(NetworkImport, AFailureACancelledImportAndADryRunLeaveTheNetworkBefore) {
  ASSERT_EQ(Import().outcome, Outcome::Imported);
  const std::string before = Content();
  AddLines("kiv_network", "101,cell,10,1,2,38,Two,TDMA\n");

  EXPECT_EQ(store::CheckNetwork(folder_).outcome, Outcome::Good);
  const auto cancel = [](std::string_view, double) { return store::ImportChoice::Cancel; };
  EXPECT_EQ(store::CheckNetwork(folder_, cancel).outcome, Outcome::Cancelled);
  EXPECT_EQ(Content(), before);

  // Cancelled at every place where that is possible.
  int places = 0;
  for (bool cancelled = true; cancelled; ++places) {
    int told = 0;
    double last = 0;
    const store::NetworkReport report = Import([&](std::string_view, double done) {
      EXPECT_GE(done, last);
      last = done;
      return told++ == places ? store::ImportChoice::Cancel : store::ImportChoice::GoOn;
    });
    cancelled = report.outcome == Outcome::Cancelled;
    if (cancelled) {
      EXPECT_EQ(Content(), before) << "place " << places;
    } else {
      EXPECT_EQ(last, 1);
    }
  }
  EXPECT_GT(places, 14);
  EXPECT_NE(Content(), before);

  const std::string second = Content();
  AddLines("kiv_network", "");
  empty_->BreakInserts(*database_, "KIV_FAF", "disk on fire");
  EXPECT_THROW(Import(), host::DatabaseError);
  EXPECT_EQ(Content(), second);
}

}  // namespace
}  // namespace kiv::client
