#include "client/window/fault_list.h"

#include <QAbstractTableModel>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTextDocument>
#include <algorithm>
#include <array>
#include <utility>

#include "client/window/plain_table.h"

namespace kiv::client {

/// Every fault as a row.
class FaultList::Table : public QAbstractTableModel {
 public:
  enum Column { kFile, kPlace, kReason, kColumnCount };

  Table(QString placeCaption, Qt::Alignment placeAlignment, QObject* parent)
      : QAbstractTableModel(parent),
        captions_{QStringLiteral("File"), std::move(placeCaption), QStringLiteral("What is wrong")},
        placeAlignment_(placeAlignment) {}

  void SetFaults(std::vector<Fault> faults) {
    beginResetModel();
    faults_ = std::move(faults);
    endResetModel();
  }
  const Fault& At(int row) const { return faults_[static_cast<std::size_t>(row)]; }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(faults_.size());
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : kColumnCount;
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role == Qt::TextAlignmentRole && index.column() == kPlace) {
      return QVariant::fromValue(placeAlignment_ | Qt::AlignVCenter);
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
    if (!hasIndex(index.row(), index.column())) return {};
    const Fault& fault = At(index.row());
    const std::array<const QString*, kColumnCount> texts = {&fault.file, &fault.place, &fault.reason};
    const QString& text = *texts[static_cast<std::size_t>(index.column())];
    return role == Qt::ToolTipRole ? Qt::convertFromPlainText(text) : text;
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    if (section < 0 || section >= kColumnCount) return {};
    return captions_[static_cast<std::size_t>(section)];
  }

 private:
  std::vector<Fault> faults_;
  std::array<QString, kColumnCount> captions_;
  Qt::Alignment placeAlignment_;
};

FaultList::FaultList(const QString& placeCaption, Qt::Alignment placeAlignment, const QString& widestFile,
                     const QString& widestPlace, QWidget* parent)
    : QTableView(parent), table_(new Table(placeCaption, placeAlignment, this)) {
  setModel(table_);
  MakePlain(*this);
  setContextMenuPolicy(Qt::ActionsContextMenu);
  horizontalHeader()->setStretchLastSection(true);
  constexpr int kMargins = 24;
  setColumnWidth(Table::kFile, fontMetrics().horizontalAdvance(widestFile) + kMargins);
  setColumnWidth(Table::kPlace, fontMetrics().horizontalAdvance(widestPlace) + kMargins);
  setMinimumHeight(fontMetrics().height() * 14);
  auto* copy = new QAction(QStringLiteral("Copy"), this);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  addAction(copy);
  connect(copy, &QAction::triggered, this, [this] { CopySelected(); });
}

void FaultList::SetFaults(std::vector<Fault> faults) {
  table_->SetFaults(std::move(faults));
}

void FaultList::keyPressEvent(QKeyEvent* event) {
  if (!event->matches(QKeySequence::Copy)) return QTableView::keyPressEvent(event);
  CopySelected();
  event->accept();
}

void FaultList::CopySelected() const {
  QModelIndexList rows = selectionModel()->selectedRows();
  std::ranges::sort(rows, {}, [](const QModelIndex& row) { return row.row(); });
  QString text;
  for (const QModelIndex& row : rows) text += table_->At(row.row()).text + QLatin1Char('\n');
  QApplication::clipboard()->setText(text);
}

void FaultList::CopyAll() const {
  QString text;
  for (int row = 0; row < table_->rowCount(); ++row) text += table_->At(row).text + QLatin1Char('\n');
  QApplication::clipboard()->setText(text);
}

}  // namespace kiv::client
