#pragma once

#include <chrono>
#include <functional>

namespace kiv::database {

/// What a connection is waiting for, and for how long already.
struct Wait {
  enum class For {
    Connection,  ///< a server that is being connected to
    Answer,      ///< the end of a statement
    Lock         ///< another connection that holds the database file
  };

  For what = For::Answer;
  std::chrono::milliseconds elapsed{};
};

/// Called about every 100 ms while a connection waits; false gives up what is waited for. It must not use the
/// connection, whose calls raise DatabaseError meanwhile, nor destroy it. What it raises gives up as well and
/// comes out of the call that waits.
using WaitHandler = std::function<bool(const Wait&)>;

/// How long a statement without a limit of its own may take unless a connection is told otherwise.
inline constexpr std::chrono::seconds kStatementLimit{60};
/// The same for one that changes the tables of an older layout, which may hold many rows.
inline constexpr std::chrono::seconds kUpgradeLimit{1800};

}  // namespace kiv::database
