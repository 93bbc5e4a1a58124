#pragma once

#include <string>
#include <string_view>

namespace kiv::database {

/// Whether a database is named by the address of a PostgreSQL database; else it is a file.
bool IsPostgresUrl(std::string_view name);

/// An address as it can be shown: without the passwords in it.
std::string WithoutPassword(const std::string& url);

}  // namespace kiv::database
