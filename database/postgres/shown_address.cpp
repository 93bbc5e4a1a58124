#include "database/postgres/shown_address.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "base/ascii.h"
#include "database/open_error.h"
#include "database/postgres/libpq.h"
#include "database/server_address.h"

namespace kiv::database {

namespace {

/// A password with an @ or a / as it stands is taken for the server and what follows it.
bool IsMisread(std::string_view address) {
  const std::size_t scheme = address.find("://");
  if (scheme == std::string_view::npos) return false;
  address.remove_prefix(scheme + 3);
  const std::string_view server = address.substr(0, address.find('/'));
  return server.find(':') != std::string_view::npos && address.rfind('@') != server.find('@');
}

bool IsPlain(char character) {
  return IsAsciiLetter(character) || IsAsciiDigit(character) || character == '.' || character == '-';
}

std::string Encoded(std::string_view text, std::string_view alsoKept = "/:,") {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string encoded;
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    // Letters of other languages stay readable.
    if (IsPlain(character) || character == '_' || byte >= 0x80 || alsoKept.find(character) != alsoKept.npos) {
      encoded += character;
    } else {
      encoded.append(1, '%').append(1, kDigits[byte / 16]).append(1, kDigits[byte % 16]);
    }
  }
  return encoded;
}

/// A parsed address; an option that it does not name has no value.
class Options {
 public:
  /// Raises OpenError; not with the library's own words, which might repeat a password.
  explicit Options(const std::string& address)
      : options_(address.find('\0') == std::string::npos ? Pq().PQconninfoParse(address.c_str(), nullptr)
                                                         : nullptr,
                 Pq().PQconninfoFree) {
    if (!options_) throw OpenError(OpenProblem::BadAddress, kHiddenAddress);
  }

  std::string_view ValueOf(std::string_view keyword) const {
    std::string_view found;
    ForEach([&](std::string_view each, std::string_view value) {
      if (each == keyword) found = value;
    });
    return found;
  }
  /// Calls a function with each keyword and its value, but for those that are secret.
  template <class Function>
  void ForEach(const Function& function) const {
    for (const PQconninfoOption* option = options_.get(); option->keyword; ++option) {
      const bool secret = std::string_view(option->dispchar).starts_with('*');
      if (option->val && !secret) function(std::string_view(option->keyword), std::string_view(option->val));
    }
  }

 private:
  std::unique_ptr<PQconninfoOption, decltype(&::PQconninfoFree)> options_;
};

std::string Text(const Options& options) {
  std::vector<std::string_view> named = {"user", "dbname"};
  std::string shown = "postgresql://";
  if (const std::string_view user = options.ValueOf("user"); !user.empty()) shown += Encoded(user, "") + "@";
  // Folders of sockets and several servers are named behind the database.
  if (const std::string_view host = options.ValueOf("host");
      !host.empty() && std::ranges::all_of(host, IsPlain)) {
    named.insert(named.end(), {"host", "port"});
    shown += host;
    if (const std::string_view port = options.ValueOf("port"); !port.empty()) shown += ":" + Encoded(port);
  }
  shown += "/" + Encoded(options.ValueOf("dbname"));
  char separator = '?';
  options.ForEach([&](std::string_view keyword, std::string_view value) {
    if (std::ranges::find(named, keyword) != named.end()) return;
    shown.append(1, std::exchange(separator, '&')).append(keyword).append(1, '=').append(Encoded(value));
  });
  return shown;
}

}  // namespace

std::string ShownAddress(const std::string& address) {
  const Options options(address);
  if (IsMisread(address) || IsServerAddress(options.ValueOf("dbname"))) {
    throw OpenError(OpenProblem::BadAddress, kHiddenAddress,
                    "in a name or a password write %40 for @ and %2F for /");
  }
  return Text(options);
}

}  // namespace kiv::database
