#pragma once

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "base/signal.h"
#include "client/study_store.h"

class QLabel;
class QLineEdit;
class QSettings;
class QTableView;

namespace kiv::client {

/// The list of studies as a table.
class StudyTable : public QAbstractTableModel {
 public:
  enum Column { kId, kKind, kName, kScenario, kMinutes, kChangedBy, kChangedAt, kColumnCount };

  using QAbstractTableModel::QAbstractTableModel;

  void SetStudies(std::vector<StudySummary> studies);
  const std::vector<StudySummary>& Studies() const { return studies_; }
  /// The texts of a study in lower case, for searching.
  const QString& SearchText(int row) const { return searchTexts_[static_cast<std::size_t>(row)]; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  std::vector<StudySummary> studies_;
  std::vector<QString> searchTexts_;
};

/// Sorts numbers by value and keeps the studies that hold every word of the filter.
class StudyFilter : public QSortFilterProxyModel {
 public:
  explicit StudyFilter(StudyTable& table);
  void SetWords(const QString& text);

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
  bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

 private:
  StudyTable& table_;
  QStringList words_;
};

/// The list of studies with its filter box.
class StudyListPage : public QWidget {
 public:
  explicit StudyListPage(QWidget* parent = nullptr);

  void SetStudies(std::vector<StudySummary> studies);
  int StudyCount() const { return table_.rowCount(); }
  /// The study that the cursor is on.
  std::optional<std::int32_t> SelectedStudy() const;
  QString SelectedName() const;
  void SelectStudy(std::int32_t id);
  void FocusFilter();
  QTableView& View() { return *view_; }

  /// The widths and the sorting that the user chose.
  void RestoreColumns(const QSettings& settings);
  void SaveColumns(QSettings& settings) const;

  Signal<std::int32_t> StudyActivated;
  Signal<> SelectionChanged;

 protected:
  /// The names get what the other columns leave; on a narrow window the list scrolls.
  void resizeEvent(QResizeEvent* event) override;

 private:
  void ShowCount();

  StudyTable table_;
  StudyFilter filter_;
  QLineEdit* filterBox_;
  QTableView* view_;
  QLabel* count_;
  int leastNameWidth_ = 0;
};

}  // namespace kiv::client
