#include "support/postgres_server.h"

#include <fcntl.h>
#include <grp.h>
#include <libpq-fe.h>
#include <netinet/in.h>
#include <poll.h>
#include <pwd.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>
#include <thread>
#include <vector>

namespace kiv::test {

namespace {

using namespace std::chrono_literals;

constexpr auto kLongestStart = 60s;
constexpr auto kLongestLife = 10min;
constexpr auto kLongestStop = 10s;

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

/// The server refuses to run as root.
void GiveUpRoot() {
  if (geteuid() != 0) return;
  const passwd* user = getpwnam("postgres");
  if (!user) user = getpwnam("nobody");
  if (!user || setgroups(0, nullptr) != 0 || setgid(user->pw_gid) != 0 || setuid(user->pw_uid) != 0) _exit(1);
}

/// Starts a program as an ordinary user; its output goes to the log.
pid_t StartProgram(const std::vector<std::string>& command, const std::string& folder) {
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (const std::string& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  const pid_t child = fork();
  if (child != 0) return child;
  GiveUpRoot();
  prctl(PR_SET_PDEATHSIG, SIGQUIT);
  const int log = open((folder + "/log").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0666);
  dup2(log, STDOUT_FILENO);
  dup2(log, STDERR_FILENO);
  if (chdir(folder.c_str()) != 0) _exit(1);
  execv(arguments[0], arguments.data());
  _exit(1);
}

bool Ends(pid_t child, std::chrono::milliseconds limit) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (waitpid(child, nullptr, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(5ms);
  }
  return true;
}

/// The process between the program and its server: it outlives a crash of the program just long enough to
/// stop the server and to remove the folder.
void Keep(const std::vector<std::string>& initdb, const std::vector<std::string>& postgres,
          const std::string& folder, int lifeline) {
  setsid();
  if (!Ends(StartProgram(initdb, folder), kLongestStart)) _exit(1);
  const pid_t server = StartProgram(postgres, folder);
  pollfd end = {lifeline, POLLIN, 0};
  poll(&end, 1, static_cast<int>(std::chrono::milliseconds(kLongestLife).count()));
  kill(server, SIGQUIT);
  if (!Ends(server, kLongestStop)) kill(server, SIGKILL);
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
  _exit(0);
}

}  // namespace

PostgresServer::PostgresServer(Use use) : port_(use == Use::Measurements ? FreePort() : 0) {
  const std::filesystem::path programs = ProgramFolder();
  std::string pattern = std::filesystem::temp_directory_path() / "kiv-pg-XXXXXX";
  if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary folder");
  folder_ = pattern;
  std::filesystem::permissions(folder_, std::filesystem::perms::all);
  const std::string data = folder_ / "data";
  const std::vector<std::string> initdb = {
      programs / "initdb", "-D", data, "-U", "kiv", "-A", "trust", "--no-sync", "-E", "UTF8",
      "--locale=C.UTF-8"};
  std::vector<std::string> postgres = {programs / "postgres", "-D", data, "-k", folder_};
  if (use == Use::Measurements) {
    postgres.insert(postgres.end(), {"-h", "127.0.0.1", "-p", std::to_string(port_)});
  } else {
    postgres.insert(postgres.end(), {"-h", "", "-F"});
  }

  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  keeper_ = fork();
  if (keeper_ == 0) {
    close(ends[1]);
    Keep(initdb, postgres, folder_, ends[0]);
  }
  close(ends[0]);
  lifeline_ = ends[1];
  WaitUntilReady();
}

PostgresServer::~PostgresServer() {
  close(lifeline_);
  waitpid(keeper_, nullptr, 0);
}

void PostgresServer::WaitUntilReady() {
  const auto end = std::chrono::steady_clock::now() + kLongestStart;
  while (PQping(Address("postgres").c_str()) != PQPING_OK) {
    if (std::chrono::steady_clock::now() > end || waitpid(keeper_, nullptr, WNOHANG) != 0) {
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
