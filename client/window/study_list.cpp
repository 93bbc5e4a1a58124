#include "client/window/study_list.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QTableView>
#include <algorithm>
#include <array>
#include <exception>
#include <vector>

#include "client/window/cut_text_tips.h"
#include "core/study_kinds.h"

namespace kiv::client {

namespace {

constexpr const char* kColumnsKey = "StudyList/Columns";

constexpr std::int64_t kUntilShown = 300;  // milliseconds; what takes less needs no progress bar

}  // namespace

StudyListPage::StudyListPage(Program& program, QWidget* parent)
    : QWidget(parent),
      reader_(program, table_),
      filterBox_(new QLineEdit(this)),
      view_(new QTableView(this)),
      count_(new QLabel(this)),
      reading_(new QWidget(this)),
      readSoFar_(new QLabel(reading_)),
      progress_(new QProgressBar(reading_)),
      stop_(new QPushButton(reading_)) {
  auto* label = new QLabel(QStringLiteral("Fi&nd:"), this);
  label->setBuddy(filterBox_);
  filterBox_->setPlaceholderText(QStringLiteral("words of the name, kind, scenario or user"));
  filterBox_->setAccessibleName(QStringLiteral("Find studies"));
  filterBox_->setClearButtonEnabled(true);

  view_->setObjectName(QStringLiteral("studies"));
  view_->setAccessibleName(QStringLiteral("Studies"));
  view_->setModel(&table_);
  view_->setSelectionBehavior(QAbstractItemView::SelectRows);
  view_->setSelectionMode(QAbstractItemView::SingleSelection);
  view_->setTabKeyNavigation(false);
  view_->setShowGrid(false);
  view_->setAlternatingRowColors(true);
  view_->setContextMenuPolicy(Qt::ActionsContextMenu);
  view_->verticalHeader()->hide();
  view_->verticalHeader()->setDefaultSectionSize(view_->fontMetrics().height() * 3 / 2);
  view_->horizontalHeader()->setHighlightSections(false);
  view_->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
  view_->setSortingEnabled(true);
  view_->sortByColumn(StudyTable::kId, Qt::AscendingOrder);
  // Widths by typical contents; measuring every row would make a long list slow to open.
  const auto widthOf = [this](const char* text) {
    return view_->fontMetrics().horizontalAdvance(QLatin1String(text)) + 24;
  };
  const std::array<const char*, StudyTable::kColumnCount> typical = {"100000",
                                                                     kRfcStudy.data(),
                                                                     "A study of the handoffs downtown",
                                                                     "Downtown at night",
                                                                     "Minutes",
                                                                     "Changed by me",
                                                                     "31.12.2026 23:59:59"};
  for (int column = 0; column < StudyTable::kColumnCount; ++column) {
    const int icon = column == StudyTable::kKind ? 24 : 0;
    view_->setColumnWidth(column, widthOf(typical[static_cast<std::size_t>(column)]) + icon);
  }
  leastNameWidth_ = view_->columnWidth(StudyTable::kName);
  view_->horizontalHeader()->setMinimumSectionSize(widthOf("Minutes"));
  view_->setItemDelegate(new CutTextTips(view_));
  view_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);

  auto* top = new QHBoxLayout;
  top->addWidget(label);
  top->addWidget(filterBox_, 1);
  top->addWidget(count_);
  auto* all = new QVBoxLayout(this);
  all->addLayout(top);
  all->addWidget(view_);
  AddReading(*all);

  connect(filterBox_, &QLineEdit::textChanged, this, [this](const QString& text) { table_.SetWords(text); });
  connect(filterBox_, &QLineEdit::returnPressed, this, [this] { view_->setFocus(); });
  connect(view_, &QTableView::activated, this, [this] {
    if (const auto id = SelectedStudy()) StudyActivated.Raise(*id);
  });
  connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { SelectionChanged.Raise(); });
  connect(&table_, &QAbstractItemModel::modelAboutToBeReset, this, [this] { SavePlace(); });
  connect(&table_, &QAbstractItemModel::modelReset, this, [this] { RestorePlace(); });
  connect(&table_, &QAbstractItemModel::rowsInserted, this, [this] { ShowCount(); });
}

/// Below the list, so that no row moves when it comes or goes.
void StudyListPage::AddReading(QVBoxLayout& page) {
  readSoFar_->setObjectName(QStringLiteral("studiesRead"));
  progress_->setTextVisible(false);
  progress_->setAccessibleName(QStringLiteral("Studies read"));
  stop_->setObjectName(QStringLiteral("studiesStop"));
  auto* row = new QHBoxLayout(reading_);
  row->setContentsMargins({});
  row->addWidget(readSoFar_);
  row->addWidget(progress_, 1);
  row->addStretch();
  row->addWidget(stop_);
  page.addWidget(reading_);
  reading_->hide();
  connect(stop_, &QPushButton::clicked, this, [this] {
    if (reader_.CurrentState() == StudyReader::State::Reading) return reader_.Stop();
    try {
      reader_.Start();
    } catch (const std::exception& error) {
      reader_.Failed.Raise(error);  // not through the toolkit, which would lose track of the click
    }
  });
  reader_.Progressed.Connect([this] { ShowReading(); });
}

