#include "delay_proxy.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <stdexcept>
#include <string>
#include <utility>

namespace kiv::bench {

namespace {

using Clock = std::chrono::steady_clock;

sockaddr_in Loopback(int port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  return address;
}

void SendAtOnce(int socket) {
  const int on = 1;
  setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

/// Sends each piece when its time has come; pieces do not wait for each other's delay.
class DelayLine {
 public:
  explicit DelayLine(int to) : to_(to), sender_([this] { Send(); }) {}
  DelayLine(const DelayLine&) = delete;
  DelayLine& operator=(const DelayLine&) = delete;
  ~DelayLine() {
    Put({}, Clock::now());
    sender_.join();
    shutdown(to_, SHUT_RDWR);
  }

  /// An empty piece ends the line.
  void Put(std::string bytes, Clock::time_point due) {
    const std::lock_guard lock(mutex_);
    pieces_.push_back({std::move(bytes), due});
    filled_.notify_one();
  }

 private:
  struct Piece {
    std::string bytes;
    Clock::time_point due;
  };

  void Send() {
    while (true) {
      std::unique_lock lock(mutex_);
      filled_.wait(lock, [this] { return !pieces_.empty(); });
      const Piece piece = std::move(pieces_.front());
      pieces_.pop_front();
      lock.unlock();
      if (piece.bytes.empty()) return;
      std::this_thread::sleep_until(piece.due);
      send(to_, piece.bytes.data(), piece.bytes.size(), MSG_NOSIGNAL);
    }
  }

  int to_;
  std::mutex mutex_;
  std::condition_variable filled_;
  std::deque<Piece> pieces_;
  std::thread sender_;
};

}  // namespace

DelayProxy::DelayProxy(int serverPort, std::chrono::microseconds delay)
    : serverPort_(serverPort), delay_(delay), listener_(socket(AF_INET, SOCK_STREAM, 0)) {
  sockaddr_in address = Loopback(0);
  socklen_t length = sizeof address;
  if (bind(listener_, reinterpret_cast<sockaddr*>(&address), length) != 0)
    throw std::runtime_error("no port");
  getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &length);
  port_ = ntohs(address.sin_port);
  listen(listener_, 8);
  acceptor_ = std::thread([this] { Accept(); });
}

DelayProxy::~DelayProxy() {
  shutdown(listener_, SHUT_RDWR);
  acceptor_.join();
  for (const int socket : sockets_) shutdown(socket, SHUT_RDWR);
  for (std::thread& forwarder : forwarders_) forwarder.join();
  for (const int socket : sockets_) close(socket);
  close(listener_);
}

void DelayProxy::Accept() {
  for (int client = accept(listener_, nullptr, nullptr); client >= 0;
       client = accept(listener_, nullptr, nullptr)) {
    const int server = socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in address = Loopback(serverPort_);
    if (connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
      throw std::runtime_error("the server does not answer");
    }
    SendAtOnce(client);
    SendAtOnce(server);
    sockets_.insert(sockets_.end(), {client, server});
    forwarders_.emplace_back([this, client, server] { Forward(client, server, delay_); });
    forwarders_.emplace_back([client, server] { Forward(server, client, {}); });
  }
}

void DelayProxy::Forward(int from, int to, std::chrono::microseconds delay) {
  DelayLine line(to);
  std::array<char, 1 << 16> buffer{};
  for (ssize_t count = read(from, buffer.data(), buffer.size()); count > 0;
       count = read(from, buffer.data(), buffer.size())) {
    line.Put(std::string(buffer.data(), static_cast<std::size_t>(count)), Clock::now() + delay);
  }
}

}  // namespace kiv::bench
