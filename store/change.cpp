#include "store/change.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <random>
#include <thread>
#include <utility>
#include <vector>

#include "base/ascii.h"
#include "core/fields.h"
#include "store/query.h"

namespace kiv::store {

namespace {

constexpr std::string_view kChangeTable = "kiv_change";

/// How long a server that was lost is tried again before the user is told.
constexpr std::array kPausesBeforeAsking = {std::chrono::milliseconds(0), std::chrono::milliseconds(300),
                                            std::chrono::milliseconds(900)};

void AppendHex(std::string& text, std::uint64_t number, int digits) {
  for (int shift = (digits - 1) * 4; shift >= 0; shift -= 4)
    text += "0123456789abcdef"[number >> shift & 15U];
}

/// 32 hexadecimal digits: the time in milliseconds, so that new rows go to the end of the table, and chance.
std::string NewToken() {
  static std::random_device chance;
  const auto now = std::chrono::duration_cast<std::chrono::milliseconds>(
      std::chrono::system_clock::now().time_since_epoch());
  std::string token;
  AppendHex(token, static_cast<std::uint64_t>(now.count()), 12);
  AppendHex(token, chance(), 8);
  AppendHex(token, chance(), 8);
  AppendHex(token, chance(), 4);
  return token;
}

std::string InsertOf(const database::Connection& connection, const std::string& token,
                     const ChangeNote& note) {
  const std::vector<host::Assignment> values = {
      {"token", token},
      {"event", note.event},
      {"studies", static_cast<std::int32_t>(note.studies)},
      {"changed_by", note.user},
      {"changed_at", note.time},
  };
  return sql::InsertStatement(connection, kChangeTable, values);
}

}  // namespace

OutcomeUnknown::OutcomeUnknown(std::string token)
    : StoreError(
          "The connection to the study database was lost while the change was being stored, and whether it "
          "was stored cannot be asked now. Check the network; then look whether it is there before you make "
          "it again."),
      token_(std::move(token)) {}

bool Changes::AreKept() const {
  if (!kept_) kept_ = connection_.ColumnExists(AsciiUpper(kChangeTable), "TOKEN");
  return *kept_;
}

bool Changes::Has(const std::string& token) const {
  return !Query(connection_, "SELECT 1 FROM kiv_change WHERE token = '" + token + "'")->EndOfFile();
}

bool Changes::IsStored(const std::string& token) const {
  // To insert the same token waits for a transaction that has it and has not ended; it is taken back at once.
  const database::Transaction transaction(connection_);
  return Query(connection_, InsertOf(connection_, token, {.event = "none", .user = {}, .time = {}}) +
                                " ON CONFLICT DO NOTHING RETURNING token")
      ->EndOfFile();
}

Change::Change(const Changes& changes, const ChangeNote& note)
    : changes_(changes), token_(changes.AreKept() ? NewToken() : std::string()) {
  transaction_.emplace(changes.connection_);
  if (!token_.empty()) changes.connection_.ExecuteSql(InsertOf(changes.connection_, token_, note));
}

void Change::Commit() {
  try {
    transaction_->Commit();
  } catch (const database::StatementError& failure) {
    if (!IsStoredAfter(failure.Cause())) throw;
  }
  transaction_.reset();
}

bool Change::IsStoredAfter(database::FailureCause cause) {
  using database::FailureCause;
  if (cause == FailureCause::Busy) return false;  // to wait once more would keep the user for nothing
  transaction_.reset();
  if (cause != FailureCause::ConnectionLost && cause != FailureCause::CommitUnknown) {
    try {
      return !token_.empty() && changes_.Has(token_);
    } catch (const host::DatabaseError&) {
      return false;  // the first failure says more
    }
  }
  if (token_.empty()) throw OutcomeUnknown(token_);
  for (const auto pause : kPausesBeforeAsking) {
    std::this_thread::sleep_for(pause);
    try {
      return changes_.IsStored(token_);
    } catch (const host::DatabaseError&) {
      continue;
    }
  }
  throw OutcomeUnknown(token_);
}

}  // namespace kiv::store
