#include "support/faulty_proxy.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <stdexcept>
#include <utility>

namespace kiv::test {

namespace {

constexpr std::size_t kLengthBytes = 4;

constexpr const char* kSocket = "/.s.PGSQL.5432";

sockaddr_un Address(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  return address;
}

/// How long the message at the front of what has arrived is; 0 while that cannot be told.
std::size_t LengthOfFirst(const std::string& arrived, bool bare) {
  const std::size_t typeBytes = bare ? 0 : 1;
  if (arrived.size() < typeBytes + kLengthBytes) return 0;
  std::uint32_t length = 0;
  for (std::size_t i = 0; i < kLengthBytes; ++i) {
    length = length << 8 | static_cast<unsigned char>(arrived[typeBytes + i]);
  }
  return typeBytes + length;
}

void SendAll(int to, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t sent = send(to, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent <= 0) return;
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
}

}  // namespace

FaultyProxy::FaultyProxy(const std::string& serverFolder)
    : server_(serverFolder + kSocket), listener_(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  const sockaddr_un address = Address(host_ + kSocket);
  if (bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
    throw std::runtime_error("no socket for the proxy");
  }
  listen(listener_, 8);
  acceptor_ = std::thread([this] { Accept(); });
}

FaultyProxy::~FaultyProxy() {
  ends_ = true;
  shutdown(listener_, SHUT_RDWR);
  acceptor_.join();
  for (const int socket : sockets_) shutdown(socket, SHUT_RDWR);
  for (std::thread& thread : threads_) thread.join();
  for (const int socket : sockets_) close(socket);
  close(listener_);
}

void FaultyProxy::Fail(MessageFault fault, int message) {
  const std::lock_guard lock(mutex_);
  fault_ = fault;
  messagesUntil_ = message;
  failed_ = false;
}

bool FaultyProxy::HasFailed() {
  const std::lock_guard lock(mutex_);
  return failed_;
}

void FaultyProxy::Accept() {
  for (int client = accept(listener_, nullptr, nullptr); client >= 0;
       client = accept(listener_, nullptr, nullptr)) {
    const int server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_un address = Address(server_);
    if (connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
      shutdown(client, SHUT_RDWR);  // as if the server had refused it
    }
    const std::lock_guard lock(mutex_);
    sockets_.insert(sockets_.end(), {client, server});
    threads_.emplace_back([this, client, server] { Forward({client, server, true, true}); });
    threads_.emplace_back([this, client, server] { Forward({server, client, false, false}); });
  }
}

void FaultyProxy::Forward(Line line) {
  std::array<char, 1 << 16> buffer{};
  std::string arrived;
  bool open = true;
  while (open) {
    const ssize_t count = read(line.from, buffer.data(), buffer.size());
    if (count <= 0) break;
    arrived.append(buffer.data(), static_cast<std::size_t>(count));
    for (std::size_t length = LengthOfFirst(arrived, line.startsBare);
         open && length > 0 && length <= arrived.size(); length = LengthOfFirst(arrived, line.startsBare)) {
      open = Pass(line, arrived.substr(0, length));
      arrived.erase(0, length);
      line.startsBare = false;
    }
  }
  shutdown(line.from, SHUT_RDWR);
  shutdown(line.to, SHUT_RDWR);
}

bool FaultyProxy::Pass(const Line& line, const std::string& message) {
  if (!line.ofClient) {
    while (answers == Answers::Stay && !ends_) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    if (ends_ || answers == Answers::Break) return false;
  }
  MessageFault fault = MessageFault::None;
  {
    const std::lock_guard lock(mutex_);
    if (fault_ != MessageFault::None && --messagesUntil_ == 0) {
      fault = std::exchange(fault_, MessageFault::None);
      failed_ = true;
    }
  }
  if (fault == MessageFault::Late) std::this_thread::sleep_for(std::chrono::milliseconds(50));
  const bool whole = fault != MessageFault::CutBefore && fault != MessageFault::Short;
  SendAll(line.to, std::string_view(message).substr(0, whole ? message.size() : 0));
  if (fault == MessageFault::Short) SendAll(line.to, std::string_view(message).substr(0, message.size() / 2));
  return fault == MessageFault::None || fault == MessageFault::Late;
}

}  // namespace kiv::test
