#include "client/command_line.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <vector>

#include "client/program.h"
#include "client/study_session.h"
#include "hom/general_tab.h"
#include "support/temp_folder.h"

namespace kiv::client {
namespace {

struct Result {
  std::optional<int> exitCode;
  std::string out;
  std::string err;
  WindowRequest window;
};

Result RunProgram(std::vector<std::string> arguments) {
  std::vector<const char*> argv = {"kivstudy"};
  for (const std::string& argument : arguments) argv.push_back(argument.c_str());
  std::ostringstream out;
  std::ostringstream err;
  Result result;
  result.exitCode = RunCommandLine(static_cast<int>(argv.size()), argv.data(), result.window, out, err);
  result.out = out.str();
  result.err = err.str();
  return result;
}

class CommandLine : public ::testing::Test {
 protected:
  CommandLine() {
    static const test::TempFolder settings;  // Qt asks once in a process where settings are
    setenv("XDG_CONFIG_HOME", settings.Path().c_str(), 1);
  }

  /// Stores a study; an invalid one is stored past the editor's rules, as another program may do.
  void StoreStudy(const std::string& name, std::int32_t duration) {
    Program program;
    program.Start({});
    program.OpenDatabase(database_, Program::WhenMissing::Create);
    StudyStore& store = program.Store();
    Study study = store.New("HOM Study");
    study.name = name;
    study.record->SetScenarioID(store.Scenarios().empty() ? store.AddScenario("Downtown")
                                                          : store.Scenarios().front().id);
    study.record->SetDuration(duration);
    const auto data = study.record->SubRecordAs<CKivHomData>();
    data->SetPath(folder_.Path());
    data->SetDataFile("h$YY$MM$DD$HH$MI.hom");
    data->SetToAmps("Y");
    store.Save(study, "ann");
  }

  test::TempFolder folder_;
  std::string database_ = folder_.File("studies.db");
};

TEST_F(CommandLine, TellsTheWindowFromItsCommands) {
  EXPECT_EQ(RunProgram({}).exitCode, std::nullopt);
  EXPECT_EQ(RunProgram({"gui", "--database", "x.db"}).window.database, "x.db");
  EXPECT_EQ(RunProgram({"--database", "x.db"}).window.database, "x.db");
  for (const std::vector<std::string>& wrong : {std::vector<std::string>{"frobnicate"},
                                                {"show"},
                                                {"show", "one"},
                                                {"list", "--yaml"},
                                                {"list", "init"}}) {
    const Result result = RunProgram(wrong);
    EXPECT_EQ(result.exitCode, kUsage) << wrong[0];
    EXPECT_FALSE(result.err.empty());
  }
  const Result help = RunProgram({"validate", "--help"});
  EXPECT_EQ(help.exitCode, kOk);
  EXPECT_NE(help.out.find("ID"), std::string::npos);
}

TEST_F(CommandLine, RefusesAMissingDatabaseAndMakesOneWhenAsked) {
  const Result missing = RunProgram({"list", "--database", database_});
  EXPECT_EQ(missing.exitCode, kRefused);
  EXPECT_NE(missing.err.find("kivstudy init --database"), std::string::npos) << missing.err;
  EXPECT_EQ(std::count(missing.err.begin(), missing.err.end(), '\n'), 1);
  EXPECT_EQ(RunProgram({"init", "--database", database_}).exitCode, kOk);
  EXPECT_EQ(RunProgram({"init", "--database", database_}).exitCode, kOk);
  EXPECT_EQ(RunProgram({"--database", database_, "list", "--json"}).out, "[]\n");
}

TEST_F(CommandLine, ListsShowsAndValidates) {
  StoreStudy("Good \xFF name", 30);
  StoreStudy("Bad", 5);
  const auto list = nlohmann::json::parse(RunProgram({"list", "--json", "--database", database_}).out);
  ASSERT_EQ(list.size(), 2U);
  EXPECT_EQ(list[1]["name"], "Bad");
  EXPECT_EQ(list[1]["scenario"], "Downtown");
  EXPECT_EQ(list[1]["durationMinutes"], 5);
  const Result table = RunProgram({"list", "--database", database_});
  EXPECT_NE(table.out.find("2   HOM Study  Bad"), std::string::npos) << table.out;

  const auto shown = nlohmann::json::parse(RunProgram({"show", "2", "--json", "--database", database_}).out);
  EXPECT_EQ(shown["data"]["DataFile"], "h$YY$MM$DD$HH$MI.hom");
  EXPECT_EQ(shown["data"]["HomMode"], 0);
  EXPECT_EQ(shown["pollingIntervalSeconds"], nullptr);

  EXPECT_EQ(RunProgram({"validate", "1", "--database", database_}).exitCode, kOk);
  const Result refused = RunProgram({"validate", "2", "--database", database_});
  EXPECT_EQ(refused.exitCode, kRefused);
  EXPECT_EQ(refused.out, "General: Study Duration must be between 10 and 1439 minutes inclusive.\n");
  EXPECT_EQ(RunProgram({"show", "9", "--database", database_}).exitCode, kRefused);
}

TEST_F(CommandLine, ImportsANetworkOrNamesEveryBadLine) {
  const std::string network = folder_.File("network");
  std::filesystem::copy(KIV_SAMPLE_NETWORK, network);
  const auto import = [&](std::vector<std::string> more) {
    more.insert(more.begin(), {"import-network", network, "--database", database_});
    return RunProgram(more);
  };
  EXPECT_EQ(import({"--dry-run"}).exitCode, kOk);
  EXPECT_FALSE(std::filesystem::exists(database_));
  EXPECT_EQ(import({}).exitCode, kRefused);  // there is no database yet
  ASSERT_EQ(RunProgram({"init", "--database", database_}).exitCode, kOk);
  const Result imported = import({});
  EXPECT_EQ(imported.exitCode, kOk);
  EXPECT_EQ(imported.err, "");
  EXPECT_NE(imported.out.find("luc_cfg_ceqsu2              1602\n"), std::string::npos) << imported.out;

  std::ofstream(network + "/kiv_network.csv", std::ios::app) << "7,system,,x,,,\xFF,\n1,system\n";
  std::ofstream(network + "/notes.csv") << "Dear Sir";
  const Result refused = import({});
  EXPECT_EQ(refused.exitCode, kRefused);
  EXPECT_EQ(
      refused.err,
      "notes.csv: ignored, it is not one of the files of a network\n"
      "kiv_network.csv:377: system_id \"x\" is not a whole number; name is not UTF-8 text\n"
      "kiv_network.csv:378: 2 values where the header names 8 columns\n"
      "2 faults found. Nothing was imported; the network is as it was. Correct the files, then try again.\n");
  const Result asJson = import({"--json", "--dry-run"});
  EXPECT_EQ(asJson.exitCode, kRefused);
  const auto json = nlohmann::json::parse(asJson.out);
  EXPECT_EQ(json["outcome"], "refused");
  EXPECT_EQ(json["badLines"][1]["line"], 378);
  EXPECT_EQ(json["unknownFiles"][0], "notes.csv");
  EXPECT_EQ(RunProgram({"import-network"}).exitCode, kUsage);
  EXPECT_EQ(RunProgram({"import-network", folder_.File("none"), "--dry-run"}).exitCode, kRefused);
}

}  // namespace
}  // namespace kiv::client
