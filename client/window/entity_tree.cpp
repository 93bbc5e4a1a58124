#include "client/window/entity_tree.h"

#include <QAction>
#include <QDrag>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QStackedWidget>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

#include "host/constants.h"

namespace kiv::client {

namespace {

/// More cells than this are not opened all at once after a search; nobody reads them all.
constexpr std::size_t kMostCellsOpened = 2000;

QString CountText(std::size_t count, const QString& one) {
  return QStringLiteral("%L1 %2").arg(count).arg(count == 1 ? one : one + QLatin1Char('s'));
}

/// A small label under the mouse pointer that says what is dragged.
QPixmap DragPicture(const QString& text, const QWidget& widget) {
  const QSize size = widget.fontMetrics().size(Qt::TextSingleLine, text) + QSize(12, 6);
  QPixmap picture(size * widget.devicePixelRatio());
  picture.setDevicePixelRatio(widget.devicePixelRatio());
  picture.fill(widget.palette().color(QPalette::Highlight));
  QPainter painter(&picture);
  painter.setFont(widget.font());
  painter.setPen(widget.palette().color(QPalette::HighlightedText));
  painter.drawText(QRect(QPoint(), size), Qt::AlignCenter, text);
  return picture;
}

}  // namespace

/// Leaves the drag to the tree.
class EntityTree::DragView : public QTreeView {
 public:
  explicit DragView(EntityTree& tree) : QTreeView(&tree), tree_(tree) {}

 protected:
  void startDrag(Qt::DropActions) override { tree_.DragSelection(); }

 private:
  EntityTree& tree_;
};

EntityTree::EntityTree(EntityDrag& drag, QWidget* parent)
    : QWidget(parent),
      drag_(drag),
      pages_(new QStackedWidget(this)),
      search_(new QLineEdit(this)),
      view_(new DragView(*this)),
      count_(new QLabel(this)),
      emptyText_(new QLabel(this)),
      import_(new QPushButton(QStringLiteral("Import Network..."), this)),
      add_(new QAction(QStringLiteral("Add to Study"), this)) {
  pages_->addWidget(MakeTreePage());
  pages_->addWidget(MakeEmptyPage());
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins({});
  all->addWidget(pages_);
  AddActions();

  connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) { Search(text); });
  connect(search_, &QLineEdit::returnPressed, this, [this] { GoToFound(); });
  connect(&model_, &QAbstractItemModel::modelAboutToBeReset, this, [this] { SaveState(); });
  connect(&model_, &QAbstractItemModel::modelReset, this, [this] { RestoreState(); });
  connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { ShowActions(); });
  ShowNoDatabase();
}

QWidget* EntityTree::MakeTreePage() {
  search_->setObjectName(QStringLiteral("networkSearch"));
  search_->setPlaceholderText(QStringLiteral("1-2-37, or words of the name"));
  search_->setAccessibleName(QStringLiteral("Find in the network"));
  search_->setClearButtonEnabled(true);

  view_->setObjectName(QStringLiteral("network"));
  view_->setAccessibleName(QStringLiteral("Network"));
  view_->setModel(&model_);
  view_->setUniformRowHeights(true);
  view_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  view_->setDragEnabled(true);
  view_->setDragDropMode(QAbstractItemView::DragOnly);
  view_->setContextMenuPolicy(Qt::ActionsContextMenu);
  view_->setSortingEnabled(true);
  view_->sortByColumn(EntityTreeModel::kElement, Qt::AscendingOrder);
  // Widths by typical contents; measuring every row would make a large network slow to open.
  const auto widthOf = [this](const char* text) {
    return view_->fontMetrics().horizontalAdvance(QLatin1String(text)) + 24;
  };
  view_->setColumnWidth(EntityTreeModel::kElement, widthOf("Cell 1000") + 2 * view_->indentation());
  view_->setColumnWidth(EntityTreeModel::kTechnology, widthOf("AMPS/CDM"));
  view_->header()->setStretchLastSection(false);
  view_->header()->setSectionResizeMode(EntityTreeModel::kName, QHeaderView::Stretch);

  auto* page = new QWidget(pages_);
  auto* column = new QVBoxLayout(page);
  column->addWidget(search_);
  column->addWidget(view_, 1);
  column->addWidget(count_);
  return page;
}

