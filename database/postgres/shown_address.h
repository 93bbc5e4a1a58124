#pragma once

#include <string>

namespace kiv::database {

/// An address as it can be shown: that of the same database, without the passwords in it. Raises OpenError
/// for one that the client library does not understand, or understands otherwise than it was meant.
std::string ShownAddress(const std::string& address);

}  // namespace kiv::database
