#include "database/open_error.h"

#include <algorithm>
#include <string_view>

namespace kiv::database {

namespace {

std::string Quoted(const std::string& file) {
  return "'" + file + "'";
}

/// A word that every POSIX shell takes as it stands here.
std::string ShellWord(const std::string& text) {
  constexpr std::string_view kPlain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_@%+=:,./-";
  if (!text.empty() && text.find_first_not_of(kPlain) == std::string::npos) return text;
  std::string word = "'";
  for (const char character : text) {
    if (character == '\'') {
      word += "'\\''";
    } else {
      word += character;
    }
  }
  return word + "'";
}

std::string InBrackets(const std::string& detail) {
  return detail.empty() ? "" : " (" + detail + ")";
}

/// A NUL would end the message in the middle.
std::string Printable(std::string file) {
  std::ranges::replace(file, '\0', '?');
  return file;
}

std::string Sentence(OpenProblem problem, const std::string& file, const std::string& detail) {
  switch (problem) {
    case OpenProblem::Missing:
      return "The study database " + Quoted(file) + " does not exist. Check the path, or create it.";
    case OpenProblem::IsFolder:
      return Quoted(file) + " is a folder, not a study database. Name the file inside a folder.";
    case OpenProblem::Unreadable:
      return "The study database " + Quoted(file) + " cannot be opened" + InBrackets(detail) +
             ". Check that you have permission to use the file and its folder, then try again.";
    case OpenProblem::Locked:
      return "The study database " + Quoted(file) +
             " is locked by another program. Wait until that program has finished or close it, then try "
             "again.";
    case OpenProblem::NotADatabase:
      return "The file " + Quoted(file) + " is not a study database" + InBrackets(detail) +
             ". Nothing was changed; choose another file.";
    case OpenProblem::Empty:
      return "The file " + Quoted(file) +
             " is empty, not a study database. Choose another file, or make it one.";
    case OpenProblem::Damaged:
      return "The study database " + Quoted(file) + " is damaged" + InBrackets(detail) +
             ". Nothing was changed; restore it from a copy.";
    case OpenProblem::Foreign:
      return Quoted(file) + " is a database of another program. Nothing was changed; choose another one.";
    case OpenProblem::Newer:
      return "The study database " + Quoted(file) + " was made by a newer version of kivstudy" +
             InBrackets(detail) + ". Nothing was changed; install that version to open it.";
    case OpenProblem::CannotCreate:
      return "The study database " + Quoted(file) + " cannot be created" + InBrackets(detail) +
             ". Choose a folder in which you may write.";
    case OpenProblem::BadAddress:
      return Quoted(file) + " is not the address of a study database" + InBrackets(detail) +
             ". Write it like this: "
             "postgresql://user@server:5432/database";
    case OpenProblem::Unreachable:
      return "The server of the study database " + Quoted(file) + " cannot be used" + InBrackets(detail) +
             ". Check the address, the user name and the password, then try again.";
    case OpenProblem::NoTables:
      return "The tables of the study database " + Quoted(file) + " cannot be made" + InBrackets(detail) +
             ". Ask whoever runs the server.";
    case OpenProblem::WithoutPostgres:
      return "This program was built without PostgreSQL and cannot open " + Quoted(file) +
             ". Use a database file.";
    case OpenProblem::NoClientLibrary:
      return "The client library of PostgreSQL cannot be loaded" + InBrackets(detail) +
             ". Install the package libpq5 to open " + Quoted(file) + ", or use a database file.";
    case OpenProblem::NameTooLong:
      return "The file name " + Quoted(file) + " is too long. Choose a shorter one.";
    case OpenProblem::DanglingLink:
      return Quoted(file) + " is a link to a file that does not exist" + InBrackets(detail) +
             ". Correct the link, or name the file itself.";
    case OpenProblem::Cancelled:
      return "Opening the study database " + Quoted(file) +
             " was cancelled. Open it again, or choose another one.";
  }
  return {};
}

}  // namespace

OpenError::OpenError(OpenProblem problem, const std::string& file, const std::string& detail)
    : DatabaseError(Sentence(problem, Printable(file), detail), {}), problem_(problem), file_(file) {}

std::string OpenError::CreateCommand() const {
  return "kivstudy init --database " + ShellWord(Printable(file_));
}

}  // namespace kiv::database
