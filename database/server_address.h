#pragma once

#include <string_view>

namespace kiv::database {

/// Whether a name is the address of a server, well-formed or not, rather than a file: something with `://`,
/// or words such as `host=server dbname=studies`.
bool IsServerAddress(std::string_view name);

/// What is shown in the place of an address that could not be taken apart, because any part of it may belong
/// to a password.
constexpr const char* kHiddenAddress = "postgresql://...";

}  // namespace kiv::database