QWidget* EntityTree::MakeEmptyPage() {
  emptyText_->setWordWrap(true);
  emptyText_->setObjectName(QStringLiteral("networkEmpty"));
  import_->setObjectName(QStringLiteral("networkImport"));
  connect(import_, &QPushButton::clicked, this, [this] { ImportWanted.Raise(); });
  auto* page = new QWidget(pages_);
  auto* column = new QVBoxLayout(page);
  column->addWidget(emptyText_);
  column->addWidget(import_, 0, Qt::AlignLeft);
  column->addStretch();
  return page;
}

void EntityTree::AddActions() {
  // Only where the tree has the focus: elsewhere Return means something else.
  add_->setShortcuts({QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)});
  add_->setShortcutContext(Qt::WidgetShortcut);
  view_->addAction(add_);
  connect(add_, &QAction::triggered, this, [this] { addToStudy_(SelectedNodes()); });
  connect(view_, &QTreeView::doubleClicked, this, [this](const QModelIndex& index) {
    if (model_.Entities().Kind(model_.EntityAt(index)) == store::EntityKind::Cell) add_->trigger();
  });
}

void EntityTree::SetEntities(store::NetworkEntities entities) {
  const bool empty = entities.Count() == 0;
  model_.SetEntities(std::move(entities));
  if (empty) {
    emptyText_->setText(
        QStringLiteral("The database has no network yet.\n\nStudies are defined on the ECPs and cells of the "
                       "network. Import it from a folder with its CSV files; then drag elements from here "
                       "into a study."));
  }
  import_->setVisible(empty);
  pages_->setCurrentIndex(empty ? 1 : 0);
}

void EntityTree::ShowNoDatabase() {
  SetEntities({});
  emptyText_->setText(QStringLiteral("Open a study database to see its network."));
  import_->hide();
}

std::vector<QModelIndex> EntityTree::SelectedRows() const {
  const QModelIndexList selected = view_->selectionModel()->selectedRows();
  std::vector<std::pair<std::tuple<int, int, int>, QModelIndex>> places;
  places.reserve(static_cast<std::size_t>(selected.size()));
  for (const QModelIndex& index : selected) {
    // The rows on the way down from the root; an element stands above what belongs to it.
    std::array<int, 3> rows = {-1, -1, -1};
    auto depth = static_cast<std::size_t>(model_.Entities().Kind(model_.EntityAt(index)));
    for (QModelIndex at = index; at.isValid(); at = at.parent()) rows[depth--] = at.row();
    places.emplace_back(std::tuple(rows[0], rows[1], rows[2]), index);
  }
  std::ranges::sort(places, {}, [](const auto& place) { return place.first; });
  std::vector<QModelIndex> rows;
  rows.reserve(places.size());
  for (const auto& place : places) rows.push_back(place.second);
  return rows;
}

EntityTree::Nodes EntityTree::SelectedNodes() const {
  const store::NetworkEntities& entities = model_.Entities();
  const std::vector<QModelIndex> rows = SelectedRows();
  Nodes nodes;
  if (rows.empty()) return nodes;
  const QModelIndex current = view_->currentIndex();
  const bool currentCounts = current.isValid() && view_->selectionModel()->isSelected(current);
  const store::EntityKind kind = entities.Kind(model_.EntityAt(currentCounts ? current : rows.front()));
  for (const QModelIndex& row : rows) {
    const store::NetworkEntities::Number entity = model_.EntityAt(row);
    if (entities.Kind(entity) == kind) nodes.push_back(entities.Node(entity));
  }
  return nodes;
}

void EntityTree::SetAddToStudy(std::function<void(const Nodes&)> addToStudy) {
  addToStudy_ = std::move(addToStudy);
  ShowActions();
}

void EntityTree::ShowActions() {
  add_->setEnabled(addToStudy_ && view_->selectionModel()->hasSelection());
}

void EntityTree::FocusSearch() {
  search_->setFocus();
  search_->selectAll();
}

