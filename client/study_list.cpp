#include "client/study_list.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSettings>
#include <QTableView>
#include <algorithm>
#include <array>
#include <utility>

#include "client/cut_text_tips.h"
#include "client/kind_icon.h"
#include "client/local_time.h"

namespace kiv::client {

namespace {

constexpr const char* kColumnsKey = "StudyList/Columns";

QString CellText(const StudySummary& study, int column) {
  switch (column) {
    case StudyTable::kId: return QString::number(study.id);
    case StudyTable::kKind: return QString::fromStdString(study.kind);
    case StudyTable::kName: return QString::fromStdString(study.name);
    case StudyTable::kScenario: return QString::fromStdString(study.scenario);
    case StudyTable::kMinutes:
      return study.duration == CKivStudyData::kNotGiven ? QString() : QString::number(study.duration);
    case StudyTable::kChangedBy: return QString::fromStdString(study.modifiedBy);
    default: return QString::fromStdString(LocalTimeText(study.modifiedAt));
  }
}

bool IsNumber(int column) {
  return column == StudyTable::kId || column == StudyTable::kMinutes;
}

}  // namespace

void StudyTable::SetStudies(std::vector<StudySummary> studies) {
  beginResetModel();
  studies_ = std::move(studies);
  searchTexts_.clear();
  searchTexts_.reserve(studies_.size());
  for (const StudySummary& study : studies_) {
    searchTexts_.push_back(QString::fromStdString(std::to_string(study.id) + "\n" + study.kind + "\n" +
                                                  study.name + "\n" + study.scenario + "\n" +
                                                  study.modifiedBy)
                               .toLower());
  }
  endResetModel();
}

int StudyTable::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(studies_.size());
}

int StudyTable::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumnCount;
}

QVariant StudyTable::data(const QModelIndex& index, int role) const {
  const StudySummary& study = studies_[static_cast<std::size_t>(index.row())];
  if (role == Qt::DisplayRole) return CellText(study, index.column());
  if (role == Qt::DecorationRole && index.column() == kKind) return KindIcon(study.kind);
  if (role == Qt::TextAlignmentRole && IsNumber(index.column())) {
    return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
  }
  return {};
}

QVariant StudyTable::headerData(int section, Qt::Orientation orientation, int role) const {
  static const std::array<QString, kColumnCount> captions = {
      QStringLiteral("ID"),        QStringLiteral("Kind"),    QStringLiteral("Name"),
      QStringLiteral("Scenario"),  QStringLiteral("Minutes"), QStringLiteral("Changed by"),
      QStringLiteral("Changed at")};
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return captions[static_cast<std::size_t>(section)];
}

StudyFilter::StudyFilter(StudyTable& table) : table_(table) {
  setSourceModel(&table);
}

void StudyFilter::SetWords(const QString& text) {
  words_ = text.toLower().split(QLatin1Char(' '), Qt::SkipEmptyParts);
  invalidateFilter();
}

bool StudyFilter::filterAcceptsRow(int row, const QModelIndex&) const {
  const QString& text = table_.SearchText(row);
  return std::all_of(words_.begin(), words_.end(),
                     [&text](const QString& word) { return text.contains(word); });
}

bool StudyFilter::lessThan(const QModelIndex& left, const QModelIndex& right) const {
  const StudySummary& first = table_.Studies()[static_cast<std::size_t>(left.row())];
  const StudySummary& second = table_.Studies()[static_cast<std::size_t>(right.row())];
  switch (left.column()) {
    case StudyTable::kId: return first.id < second.id;
    case StudyTable::kMinutes: return first.duration < second.duration;
    case StudyTable::kChangedAt: return first.modifiedAt < second.modifiedAt;
    default:
      return CellText(first, left.column()).compare(CellText(second, left.column()), Qt::CaseInsensitive) < 0;
  }
}

StudyListPage::StudyListPage(QWidget* parent)
    : QWidget(parent),
      filter_(table_),
      filterBox_(new QLineEdit(this)),
      view_(new QTableView(this)),
      count_(new QLabel(this)) {
  auto* label = new QLabel(QStringLiteral("Fi&nd:"), this);
  label->setBuddy(filterBox_);
  filterBox_->setPlaceholderText(QStringLiteral("words of the name, kind, scenario or user"));
  filterBox_->setAccessibleName(QStringLiteral("Find studies"));
  filterBox_->setClearButtonEnabled(true);

  view_->setObjectName(QStringLiteral("studies"));
  view_->setAccessibleName(QStringLiteral("Studies"));
  view_->setModel(&filter_);
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
                                                                     "RF Call Trace Study",
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

  connect(filterBox_, &QLineEdit::textChanged, this, [this](const QString& text) {
    filter_.SetWords(text);
    ShowCount();
  });
  connect(filterBox_, &QLineEdit::returnPressed, this, [this] { view_->setFocus(); });
  connect(view_, &QTableView::activated, this, [this] {
    if (const auto id = SelectedStudy()) StudyActivated.Raise(*id);
  });
  connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { SelectionChanged.Raise(); });
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

void StudyListPage::SetStudies(std::vector<StudySummary> studies) {
  const auto selected = SelectedStudy();
  table_.SetStudies(std::move(studies));
  if (selected) SelectStudy(*selected);
  ShowCount();
  SelectionChanged.Raise();
}

std::optional<std::int32_t> StudyListPage::SelectedStudy() const {
  const QModelIndexList rows = view_->selectionModel()->selectedRows();
  if (rows.isEmpty()) return std::nullopt;
  return table_.Studies()[static_cast<std::size_t>(filter_.mapToSource(rows.front()).row())].id;
}

QString StudyListPage::SelectedName() const {
  const QModelIndexList rows = view_->selectionModel()->selectedRows(StudyTable::kName);
  return rows.isEmpty() ? QString() : rows.front().data().toString();
}

void StudyListPage::SelectStudy(std::int32_t id) {
  const auto& studies = table_.Studies();
  const auto found = std::find_if(studies.begin(), studies.end(),
                                  [id](const StudySummary& study) { return study.id == id; });
  if (found == studies.end()) return;
  const QModelIndex index = filter_.mapFromSource(table_.index(static_cast<int>(found - studies.begin()), 0));
  if (index.isValid()) view_->setCurrentIndex(index);
}

void StudyListPage::FocusFilter() {
  filterBox_->setFocus();
  filterBox_->selectAll();
}

void StudyListPage::ShowCount() {
  const int all = table_.rowCount();
  const int shown = filter_.rowCount();
  const QString studies = all == 1 ? QStringLiteral("study") : QStringLiteral("studies");
  count_->setText(shown == all ? QStringLiteral("%L1 %2").arg(all).arg(studies)
                               : QStringLiteral("%L1 of %L2 %3").arg(shown).arg(all).arg(studies));
}

}  // namespace kiv::client
