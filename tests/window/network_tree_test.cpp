// The configuration entity tree: its model, its search, and what a user's hand does with it.

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QAction>
#include <QTest>
#include <QTreeView>

#include "client/window/entity_tree.h"
#include "support/user_hand.h"

namespace kiv::client {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

store::NetworkEntities SmallNetwork() {
  store::NetworkEntities entities;
  entities.Add({1, 0, 0}, 1, "North", "");
  entities.Add({1, 1, 0}, 11, "Harbour", "");
  entities.Add({1, 1, 7}, 117, "Mill Lane", "CDMA");
  entities.Add({1, 1, 37}, 137, "Abbey Road", "AMPS");
  entities.Add({1, 2, 0}, 12, "Castle", "");
  entities.Add({1, 2, 37}, 237, "mill gate", "AMPS/CDMA");
  entities.Add({1, 3, 5}, 135, "Of a missing ECP", "");
  entities.Add({2, 0, 0}, 2, "South 37", "");
  entities.Add({2, 1, 0}, 21, "Docks", "");
  entities.Add({2, 1, 1}, 211, "\xC3\x84gir Gate", "TDMA");
  return entities;
}

/// What is shown, from top to bottom, as paths.
std::vector<std::string> Shown(const EntityTreeModel& model, const QModelIndex& parent = {}) {
  std::vector<std::string> paths;
  for (int row = 0; row < model.rowCount(parent); ++row) {
    const QModelIndex index = model.index(row, 0, parent);
    paths.push_back(model.Entities().Path(model.EntityAt(index)).Text());
    for (std::string& below : Shown(model, index)) paths.push_back(std::move(below));
  }
  return paths;
}

std::vector<std::string> Keys(const std::vector<host::DraggedNode>& nodes) {
  std::vector<std::string> keys;
  keys.reserve(nodes.size());
  for (const host::DraggedNode& node : nodes) keys.push_back(node.key);
  return keys;
}

class TreeModel : public ::testing::Test {
 protected:
  TreeModel() { model_.SetEntities(SmallNetwork()); }

