#pragma once

#include <chrono>
#include <string>

#include "database/postgres/libpq.h"
#include "database/waiting.h"

namespace kiv::database {

/// A new connection, and how long each server of its address had time for it; 0 for as long as it wants.
struct Login {
  ConnectionHandle connection;
  std::chrono::seconds limit{};
};

/// Connects to the first server of an address that answers in time. Raises PostgresError for a statement that
/// needs it. Names are looked up by the system's resolver, which has limits of its own.
Login LogIn(const std::string& address, Waiting& waiting, const std::string& sql);

}  // namespace kiv::database
