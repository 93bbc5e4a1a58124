#pragma once

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <list>
#include <stdexcept>
#include <string>
#include <thread>

#include "support/temp_folder.h"

namespace kiv::test {

/// Stands between programs and a PostgreSQL server that is reached by a socket in a folder.
class FaultyProxy {
 public:
  enum class Answers {
    Pass,
    Stay,  ///< held back for good; the connection stays open
    Break  ///< the next one ends its connection instead
  };
  std::atomic<Answers> answers = Answers::Pass;

  explicit FaultyProxy(const std::string& serverFolder) : server_(serverFolder + kName) {
    const sockaddr_un address = Address(folder_.File(kName + 1));
    if (bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener_, 8) != 0) {
      throw std::runtime_error("no socket for the proxy");
    }
    worker_ = std::thread([this] { Work(); });
  }
  ~FaultyProxy() {
    ends_ = true;
    worker_.join();
    for (const Pair& pair : pairs_) Close(pair);
    close(listener_);
  }

  /// The host of the address that leads to the server through the proxy.
  const std::string& Host() const { return host_; }

 private:
  static constexpr const char* kName = "/.s.PGSQL.5432";
  struct Pair {
    int client;
    int server;
  };

  static sockaddr_un Address(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    return address;
  }
  static void Close(const Pair& pair) {
    close(pair.client);
    close(pair.server);
  }
  static bool Readable(int socket, int milliseconds = 0) {
    pollfd waited = {socket, POLLIN, 0};
    return poll(&waited, 1, milliseconds) > 0;
  }
  static bool Forward(int from, int to) {
    std::array<char, 1 << 16> buffer{};
    const ssize_t count = read(from, buffer.data(), buffer.size());
    return count > 0 && send(to, buffer.data(), static_cast<std::size_t>(count), MSG_NOSIGNAL) == count;
  }

  void Accept() {
    const sockaddr_un address = Address(server_);
    const Pair pair = {accept(listener_, nullptr, nullptr), socket(AF_UNIX, SOCK_STREAM, 0)};
    if (connect(pair.server, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) {
      pairs_.push_back(pair);
    } else {
      Close(pair);
    }
  }
  bool Serve(const Pair& pair) {
    if (Readable(pair.client) && !Forward(pair.client, pair.server)) return false;
    if (answers == Answers::Stay || !Readable(pair.server)) return true;
    return answers != Answers::Break && Forward(pair.server, pair.client);
  }
  void Work() {
    while (!ends_) {
      if (Readable(listener_, 1)) Accept();
      pairs_.remove_if([this](const Pair& pair) {
        if (Serve(pair)) return false;
        Close(pair);
        return true;
      });
    }
  }

  OpenFolder folder_;
  std::string host_ = folder_.Path();
  std::string server_;
  int listener_ = socket(AF_UNIX, SOCK_STREAM, 0);
  std::list<Pair> pairs_;
  std::atomic<bool> ends_ = false;
  std::thread worker_;
};

}  // namespace kiv::test
