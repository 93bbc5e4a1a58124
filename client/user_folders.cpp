#include "client/user_folders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace kiv::client {

namespace {

std::filesystem::path HomeFolder() {
  if (const char* home = std::getenv("HOME"); home && *home != '\0') return home;
  const passwd* entry = getpwuid(geteuid());
  return entry ? entry->pw_dir : "/";
}

/// A relative path would mean another folder in each program; the rules say to take no notice of it.
std::filesystem::path Folder(const char* variable, const char* belowHome) {
  const char* value = std::getenv(variable);
  const std::filesystem::path named = value ? value : "";
  return named.is_absolute() ? named : HomeFolder() / belowHome;
}

}  // namespace

std::filesystem::path UserConfigFolder() {
  return Folder("XDG_CONFIG_HOME", ".config");
}

std::filesystem::path UserDataFolder() {
  return Folder("XDG_DATA_HOME", ".local/share");
}

}  // namespace kiv::client
