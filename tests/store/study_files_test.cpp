// Studies that leave a database as JSON and come back.

#include "store/exchange/study_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "client/texts/import_text.h"
#include "store/exchange/study_json.h"
#include "store/studies/study_export.h"
#include "support/engine_and_kind.h"
#include "support/ordinary_user.h"
#include "support/temp_folder.h"
#include "support/test_store.h"

namespace kiv::client {
namespace {

using ::testing::HasSubstr;

class RoundTrip : public ::testing::TestWithParam<test::EngineAndKind> {};

TEST_P(RoundTrip, GivesTheSameBytesAgain) {
  const auto& [engine, kind] = GetParam();
  const auto database = engine.start();
  test::TestStore store(*database);
  store::Study study = store->New(kind);
  test::Fill(study, 2);
  study.name = "It's \"quoted\" \\ ; -- \n \u20AC";
  study.record->SetScenarioID(store->Scenarios().Add("Down'town \u6771"));
  store->Save(study, "ann");
  const std::int32_t id = study.record->ID();

  const std::string text = store::ExportStudies(*store.operator->(), {id, id});
  store::ExportContent content = store::ReadExport(text);
  ASSERT_TRUE(content.problems.empty()) << content.problems[0].reason;
  ASSERT_EQ(content.studies.size(), 1U);
  store->AddAll(content.studies, "bob");
  const std::int32_t copy = content.studies[0].study.record->ID();
  EXPECT_NE(copy, id);
  EXPECT_EQ(store::ExportStudies(*store.operator->(), {copy}), text);
  EXPECT_EQ(store->Scenarios().List().size(), 1U);

  // A file that makes a scenario, and whose second study fails, leaves nothing.
  content = store::ReadExport(text);
  content.studies.push_back(store::ReadExport(text).studies[0]);
  content.studies[0].scenario = "Harbour";
  content.studies[1].study.record->SetAppName(kind == "HOM Study" ? "PLM Study" : "HOM Study");
  EXPECT_ANY_THROW(store->AddAll(content.studies, "bob"));
  EXPECT_EQ(store->List().size(), 2U);
  EXPECT_EQ(store->Scenarios().List().size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Kinds, RoundTrip, test::EveryEngineAndKind(), test::NameOf);

TEST(StudyFile, IsReplacedWholeOrNotAtAll) {
  namespace fs = std::filesystem;
  const test::OpenFolder folder;
  const std::string file = folder.File("studies.json");
  const std::string link = folder.File("link.json");
  std::ofstream(file) << "before";
  fs::permissions(file, fs::perms::owner_all | fs::perms::group_read);
  fs::create_symlink("studies.json", link);
  store::WriteStudyFile(link, "after");
  EXPECT_EQ(store::ReadStudyFile(file), "after");
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_all | fs::perms::group_read);

  fs::permissions(file, fs::perms::owner_read | fs::perms::others_read);
  {
    const test::AsOrdinaryUser user;
    EXPECT_THROW(store::WriteStudyFile(file, "replaced"), store::StoreError);
  }
  EXPECT_EQ(store::ReadStudyFile(file), "after");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 2) << "nothing is left beside it";
}

/// The text of one exported study of each kind, which is spoilt.
class HostileFile : public ::testing::Test {
 protected:
  HostileFile() {
    std::vector<store::NamedStudy> studies;
    for (const std::string& kind : test::RichKinds()) {
      store::Study study = store::NewStudy(kind);
      test::Fill(study, 1);
      studies.push_back({study, "Downtown"});
    }
    good_ = store::ExportText(studies);
    EXPECT_THAT(ProblemsOf(good_), ::testing::IsEmpty());
  }

  static std::vector<std::string> ProblemsOf(const std::string& text) {
    std::vector<std::string> problems;
    for (const store::TextProblem& problem : store::ReadExport(text).problems) {
      problems.push_back(problem.study + ": " + problem.reason);
    }
    return problems;
  }
  /// The good text with the first place of a passage after another one changed.
  std::string With(const std::string& after, const std::string& passage, const std::string& instead) const {
    std::string text = good_;
    const std::size_t place = text.find(passage, text.find(after));
    if (place == std::string::npos) throw std::invalid_argument(passage);
    return text.replace(place, passage.size(), instead);
  }

