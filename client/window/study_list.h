#pragma once

#include <QItemSelection>
#include <QWidget>
#include <optional>
#include <unordered_set>

#include "base/signal.h"
#include "client/window/study_reader.h"
#include "client/window/study_table.h"

class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QSettings;
class QTableView;
class QVBoxLayout;

namespace kiv::client {

/// The list of studies with its filter box.
class StudyListPage : public QWidget {
 public:
  explicit StudyListPage(Program& program, QWidget* parent = nullptr);

  /// Reads the studies of the open database; see there how.
  StudyReader& Reader() { return reader_; }
  /// Another database is open.
  void ForgetStudies();
  /// Shows a study as it is stored now, or no more.
  void Update(std::int32_t id, const std::optional<store::StudySummary>& study);
  std::size_t StudyCount() const { return table_.Count(); }
  /// The study that the cursor is on, or the first of the selected ones.
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
  void AddReading(QVBoxLayout& page);
  void ShowReading();
  void ShowCount();
  QModelIndex SelectedRow() const;
  void SavePlace();
  void RestorePlace();
  QItemSelection RowsBefore() const;

  StudyTable table_;
  StudyReader reader_;
  QLineEdit* filterBox_;
  QTableView* view_;
  QLabel* count_;
  QWidget* reading_;  ///< what tells how far the reading is
  QLabel* readSoFar_;
  QProgressBar* progress_;
  QPushButton* stop_;
  int leastNameWidth_ = 0;
  std::unordered_set<std::int32_t> selectedBefore_;
  std::optional<std::int32_t> currentBefore_;
  std::optional<std::int32_t> topBefore_;  ///< the uppermost study, unless that is the first
};

}  // namespace kiv::client
