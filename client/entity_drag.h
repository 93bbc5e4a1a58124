#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/constants.h"
#include "host/drag_source.h"

namespace kiv::client {

/// Holds the entities that are being dragged out of the configuration entity tree.
class EntityDrag : public host::DragSource {
 public:
  std::vector<host::DraggedNode> DraggedNodes() const override { return nodes_; }
  std::uint16_t RegisterFormat(const std::string& name) override;
  std::optional<std::uint16_t> FindFormat(const std::string& name) const override;

  /// One drag, from its beginning to its end.
  class Scope {
   public:
    Scope(EntityDrag& drag, std::vector<host::DraggedNode> nodes) : drag_(drag) {
      drag_.nodes_ = std::move(nodes);
      // Known before any list is asked whether it takes the drag: who refuses one is not asked again.
      drag_.RegisterFormat(host::kConfigEntityTreeFormat);
    }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;
    ~Scope() { drag_.nodes_.clear(); }

   private:
    EntityDrag& drag_;
  };

 private:
  std::vector<host::DraggedNode> nodes_;
  std::map<std::string, std::uint16_t> formats_;
};

}  // namespace kiv::client
