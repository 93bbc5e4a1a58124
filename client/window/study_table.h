#pragma once

#include <QAbstractTableModel>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "store/studies/study_store.h"

namespace kiv::client {

/// The list of studies as a table: those that hold every word of the filter, in the order that the user
/// chose. Made for a hundred thousand of them.
class StudyTable : public QAbstractTableModel {
 public:
  enum Column { kId, kKind, kName, kScenario, kMinutes, kChangedBy, kChangedAt, kColumnCount };

  using QAbstractTableModel::QAbstractTableModel;

  /// Puts studies, which stand in the order of their identifiers, in the place of all those from one
  /// identifier to another. What changes nothing that is shown resets nothing.
  void Replace(std::int32_t first, std::int32_t last, std::vector<store::StudySummary> studies);
  void Clear();
  /// Shows the studies that hold all these words.
  void SetWords(const QString& words);

  /// How many there are, shown or not.
  std::size_t Count() const { return studies_.size(); }
  const store::StudySummary& At(int row) const { return studies_[shown_[static_cast<std::size_t>(row)]]; }
  /// The row that shows a study.
  std::optional<int> RowOf(std::int32_t id) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  void sort(int column, Qt::SortOrder order) override;

 private:
  using Place = std::uint32_t;  ///< in studies_

  bool HasAllWords(Place place) const;
  std::vector<Place> PlacesWithAllWords(std::size_t from) const;
  void ShowAgain();
  void Sort();

  std::vector<store::StudySummary> studies_;  ///< by identifier
  std::vector<std::string> searchTexts_;
  std::vector<Place> shown_;
  std::vector<std::string> words_;
  int sortColumn_ = kId;
  Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
};

}  // namespace kiv::client
