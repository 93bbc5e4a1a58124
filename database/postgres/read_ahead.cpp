#include "database/postgres/read_ahead.h"

#include <algorithm>
#include <utility>

#include "database/postgres/parameterized_query.h"

namespace kiv::database {

namespace {

using namespace std::chrono_literals;

/// Outside a transaction an answer must not be older: nobody is to be shown what is long over.
constexpr auto kFresh = 5s;
/// How many questions may be left out between two that are asked.
constexpr std::size_t kMostLeftOut = 8;

constexpr Oid kInt4 = 23;

bool Same(const host::Announcement& one, const host::Announcement& other) {
  return one.text == other.text && one.argument == other.argument;
}

ParameterizedQuery TextOf(const host::Announcement& question) {
  if (!question.argument) return Parameterized(question.text);
  return {FunctionCall(question.text), {*question.argument}};
}

bool Failed(const PGresult* result) {
  const ExecStatusType status = Pq().PQresultStatus(result);
  return status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK && status != PGRES_PIPELINE_SYNC;
}

}  // namespace

void ReadAhead::Send(std::span<const host::Announcement> questions, const std::string& before,
                     std::chrono::seconds limit) {
  PGconn* const connection = link_.Get();
  if (Empty() && Pq().PQenterPipelineMode(connection) != 1) return;
  limit_ = limit;
  bool sent = true;
  if (!before.empty()) {
    // A part of its own, so that no failure of a question takes it back.
    sent = Pq().PQsendQueryParams(connection, before.c_str(), 0, nullptr, nullptr, nullptr, nullptr, 0) == 1;
    sent_.push_back({Sent::Kind::Preparation, {}, Clock::now()});
    EndPart();
  }
  // Behind a pooler each part may go to another server, which knows nothing of what was prepared before.
  prepared_.clear();
  for (const host::Announcement& question : questions) {
    if (!sent || questions_ == 2 * kMostQuestions) break;
    sent = SendQuestion(question);
  }
  EndPart();
}

void ReadAhead::EndPart() {
  sent_.push_back({Sent::Kind::End, {}, Clock::now()});
  Pq().PQpipelineSync(link_.Get());
}

bool ReadAhead::SendQuestion(const host::Announcement& question) {
  PGconn* const connection = link_.Get();
  const ParameterizedQuery shared = TextOf(question);
  const auto count = static_cast<int>(shared.numbers.size());
  const Clock::time_point now = Clock::now();
  if (shared.text != prepared_) {
    // The type of a function's argument is left to the server.
    const std::vector<Oid> types(shared.numbers.size(), question.argument ? 0 : kInt4);
    if (Pq().PQsendPrepare(connection, "", shared.text.c_str(), count, types.data()) != 1) return false;
    sent_.push_back({Sent::Kind::Preparation, {}, now});
    prepared_ = shared.text;
  }
  std::vector<const char*> values;
  for (const std::string& number : shared.numbers) values.push_back(number.c_str());
  if (Pq().PQsendQueryPrepared(connection, "", count, values.data(), nullptr, nullptr, 0) != 1) return false;
  sent_.push_back({Sent::Kind::Question, question, now});
  ++questions_;
  return true;
}

std::size_t ReadAhead::PlaceOf(const host::Announcement& question) const {
  std::size_t leftOut = 0;
  for (std::size_t place = 0; place < sent_.size() && leftOut <= kMostLeftOut; ++place) {
    if (sent_[place].kind != Sent::Kind::Question) continue;
    if (Same(sent_[place].question, question)) return place;
    ++leftOut;
  }
  return sent_.size();
}

ResultHandle ReadAhead::TakeFirst() {
  if (sent_.front().kind == Sent::Kind::Question) --questions_;
  const bool end = sent_.front().kind == Sent::Kind::End;
  sent_.pop_front();
  try {
    ResultHandle result = link_.Next();
    // A null ends the answers to each statement, but for the end of a part. Other results than that one, such
    // as those of a COPY, could go on for ever.
    if (!end && result && link_.Next()) link_.Drop();
    return result;
  } catch (...) {
    Forget();
    throw;
  }
}

std::optional<ResultHandle> ReadAhead::Take(const host::Announcement& question, Age age) {
  const std::size_t place = PlaceOf(question);
  if (place == sent_.size() || (age == Age::Fresh && Clock::now() - sent_[place].at >= kFresh)) {
    Drop();
    return std::nullopt;
  }
  link_.Expect(limit_, question.text);
  ResultHandle result;
  for (std::size_t i = 0; i <= place; ++i) {
    result = TakeFirst();
    if (!Failed(result.get())) continue;
    Drop();
    return result;
  }
  if (questions_ == 0) Drop();
  return result;
}

void ReadAhead::Drop() {
  if (Empty()) return;
  link_.Expect(limit_, {});
  while (!Empty() && Pq().PQstatus(link_.Get()) == CONNECTION_OK) TakeFirst();
  Forget();
  Pq().PQexitPipelineMode(link_.Get());
}

void ReadAhead::Forget() {
  sent_.clear();
  questions_ = 0;
}

}  // namespace kiv::database