  std::string good_;
};

TEST_F(HostileFile, IsRefusedWithOneMessageForEachFault) {
  struct Case {
    std::string text;
    std::string told;
  };
  const std::string hom = "study 1 \"it's variant 1\": ";
  const std::string plm = "study 2 \"it's variant 1\": ";
  const std::string rfc = "study 3 \"it's variant 1\": ";
  const std::string vcs = "study 4 \"it's variant 1\": ";
  const std::string deep(100000, '[');
  std::string wide = "{\"\": 0";
  for (int i = 0; i < 300; ++i) wide += ",\"" + std::to_string(i) + "\": 0";
  std::string manyWrong = "[";
  for (int i = 0; i < 2000; ++i) manyWrong += "{},";
  const std::vector<Case> cases = {
      {"", "line 1, column 1: the JSON is broken here"},
      {good_.substr(0, good_.size() / 2), "the JSON is broken here"},
      {With("studies", "\"name\":", "\"name\" "), "line 7, column 30: the JSON is broken here"},
      {With("studies", "it's", "it\xFFs"), "line 7, column 18: this is no UTF-8 text"},
      {"\xFF\xFE{", "line 1, column 1: this is no UTF-8 text"},
      {deep, "line 1, column 17: lists and objects are nested too deeply"},
      {"{\"a\":" + deep, "nested too deeply"},
      {wide, "an entry without a name"},
      {"{" + wide.substr(7), "more entries than any"},
      {With("studies", "\"data\":", "\"kind\":"), "\"kind\" stands twice in this object"},
      {"[]", "this is no export of studies"},
      {"5", "this is no export of studies"},
      {With("", "kivstudy-studies", "other"), "this is no export of studies"},
      {With("", "\"version\": 1", "\"version\": 2"), "version 2 of the format, this program reads version 1"},
      {With("", "\"version\": 1", "\"version\": \"1\""), "version \"1\" of the format"},
      {R"({"format": "kivstudy-studies", "version": 1, "studies": {}})", "must be a list in square brackets"},
      {R"({"format": "kivstudy-studies", "version": 1, "studies": [7, []]})", "study 1: must be an object"},
      {With("", "\"version\": 1", "\"version\": 1, \"more\": 0"), "\"more\" is unknown here; remove it"},
      {With("", "HOM Study", "Future Study"), hom + "kind \"Future Study\" is none of \"HOM Study\", "},
      {With("", "HOM Study", ""), hom + "kind \"\" is none of \"HOM Study\", "},
      {With("", "\"kind\": \"HOM Study\"", "\"kind\": null"), hom + "kind must be a text"},
      {With("", "\"durationMinutes\": 1,", ""), hom + "durationMinutes is missing"},
      {With("", "\"durationMinutes\": 1", "\"durationMinutes\": 1.5"),
       "durationMinutes must be a whole number"},
      {With("", "\"durationMinutes\": 1", "\"durationMinutes\": 2147483648"), "the number is too large"},
      {With("", "\"durationMinutes\": 1", "\"durationMinutes\": 1e999"),
       "the JSON is broken here (number overflow"},
      {With("", "\"durationMinutes\": 1", "\"durationMinutes\": 18446744073709551617"),
       "must be a whole number"},
      {With("", "\"data\": {", "\"data\": 5, \"rest\": {"), hom + "data must be an object in braces"},
      {With("HomMode", ": 1", ": true"), hom + "HomMode must be a whole number"},
      {With("DataFile", "\"it's variant 1\"", "[\"x\"]"), hom + "DataFile must be one value, not a list"},
      {With("DataFile", "\"it's variant 1\"", "{\"x\": 1}"), hom + "DataFile must be a text"},
      {With("DataFile", "it's variant 1", "a\\u0000b"), hom + "DataFile must not hold a NUL character"},
      {With("PLM Study", "\"Tag\"", "\"tag\""), plm + "tag is unknown here; remove it"},
      {With("PLM Study", "\"PlmMode\": 2", "\"PlmMode\": 1"), plm + "Modes 2 stands in the list already"},
      {With("PLM Study", "\"PlmMode\": 2", "\"PlmMode\": 16"),
       plm + "Modes 2: PlmMode must be a number from 1 to 15"},
      {With("PLM Study", "\"Carrier\": 1", "\"Carrier\": \"1\""),
       plm + "Modes 1: Carrier must be a whole number or null"},
      {With("\"Channels\": [", "2,", "1,"), plm + "Modes 1: Channels 2 stands in the list already"},
      {With("\"Channels\": [", "2,", "{},"), plm + "Modes 1: Channels 2 must be a whole number"},
      {With("\"Channels\"", "\"Channels\": [", "\"Channels\": [99999999999,"),
       "Channels 1 the number is too large"},
      {With("\"Channels\"", "[", manyWrong),
       plm + "Modes 1: Channels has 2009 entries; at most 2000 are possible"},
      {With("RF Call", "\"F\": 2", "\"F\": 70000"), rfc + "F the number is too large"},
      {With("RF Call", "\"UseEcp\": \"N\"", "\"UseEcp\": \"Y\""), rfc + "Ecps is missing"},
      {With("RF Call", "\"CellId\": 2", "\"CellId\": null"), rfc + "Cells 2: CellId must be a whole number"},
      {With("RF Call", "\"InstanceId\": 1002", "\"InstanceId\": 1001"),
       rfc + "Cells 2 stands in the list already"},
      {With("DNs", "{", "\"5551\", {"), rfc + "DNs 1 must be an object in braces"},
      {With("VCSA Study", "\"Selected\": \"N\"", "\"Selected\": \"yes\""),
       vcs + "Cells 1: Antennas 1: Selected must be \"Y\" or \"N\""},
      {With("VCSA Study", "\"Antennas\": [", "\"Antennas\": 5, \"More\": ["),
       vcs + "Cells 1: Antennas must be a list in square brackets"},
      {With("VCSA Study", "\"AntennaId\": 2", "\"AntennaId\": 1"),
       vcs + "Cells 1: Antennas 2 stands in the list already"},
  };
  for (const Case& each : cases) {
    const std::vector<std::string> problems = ProblemsOf(each.text);
    EXPECT_THAT(problems, ::testing::Contains(HasSubstr(each.told))) << each.text.substr(0, 2000);
  }
}

}  // namespace
}  // namespace kiv::client
