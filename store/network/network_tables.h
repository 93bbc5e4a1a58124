#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The tables of the network configuration, as they stand in the database and in CSV files.
namespace kiv::store {

enum class NetworkTableId {
  Entities,
  Antennas,
  CarrierChannels,
  CgsaCarriers,
  CgsaCells,
  Contexts,
  Features
};
inline constexpr std::size_t kNetworkTableCount = 7;

/// What an empty value of a file means; a column that must not be empty has to be in the file.
enum class WhenEmpty { Refuse, Null, Zero, EmptyText };

struct NetworkColumn {
  enum class Kind { Number, Text };

  std::string_view name;
  Kind kind;
  WhenEmpty whenEmpty;
  std::int32_t lowest;                    ///< of a number
  std::vector<std::string_view> choices;  ///< the permitted texts; empty: any
};

/// Columns whose values no two rows share.
struct NetworkKey {
  enum class Zero { IsValue, IsUnknown };  ///< unknown values may repeat

  std::vector<std::size_t> columns;
  Zero zero = Zero::IsValue;
};

struct NetworkTable {
  NetworkTableId id;
  std::string_view name;  ///< also of its file, before ".csv"
  std::vector<NetworkColumn> columns;
  std::vector<NetworkKey> keys;
  /// The columns with the system, the ECP and perhaps the cell that a row belongs to.
  std::vector<std::size_t> place;
};

/// Positions in the tables whose rows are looked at as a whole.
namespace entity_column {
enum : std::size_t { kInstance, kKind, kParent, kSystem, kEcp, kCell, kName, kTechnology };
}
namespace context_column {
enum : std::size_t { kContext, kFullKey, kParent };
}
namespace feature_column {
enum : std::size_t { kInstance, kOmpHostName, kFirstFlag };
}

/// The kinds of an entity, in the words of the table.
inline constexpr std::string_view kSystemKind = "system";
inline constexpr std::string_view kEcpKind = "ecp";
inline constexpr std::string_view kCellKind = "cell";

/// The context in which a cell's key leads to its ECP.
inline constexpr std::int32_t kOwnerContext = 2;

/// In the order of NetworkTableId; the entities come first because the others refer to them.
const std::array<NetworkTable, kNetworkTableCount>& NetworkTables();
const NetworkTable& TableOf(NetworkTableId id);

/// Name of the file of a table.
std::string FileNameOf(const NetworkTable& table);

}  // namespace kiv::store
