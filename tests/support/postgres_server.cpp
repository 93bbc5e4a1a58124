#include "support/postgres_server.h"

#include <libpq-fe.h>
#include <netinet/in.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <thread>

namespace kiv::test {

namespace {

using namespace std::chrono_literals;

constexpr auto kLongestStart = 60s;

/// The newest installed server's programs.
std::filesystem::path ProgramFolder() {
  std::filesystem::path newest;
  std::error_code none;
  for (const auto& version : std::filesystem::directory_iterator("/usr/lib/postgresql", none)) {
    const std::filesystem::path programs = version.path() / "bin";
    if (std::filesystem::exists(programs / "initdb") && programs > newest) newest = programs;
  }
  if (newest.empty())
    throw std::runtime_error("No PostgreSQL server is installed; run scripts/setup.sh test.");
  return newest;
}

int FreePort() {
  const int probe = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof address;
  const bool bound = bind(probe, reinterpret_cast<sockaddr*>(&address), length) == 0 &&
                     getsockname(probe, reinterpret_cast<sockaddr*>(&address), &length) == 0;
  close(probe);
  if (!bound) throw std::runtime_error("No port is free.");
  return ntohs(address.sin_port);
}

/// The shell between the program and its server: it outlives a crash of the program just long enough to stop
/// the server and to remove the folder.
constexpr const char* kKeeper = R"sh(
  trap '' INT TERM HUP
  cd "$folder"
  if [ "$(id -u)" = 0 ]; then  # the server refuses to run as root
    user=$(id -un postgres || echo nobody)
    as="setpriv --reuid=$user --regid=$(id -g $user) --clear-groups"
  fi
  if $as "$programs/initdb" -D data -U kiv -A trust --no-sync -E UTF8 --locale=C.UTF-8 </dev/null >log 2>&1; then
    $as timeout -s QUIT -k 10 600 "$programs/postgres" -D data -k "$folder" $options </dev/null >>log 2>&1 &
    cat  # it ends with the program
    kill -QUIT $!
    wait
    rm -rf "$folder"
  else
    touch failed
  fi)sh";

}  // namespace

PostgresServer::PostgresServer(Use use) : port_(use == Use::Measurements ? FreePort() : 0) {
  const std::filesystem::path programs = ProgramFolder();
  std::string pattern = std::filesystem::temp_directory_path() / "kiv-pg-XXXXXX";
  if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary folder");
  folder_ = pattern;
  std::filesystem::permissions(folder_, std::filesystem::perms::all);
  const std::string options =
      use == Use::Measurements ? "-h 127.0.0.1 -p " + std::to_string(port_) : "-c listen_addresses= -F";
  const std::string command = "programs='" + programs.string() + "' folder='" + folder_.string() +
                              "' options='" + options + "'" + kKeeper;
  lifeline_ = popen(command.c_str(), "we");
  if (!lifeline_) throw std::runtime_error("no shell");
  WaitUntilReady();
}

PostgresServer::~PostgresServer() {
  pclose(lifeline_);
}

void PostgresServer::WaitUntilReady() {
  const auto end = std::chrono::steady_clock::now() + kLongestStart;
  while (PQping(Address("postgres").c_str()) != PQPING_OK) {
    if (std::chrono::steady_clock::now() > end || std::filesystem::exists(folder_ / "failed")) {
      std::ifstream log(folder_ / "log");
      throw std::runtime_error("The PostgreSQL server did not start:\n" +
                               std::string(std::istreambuf_iterator<char>(log), {}));
    }
    std::this_thread::sleep_for(20ms);
  }
}

std::string PostgresServer::Address(const std::string& database) const {
  return port_ == 0 ? "postgresql://kiv@/" + database + "?host=" + folder_.string()
                    : "postgresql://kiv@127.0.0.1:" + std::to_string(port_) + "/" + database;
}

std::string PostgresServer::NewDatabase() {
  const std::string name = "kiv" + std::to_string(++databases_);
  PGconn* const connection = PQconnectdb(Address("postgres").c_str());
  PGresult* const result = PQexec(connection, ("CREATE DATABASE " + name).c_str());
  const bool made = PQresultStatus(result) == PGRES_COMMAND_OK;
  const std::string text = PQerrorMessage(connection);
  PQclear(result);
  PQfinish(connection);
  if (!made) throw std::runtime_error("The PostgreSQL server made no database: " + text);
  return Address(name);
}

PostgresServer& PostgresServer::Shared() {
  static PostgresServer server(Use::Tests);
  return server;
}

}  // namespace kiv::test
