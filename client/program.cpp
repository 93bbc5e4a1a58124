#include "client/program.h"

#include <pwd.h>
#include <unistd.h>

#include <ctime>
#include <utility>

#include "client/user_folders.h"
#include "database/open.h"
#include "database/schema.h"

namespace kiv::client {

namespace {

class LoginSession : public host::Session {
 public:
  std::string UserName() const override {
    if (const passwd* entry = getpwuid(geteuid())) return entry->pw_name;
    return std::to_string(geteuid());
  }
  std::tm LocalTime() const override {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local;
  }
};

/// File names that every system between the switch and the desk can hold.
class PortableFileNames : public host::FileNameRules {
 public:
  bool HasOnlyPermittedCharacters(const std::string& name) const override {
    return name.find_first_of("\\/:*?\"<>|") == std::string::npos;
  }
  std::string ForbiddenCharacters() const override { return "\\ / : * ? \" < > |"; }
};

}  // namespace

/// The only documents of this program are the scenarios of its database.
class Program::Scenarios : public host::DocumentLibrary {
 public:
  Scenarios(Program& program, std::function<std::optional<std::string>()> askForName)
      : program_(program), askForName_(std::move(askForName)) {}

  std::shared_ptr<host::DocumentType> NewDocumentType() const override {
    return std::make_shared<host::DocumentType>();
  }
  std::vector<host::Document> Documents(const host::DocumentType&) const override {
    return program_.Store().Scenarios().List();
  }
  std::optional<host::Document> AskForNewDocument(const host::DocumentType&) override {
    const auto name = askForName_ ? askForName_() : std::nullopt;
    if (!name) return std::nullopt;
    const host::Document scenario{program_.Store().Scenarios().Add(*name, program_.UserName()), *name};
    program_.AnnounceScenarios();
    return scenario;
  }
  std::string MissingDocumentText(const host::DocumentType&) const override {
    return "Please select a scenario.";
  }

 private:
  Program& program_;
  std::function<std::optional<std::string>()> askForName_;
};

Program::Program()
    : errors_(std::make_shared<store::ErrorLog>()),
      settings_(std::make_shared<UserSettings>()),
      drag_(std::make_shared<EntityDrag>()),
      session_(std::make_shared<LoginSession>()) {}

Program::~Program() = default;

void Program::Start(UserInterface userInterface) {
  settings_->SetTeller(userInterface.tellFailure);
  errors_->SetTeller(std::move(userInterface.tellFailure));
  waitHandler_ = std::move(userInterface.waitHandler);
  scope_.emplace(host::Services{
      .openDatabase = [this] { return connection_; },
      .errorReporter = errors_,
      .messageBoxes = std::move(userInterface.messageBoxes),
      .settings = settings_,
      .session = session_,
      .documents = std::make_shared<Scenarios>(*this, std::move(userInterface.askForScenarioName)),
      .fileNameRules = std::make_shared<PortableFileNames>(),
      .folderChooser = std::move(userInterface.folderChooser),
      .beeper = std::move(userInterface.beeper),
      .dragSource = drag_});
}

std::shared_ptr<database::SqlConnection> Program::Connect(const std::string& path,
                                                          WhenMissing whenMissing) const {
  const auto mode = whenMissing == WhenMissing::Create ? database::OpenMode::CreateIfMissing
                                                       : database::OpenMode::MustExist;
  return database::OpenStudyDatabase(path, mode, waitHandler_);
}

void Program::Use(std::shared_ptr<database::SqlConnection> connection) {
  connection_ = std::move(connection);
  connection_->SetStatementLimit(statementLimit_);
  if (scope_) scope_->ReleaseDatabase();
  store_ = std::make_unique<store::StudyStore>(connection_, errors_);
}

void Program::OpenDatabase(const std::string& path, WhenMissing whenMissing) {
  Use(Connect(path, whenMissing));
}

bool Program::HasOlderLayout() const {
  return database::SchemaVersion(*connection_) < database::NewestSchemaVersion();
}

store::StudyStore& Program::Store() const {
  if (!store_) throw Error(ErrorNumber::ObjectNotSet, "No study database is open.");
  return *store_;
}

void Program::AnnounceScenarios() const {
  host::TheEvents().DocumentsChanged.Raise();
}

std::string Program::UserName() const {
  return session_->UserName();
}

std::string Program::DefaultDatabasePath() {
  const std::u8string path = (UserDataFolder() / "kivstudy" / "studies.db").u8string();
  return {path.begin(), path.end()};
}

}  // namespace kiv::client
