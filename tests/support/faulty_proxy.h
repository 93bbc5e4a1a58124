#pragma once

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "support/temp_folder.h"

namespace kiv::test {

/// What goes wrong between a client and its server.
enum class MessageFault {
  None,
  CutBefore,  ///< both sides lose each other before a message gets through
  Short,      ///< after half of it
  CutAfter,   ///< after all of it
  Late        ///< the message comes later
};

/// Stands between programs and a PostgreSQL server that is reached by a socket in a folder.
class FaultyProxy {
 public:
  enum class Answers {
    Pass,
    Stay,  ///< held back for good; the connection stays open
    Break  ///< the next one ends its connection instead
  };
  std::atomic<Answers> answers = Answers::Pass;

  explicit FaultyProxy(const std::string& serverFolder);
  FaultyProxy(const FaultyProxy&) = delete;
  FaultyProxy& operator=(const FaultyProxy&) = delete;
  /// The connections are cut.
  ~FaultyProxy();

  /// The host of the address that leads to the server through the proxy.
  const std::string& Host() const { return host_; }
  /// Lets the n-th message from now on suffer, counted from 1; both directions count as one.
  void Fail(MessageFault fault, int message);
  /// Whether a message has suffered since.
  bool HasFailed();

 private:
  struct Line {
    int from;
    int to;
    bool ofClient;
    bool startsBare;  ///< the first message of a client has no type
  };

  void Accept();
  void Forward(Line line);
  /// False when the line is cut.
  bool Pass(const Line& line, const std::string& message);

  OpenFolder folder_;
  std::string host_ = folder_.Path();
  std::string server_;
  int listener_;
  std::atomic<bool> ends_ = false;
  std::mutex mutex_;  // for what follows
  MessageFault fault_ = MessageFault::None;
  int messagesUntil_ = 0;
  bool failed_ = false;
  std::vector<int> sockets_;
  std::vector<std::thread> threads_;
  std::thread acceptor_;
};

}  // namespace kiv::test
