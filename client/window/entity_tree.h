#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "base/signal.h"
#include "client/entity_drag.h"
#include "client/window/entity_tree_model.h"

class QAction;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;
class QTreeView;

namespace kiv::client {

/// The configuration entity tree: the stored network with a search box, to drag systems, ECPs and cells from.
class EntityTree : public QWidget {
 public:
  using Nodes = std::vector<host::DraggedNode>;

  explicit EntityTree(EntityDrag& drag, QWidget* parent = nullptr);

  /// Shows a network; what was open or selected stays so where it still exists.
  void SetEntities(store::NetworkEntities entities);
  /// Shows that there is no database to read a network from.
  void ShowNoDatabase();

  /// The selected elements from top to bottom. Where different kinds are selected, those of the kind of the
  /// current one: a list takes elements of one kind.
  Nodes SelectedNodes() const;
  /// What "Add to Study" does with the selected elements; nothing when there is no study to add to.
  void SetAddToStudy(std::function<void(const Nodes&)> addToStudy);

  void FocusSearch();
  QTreeView& View() const { return *view_; }
  EntityTreeModel& Model() { return model_; }

  /// Drags the selected elements until they are dropped or the drag is given up.
  void DragSelection();

  /// The user wants to import a network.
  Signal<> ImportWanted;

 private:
  class DragView;
  /// What is selected, current and open, by instance.
  struct State {
    EntityTreeModel::Instances selected;
    EntityTreeModel::Instances current;  ///< none or one
    EntityTreeModel::Instances open;
    bool searching = false;
  };

  void AddActions();
  QWidget* MakeEmptyPage();
  QWidget* MakeTreePage();
  void Search(const QString& text);
  void GoToFound();
  template <class Visit>
  void VisitBranches(Visit visit) const;
  void SaveState();
  void RestoreState();
  void ShowCount();
  void ShowActions();
  std::vector<QModelIndex> SelectedRows() const;

  EntityDrag& drag_;
  std::function<void(const Nodes&)> addToStudy_;
  State state_;
  QStackedWidget* pages_;
  QLineEdit* search_;
  QTreeView* view_;
  QLabel* count_;
  QLabel* emptyText_;
  QPushButton* import_;
  QAction* add_;
  EntityTreeModel model_;  // goes first, while what its signals reach is still there
};

}  // namespace kiv::client
