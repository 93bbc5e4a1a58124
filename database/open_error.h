#pragma once

#include <string>

#include "host/database.h"

namespace kiv::database {

/// Why a study database could not be opened.
enum class OpenProblem {
  Missing,
  IsFolder,
  Unreadable,    ///< no permission, or the disk fails
  Locked,        ///< another program holds it for itself
  NotADatabase,  ///< something else
  Empty,         ///< a file without content, which can still be made a study database
  Damaged,
  Foreign,  ///< a database, but of another program
  Newer,    ///< made by a later version of this program
  CannotCreate,
  BadAddress,       ///< no address of a server
  Unreachable,      ///< the server does not answer, or lets nobody in
  NoTables,         ///< this user may not make the tables
  WithoutPostgres,  ///< the program was built without it
  NoClientLibrary,  ///< that of PostgreSQL is missing on this machine
  NameTooLong,
  DanglingLink,  ///< a link whose file is gone
  Cancelled,     ///< the wait handler gave it up
};

/// A study database that cannot be opened; the text is one message for the user that names the database and
/// says what to do.
class OpenError : public host::DatabaseError {
 public:
  /// The detail, such as the system's reason, becomes part of the message where there is one.
  OpenError(OpenProblem problem, const std::string& name, const std::string& detail = {});

  OpenProblem Problem() const { return problem_; }
  /// Whether a study database can be made there.
  bool CanBeCreated() const { return problem_ == OpenProblem::Missing || problem_ == OpenProblem::Empty; }
  /// The command that makes it, ready for a shell.
  std::string CreateCommand() const;

 private:
  OpenProblem problem_;
  std::string file_;
};

}  // namespace kiv::database
