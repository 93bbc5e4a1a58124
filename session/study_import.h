#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "store/studies/study_store.h"

namespace kiv::session {

/// What is wrong with a study of a file, or with the file as a whole.
struct ImportProblem {
  std::string file;
  std::string study;  ///< such as `study 2 "Night"`; empty for the file as a whole
  std::string reason;
};

/// What came of checking or importing files with exported studies.
struct StudyImportReport {
  enum class Outcome { Good, Imported, Refused };
  struct Entry {
    std::string file;
    std::string kind;
    std::string name;
    std::int32_t id = 0;  ///< 0 while it is not stored
  };

  Outcome outcome = Outcome::Refused;
  std::vector<Entry> studies;
  std::vector<std::string> newScenarios;  ///< that the studies name and the database does not have
  std::vector<ImportProblem> problems;
  std::vector<ImportProblem> warnings;  ///< what could not be looked into; they refuse nothing
};

/// Checks every study by the rules of its editor and stores nothing.
StudyImportReport CheckStudies(store::StudyStore& store, const std::vector<std::string>& files);

/// Checks them and, when all are good, stores every one as a new study, all or none. A database that fails
/// raises host::DatabaseError and has none of them.
StudyImportReport ImportStudies(store::StudyStore& store, const std::vector<std::string>& files,
                                const std::string& user);

}  // namespace kiv::session
