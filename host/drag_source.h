#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kiv::host {

/// One network element dragged from the configuration entity tree.
struct DraggedNode {
  std::string key;  ///< type word, colon and instance number, such as `Cell:4711`
  std::int32_t systemId = 0;
  std::int32_t ecpId = 0;
  std::int32_t cellId = 0;
  std::int32_t instanceId = 0;
};

/// The host's shared holder of what is being dragged.
class DragSource {
 public:
  virtual ~DragSource() = default;

  /// The nodes of the drag in progress, in drag order; empty when nothing is dragged. A host registers the
  /// format of what it drags before the drag begins.
  virtual std::vector<DraggedNode> DraggedNodes() const = 0;
  /// The number of a named drag format: the same name always gives the same number.
  virtual std::uint16_t RegisterFormat(const std::string& name) = 0;
  /// The number of a named format that was registered; nothing for any other, which stays unknown.
  virtual std::optional<std::uint16_t> FindFormat(const std::string& name) const = 0;
};

}  // namespace kiv::host
