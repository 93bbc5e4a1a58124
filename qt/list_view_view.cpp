#include <QAbstractTableModel>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QHeaderView>
#include <QImage>
#include <QMenu>
#include <QMimeData>
#include <QPixmap>
#include <QPointer>
#include <QScrollBar>
#include <QTreeView>
#include <algorithm>
#include <utility>

#include "host/services.h"
#include "qt/control_views.h"
#include "qt/text.h"

namespace kiv::qt {

namespace {

constexpr int kLeastLines = 4;
constexpr int kUsualLines = 6;

/// The rows of a list as Qt asks for them; it holds none of its own. Qt may ask at any moment, also for rows
/// that are gone and after the list itself is gone.
class RowModel final : public QAbstractTableModel {
 public:
  /// `view` is the view of `list` and knows whether the list is there.
  RowModel(const ControlView& view, ui::ListView& list, std::function<void(std::size_t)> clickCheckBox)
      : view_(view), list_(list), clickCheckBox_(std::move(clickCheckBox)) {}

  void Reset() {
    beginResetModel();
    endResetModel();
  }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() || !view_.Alive() ? 0 : static_cast<int>(list_.RowCount());
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() || !view_.Alive() ? 0 : static_cast<int>(list_.Columns().size());
  }

  QVariant data(const QModelIndex& index, int role) const override {
    if (!hasIndex(index.row(), index.column())) return {};
    const auto position = static_cast<std::size_t>(index.row());
    if (role == Qt::DisplayRole) {
      return ToQt(list_.Text(position, static_cast<std::size_t>(index.column())));
    }
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(AlignmentOf(index.column()));
    if (role == Qt::CheckStateRole && HasCheckBox(index)) {
      return list_.Checked(position) ? Qt::Checked : Qt::Unchecked;
    }
    return {};
  }

  bool setData(const QModelIndex& index, const QVariant&, int role) override {
    if (role != Qt::CheckStateRole || !hasIndex(index.row(), index.column())) return false;
    clickCheckBox_(static_cast<std::size_t>(index.row()));
    return true;
  }

  Qt::ItemFlags flags(const QModelIndex& index) const override {
    if (!hasIndex(index.row(), index.column())) return Qt::NoItemFlags;
    const Qt::ItemFlags usual = QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
    return HasCheckBox(index) ? usual | Qt::ItemIsUserCheckable : usual;
  }

  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
    if (role == Qt::DisplayRole) return ToQt(list_.Columns()[static_cast<std::size_t>(section)].caption);
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(AlignmentOf(section));
    if (role == Qt::DecorationRole && section == list_.SortColumn()) return PictureOf(list_.SortImage());
    return {};
  }

 private:
  bool HasCheckBox(const QModelIndex& index) const {
    return list_.Checkboxes() && index.column() == ui::ListView::kDefaultColumn;
  }

  static QVariant PictureOf(const std::shared_ptr<const Image>& image) {
    if (!image) return {};
    QImage picture(image->width, image->height, QImage::Format_ARGB32);
    for (int y = 0; y < image->height; ++y) {
      for (int x = 0; x < image->width; ++x) picture.setPixel(x, y, image->At(x, y));
    }
    return QPixmap::fromImage(picture);
  }

  Qt::Alignment AlignmentOf(int column) const {
    const bool right = list_.Columns()[static_cast<std::size_t>(column)].alignment == ui::Alignment::Right;
    return (right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
  }

  const ControlView& view_;
  ui::ListView& list_;
  std::function<void(std::size_t)> clickCheckBox_;
};

class ListViewView final : public QTreeView, public ControlView {
 public:
  ListViewView(ui::ListView& list, QWidget* parent)
      : QTreeView(parent),
        ControlView(list, *this),
        list_(list),
        model_(*this, list,
               [this](std::size_t position) { Act([=, this] { list_.ClickCheckBox(position); }); }),
        rowsChanged_(list.RowsChanged.Connect([this] { ShowRows(); })),
        columnsChanged_(list.ColumnsChanged.Connect([this] { ShowColumns(); })),
        selectionChanged_(list.SelectionChanged.Connect([this] { ShowSelection(); })) {
    setUniformRowHeights(true);  // a long list need not be measured
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setAlternatingRowColors(true);
    setAllColumnsShowFocus(true);
    setTabKeyNavigation(false);
    setAcceptDrops(true);
    setEditTriggers(NoEditTriggers);
    header()->setSectionsClickable(true);
    header()->setSectionsMovable(false);
    setModel(&model_);
    ShowAppearance();
    ShowColumns();
    ShowRows();
    connect(header(), &QHeaderView::sectionClicked, this,
            [this](int column) { Act([=, this] { list_.ClickHeader(column); }); });
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { TakeSelection(); });
  }

  void ShowAppearance() override {
    ControlView::ShowAppearance();
    setSelectionMode(list_.MultiSelect() ? ExtendedSelection : SingleSelection);
    ShowSorting();
    if (std::exchange(checkboxes_, list_.Checkboxes()) != checkboxes_) ShowRows();
  }

