#include "client/window/study_table.h"

#include <QIcon>
#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "client/window/kind_icon.h"
#include "store/lower_case.h"
#include "store/times.h"
#include "ui/row_order.h"

namespace kiv::client {

namespace {

QString CellText(const store::StudySummary& study, int column) {
  switch (column) {
    case StudyTable::kId: return QString::number(study.id);
    case StudyTable::kKind: return QString::fromStdString(study.kind);
    case StudyTable::kName: return QString::fromStdString(study.name);
    case StudyTable::kScenario: return QString::fromStdString(study.scenario);
    case StudyTable::kMinutes:
      return study.duration == CKivStudyData::kNotGiven ? QString() : QString::number(study.duration);
    case StudyTable::kChangedBy: return QString::fromStdString(study.modifiedBy);
    default: return QString::fromStdString(store::LocalTimeText(study.modifiedAt));
  }
}

bool IsNumber(int column) {
  return column == StudyTable::kId || column == StudyTable::kMinutes;
}

/// What the user may look for, in lower case; no word reaches from one text to the next.
std::string SearchText(const store::StudySummary& study) {
  std::string text = std::to_string(study.id);
  for (const std::string* part : {&study.kind, &study.name, &study.scenario, &study.modifiedBy}) {
    text += '\n';
    text += *part;
  }
  return store::LowerCase(text);
}

/// Replaces a part of a vector; what stands behind it moves at most once.
template <class Value>
void Splice(std::vector<Value>& all, std::size_t from, std::size_t to, std::vector<Value>&& values) {
  const std::size_t kept = std::min(to - from, values.size());
  const auto position = [&](std::size_t place) { return all.begin() + static_cast<std::ptrdiff_t>(place); };
  const auto rest =
      std::move(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(kept), position(from));
  const auto next = values.begin() + static_cast<std::ptrdiff_t>(kept);
  if (kept < values.size()) {
    all.insert(rest, std::move_iterator(next), std::move_iterator(values.end()));
  } else {
    all.erase(rest, position(to));
  }
}

}  // namespace

void StudyTable::Replace(std::int32_t first, std::int32_t last, std::vector<store::StudySummary> studies) {
  const auto begin = std::ranges::lower_bound(studies_, first, {}, &store::StudySummary::id);
  const auto end = std::ranges::upper_bound(begin, studies_.end(), last, {}, &store::StudySummary::id);
  if (std::equal(begin, end, studies.begin(), studies.end())) return;
  const auto from = static_cast<std::size_t>(begin - studies_.begin());
  const auto to = static_cast<std::size_t>(end - studies_.begin());
  const bool onlyMore = from == studies_.size() && sortColumn_ == kId && sortOrder_ == Qt::AscendingOrder;
  std::vector<std::string> texts(studies.size());
  std::ranges::transform(studies, texts.begin(), SearchText);

  if (!onlyMore) beginResetModel();
  Splice(studies_, from, to, std::move(studies));
  Splice(searchTexts_, from, to, std::move(texts));
  if (!onlyMore) {
    ShowAgain();
    endResetModel();
    return;
  }
  // The usual way in which a long list arrives; it must not disturb who is at work in it already.
  const std::vector<Place> further = PlacesWithAllWords(from);
  if (further.empty()) return;
  beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(further.size()) - 1);
  shown_.insert(shown_.end(), further.begin(), further.end());
  endInsertRows();
}

void StudyTable::Clear() {
  beginResetModel();
  studies_.clear();
  searchTexts_.clear();
  shown_.clear();
  endResetModel();
}

void StudyTable::SetWords(const QString& words) {
  beginResetModel();
  words_.clear();
  for (const QString& word : words.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
    words_.push_back(store::LowerCase(word.toStdString()));
  }
  ShowAgain();
  endResetModel();
}

void StudyTable::sort(int column, Qt::SortOrder order) {
  beginResetModel();
  sortColumn_ = column;
  sortOrder_ = order;
  ShowAgain();
  endResetModel();
}

bool StudyTable::HasAllWords(Place place) const {
  return std::ranges::all_of(words_, [text = std::string_view(searchTexts_[place])](const std::string& word) {
    return text.find(word) != std::string_view::npos;
  });
}

std::vector<StudyTable::Place> StudyTable::PlacesWithAllWords(std::size_t from) const {
  std::vector<Place> places;
  places.reserve(studies_.size() - from);
  for (auto place = static_cast<Place>(from); place < studies_.size(); ++place) {
    if (HasAllWords(place)) places.push_back(place);
  }
  return places;
}

void StudyTable::ShowAgain() {
  shown_ = PlacesWithAllWords(0);  // in the order of the memory, which makes sorting faster
  Sort();
}

void StudyTable::Sort() {
  const auto sortBy = [this](const auto& keyOf) {
    const bool ascending = sortOrder_ == Qt::AscendingOrder;
    ui::SortRows(shown_, ascending ? ui::SortDirection::Ascending : ui::SortDirection::Descending,
                 [&](Place place) { return keyOf(studies_[place]); });
  };
  switch (sortColumn_) {
    case kKind: return sortBy([](const store::StudySummary& study) { return store::LowerCase(study.kind); });
    case kName: return sortBy([](const store::StudySummary& study) { return store::LowerCase(study.name); });
    case kScenario:
      return sortBy([](const store::StudySummary& study) { return store::LowerCase(study.scenario); });
    case kMinutes: return sortBy([](const store::StudySummary& study) { return study.duration; });
    case kChangedBy:
      return sortBy([](const store::StudySummary& study) { return store::LowerCase(study.modifiedBy); });
    case kChangedAt:
      return sortBy([](const store::StudySummary& study) { return std::string_view(study.modifiedAt); });
    default: return sortBy([](const store::StudySummary& study) { return study.id; });
  }
}

std::optional<int> StudyTable::RowOf(std::int32_t id) const {
  const auto study = std::ranges::lower_bound(studies_, id, {}, &store::StudySummary::id);
  const auto row = std::ranges::find(shown_, static_cast<Place>(study - studies_.begin()));
  if (study == studies_.end() || study->id != id || row == shown_.end()) return std::nullopt;
  return static_cast<int>(row - shown_.begin());
}

int StudyTable::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int StudyTable::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumnCount;
}

QVariant StudyTable::data(const QModelIndex& index, int role) const {
  if (!hasIndex(index.row(), index.column())) return {};
  const store::StudySummary& study = At(index.row());
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
  if (section < 0 || section >= kColumnCount) return {};
  return captions[static_cast<std::size_t>(section)];
}

}  // namespace kiv::client
