#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "client/entity_drag.h"
#include "client/user_settings.h"
#include "database/sql_connection.h"
#include "host/scope.h"
#include "store/studies/error_log.h"
#include "store/studies/study_store.h"

namespace kiv::client {

/// What differs between the window and the command line.
struct UserInterface {
  std::shared_ptr<host::MessageBoxes> messageBoxes;
  std::shared_ptr<host::FolderChooser> folderChooser;
  std::shared_ptr<host::Beeper> beeper;
  /// Asks for the name of a new scenario; nothing when the user changed his mind.
  std::function<std::optional<std::string>()> askForScenarioName;
  /// Tells the user of a failure that nobody else tells.
  store::ErrorLog::Teller tellFailure;
  /// Takes part in the waits of the database; may be empty.
  database::WaitHandler waitHandler;
};

/// The program as a host of the library: its database, its settings and the services that the library needs.
/// One for each process.
class Program {
 public:
  Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program();

  /// Gives the library its services.
  void Start(UserInterface userInterface);

  /// Opens a database without going over to it. Raises database::OpenError.
  enum class WhenMissing { Refuse, Create };
  std::shared_ptr<database::SqlConnection> Connect(const std::string& path, WhenMissing whenMissing) const;
  /// Sets how long a change to the databases used from now on may take; 0 for as long as it wants.
  void SetStatementLimit(std::chrono::seconds limit) { statementLimit_ = limit; }
  /// Goes over to a database and forgets the one before.
  void Use(std::shared_ptr<database::SqlConnection> connection);
  /// Both at once; without a successful opening the one before stays.
  void OpenDatabase(const std::string& path, WhenMissing whenMissing);
  /// Whether the open database lacks tables of this version, because it cannot be written.
  bool HasOlderLayout() const;
  /// Whether there is an open database that cannot be written.
  bool IsReadOnly() const { return connection_ && connection_->ReadOnly(); }
  bool HasDatabase() const { return store_ != nullptr; }
  /// Raises error 91 when no database is open.
  store::StudyStore& Store() const;

  UserSettings& Settings() { return *settings_; }
  /// What is being dragged out of the configuration entity tree.
  EntityDrag& Drag() { return *drag_; }
  std::string UserName() const;

  /// Where the studies are when nobody says otherwise.
  static std::string DefaultDatabasePath();

  /// Tells every open study that scenarios were made, renamed or removed.
  void AnnounceScenarios() const;

 private:
  class Scenarios;

  std::shared_ptr<store::ErrorLog> errors_;
  std::shared_ptr<UserSettings> settings_;
  std::shared_ptr<EntityDrag> drag_;
  std::shared_ptr<host::Session> session_;
  database::WaitHandler waitHandler_;
  std::shared_ptr<database::SqlConnection> connection_;
  std::chrono::seconds statementLimit_ = database::kStatementLimit;
  std::unique_ptr<store::StudyStore> store_;
  std::optional<host::Scope> scope_;
};

}  // namespace kiv::client