void StudyListPage::ShowReading() {
  const StudyReader::State state = reader_.CurrentState();
  const bool reads = state == StudyReader::State::Reading;
  if (state == StudyReader::State::Complete && stop_->hasFocus()) view_->setFocus();
  reading_->setVisible(state == StudyReader::State::Stopped || (reads && reader_.Elapsed() > kUntilShown));
  progress_->setVisible(reads);
  progress_->setMaximum(static_cast<int>(reader_.TotalCount()));
  progress_->setValue(static_cast<int>(reader_.ReadCount()));
  stop_->setText(reads ? QStringLiteral("St&op") : QStringLiteral("&Refresh"));
  const QString place =
      QStringLiteral("%L1 of %L2 studies").arg(reader_.ReadCount()).arg(reader_.TotalCount());
  if (reads) {
    readSoFar_->setText(QStringLiteral("Reading: ") + place);
  } else if (reader_.TotalCount() == 0) {
    readSoFar_->setText(QStringLiteral("The studies were not read; Refresh tries again."));
  } else {
    readSoFar_->setText(QStringLiteral("Stopped at %1; Refresh reads all.").arg(place));
  }
}

void StudyListPage::RestoreColumns(const QSettings& settings) {
  view_->horizontalHeader()->restoreState(settings.value(QLatin1String(kColumnsKey)).toByteArray());
}

void StudyListPage::SaveColumns(QSettings& settings) const {
  settings.setValue(QLatin1String(kColumnsKey), view_->horizontalHeader()->saveState());
}

void StudyListPage::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  layout()->activate();
  const int others = view_->horizontalHeader()->length() - view_->columnWidth(StudyTable::kName);
  view_->setColumnWidth(StudyTable::kName, std::max(leastNameWidth_, view_->viewport()->width() - others));
}

void StudyListPage::ForgetStudies() {
  reader_.Stop();
  reading_->hide();
  table_.Clear();
}

void StudyListPage::Update(std::int32_t id, const std::optional<store::StudySummary>& study) {
  table_.Replace(id, id, study ? std::vector{*study} : std::vector<store::StudySummary>());
}

QModelIndex StudyListPage::SelectedRow() const {
  const QItemSelectionModel& selection = *view_->selectionModel();
  const QModelIndex current = selection.currentIndex();
  if (selection.isSelected(current)) return current;
  const QModelIndexList rows = selection.selectedRows();
  return rows.isEmpty() ? QModelIndex() : rows.front();
}

std::optional<std::int32_t> StudyListPage::SelectedStudy() const {
  const QModelIndex row = SelectedRow();
  return row.isValid() ? std::optional(table_.At(row.row()).id) : std::nullopt;
}

QString StudyListPage::SelectedName() const {
  const QModelIndex row = SelectedRow();
  return row.isValid() ? QString::fromStdString(table_.At(row.row()).name) : QString();
}

void StudyListPage::SelectStudy(std::int32_t id) {
  const auto row = table_.RowOf(id);
  if (!row) return;
  // Whatever keys are held down, such as those of a shortcut that saves.
  view_->selectionModel()->setCurrentIndex(table_.index(*row, 0),
                                           QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void StudyListPage::SavePlace() {
  selectedBefore_.clear();
  for (const QModelIndex& row : view_->selectionModel()->selectedRows()) {
    selectedBefore_.insert(table_.At(row.row()).id);
  }
  currentBefore_ = SelectedStudy();
  const int top = view_->rowAt(0);
  // Who looks at the beginning goes on looking at the beginning.
  topBefore_ = top > 0 ? std::optional(table_.At(top).id) : std::nullopt;
}

void StudyListPage::RestorePlace() {
  if (currentBefore_) SelectStudy(*currentBefore_);
  if (selectedBefore_.size() > 1) view_->selectionModel()->select(RowsBefore(), QItemSelectionModel::Select);
  if (const auto top = topBefore_ ? table_.RowOf(*topBefore_) : std::nullopt) {
    view_->scrollTo(table_.index(*top, 0), QAbstractItemView::PositionAtTop);
  }
  ShowCount();
  SelectionChanged.Raise();
}

void StudyListPage::FocusFilter() {
  filterBox_->setFocus();
  filterBox_->selectAll();
}

/// Where the studies are that were selected before. Neighbours make one range: a selection of thousands of
/// ranges would be slow.
QItemSelection StudyListPage::RowsBefore() const {
  QItemSelection rows;
  const auto selected = [this](int row) { return selectedBefore_.contains(table_.At(row).id); };
  for (int row = 0; row < table_.rowCount(); ++row) {
    if (!selected(row)) continue;
    const int from = row;
    while (row + 1 < table_.rowCount() && selected(row + 1)) ++row;
    rows.select(table_.index(from, 0), table_.index(row, StudyTable::kColumnCount - 1));
  }
  return rows;
}

void StudyListPage::ShowCount() {
  const int shown = table_.rowCount();
  const auto all = static_cast<int>(table_.Count());
  const QString studies = all == 1 ? QStringLiteral("study") : QStringLiteral("studies");
  count_->setText(shown == all ? QStringLiteral("%L1 %2").arg(all).arg(studies)
                               : QStringLiteral("%L1 of %L2 %3").arg(shown).arg(all).arg(studies));
}

}  // namespace kiv::client