void EntityTree::DragSelection() {
  Nodes nodes = SelectedNodes();
  if (nodes.empty()) return;
  QByteArray keys;
  for (const host::DraggedNode& node : nodes) keys += QByteArray::fromStdString(node.key) + '\n';
  auto* mimeData = new QMimeData;
  mimeData->setData(QLatin1String(host::kConfigEntityTreeFormat), keys);
  const host::DraggedNode& first = nodes.front();
  const store::EntityPath path{first.systemId, first.ecpId, first.cellId};
  const QPointer<QDrag> drag = new QDrag(this);
  drag->setMimeData(mimeData);
  drag->setPixmap(DragPicture(nodes.size() == 1 ? QString::fromStdString(path.Text())
                                                : QStringLiteral("%L1 elements").arg(nodes.size()),
                              *this));
  const EntityDrag::Scope scope(drag_, std::move(nodes));
  drag->exec(Qt::CopyAction);
  if (drag) drag->deleteLater();
}

void EntityTree::Search(const QString& text) {
  model_.SetSearch(store::EntitySearch(text.toStdString()));
}

void EntityTree::GoToFound() {
  view_->setFocus();
  if (view_->selectionModel()->hasSelection()) return;
  // Down to where the ways part.
  QModelIndex at = model_.index(0, 0);
  while (model_.rowCount(at) == 1) at = model_.index(0, 0, at);
  if (at.isValid()) view_->setCurrentIndex(at);
}

template <class Visit>
void EntityTree::VisitBranches(Visit visit) const {
  for (int i = 0; i < model_.rowCount(); ++i) {
    const QModelIndex system = model_.index(i, 0);
    visit(system);
    for (int j = 0; j < model_.rowCount(system); ++j) visit(model_.index(j, 0, system));
  }
}

void EntityTree::SaveState() {
  const auto instanceOf = [this](const QModelIndex& index) {
    return model_.Entities().Instance(model_.EntityAt(index));
  };
  state_.selected.clear();
  state_.current.clear();
  for (const QModelIndex& row : view_->selectionModel()->selectedRows()) {
    state_.selected.insert(instanceOf(row));
  }
  if (view_->currentIndex().isValid()) state_.current.insert(instanceOf(view_->currentIndex()));
  state_.searching = model_.Searching();
  // What a search opens is not what the user opened.
  if (state_.searching) return;
  state_.open.clear();
  VisitBranches([&](const QModelIndex& branch) {
    if (view_->isExpanded(branch)) state_.open.insert(instanceOf(branch));
  });
}

void EntityTree::RestoreState() {
  ShowCount();
  if (model_.Searching()) {
    const bool few = model_.ShownCount(store::EntityKind::Cell) <= kMostCellsOpened;
    few ? view_->expandAll() : view_->expandToDepth(0);
  } else {
    VisitBranches([this](const QModelIndex& branch) {
      if (state_.open.contains(model_.Entities().Instance(model_.EntityAt(branch)))) view_->expand(branch);
    });
  }
  view_->selectionModel()->select(model_.RowsOf(state_.selected), QItemSelectionModel::ClearAndSelect);
  const QItemSelection current = model_.RowsOf(state_.current);
  if (current.isEmpty()) return;
  view_->selectionModel()->setCurrentIndex(current.front().topLeft(), QItemSelectionModel::NoUpdate);
  if (state_.searching && !model_.Searching()) view_->scrollTo(view_->currentIndex());
}

void EntityTree::ShowCount() {
  const std::size_t cells = model_.ShownCount(store::EntityKind::Cell);
  if (!model_.Searching()) {
    count_->setText(CountText(model_.ShownCount(store::EntityKind::System), QStringLiteral("system")) +
                    QStringLiteral(", ") +
                    CountText(model_.ShownCount(store::EntityKind::Ecp), QStringLiteral("ECP")) +
                    QStringLiteral(", ") + CountText(cells, QStringLiteral("cell")));
  } else if (model_.ShownCount(store::EntityKind::System) == 0) {
    count_->setText(QStringLiteral("Nothing found"));
  } else {
    count_->setText(CountText(cells, QStringLiteral("cell")) + QStringLiteral(" found"));
  }
}

}  // namespace kiv::client
