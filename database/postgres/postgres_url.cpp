#include "database/postgres/postgres_url.h"

#include <algorithm>
#include <array>

namespace kiv::database {

namespace {

constexpr std::array<std::string_view, 2> kPrefixes = {"postgresql://", "postgres://"};
constexpr std::array<std::string_view, 2> kSecrets = {"password=", "sslpassword="};

std::string WithoutSecrets(std::string_view parameters) {
  std::string kept;
  while (!parameters.empty()) {
    const std::size_t end = std::min(parameters.find('&'), parameters.size());
    const std::string_view parameter = parameters.substr(0, end);
    parameters.remove_prefix(std::min(end + 1, parameters.size()));
    if (std::ranges::any_of(kSecrets, [&](std::string_view secret) { return parameter.starts_with(secret); }))
      continue;
    kept.append(kept.empty() ? "?" : "&").append(parameter);
  }
  return kept;
}

}  // namespace

bool IsPostgresUrl(std::string_view name) {
  return std::ranges::any_of(kPrefixes, [name](std::string_view prefix) { return name.starts_with(prefix); });
}

std::string WithoutPassword(const std::string& url) {
  const std::size_t question = std::min(url.find('?'), url.size());
  std::string shown = url.substr(0, question);
  const std::size_t start = shown.find("://") + 3;
  // The last one, because somebody may have forgotten to encode those of his password.
  const std::size_t at = shown.rfind('@');
  const std::size_t colon = shown.find(':', start);
  if (at != std::string::npos && colon < at) shown.erase(colon, at - colon);
  return question == url.size() ? shown : shown + WithoutSecrets(std::string_view(url).substr(question + 1));
}

}  // namespace kiv::database