  EntityTreeModel model_;
  const QAbstractItemModelTester tester_{&model_, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(TreeModel, FindsNumbersPathsAndWords) {
  const auto found = [this](const char* text) {
    model_.SetSearch(store::EntitySearch(text));
    return Shown(model_);
  };
  EXPECT_THAT(found("  "), ElementsAre("system 1", "ECP 1-1", "cell 1-1-7", "cell 1-1-37", "ECP 1-2",
                                       "cell 1-2-37", "system 2", "ECP 2-1", "cell 2-1-1"));
  EXPECT_THAT(found("1-2-37"), ElementsAre("system 1", "ECP 1-2", "cell 1-2-37"));
  EXPECT_THAT(found("1-1"), ElementsAre("system 1", "ECP 1-1", "cell 1-1-7", "cell 1-1-37"));
  EXPECT_EQ(found("1-1-"), found("1-1"));
  // A system's name that fits brings all that belongs to it.
  EXPECT_THAT(found("37"), ElementsAre("system 1", "ECP 1-1", "cell 1-1-37", "ECP 1-2", "cell 1-2-37",
                                       "system 2", "ECP 2-1", "cell 2-1-1"));
  EXPECT_THAT(found("MILL cdma"), ElementsAre("system 1", "ECP 1-1", "cell 1-1-7", "ECP 1-2", "cell 1-2-37"));
  EXPECT_THAT(found("harbour 37"), ElementsAre("system 1", "ECP 1-1", "cell 1-1-37"));
  EXPECT_THAT(found("\xC3\xA4GIR"), ElementsAre("system 2", "ECP 2-1", "cell 2-1-1"));
  for (const char* nowhere : {"1-2-38", "gatecdma", "1-2-3-4"}) EXPECT_THAT(found(nowhere), IsEmpty());
}

TEST_F(TreeModel, SortsWithinWhatBelongsTogether) {
  model_.sort(EntityTreeModel::kName, Qt::AscendingOrder);
  EXPECT_THAT(Shown(model_), ElementsAre("system 1", "ECP 1-2", "cell 1-2-37", "ECP 1-1", "cell 1-1-37",
                                         "cell 1-1-7", "system 2", "ECP 2-1", "cell 2-1-1"));
  model_.sort(EntityTreeModel::kElement, Qt::DescendingOrder);
  EXPECT_THAT(Shown(model_), ElementsAre("system 2", "ECP 2-1", "cell 2-1-1", "system 1", "ECP 1-2",
                                         "cell 1-2-37", "ECP 1-1", "cell 1-1-37", "cell 1-1-7"));
  model_.SetSearch(store::EntitySearch("37"));
  model_.sort(EntityTreeModel::kTechnology, Qt::DescendingOrder);
  const QModelIndex cell =
      model_.index(0, EntityTreeModel::kTechnology, model_.index(0, 0, model_.index(0, 0)));
  EXPECT_EQ(cell.data().toString(), "AMPS");
  EXPECT_EQ(cell.siblingAtColumn(EntityTreeModel::kElement).data().toString(), "Cell 37");
  EXPECT_EQ(cell.data(Qt::ToolTipRole).toString(), "cell 1-1-37, Abbey Road, instance 137");
}

TEST(EntityTreeModel, IsAskedForNoMoreThanTheViewShows) {
  struct CountingModel : EntityTreeModel {
    mutable int asked = 0;
    QVariant data(const QModelIndex& index, int role) const override {
      if (role == Qt::DisplayRole) ++asked;
      return EntityTreeModel::data(index, role);
    }
  } model;
  store::NetworkEntities entities;
  entities.Add({1, 0, 0}, 1, "North", "");
  for (int ecp = 1; ecp <= 20; ++ecp) {
    entities.Add({1, ecp, 0}, ecp + 1, "Harbour", "");
    for (int cell = 1; cell <= 1000; ++cell) entities.Add({1, ecp, cell}, ecp * 10000 + cell, "Mill", "CDMA");
  }
  model.SetEntities(std::move(entities));
  QTreeView view;
  view.setUniformRowHeights(true);
  view.setModel(&model);
  view.resize(400, 400);
  view.show();
  view.expandAll();
  view.grab();
  EXPECT_GT(model.asked, 0);
  EXPECT_LT(model.asked, 500);
}

class NetworkTree : public ::testing::Test {
 protected:
  NetworkTree() {
    tree_.resize(500, 500);
    tree_.show();
    QApplication::setActiveWindow(&tree_);
    tree_.SetEntities(SmallNetwork());
    view_.expandAll();
  }

  QModelIndex IndexOf(std::int32_t instance) { return tree_.Model().RowsOf({instance}).front().topLeft(); }
  void Select(const EntityTreeModel::Instances& instances) {
    view_.selectionModel()->select(tree_.Model().RowsOf(instances), QItemSelectionModel::ClearAndSelect);
  }
  std::vector<std::string> Selected() const { return Keys(tree_.SelectedNodes()); }

  EntityDrag drag_;
  EntityTree tree_{drag_};
  QTreeView& view_ = tree_.View();
  UserHand user_{QString()};
};

TEST_F(NetworkTree, HandsOutWhatIsSelectedFromTopToBottom) {
  EXPECT_THAT(Selected(), IsEmpty());
  Select({237, 117, 137});
  EXPECT_THAT(Selected(), ElementsAre("Cell:117", "Cell:137", "Cell:237"));
  const auto node = tree_.SelectedNodes().back();
  EXPECT_EQ((std::vector{node.systemId, node.ecpId, node.cellId, node.instanceId}),
            (std::vector{1, 2, 37, 237}));
  view_.sortByColumn(EntityTreeModel::kElement, Qt::DescendingOrder);
  EXPECT_THAT(Selected(), ElementsAre("Cell:237", "Cell:137", "Cell:117"));
  Select({21, 237, 1, 12});
  EXPECT_THAT(Selected(), ElementsAre("Ecp:21", "Ecp:12"));  // the topmost is an ECP
  view_.selectionModel()->setCurrentIndex(IndexOf(237), QItemSelectionModel::NoUpdate);
  EXPECT_THAT(Selected(), ElementsAre("Cell:237"));
  Select({1});
  EXPECT_THAT(Selected(), ElementsAre("System:1"));
  EXPECT_NE(drag_.RegisterFormat("Ours"), drag_.RegisterFormat("Other"));
}

TEST_F(NetworkTree, KeepsWhatIsOpenAndSelectedOverASearchAndAnImport) {
  view_.collapseAll();
  view_.expand(IndexOf(1));
  view_.expand(IndexOf(12));
  user_.Fill("networkSearch", "37");
  EXPECT_TRUE(view_.isExpanded(IndexOf(21)));
  Select({237});
  view_.setCurrentIndex(IndexOf(237));
  user_.Fill("networkSearch", "abbey");
  EXPECT_THAT(Selected(), IsEmpty());  // what is not shown is not selected
  user_.Fill("networkSearch", "1-2-37");
  user_.Press(Qt::Key_Return);
  EXPECT_TRUE(view_.hasFocus());
  EXPECT_THAT(Selected(), ElementsAre("Cell:237"));
  user_.Fill("networkSearch", "");
  EXPECT_THAT(Selected(), ElementsAre("Cell:237"));
  EXPECT_TRUE(view_.isExpanded(IndexOf(12)));
  EXPECT_FALSE(view_.isExpanded(IndexOf(11)));
  EXPECT_FALSE(view_.isExpanded(IndexOf(2)));
  tree_.SetEntities(SmallNetwork());
  EXPECT_THAT(Selected(), ElementsAre("Cell:237"));
  EXPECT_TRUE(view_.isExpanded(IndexOf(12)));
  EXPECT_FALSE(view_.isExpanded(IndexOf(11)));
}

TEST_F(NetworkTree, AddsToAStudyByKey) {
  std::vector<std::string> added;
  const auto returnKey = [&] {
    added.clear();
    view_.setFocus();
    QTest::keyClick(&view_, Qt::Key_Return);
  };
  Select({117, 237});
  returnKey();
  EXPECT_THAT(added, IsEmpty());
  EXPECT_FALSE(view_.actions().front()->isEnabled());
  tree_.SetAddToStudy([&](const EntityTree::Nodes& nodes) { added = Keys(nodes); });
  returnKey();
  EXPECT_THAT(added, ElementsAre("Cell:117", "Cell:237"));
  view_.clearSelection();
  returnKey();
  EXPECT_THAT(added, IsEmpty());
}

}  // namespace
}  // namespace kiv::client
