#pragma once

#include <memory>
#include <string>

#include "session/study_session.h"

/// What is open in an editor and not stored, as a text that outlasts the program and its database.
namespace kiv::session {

/// What the pages hold now, whether it is valid or not. Needs no database; the session goes on as it was.
std::string KeptInput(StudySession& session);

/// The name of the study that was kept, and of the database that was open. Raise StoreError for a text that
/// KeptInput did not write.
std::string NameOfKept(const std::string& kept);
std::string DatabaseOfKept(const std::string& kept);

/// An editor with the kept input, not stored. In the database that it comes from, or in a copy, it is the
/// study that it was; when that was changed or deleted since, saving says so. In another database it is a new
/// study. Raises StoreError for a text that KeptInput did not write.
std::unique_ptr<StudySession> SessionOfKept(store::StudyStore& store, const std::string& kept);

}  // namespace kiv::session
