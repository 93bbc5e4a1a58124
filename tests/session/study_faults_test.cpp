// Studies with one wrong value each, which no page could have made: refused in the same words wherever they
// are looked at.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/study_kinds.h"
#include "hom/detail_tab.h"
#include "hom/hom_data.h"
#include "plm/mode_names.h"
#include "plm/plm_data.h"
#include "rfc/rfc_data.h"
#include "session/study_import.h"
#include "session/study_problems.h"
#include "store/exchange/json.h"
#include "store/exchange/study_files.h"
#include "store/exchange/study_json.h"
#include "store/names.h"
#include "store/network/network_import.h"
#include "store/studies/study_export.h"
#include "support/studies_test.h"
#include "vcsa/vcs_data.h"

namespace kiv::client {
namespace {

using store::Json;

/// A value that takes the place of a good one in the export of a study, and what is told of it.
struct Spoilt {
  std::string_view kind;
  std::string place;  ///< as a JSON pointer
  Json value;
  std::string told;
};

class StudyFaults : public ::testing::Test, protected test::StudiesTest {
 protected:
  StudyFaults() : StudiesTest(test::SqliteEngine()) {
    const std::string folder = folder_.Path();
    AddHom(folder);
    AddPlm(folder);
    AddRfc(folder);
    AddVcs(folder);
  }

  void ImportNetwork() { store::ImportNetwork(*connection_, KIV_SAMPLE_NETWORK); }

  /// What an import tells of a study, without the names of file and study.
  std::vector<std::string> Imported(const Json& study) {
    const std::string file = folder_.File("study.json");
    Json all = Json::parse(store::ExportText({}));
    all["studies"] = Json::array({study});
    store::WriteStudyFile(file, all.dump());
    const auto report = session::CheckStudies(store_, {file});
    EXPECT_EQ(report.outcome == session::StudyImportReport::Outcome::Refused, !report.problems.empty());
    std::vector<std::string> told;
    for (const auto* list : {&report.problems, &report.warnings}) {
      for (const session::ImportProblem& problem : *list) told.push_back(problem.reason);
    }
    return told;
  }
  /// What a study tells that stands in the database already.
  std::vector<std::string> Stored(const Json& study) {
    Json all = Json::parse(store::ExportText({}));
    all["studies"] = Json::array({study});
    auto content = store::ReadExport(all.dump());
    EXPECT_TRUE(content.problems.empty());
    store_.AddAll(content.studies, "ann");
    return Texts(session::CheckStudy(store_, store_.Load(content.studies[0].study.record->ID())));
  }
  static std::vector<std::string> Texts(const std::vector<session::StudyProblem>& problems) {
    std::vector<std::string> texts;
    texts.reserve(problems.size());
    for (const session::StudyProblem& problem : problems) texts.push_back(session::ProblemText(problem));
    return texts;
  }

  std::map<std::string_view, Json> good_;

 private:
  template <class Data>
  void Add(std::string_view kind, const std::shared_ptr<Data>& data, std::int32_t pollingInterval = -1) {
    store::Study study = store_.New(std::string(kind));
    study.name = "Night";
    study.record->SetDuration(30);
    study.record->SetRetrieveDelay(10);
    study.record->SetPollingInterval(pollingInterval);
    study.record->SetSubRecordAs(data);
    good_[kind] = Json::parse(store::ExportText({{study, "Down'town"}}))["studies"][0];
  }

