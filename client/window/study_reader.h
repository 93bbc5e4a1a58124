#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <cstddef>
#include <cstdint>
#include <exception>

#include "base/signal.h"

namespace kiv::client {

class Program;
class StudyTable;

/// Reads the list of studies page by page between the events of the window, which stays usable meanwhile.
/// What the table had already stays there until it was read again.
class StudyReader {
 public:
  enum class State { Complete, Reading, Stopped };

  StudyReader(Program& program, StudyTable& table);
  StudyReader(const StudyReader&) = delete;
  StudyReader& operator=(const StudyReader&) = delete;

  /// Reads everything from the beginning. A list of usual length is complete on return; what fails in this
  /// first page is raised.
  void Start();
  /// Leaves it at what was read so far.
  void Stop();

  /// How many studies a page has; pages that take long get shorter, others longer.
  static constexpr std::size_t kFirstPage = 1000;
  void SetPageSize(std::size_t size) { pageSize_ = size; }

  State CurrentState() const { return state_; }
  std::size_t ReadCount() const { return read_; }
  /// How many there are; 0 when that is not known.
  std::size_t TotalCount() const { return total_; }
  /// Milliseconds since the start.
  std::int64_t Elapsed() const { return sinceStart_.elapsed(); }

  /// There is more to see, or the state changed.
  Signal<> Progressed;
  /// Reading ended with a failure in a later page.
  Signal<const std::exception&> Failed;

 private:
  void ReadPage();
  void ReadFurtherPage();
  void SetState(State state);

  Program& program_;
  StudyTable& table_;
  QTimer timer_;
  QElapsedTimer sinceStart_;
  State state_ = State::Complete;
  std::size_t pageSize_ = kFirstPage;
  std::size_t read_ = 0;
  std::size_t total_ = 0;
  std::int32_t next_ = 0;  ///< identifier that the next page begins with
};

}  // namespace kiv::client
