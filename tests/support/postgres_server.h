#pragma once

#include <cstdio>
#include <filesystem>
#include <string>

namespace kiv::test {

/// A PostgreSQL server of its own in a temporary folder. It ends with the program that started it, however
/// that ends, and after some minutes in any case.
class PostgresServer {
 public:
  enum class Use {
    Tests,        ///< reached by a socket in its folder; does not wait for the disk
    Measurements  ///< reached by a port of the loopback interface; as safe as a real one
  };
  /// Returns when the server answers. Raises std::runtime_error with the server's log when it does not.
  explicit PostgresServer(Use use);
  PostgresServer(const PostgresServer&) = delete;
  PostgresServer& operator=(const PostgresServer&) = delete;
  ~PostgresServer();

  /// The address of a new, empty database.
  std::string NewDatabase();
  /// 0 when the server is reached by a socket.
  int Port() const { return port_; }

  /// The one server of a test program, started on first use.
  static PostgresServer& Shared();

 private:
  std::string Address(const std::string& database) const;
  void WaitUntilReady();

  std::filesystem::path folder_;
  int port_ = 0;
  std::FILE* lifeline_ = nullptr;  ///< the server ends when the last copy of this pipe end is closed
  int databases_ = 0;
};

}  // namespace kiv::test