  QSize sizeHint() const override {
    return {QTreeView::sizeHint().width(), header()->sizeHint().height() + LineHeight() * kUsualLines};
  }
  QSize minimumSizeHint() const override {
    return {QTreeView::minimumSizeHint().width(), header()->sizeHint().height() + LineHeight() * kLeastLines};
  }

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override {
    if (!Alive() || list_.MenuItems().empty()) return;
    const QPointer<QMenu> menu = new QMenu(this);
    for (const std::string& item : list_.MenuItems()) menu->addAction(ToQt(item));
    const QAction* chosen = menu->exec(event->globalPos());
    if (!menu) return;  // the page was closed meanwhile, and its menu with it
    const auto item = menu->actions().indexOf(chosen);
    delete menu;
    if (item >= 0) Act([=, this] { list_.ChooseMenuItem(static_cast<std::size_t>(item)); });
  }

  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Delete) {
      Act([this] { list_.PressDelete(); });
    } else {
      QTreeView::keyPressEvent(event);
    }
  }

  void dragEnterEvent(QDragEnterEvent* event) override { ShowWhetherTaken(*event); }
  void dragMoveEvent(QDragMoveEvent* event) override { ShowWhetherTaken(*event); }
  void dropEvent(QDropEvent* event) override {
    if (!ShowWhetherTaken(*event)) return;
    const ui::DragData dropped = DataOf(*event);
    Act([&] { list_.Drop(dropped); });
  }

 private:
  int LineHeight() const { return fontMetrics().height() * 4 / 3; }

  static ui::DragData DataOf(const QDropEvent& event) {
    ui::DragData dragged;
    for (const QString& format : event.mimeData()->formats()) {
      if (const auto number = host::TheDragSource().FindFormat(FromQt(format))) {
        dragged.formats.push_back(*number);
      }
    }
    return dragged;
  }

  bool ShowWhetherTaken(QDropEvent& event) {
    const bool taken = Alive() && list_.OffersDrop(DataOf(event));
    event.setDropAction(taken ? Qt::CopyAction : Qt::IgnoreAction);
    event.setAccepted(taken);
    return taken;
  }

  void ShowColumns() {
    model_.Reset();
    const int character = fontMetrics().averageCharWidth();
    const auto& columns = list_.Columns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
      setColumnWidth(static_cast<int>(i), (columns[i].width + 3) * character);
    }
    // A number at the far end of a wide list would not be read together with what stands before it.
    header()->setStretchLastSection(!columns.empty() && columns.back().alignment != ui::Alignment::Right);
  }

  void ShowSorting() {
    header()->setSortIndicatorShown(list_.SortColumn() != ui::ListView::kUnsorted && !list_.SortImage());
    header()->setSortIndicator(list_.SortColumn(), list_.Direction() == ui::SortDirection::Ascending
                                                       ? Qt::AscendingOrder
                                                       : Qt::DescendingOrder);
    header()->viewport()->update();
  }

  void ShowRows() {
    ShowSorting();
    const int top = verticalScrollBar()->value();
    const int current = currentIndex().row();
    showing_ = true;
    model_.Reset();
    verticalScrollBar()->setValue(top);
    if (current >= 0 && current < model_.rowCount()) {
      selectionModel()->setCurrentIndex(model_.index(current, 0), QItemSelectionModel::NoUpdate);
    }
    showing_ = false;
    ShowSelection();
  }

  void ShowSelection() {
    if (showing_) return;
    showing_ = true;
    const auto& rows = list_.SelectedRows();
    if (list_.MultiSelect() && rows.size() == list_.RowCount() && !rows.empty()) {
      selectAll();
    } else {
      QItemSelection selection;
      for (std::size_t position = 0; !rows.empty() && position < list_.RowCount(); ++position) {
        if (!std::binary_search(rows.begin(), rows.end(), list_.RowAt(position))) continue;
        const auto row = static_cast<int>(position);
        selection.select(model_.index(row, 0), model_.index(row, model_.columnCount() - 1));
      }
      selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    }
    showing_ = false;
  }

  void TakeSelection() {
    if (showing_) return;
    std::vector<std::size_t> positions;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
      for (int row = range.top(); row <= range.bottom(); ++row) {
        positions.push_back(static_cast<std::size_t>(row));
      }
    }
    showing_ = true;  // the list has it now as it is shown
    if (Act([&] { list_.SelectPositions(positions); })) showing_ = false;
  }

  ui::ListView& list_;
  RowModel model_;
  bool showing_ = false;
  bool checkboxes_ = false;
  ScopedConnection rowsChanged_;
  ScopedConnection columnsChanged_;
  ScopedConnection selectionChanged_;
};

}  // namespace

ControlView* MakeView(ui::ListView& control, QWidget* parent) {
  return new ListViewView(control, parent);
}

}  // namespace kiv::qt
