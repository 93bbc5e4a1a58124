#include "client/cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <exception>
#include <ostream>
#include <span>
#include <sstream>

#include "client/cli/history_printer.h"
#include "client/cli/network_printer.h"
#include "client/cli/study_import_printer.h"
#include "client/cli/study_printer.h"
#include "client/cli/terminal_text.h"
#include "client/program.h"
#include "database/open_error.h"
#include "database/server_address.h"
#include "session/study_session.h"
#include "store/exchange/study_files.h"
#include "store/network/network_import.h"
#include "store/studies/study_export.h"

namespace kiv::client {

namespace {

/// Messages of the library when there is no window.
class MessagesAsLines : public host::MessageBoxes {
 public:
  explicit MessagesAsLines(std::ostream& err) : err_(err) {}
  void Show(const std::string& text, host::MessageStyle, const std::string&) override {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
      if (line.ends_with('\r')) line.pop_back();
      err_ << TerminalText(line) << '\n';
    }
  }
  std::string ApplicationTitle() const override { return UserSettings::kDefaultApplicationTitle; }

 private:
  std::ostream& err_;
};

class Silence : public host::Beeper {
 public:
  void Beep() override {}
};

/// In place of the name of a file.
constexpr const char* kStandardOutput = "-";

/// The parsed options of every command.
struct Options {
  std::string database;
  std::string folder;
  bool json = false;
  bool dryRun = false;
  bool deleted = false;
  std::int64_t timeout = database::kStatementLimit.count();
  std::int32_t id = 0;
  std::int32_t revision = 0;
  std::vector<std::int32_t> ids;
  std::string idOrFile;
  std::vector<std::string> files;
  std::string output = kStandardOutput;

