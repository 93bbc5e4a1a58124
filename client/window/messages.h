#pragma once

#include <exception>
#include <string>

namespace kiv::client {

/// Shows the user a message with an OK button.
void Tell(const std::string& text);

/// Tells the user what failed and what to do about it.
void TellFailure(const std::exception& failure);

}  // namespace kiv::client
