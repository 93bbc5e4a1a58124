#pragma once

#include <filesystem>

/// Where the programs of a user keep things, by the rules of the desktops (XDG base directories).
namespace kiv::client {

/// Settings: XDG_CONFIG_HOME, else ~/.config
std::filesystem::path UserConfigFolder();
/// Data: XDG_DATA_HOME, else ~/.local/share
std::filesystem::path UserDataFolder();

}  // namespace kiv::client
