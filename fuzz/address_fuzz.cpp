// Names of databases: what is an address of a server, and that no password of one is ever shown.

#include "base/ascii.h"
#include "database/open_error.h"
#include "database/postgres/shown_address.h"
#include "database/server_address.h"
#include "fuzz/target.h"

using namespace kiv;
using namespace kiv::fuzz;

namespace {

constexpr std::size_t kLongEnough = 6;  // not to stand in another part by chance

/// Empty when the address is refused.
std::string Shown(const std::string& address) {
  try {
    return database::ShownAddress(address);
  } catch (const database::OpenError& refusal) {
    Require(*refusal.what() != '\0', "a refusal says why");
    return {};
  }
}

void CheckShown(const std::string& address) {
  const std::string shown = Shown(address);
  if (shown.empty()) return;
  Require(database::IsServerAddress(shown), "what is shown is an address", shown);
  Require(Shown(shown) == shown, "what is shown names the same database", address + "\n" + shown);
}

std::string Escaped(const std::string& text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string escaped;
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    escaped.append(1, '%').append(1, kDigits[byte / 16]).append(1, kDigits[byte % 16]);
  }
  return escaped;
}

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char character : text) {
    if (character == '\'' || character == '\\') quoted += '\\';
    quoted += character;
  }
  return quoted + '\'';
}

/// Parts that are whatever they are, put together as an address should be, in either of its two forms.
void CheckParts(Input& input) {
  const bool asUrl = input.Choice();
  const std::string user = input.Line();
  const std::string password = input.Line();
  const std::string server = input.Line();
  const std::string name = input.Line();
  const std::string others = user + "|" + server + "|" + name + "|postgresql|application_name|dbname";
  const bool isPlain =
      std::ranges::all_of(password, [](char c) { return IsAsciiLetter(c) || IsAsciiDigit(c); });
  const bool isSecret =
      isPlain && password.size() >= kLongEnough && others.find(password) == std::string::npos;
  const std::string address = asUrl ? "postgresql://" + Escaped(user) + ":" + Escaped(password) + "@" +
                                          Escaped(server) + "/" + Escaped(name)
                                    : "host=" + Quoted(server) + " user=" + Quoted(user) +
                                          " password=" + Quoted(password) + " dbname=" + Quoted(name);
  Require(database::IsServerAddress(address), "an address is one", address);
  CheckShown(address);
  const std::string shown = Shown(address);
  Require(!isSecret || shown.find(password) == std::string::npos, "a password is not shown",
          address + "\n" + shown);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  if (input.Choice()) {
    CheckParts(input);
  } else {
    const std::string name = input.Rest();
    if (database::IsServerAddress(name)) CheckShown(name);
  }
  return 0;
}
