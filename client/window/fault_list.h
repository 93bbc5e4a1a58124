#pragma once

#include <QTableView>
#include <vector>

namespace kiv::client {

/// What is wrong with the files of an import, row by row, to read and to copy.
class FaultList : public QTableView {
 public:
  struct Fault {
    QString file;
    QString place;  ///< in the file
    QString reason;
    QString text;  ///< all of it in one line, as it is copied
  };

  /// The texts show how wide the columns have to be.
  FaultList(const QString& placeCaption, Qt::Alignment placeAlignment, const QString& widestFile,
            const QString& widestPlace, QWidget* parent);

  void SetFaults(std::vector<Fault> faults);
  void CopyAll() const;

 protected:
  /// It answers the keys for copying itself: the view's own way copies a single cell.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  class Table;

  void CopySelected() const;

  Table* table_;
};

}  // namespace kiv::client
