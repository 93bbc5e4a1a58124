#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/database.h"

/// The persistence module. The routines of each study kind are declared beside its record.
namespace kiv::MSQL {

/// The module's name in error reports.
inline constexpr const char* kModuleName = "MSQL";

/// The one database object of the current host, made by its factory on first use.
/// Raises error 91 when the host has none to give.
host::Database& Database();

/// Opens a query with the time-out that every query of the library has; null when no result set came back.
std::shared_ptr<host::Recordset> OpenQuery(const std::string& sql);

/// Announces the questions of a loop to the database, some rounds ahead of their being asked.
class Announcer {
 public:
  /// Adds the questions of the next round, in the order in which they are asked; false behind the last.
  using NextRound = std::function<bool(std::vector<host::Announcement>& questions)>;

  explicit Announcer(NextRound nextRound) : nextRound_(std::move(nextRound)) {}
  Announcer(const Announcer&) = delete;
  Announcer& operator=(const Announcer&) = delete;
  /// Takes back what was not asked.
  ~Announcer();

  /// Comes before the questions of each round.
  void BeginRound();

 private:
  void AnnounceMore();

  NextRound nextRound_;
  std::size_t wanted_ = 0;  ///< questions that the database takes at a time; 0 when there is nothing to gain
  std::size_t begun_ = 0;   ///< rounds
  std::size_t announced_ = 0;  ///< rounds
  std::size_t turn_ = 0;       ///< the round with which to announce the next ones
};

/// Runs the query of a study's own row, gives the result set to `read` and closes it. When no result set
/// comes back, or the database fails at any of that, the message is reported under the study kind and the
/// routine's name; a failure while it is being handled, so that a reporter can tell the driver's reason too.
void ReadStudyRow(const std::string& sql, std::string_view kind, const char* routine,
                  const std::string& message, const std::function<void(const host::Recordset&)>& read);

/// Runs a write routine that keeps its failures to itself: they are reported under the study kind and the
/// routine's name. False when it failed.
bool TrapErrors(std::string_view kind, const char* routine,
                const std::function<void(host::Database&)>& write);

}  // namespace kiv::MSQL
