// What is dragged onto a list of ECPs or cells: the list never takes what its rules forbid, and says so.

#include <set>

#include "editor/dd_list_view.h"
#include "fuzz/studies.h"
#include "fuzz/target.h"

using namespace kiv;
using namespace kiv::fuzz;

namespace {

std::vector<host::DraggedNode> Nodes(Input& input) {
  std::vector<host::DraggedNode> nodes;
  for (std::size_t count = input.Below(12); count > 0; --count) {
    host::DraggedNode& node = nodes.emplace_back();
    const std::size_t key = input.Below(4);
    node.key = key == 0 ? "Cell:1" : key == 1 ? "ECP:2" : key == 2 ? "cell:" : input.Line();
    for (std::int32_t* number : {&node.systemId, &node.ecpId, &node.cellId, &node.instanceId}) {
      *number = input.Number();
    }
  }
  return nodes;
}

void CheckList(const XDDListView& list) {
  std::set<std::string> keys;
  for (const auto& entity : *list.TheCollection()) {
    Require(keys.insert(entity->Key()).second, "nothing is there twice", entity->Key());
  }
  Require(list.RowCount() == keys.size(), "all is shown");
  Require(list.LimitFault().empty(), "no drop goes beyond a limit", list.LimitFault());
}

void Work(XDDListView& list, Input& input, test::FakeHost& host) {
  host.messages->shown.clear();
  const auto before = list.TheCollection()->Count();
  switch (input.Below(8)) {
    case 0: list.ChooseMenuItem(input.Below(4)); break;
    case 1: list.PressDelete(); break;
    case 2: list.ClickHeader(input.Number()); break;
    case 3: list.SelectPositions({input.Below(5), input.Below(5)}); break;
    default: {
      host.dragSource->nodes = Nodes(input);
      list.Drop({{host.dragSource->RegisterFormat(host::kConfigEntityTreeFormat)}});
      const auto count = static_cast<std::int32_t>(host.dragSource->nodes.size());
      const auto taken = list.TheCollection()->Count() - before;
      Require(taken == count || !host.messages->shown.empty(), "what is refused is told");
    }
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  test::FakeHost& host = TheHost();
  Input input(data, size);
  XDDListView list(nullptr, "list");
  list.SetEntityType(static_cast<EntityType>(1 + input.Below(3)));
  list.SetMaxRows(static_cast<std::int32_t>(input.Below(6)));
  list.SetUsePopupMenu(true);
  list.SetMultiSelect(input.Choice());
  list.SetTheCollection(std::make_shared<EntityCollection>());
  while (!input.Empty()) {
    Work(list, input, host);
    CheckList(list);
  }
  return 0;
}
