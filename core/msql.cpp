#include "core/msql.h"

#include <exception>

#include "host/scope.h"

namespace kiv::MSQL {

host::Database& Database() {
  return host::Scope::Current().TheDatabase();
}

std::shared_ptr<host::Recordset> OpenQuery(const std::string& sql) {
  return Database().OpenQuery(sql, host::kQueryTimeoutSeconds);
}

Announcer::~Announcer() {
  if (announced_ == 0) return;
  try {
    Database().Announce({});
  } catch (...) {
    // What the database has to say of its loss comes with the next question.
  }
}

void Announcer::BeginRound() {
  if (begun_ == 0) wanted_ = Database().AnnouncementsWanted();
  if (begun_++ < turn_ || wanted_ == 0) return;
  if (announced_ == 0) AnnounceMore();
  // The next ones go out while these are being answered, so that the way there is never empty.
  turn_ = announced_;
  AnnounceMore();
}

void Announcer::AnnounceMore() {
  std::vector<host::Announcement> questions;
  for (; questions.size() < wanted_ / 2; ++announced_) {
    if (nextRound_(questions)) continue;
    wanted_ = 0;
    break;
  }
  if (!questions.empty()) Database().Announce(questions);
}

void ReadStudyRow(const std::string& sql, std::string_view kind, const char* routine,
                  const std::string& message, const std::function<void(const host::Recordset&)>& read) {
  const auto report = [&] {
    host::TheErrorReporter().ReportError(std::string(kind), kModuleName, routine, message);
  };
  std::shared_ptr<host::Recordset> rows;
  try {
    rows = OpenQuery(sql);
    if (rows) {
      read(*rows);
      rows->Close();
    }
  } catch (const host::DatabaseError&) {
    return report();
  }
  if (!rows) report();
}

bool TrapErrors(std::string_view kind, const char* routine,
                const std::function<void(host::Database&)>& write) {
  try {
    write(Database());
    return true;
  } catch (const std::exception& error) {
    host::TheErrorReporter().ReportError(std::string(kind), kModuleName, routine, error.what());
    return false;
  }
}

}  // namespace kiv::MSQL