  std::string DatabasePath() const { return database.empty() ? Program::DefaultDatabasePath() : database; }
  OutputFormat Format() const { return json ? OutputFormat::Json : OutputFormat::Text; }
};

int Init(Program& program, const Options& options, std::ostream& out) {
  program.OpenDatabase(options.DatabasePath(), Program::WhenMissing::Create);
  if (program.HasOlderLayout()) {
    throw store::StoreError("The study database " + program.Store().Database().Name() +
                            " is write-protected and keeps its older layout; nothing was changed. " +
                            (database::IsServerAddress(options.DatabasePath())
                                 ? "Run init as the owner of the tables, on the server that takes writes."
                                 : "Ask for permission to write the file, then run init again."));
  }
  const database::Connection& database = program.Store().Database();
  out << "The study database is ready: " << database.Name() << (database.ReadOnly() ? " (read-only)" : "")
      << '\n';
  return kOk;
}

int List(Program& program, const Options& options, std::ostream& out) {
  if (options.deleted) {
    PrintDeletedStudies(program.Store().History().DeletedStudies(), options.Format(), out);
    return kOk;
  }
  PrintStudies(program.Store(), options.Format(), out);
  return kOk;
}

int Show(Program& program, const Options& options, std::ostream& out) {
  const store::Study study = program.Store().Load(options.id);
  PrintStudy(study, program.Store().Scenarios().List(), options.Format(), out);
  switch (study.kindData) {
    case store::KindData::Complete: break;
    case store::KindData::Missing: throw store::StoreError(store::MissingDataText(options.id));
    case store::KindData::Unknown:
      throw store::StoreError("This version of the program cannot show the data of the kind \"" +
                              study.record->AppName() + "\".");
  }
  return kOk;
}

int Report(const session::StudyImportReport& report, const Options& options, std::ostream& out,
           std::ostream& err) {
  PrintStudyImport(report, options.Format(), out, err);
  return report.problems.empty() ? kOk : kRefused;
}

/// A number is that of a stored study; anything else is the name of a file.
int Validate(Program& program, const Options& options, std::ostream& out, std::ostream& err) {
  std::int32_t id = 0;
  if (!CLI::detail::lexical_cast(options.idOrFile, id)) {
    return Report(session::CheckStudies(program.Store(), {options.idOrFile}), options, out, err);
  }
  const auto problems = session::CheckStudy(program.Store(), program.Store().Load(id));
  PrintProblems(id, problems, options.Format(), out);
  return session::HasErrors(problems) ? kRefused : kOk;
}

/// Each damage once. What it keeps from being known is not said to be known.
int TellDamages(std::span<const HistoryStep> steps, std::ostream& err) {
  std::string told;
  for (const HistoryStep& step : steps) {
    if (step.damage == told || step.damage.empty()) continue;
    told = step.damage;
    err << TerminalText(told) << '\n';
  }
  return told.empty() ? kOk : kRefused;
}

int History(Program& program, const Options& options, std::ostream& out, std::ostream& err) {
  const std::vector<HistoryStep> steps = StepsOf(program.Store().History(), options.id);
  if (options.revision == 0) {
    PrintHistory(steps, options.Format(), out);
    return TellDamages(steps, err);
  }
  const auto step =
      std::ranges::find(steps, options.revision, [](const HistoryStep& each) { return each.entry.revision; });
  if (step == steps.end()) (void)program.Store().History().Content(options.id, options.revision);  // says so
  if (!step->damage.empty()) throw store::StoreError(step->damage);
  PrintDifferences(step->differences, options.Format(), out);
  return kOk;
}

int Restore(Program& program, const Options& options, std::ostream& out) {
  const std::int32_t revision = program.Store().Restore(options.id, options.revision, program.UserName());
  out << "Study " << options.id << " is as it was at revision " << options.revision
      << "; this is its revision " << revision << ".\n";
  return kOk;
}

int Export(Program& program, const Options& options, std::ostream& out) {
  const std::string text = store::ExportStudies(program.Store(), options.ids);
  if (options.output == kStandardOutput) {
    out << text;
  } else {
    store::WriteStudyFile(options.output, text);
  }
  return kOk;
}

int Import(Program& program, const Options& options, std::ostream& out, std::ostream& err) {
  store::StudyStore& store = program.Store();
  return Report(options.dryRun ? session::CheckStudies(store, options.files)
                               : session::ImportStudies(store, options.files, program.UserName()),
                options, out, err);
}

int ImportNetworkFolder(Program& program, const Options& options, std::ostream& out, std::ostream& err) {
  const store::ImportProgress progress = ProgressOnTerminal(err);
  store::NetworkReport report;
  if (options.dryRun) {
    report = store::CheckNetwork(options.folder, progress);
  } else {
    program.OpenDatabase(options.DatabasePath(), Program::WhenMissing::Refuse);
    report = store::ImportNetwork(program.Store().Database(), options.folder, progress, program.UserName());
  }
  PrintNetworkReport(report, options.Format(), out, err);
  return report.badLines.empty() ? kOk : kRefused;
}

/// One message for each refusal.
int Refuse(const std::exception& error, std::ostream& err) {
  err << TerminalText(store::FailureText(error));
  const auto* notOpened = dynamic_cast<const database::OpenError*>(&error);
  if (notOpened && notOpened->CanBeCreated()) {
    err << " To do so: " << TerminalText(notOpened->CreateCommand());
  }
  err << '\n';
  return kRefused;
}

std::optional<int> Run(int argc, const char* const* argv, WindowRequest& window, std::ostream& out,
                       std::ostream& err) {
  Options options;
  CLI::App app("Defines, checks, stores and finds KIV studies.", "kivstudy");
  app.set_help_all_flag("--help-all", "Print this help message of every command and exit");
  app.require_subcommand(0, 1);
  HideAddresses(app, argc, argv);
  app.set_version_flag("--version", kVersionText);
  app.fallthrough();
  const std::string exitCodes = "Exit codes: 0 done, 1 refused, 2 wrong usage.";
  AddDatabaseOption(app, options.database);
  app.add_option("--timeout", options.timeout,
                 "Longest wait for the database to carry out a single change; 0 is no limit")
      ->type_name("SECONDS")
      ->check(CLI::Range(0, 1'000'000))
      ->capture_default_str();
  app.footer("Without a command the window opens. " + exitCodes);

  const auto addCommand = [&](const char* name, const char* description) {
    CLI::App* command = app.add_subcommand(name, description);
    AddDatabaseOption(*command, options.database);
    command->footer(exitCodes);
    return command;
  };
  const auto addJson = [&](CLI::App* command) {
    command->add_flag("--json", options.json, "Print JSON for programs");
  };
  // Numbers would else be taken in other bases, too: 010 for 8.
  const CLI::Validator decimal(
      [](const std::string& text) {
        const bool plain =
            !text.empty() && text.front() != '0' && text.find_first_not_of("0123456789") == std::string::npos;
        return plain ? std::string() : text + " is no number such as 12";
      },
      "");
  const auto addId = [&](CLI::App* command) {
    command->add_option("ID", options.id, "Number of the study, as the list shows it")
        ->check(decimal)
        ->required();
  };
  CLI::App* gui = addCommand("gui", "Open the window (the default)");
  CLI::App* init = addCommand("init", "Create a study database, or bring an older one up to date");
  CLI::App* list = addCommand("list", "List the studies");
  list->add_flag("--deleted", options.deleted, "List the studies that were deleted instead");
  addJson(list);
  CLI::App* show = addCommand("show", "Show everything that is stored of a study");
  addId(show);
  addJson(show);
  CLI::App* validate = addCommand("validate", "Check studies by the rules of their editors");
  validate->add_option("ID|FILE", options.idOrFile, "Number of a stored study, or a file with exported ones")
      ->required();
  addJson(validate);
  CLI::App* exportStudies =
      addCommand("export", "Write studies as JSON, for other databases and for version control");
  exportStudies->add_option("ID", options.ids, "Numbers of the studies (default: all)")->check(decimal);
  exportStudies->add_option("--output", options.output, "File to write (default: standard output)")
      ->type_name("FILE");
  CLI::App* importStudies =
      addCommand("import", "Store the studies of exported files as new ones, all of them or nothing");
  importStudies->add_option("FILE", options.files, "Files that export has written")->required();
  importStudies->add_flag("--dry-run", options.dryRun, "Only check every study");
  addJson(importStudies);
  CLI::App* history = addCommand("history", "Show who changed a study, when and what");
  addId(history);
  history->add_option("REVISION", options.revision, "Show everything that this revision changed")
      ->check(decimal);
  addJson(history);
  CLI::App* restore = addCommand("restore", "Bring a state of a study back, also of a deleted one");
  addId(restore);
  restore->add_option("REVISION", options.revision, "Revision, as history shows it")
      ->check(decimal)
      ->required();

  CLI::App* importNetwork = addCommand(
      "import-network", "Replace the network by the CSV files of a folder, all of them or nothing");
  importNetwork->add_option("DIR", options.folder, "Folder with one CSV file for each table")->required();
  importNetwork->add_flag("--dry-run", options.dryRun, "Only check every line; no database is needed");
  addJson(importNetwork);

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error, out, err) == 0 ? kOk : kUsage;
  }
  if (app.get_subcommands().empty() || gui->parsed()) {
    if (!options.database.empty()) window.database = options.database;
    return std::nullopt;
  }

  try {
    Program program;
    program.SetStatementLimit(std::chrono::seconds(options.timeout));
    program.Start({.messageBoxes = std::make_shared<MessagesAsLines>(err),
                   .folderChooser = nullptr,
                   .beeper = std::make_shared<Silence>(),
                   .askForScenarioName = nullptr,
                   .tellFailure = nullptr,
                   .waitHandler = {}});
    if (init->parsed()) return Init(program, options, out);
    if (importNetwork->parsed()) return ImportNetworkFolder(program, options, out, err);
    program.OpenDatabase(options.DatabasePath(), Program::WhenMissing::Refuse);
    if (list->parsed()) return List(program, options, out);
    if (show->parsed()) return Show(program, options, out);
    if (exportStudies->parsed()) return Export(program, options, out);
    if (importStudies->parsed()) return Import(program, options, out, err);
    if (history->parsed()) return History(program, options, out, err);
    if (restore->parsed()) return Restore(program, options, out);
    return Validate(program, options, out, err);
  } catch (const std::exception& error) {
    return Refuse(error, err);
  }
}

}  // namespace

std::optional<int> RunCommandLine(int argc, const char* const* argv, WindowRequest& window, std::ostream& out,
                                  std::ostream& err) {
  const auto exitCode = Run(argc, argv, window, out, err);
  if (!exitCode || out.flush()) return exitCode;
  // A result that did not arrive, on a full disk for one, is no success.
  err << "The output could not be written completely. Make room where it goes to. Changes to the database, "
         "if the "
         "command makes any, are made: look with list before you repeat it.\n";
  return kRefused;
}

}  // namespace kiv::client
