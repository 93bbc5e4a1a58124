#include "database/postgres/server_login.h"

#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <optional>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "database/postgres/postgres_error.h"
#include "database/postgres/socket_wait.h"

namespace kiv::database {

namespace {

using Clock = Waiting::Clock;

struct Parameter {
  const char* keyword;
  const char* value;
};

/// What holds unless the address says otherwise. A server that is cut off is given up after a minute.
constexpr std::array kDefaults = {
    Parameter{"fallback_application_name", "kivstudy"},
    Parameter{"connect_timeout", "10"},
    Parameter{"keepalives_idle", "30"},
    Parameter{"keepalives_interval", "10"},
    Parameter{"keepalives_count", "3"},
    Parameter{"tcp_user_timeout", "30000"},
};

/// Servers as an address names them: lists with commas, of which all but the first may be empty.
struct Servers {
  std::string host;
  std::string hostaddr;
  std::string port;
};

ConnectionHandle Start(const std::string& address, const std::optional<Servers>& servers) {
  std::vector<const char*> keywords;
  std::vector<const char*> values;
  const auto add = [&](const char* keyword, const char* value) {
    keywords.push_back(keyword);
    values.push_back(value);
  };
  for (const Parameter& parameter : kDefaults) add(parameter.keyword, parameter.value);
  add("dbname", address.c_str());
  if (servers) {
    add("host", servers->host.c_str());
    add("hostaddr", servers->hostaddr.c_str());
    add("port", servers->port.c_str());
  }
  add("client_encoding", "UTF8");
  add(nullptr, nullptr);
  return ConnectionHandle(Pq().PQconnectStartParams(keywords.data(), values.data(), 1));
}

std::string OptionOf(PGconn* connection, std::string_view keyword) {
  const std::unique_ptr<PQconninfoOption, decltype(&::PQconninfoFree)> options(Pq().PQconninfo(connection),
                                                                               Pq().PQconninfoFree);
  for (const PQconninfoOption* option = options.get(); option && option->keyword; ++option) {
    if (option->keyword == keyword && option->val) return option->val;
  }
  return {};
}

/// As the library reads it: without a number or below 1 there is no limit, and 1 counts as 2.
std::chrono::seconds LimitOf(PGconn* connection) {
  const std::string text = OptionOf(connection, "connect_timeout");
  int seconds = 0;
  std::from_chars(text.data(), text.data() + text.size(), seconds);
  return std::chrono::seconds(seconds == 1 ? 2 : std::max(seconds, 0));
}

std::vector<std::string> Split(const std::string& list) {
  std::vector<std::string> items(1);
  for (const char character : list) {
    if (character == ',') {
      items.emplace_back();
    } else {
      items.back() += character;
    }
  }
  return items;
}

/// The rest of a list, behind one of its items; a list with one item is that for every server.
std::string Behind(const std::string& list, std::size_t index) {
  const std::vector<std::string> items = Split(list);
  if (items.size() == 1) return list;
  std::string rest;
  for (std::size_t i = index + 1; i < items.size(); ++i) rest += (i == index + 1 ? "" : ",") + items[i];
  return rest;
}

/// The servers of an address behind the one that a connection is trying; nothing when that is the last.
std::optional<Servers> ServersBehind(PGconn* connection) {
  const Servers all = {OptionOf(connection, "host"), OptionOf(connection, "hostaddr"),
                       OptionOf(connection, "port")};
  const std::vector<std::string> names = Split(all.hostaddr.empty() ? all.host : all.hostaddr);
  const std::vector<std::string> ports = Split(all.port);
  const std::string name = all.hostaddr.empty() ? Pq().PQhost(connection) : Pq().PQhostaddr(connection);
  const std::string port = Pq().PQport(connection);
  for (std::size_t i = 0; i + 1 < names.size(); ++i) {
    const std::string& itsPort = ports[ports.size() == 1 ? 0 : std::min(i, ports.size() - 1)];
    if (names[i] != name || (itsPort != port && !itsPort.empty())) continue;
    return Servers{Behind(all.host, i), Behind(all.hostaddr, i), Behind(all.port, i)};
  }
  return std::nullopt;
}

/// A connection that is being made.
class Attempt {
 public:
  Attempt(ConnectionHandle connection, Clock::time_point since, Waiting& waiting, const std::string& sql)
      : connection_(std::move(connection)), waiting_(waiting), since_(since), sql_(sql) {
    if (!connection_) throw PostgresError(FailureCause::Other, "Out of memory.", sql_);
    limit_ = LimitOf(connection_.get());
  }

  /// Whether the connection is made; otherwise a server that was reached has said nothing.
  bool Succeeds() {
    PGconn* const connection = connection_.get();
    auto next = PGRES_POLLING_WRITING;
    while (next != PGRES_POLLING_OK) {
      if (next == PGRES_POLLING_FAILED || Pq().PQstatus(connection) == CONNECTION_BAD) Fail();
      RenewDeadline();
      const short events = next == PGRES_POLLING_READING ? POLLIN : POLLOUT;
      switch (AwaitSocket(Pq().PQsocket(connection), events, {Wait::For::Connection, since_, deadline_},
                          waiting_)) {
        case Awaited::Ready: break;
        case Awaited::Cancelled:
          throw PostgresError(FailureCause::Cancelled, "Connecting was cancelled.", sql_);
        case Awaited::TimedOut:
          silent_ = ServerText() + " gave no answer within " + std::to_string(limit_.count()) + " s.";
          if (Pq().PQstatus(connection) != CONNECTION_STARTED) return false;
          // Refused by this side, so that the library goes on to the next address of the name.
          shutdown(Pq().PQsocket(connection), SHUT_RDWR);
      }
      next = Pq().PQconnectPoll(connection);
    }
    return true;
  }

  PGconn* Get() const { return connection_.get(); }
  [[noreturn]] void Fail() const {
    if (!silent_.empty()) throw PostgresError(FailureCause::TimedOut, silent_, sql_);
    throw PostgresError(connection_.get(), nullptr, sql_);
  }
  Login Result() && { return {std::move(connection_), limit_}; }

 private:
  /// Each address of each server has its time.
  void RenewDeadline() {
    std::tuple<std::string, std::string, std::string> tried = {Pq().PQhost(Get()), Pq().PQhostaddr(Get()),
                                                               Pq().PQport(Get())};
    if (tried == tried_) return;
    tried_ = std::move(tried);
    deadline_ = limit_.count() == 0 ? Clock::time_point::max() : Clock::now() + limit_;
  }
  std::string ServerText() const {
    return "The server \"" + std::get<0>(tried_) + "\", port " + std::get<2>(tried_) + ",";
  }

  ConnectionHandle connection_;
  Waiting& waiting_;
  Clock::time_point since_;
  const std::string& sql_;
  std::chrono::seconds limit_{};
  Clock::time_point deadline_;
  std::tuple<std::string, std::string, std::string> tried_;  ///< name, address, port
  std::string silent_;
};

}  // namespace

Login LogIn(const std::string& address, Waiting& waiting, const std::string& sql) {
  const Clock::time_point since = Clock::now();
  std::optional<Servers> servers;
  while (true) {
    Attempt attempt(Start(address, servers), since, waiting, sql);
    if (attempt.Succeeds()) return std::move(attempt).Result();
    // The library itself goes on to the next server only when it cannot reach one.
    servers = ServersBehind(attempt.Get());
    if (!servers) attempt.Fail();
  }
}

}  // namespace kiv::database
