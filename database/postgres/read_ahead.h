#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "database/postgres/server_link.h"
#include "host/database.h"

namespace kiv::database {

/// Questions that were sent to the server before they are asked, and whose answers come one after the other.
class ReadAhead {
 public:
  /// How many are on their way at a time when the library does as it is told; twice as many are the most.
  static constexpr std::size_t kMostQuestions = 256;

  explicit ReadAhead(ServerLink& link) : link_(link) {}

  /// Whether nothing is on its way, and the connection is free for other statements.
  bool Empty() const { return sent_.empty(); }
  /// Sends questions behind a statement that has to come before them, if any. Those that are too many are
  /// left out. Each answer is waited for within a limit.
  void Send(std::span<const host::Announcement> questions, const std::string& before,
            std::chrono::seconds limit);
  /// Waits for the answer to a question. Nothing when it was not sent ahead or is no longer fresh. A failure,
  /// which may be that of a question before it, ends all that was sent.
  enum class Age { Any, Fresh };
  std::optional<ResultHandle> Take(const host::Announcement& question, Age age);
  /// Takes the answers that nobody asks for any more.
  void Drop();

 private:
  using Clock = std::chrono::steady_clock;

  /// What the server answers: a question, something that belongs to those behind it, or the end of what
  /// travelled together.
  struct Sent {
    enum class Kind { Question, Preparation, End } kind;
    host::Announcement question;
    Clock::time_point at;
  };

  void EndPart();
  bool SendQuestion(const host::Announcement& question);
  /// How many of those on their way come before a question; the number of all when it is not among the next.
  std::size_t PlaceOf(const host::Announcement& question) const;
  /// The result that belongs to the first on its way.
  ResultHandle TakeFirst();
  void Forget();

  ServerLink& link_;
  std::deque<Sent> sent_;
  std::size_t questions_ = 0;  ///< of those on their way
  std::chrono::seconds limit_{};
  std::string prepared_;  ///< the text of the unnamed statement in the part that is being sent
};

}  // namespace kiv::database