  void AddHom(const std::string& folder) {
    const auto data = std::make_shared<CKivHomData>();
    data->Initialize(0, folder, "h$YY.hom", 0, "Y", "N", "N", "Y", "N", "N", "N", "N", "N", "N", "N", "N",
                     "N", "", "");
    Add(kHomStudy, data);
  }
  void AddPlm(const std::string& folder) {
    const auto data = std::make_shared<CKivPlmData>();
    data->Initialize(0, folder, "p$YY.plm", "data");
    const auto add = [&data](std::int32_t number, const std::function<void(CKivPlmMode&)>& fill) {
      const auto mode = std::make_shared<CKivPlmMode>();
      mode->SetPlmMode(number);
      fill(*mode);
      data->AddMode(MKivStudyCtls::ModeName(number), mode);
    };
    add(2, [](CKivPlmMode& mode) {
      mode.Initialize(0, 2, -1, -1, -1, "Auto", 5, 5, 10, "Expand", "Member", "Begin", 1, 1998, "N", true);
    });
    add(3, [](CKivPlmMode& mode) { mode.AddChannel(0, 3, 312, ChannelKey("312")); });
    add(6, [](CKivPlmMode& mode) { mode.SetSelectionMethod("All"); });
    add(8, [](CKivPlmMode& mode) {
      mode.Initialize(0, 8, 3, 7, -1, "", -1, -1, -1, "", "", "", -1, -1, "", true);
    });
    add(11, [](CKivPlmMode& mode) {
      mode.Initialize(0, 11, 3, -1, 2, "", -1, -1, -1, "", "", "", -1, -1, "", true);
    });
    Add(kPlmStudy, data);
  }
  void AddRfc(const std::string& folder) {
    const auto data = std::make_shared<CKivRfcData>();
    data->Initialize(0, "data", "Y", "Y", "Y", folder, 1, 2);
    data->AddEcp(1002, 1, 1);
    data->AddDn("6305551234", "a.rft");
    Add(kRfcStudy, data, 5);
  }
  void AddVcs(const std::string& folder) {
    const auto data = std::make_shared<CKivVcsData>();
    std::array<std::string, CKivVcsData::kTexts> texts;
    texts.fill("N");
    texts[0] = folder;
    texts[1] = "v$YY.vcs";
    texts[2] = "Y";
    texts[2 + CKivVcsData::kEventCategories] = "";  // no single DN
    data->Initialize(0, texts);
    data->AddCell(1003, 1, 1, 1);
    CCell& cell = AsCell(data->Cells()->Item("Cell:1003"));
    cell.AddAntenna(1376, 1, 1, 1, 1, true);
    cell.AddCarrier(0, "1", "1", "1", "2", true);
    Add(kVcsStudy, data, 60);
  }
};

TEST_F(StudyFaults, AreToldInTheSameWordsByImportCheckAndValidate) {
  ImportNetwork();
  for (const auto& [kind, study] : good_) EXPECT_THAT(Imported(study), ::testing::IsEmpty()) << kind;

  const std::string night = std::string(store::kLongestName + 1, 'n');
  Json cells = Json::array();
  for (int cell = 1; cell <= 11; ++cell) {
    cells.push_back({{"InstanceId", 1002 + cell},
                     {"SystemId", 1},
                     {"EcpId", 1},
                     {"CellId", cell},
                     {"Antennas", Json::array()},
                     {"Carriers", Json::array()}});
  }
  const auto traced = [this](std::int32_t count, std::int32_t lastEcp) {
    Json data = good_.at(kRfcStudy)["data"];
    data.erase("Ecps");
    data["UseEcp"] = "";
    data["Cells"] = Json::array();
    for (int cell = 1; cell <= count; ++cell) {
      data["Cells"].push_back({{"InstanceId", 1002 + cell},
                               {"SystemId", 1},
                               {"EcpId", cell == count ? lastEcp : 1},
                               {"CellId", cell}});
    }
    return data;
  };
  Json dns = Json::array();
  for (int dn = 10; dn <= 20; ++dn) {
    const std::string number = std::to_string(dn);
    dns.push_back({{"Dn", "63055512" + number}, {"DataFile", "d" + number + ".rft"}});
  }
  const Spoilt cases[] = {
      {kHomStudy, "/name", "a\nb", "must not hold line breaks or other control characters"},
      {kHomStudy, "/name", night, "must have at most 255 characters, not 256"},
      {kPlmStudy, "/scenario", night, "the name of the scenario must have at most 255 characters, not 256"},
      {kHomStudy, "/data/HomMode", 9, "Detail: HomMode must be between 0 and 2, not 9"},
      {kHomStudy, "/data/HomMode", -1, "Detail: HomMode must be between 0 and 2, not -1"},
      {kHomStudy, "/data/HomMode", 1,
       "HomMode 1 must have every handoff type of its technology and no other"},
      {kHomStudy, "/data/Hard", "Y", "Detail: TDMA and CDMA handoff types cannot be chosen together"},
      {kHomStudy, "/data/ToAmps", "yes", R"(Detail: ToAmps must be "Y" or "N", not "yes")"},
      {kHomStudy, "/data/SoftDrop", "y", R"(Detail: SoftDrop must be "Y" or "N", not "y")"},
      {kHomStudy, "/data/CollectData", "1", R"(Current Study: CollectData must be "Y" or "N", not "1")"},
      {kHomStudy, "/data/StartOnFail", " ", R"(Current Study: StartOnFail must be "Y" or "N", not " ")"},
      {kPlmStudy, "/data/Modes/0/SelectionMethod", "Magic",
       R"(Mode 2: SelectionMethod must be "Auto" or "Manual", not "Magic")"},
      {kPlmStudy, "/data/Modes/0/AmpsDistribution", 12345,
       "Mode 2: AmpsDistribution must be between 0 and 10"},
      {kPlmStudy, "/data/Modes/0/AmpsDistribution", -1, "Mode 2  'AMPS Channels' must be numeric."},
      {kPlmStudy, "/data/Modes/0/TdmaDistribution", 11, "Mode 2: TdmaDistribution must be between 0 and 10"},
      {kPlmStudy, "/data/Modes/0/TotalDistribution", -4,
       "Mode 2: TotalDistribution must be between 0 and 10"},
      {kPlmStudy, "/data/Modes/0/TotalDistribution", 9, "cannot be greater than 'Total to Select'."},
      {kPlmStudy, "/data/Modes/0/SortBy", "Foo",
       R"(Mode 2: SortBy must be "Member", "Channel" or "Radio", not "Foo")"},
      {kPlmStudy, "/data/Modes/0/SelectFromList", "Middle",
       R"(Mode 2: SelectFromList must be "Begin" or "End", not "Middle")"},
      {kPlmStudy, "/data/Modes/0/RangeFrom", 1999,
       "Mode 2  'From' channels cannot be greater than 'To' channels."},
      {kPlmStudy, "/data/Modes/0/RangeFrom", 2000, "Mode 2: RangeFrom must be between 0 and 1999, not 2000"},
      {kPlmStudy, "/data/Modes/0/RangeTo", -3, "Mode 2: RangeTo must be between 0 and 1999, not -3"},
      {kPlmStudy, "/data/Modes/0/ExcludeAce", "T", R"(Mode 2: ExcludeAce must be "Y" or "N", not "T")"},
      {kPlmStudy, "/data/Modes/0/DistributionMethod", "Stretch",
       R"(Mode 2: DistributionMethod must be "Expand" or "Restrict", not "Stretch")"},
      {kPlmStudy, "/data/Modes/1/Channels/0", 99999, "Mode 3: Channel must be between 1 and 1999, not 99999"},
      {kPlmStudy, "/data/Modes/1/Channels/0", -4, "Mode 3: Channel must be between 1 and 1999, not -4"},
      {kPlmStudy, "/data/Modes/1/Channels", Json::array(), "Mode 3: You must enter at least one channel."},
      {kPlmStudy, "/data/Modes/2/SelectionMethod", "Auto", "Mode 6: SelectionMethod must be"},
      {kPlmStudy, "/data/Modes/3/ServiceOption", 0, "Mode   8 FER2: ServiceOption must be one of 1 7 8"},
      {kPlmStudy, "/data/Modes/3/GenerationType", 2,
       "Mode   8 FER2: GenerationType must be empty in this mode"},
      {kPlmStudy, "/data/Modes/3/Carrier", 19, "Mode   8 FER2: Carrier must be between 1 and 18, not 19"},
      {kPlmStudy, "/data/Modes/4/GenerationType", 55,
       "Mode 11 CPLM3: GenerationType must be one of 0 1 2 3, not 55"},
      {kPlmStudy, "/data/Modes/4/ServiceOption", 3,
       "Mode 11 CPLM3: ServiceOption must be empty in this mode"},
      {kPlmStudy, "/data/Modes/2/PlmMode", 9, "CDMA Modes: Only two CDMA modes are allowed for one study."},
      {kRfcStudy, "/data/Tag", "a b!ü", R"(General: Tag must be letters, digits, '.' and '_', not "a b!ü")"},
      {kRfcStudy, "/data/ClearLog", "x", R"(General: ClearLog must be "Y" or "N", not "x")"},
      {kRfcStudy, "/data/MultipleDns", "2", R"(Study: MultipleDns must be "Y" or "N", not "2")"},
      {kRfcStudy, "/data/F", 77, "CDMA 3G: F must be between 0 and 5, not 77"},
      {kRfcStudy, "/data/R", -3, "CDMA 3G: R must be between 0 and 5, not -3"},
      {kRfcStudy, "/data/Ecps/0/EcpId", 77, "General: ECP 1-77 is not in the stored network"},
      {kRfcStudy, "/data/Ecps/0/InstanceId", 999, "ECP 1-1 has instance 1002 in the stored network, not 999"},
      {kRfcStudy, "/data/Ecps/0/InstanceId", 1001, "General: FAF information was not found for ECP:1"},
      {kRfcStudy, "/data", traced(8, 1), "General: Only fewer than 8 cells can be studied"},
      {kRfcStudy, "/data", traced(2, 2), "General: All cells must belong to the same ECP"},
      {kRfcStudy, "/data/DNs", dns, "Detail: DN 6305551220"},
      {kVcsStudy, "/data/EventC", "T", R"(Detail: EventC must be "Y" or "N", not "T")"},
      {kVcsStudy, "/data/DirectionalSetup", "x", R"(Detail: DirectionalSetup must be "Y" or "N", not "x")"},
      {kVcsStudy, "/data/CarrierData", "0", R"(Detail: CarrierData must be "Y" or "N", not "0")"},
      {kVcsStudy, "/data/Cells/0/CellId", 999, "General: cell 1-1-999 is not in the stored network"},
      {kVcsStudy, "/data/Cells/0/InstanceId", 1004,
       "cell 1-1-1 has instance 1003 in the stored network, not 1004"},
      {kVcsStudy, "/data/Cells/0/Antennas/0/AntennaId", 99,
       "antenna 99 of cell 1-1-1 is not in the stored network"},
      {kVcsStudy, "/data/Cells/0/Carriers/0/CarrierId", 3,
       "carrier 3 of cell 1-1-1 is not in the stored network"},
      {kVcsStudy, "/data/Cells", cells,
       "General: No more than 10 cells of one ECP can be studied; the study has 11 of ECP 1"},
  };
  for (const Spoilt& each : cases) {
    Json study = good_.at(each.kind);
    study.at(Json::json_pointer(each.place)) = each.value;
    const std::vector<std::string> imported = Imported(study);
    EXPECT_THAT(imported, ::testing::Contains(::testing::HasSubstr(each.told))) << each.place;
    if (each.place == "/scenario") continue;  // no database has such a scenario
    EXPECT_EQ(Stored(study), imported) << each.place;
  }
}

TEST_F(StudyFaults, AreGoneOnceThePageIsChanged) {
  Json study = good_.at(kHomStudy);
  study["data"]["HomMode"] = 9;
  Stored(study);
  const auto session = Reopened(store_.List().back().id);
  auto& page = test::Page<XKivHomDetail>(*session);
  ASSERT_EQ(page.Findings().size(), 1u);
  EXPECT_EQ(page.Findings()[0].control, &page.cboModeSelection);
  EXPECT_TRUE(session->IsValid()) << "opening and saving it stay possible";
  page.cboModeSelection.Select(0);
  EXPECT_THAT(Texts(session::ProblemsOf(*session)), ::testing::IsEmpty());
}

TEST_F(StudyFaults, AreNotMadeByOpeningAndSaving) {
  ImportNetwork();
  std::string text = store::ReadStudyFile(KIV_SAMPLE_NETWORK "/../../docs/export-format.md");
  text = text.substr(text.find("```json\n") + 8);
  const std::string file = folder_.File("example.json");
  store::WriteStudyFile(file, text.substr(0, text.find("```")));
  ASSERT_EQ(session::ImportStudies(store_, {file}, "ann").studies.size(), 4u);
  host_.documents->documents = store_.Scenarios().List();
  const std::string before = store::ExportStudies(store_, {});
  for (const store::StudySummary& study : store_.List()) EXPECT_TRUE(Save(*Reopened(study.id))) << study.id;
  EXPECT_EQ(store::ExportStudies(store_, {}), before);
}

TEST_F(StudyFaults, AreWarningsWhereTheNetworkIsUnknown) {
  EXPECT_THAT(Imported(good_.at(kVcsStudy)),
              ::testing::ElementsAre(::testing::StartsWith("Warning: General:")));
  EXPECT_THAT(Imported(good_.at(kRfcStudy)), ::testing::Each(::testing::StartsWith("Warning: General:")));
}

}  // namespace
}  // namespace kiv::client
