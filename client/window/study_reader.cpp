#include "client/window/study_reader.h"

#include <QApplication>
#include <algorithm>
#include <limits>
#include <utility>

#include "client/program.h"
#include "client/window/study_table.h"

namespace kiv::client {

namespace {

using Id = std::numeric_limits<std::int32_t>;

constexpr std::size_t kLeastPage = 200;
constexpr std::size_t kMostPage = 8'000;
// Milliseconds of a page. What takes longer than a tenth of a second is felt, also on a busy machine.
constexpr std::int64_t kShortPage = 10;
constexpr std::int64_t kLongPage = 30;
constexpr int kDialogPause = 50;

}  // namespace

StudyReader::StudyReader(Program& program, StudyTable& table) : program_(program), table_(table) {
  timer_.setSingleShot(true);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { ReadFurtherPage(); });
}

void StudyReader::Start() {
  sinceStart_.start();
  read_ = 0;
  total_ = 0;
  next_ = Id::min();
  state_ = State::Reading;
  try {
    ReadPage();
    if (state_ == State::Reading) total_ = program_.Store().Count();
  } catch (...) {
    Stop();
    throw;
  }
  SetState(state_);
}

void StudyReader::Stop() {
  if (state_ == State::Reading) SetState(State::Stopped);
}

void StudyReader::SetState(State state) {
  state_ = state;
  state_ == State::Reading ? timer_.start(0) : timer_.stop();
  Progressed.Raise();
}

void StudyReader::ReadFurtherPage() {
  if (QApplication::activeModalWidget()) {
    timer_.start(kDialogPause);  // it may be at work with the database
    return;
  }
  QElapsedTimer time;
  time.start();
  try {
    ReadPage();
  } catch (const std::exception& error) {
    Stop();
    Failed.Raise(error);
    return;
  }
  if (time.elapsed() < kShortPage) pageSize_ = std::min(pageSize_ * 2, kMostPage);
  if (time.elapsed() > kLongPage) pageSize_ = std::max(pageSize_ / 2, kLeastPage);
  SetState(state_);
}

void StudyReader::ReadPage() {
  std::vector<store::StudySummary> page = program_.Store().ListFrom(next_, pageSize_);
  const bool isLast = page.size() < pageSize_ || page.back().id == Id::max();
  const std::int32_t last = isLast ? Id::max() : page.back().id;
  read_ += page.size();
  table_.Replace(next_, last, std::move(page));
  total_ = isLast ? read_ : std::max(total_, read_);
  if (isLast) {
    state_ = State::Complete;
  } else {
    next_ = last + 1;
  }
}

}  // namespace kiv::client
