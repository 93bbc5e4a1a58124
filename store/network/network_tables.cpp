#include "store/network/network_tables.h"

#include "host/constants.h"

namespace kiv::store {

namespace {

NetworkColumn Number(std::string_view name, std::int32_t lowest) {
  return {name, NetworkColumn::Kind::Number, WhenEmpty::Refuse, lowest, {}};
}

NetworkColumn OptionalNumber(std::string_view name, WhenEmpty whenEmpty) {
  return {name, NetworkColumn::Kind::Number, whenEmpty, 0, {}};
}

NetworkColumn Text(std::string_view name, WhenEmpty whenEmpty) {
  return {name, NetworkColumn::Kind::Text, whenEmpty, 0, {}};
}

NetworkColumn Choice(std::string_view name, WhenEmpty whenEmpty, std::vector<std::string_view> choices) {
  return {name, NetworkColumn::Kind::Text, whenEmpty, 0, std::move(choices)};
}

/// Readers of a flag take anything but these very letters for "no", so a file may hold nothing else.
NetworkColumn Feature(std::string_view name) {
  return Choice(name, WhenEmpty::Null, {"Y", "N"});
}

}  // namespace

const std::array<NetworkTable, kNetworkTableCount>& NetworkTables() {
  static const std::array<NetworkTable, kNetworkTableCount> tables = {{
      {NetworkTableId::Entities,
       "kiv_network",
       {Number("instance_id", 1), Choice("kind", WhenEmpty::Refuse, {kSystemKind, kEcpKind, kCellKind}),
        OptionalNumber("parent_instance_id", WhenEmpty::Null), Number("system_id", 1),
        OptionalNumber("ecp_id", WhenEmpty::Zero), OptionalNumber("cell_id", WhenEmpty::Zero),
        Text("name", WhenEmpty::Refuse), Text("technology", WhenEmpty::EmptyText)},
       {{{0}}, {{3, 4, 5}}},
       {}},
      {NetworkTableId::Antennas,
       "luc_cfg_ceqsu2",
       {Number("Instance_Id", 0), Number("system_id", 1), Number("ecp", 1), Number("cell", 1),
        Number("rfpi", 0), Choice("dsetup", WhenEmpty::Refuse, {"y", "n"})},
       {{{1, 2, 3, 4}}, {{0}, NetworkKey::Zero::IsUnknown}},
       {1, 2, 3}},
      {NetworkTableId::CarrierChannels,
       "luc_cfg_cdma_car_chans",
       {Number("cdma_carr_id", 1), Number("system_id", 1), Number("ecp", 1), Number("cell", 1),
        Number("keyid", 1)},
       {{{1, 2, 3, 4}}},
       {1, 2, 3}},
      {NetworkTableId::CgsaCarriers,
       "luc_cfg_cgsa_cdma_cars",
       {Number("carrier_no", 1), Number("system_id", 1), Number("ecp", 1), Number("cgsano", 1)},
       {{{1, 2, 3, 0}}},
       {1, 2}},
      {NetworkTableId::CgsaCells,
       "luc_cfg_cgsa_cell_list",
       {Number("system_id", 1), Number("ecp", 1), Number("cgsano", 1), Number("cell", 1)},
       {{{0, 1, 2, 3}}},
       {0, 1, 3}},
      {NetworkTableId::Contexts,
       "vzn_instance_context",
       {Number("context_id", 1), Text("fullkey", WhenEmpty::Refuse), Number("ParentInstance_Id", 1)},
       {{{1, 0}}},
       {}},
      {NetworkTableId::Features,
       "KIV_FAF",
       {Number("InstanceId", 1), Text("OmpHostName", WhenEmpty::Null), Feature(host::feature::kF121),
        Feature(host::feature::kF161), Feature(host::feature::kF276), Feature(host::feature::kF297),
        Feature(host::feature::kF368), Feature(host::feature::kF430), Feature(host::feature::kF465),
        Feature(host::feature::kF545), Feature(host::feature::kF559)},
       {{{0}}},
       {}},
  }};
  return tables;
}

const NetworkTable& TableOf(NetworkTableId id) {
  return NetworkTables()[static_cast<std::size_t>(id)];
}

std::string FileNameOf(const NetworkTable& table) {
  return std::string(table.name) + ".csv";
}

}  // namespace kiv::store
