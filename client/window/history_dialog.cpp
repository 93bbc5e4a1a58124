#include "client/window/history_dialog.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <exception>
#include <utility>

#include "client/texts/history_text.h"
#include "client/window/cut_text_tips.h"
#include "client/window/messages.h"
#include "client/window/plain_table.h"
#include "core/study_kinds.h"
#include "qt/text.h"
#include "store/times.h"

namespace kiv::client {

namespace {

using qt::ToQt;

/// A table to read, filled row by row.
class TextTable : public QTableWidget {
 public:
  /// The texts show how wide the columns have to be; the last one takes what is left.
  TextTable(const QStringList& captions, const QStringList& widest, QWidget* parent)
      : QTableWidget(0, static_cast<int>(captions.size()), parent) {
    MakePlain(*this);
    setHorizontalHeaderLabels(captions);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setStretchLastSection(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setItemDelegate(new CutTextTips(this));
    constexpr int kMargins = 24;
    for (int column = 0; column < widest.size(); ++column) {
      setColumnWidth(column, fontMetrics().horizontalAdvance(widest[column]) + kMargins);
    }
  }

  void AddRow(const QStringList& texts) {
    const int row = rowCount();
    insertRow(row);
    for (int column = 0; column < texts.size(); ++column) {
      setItem(row, column, new QTableWidgetItem(texts[column]));
    }
  }
};

/// Restores and tells what went wrong; false then.
bool Restored(Program& program, std::int32_t study, std::int32_t revision) {
  try {
    program.Store().Restore(study, revision, program.UserName());
    program.AnnounceScenarios();
    return true;
  } catch (const std::exception& error) {
    TellFailure(error);
    return false;
  }
}

void LockWhenReadOnly(const Program& program, QPushButton& button) {
  if (!program.IsReadOnly()) return;
  button.setEnabled(false);
  button.setToolTip(QStringLiteral("The study database is read-only."));
}

class HistoryDialog : public QDialog {
 public:
  HistoryDialog(Program& program, std::int32_t study, QWidget* parent)
      : QDialog(parent),
        program_(program),
        study_(study),
        steps_(StepsOf(program.Store().History(), study)),
        revisions_(new TextTable({QStringLiteral("Revision"), QStringLiteral("When"), QStringLiteral("Who"),
                                  QStringLiteral("What"), QStringLiteral("Changed")},
                                 {QStringLiteral("Revision"), QStringLiteral("31.12.2026 23:59:59"),
                                  QStringLiteral("postgres_user"), QStringLiteral("restored")},
                                 this)),
        compare_(new QComboBox(this)),
        differences_(
            new TextTable({QStringLiteral("Field"), QStringLiteral("Change"), QStringLiteral("Before"),
                           QStringLiteral("After")},
                          {QStringLiteral("Cells 10-10-100: Antennas 10: Selected"),
                           QStringLiteral("removed"), QStringLiteral("/home/measurements/downtown/night")},
                          this)),
        restore_(new QPushButton(QStringLiteral("&Restore This Revision"), this)) {
    setWindowTitle(
        QStringLiteral("History of Study %1 \"%2\"").arg(study).arg(ToQt(steps_.back().entry.name)));
    AddRevisions();
    AddComparison();
    AddButtons();
    resize(fontMetrics().averageCharWidth() * 150, fontMetrics().height() * 38);
    revisions_->selectRow(0);
    revisions_->setFocus();
  }

 private:
  void AddRevisions() {
    revisions_->setObjectName(QStringLiteral("revisions"));
    revisions_->setAccessibleName(QStringLiteral("Revisions"));
    for (auto step = steps_.rbegin(); step != steps_.rend(); ++step) {
      const store::HistoryEntry& entry = step->entry;
      revisions_->AddRow({QString::number(entry.revision), ToQt(store::LocalTimeText(entry.changedAt)),
                          ToQt(WhoText(entry)), ToQt(std::string(store::EventName(entry.event))),
                          ToQt(step->Summary())});
    }
    auto* all = new QVBoxLayout(this);
    all->addWidget(revisions_, 2);
    connect(revisions_, &QTableWidget::currentCellChanged, this, [this] { ShowComparisons(); });
  }

  void AddComparison() {
    compare_->setObjectName(QStringLiteral("compareWith"));
    differences_->setObjectName(QStringLiteral("differences"));
    differences_->setAccessibleName(QStringLiteral("Differences"));
    auto* label = new QLabel(QStringLiteral("Compare &with:"), this);
    label->setBuddy(compare_);
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(compare_);
    row->addStretch();
    auto* all = static_cast<QVBoxLayout*>(layout());
    all->addLayout(row);
    all->addWidget(differences_, 3);
    connect(compare_, &QComboBox::currentIndexChanged, this, [this] { ShowDifferences(); });
  }

  void AddButtons() {
    auto* buttons = new QDialogButtonBox(this);
    restore_->setObjectName(QStringLiteral("restore"));
    restore_->setAutoDefault(false);
    buttons->addButton(restore_, QDialogButtonBox::ActionRole);
    buttons->addButton(QDialogButtonBox::Close)->setText(QStringLiteral("C&lose"));
    static_cast<QVBoxLayout*>(layout())->addWidget(buttons);
    connect(restore_, &QPushButton::clicked, this, [this] {
      if (Restored(program_, study_, Selected().entry.revision)) accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  }

  /// The newest stands above.
  std::size_t SelectedIndex() const {
    return steps_.size() - 1 - static_cast<std::size_t>(std::max(revisions_->currentRow(), 0));
  }
  const HistoryStep& Selected() const { return steps_[SelectedIndex()]; }

  /// Every other revision, first of all the one before.
  void ShowComparisons() {
    const std::size_t selected = SelectedIndex();
    {
      const QSignalBlocker blocker(compare_);
      compare_->clear();
      for (std::size_t i = steps_.size(); i-- > 0;) {
        const store::HistoryEntry& entry = steps_[i].entry;
        if (i == selected || entry.event == store::StudyEvent::Deleted) continue;
        compare_->addItem(QStringLiteral("revision %1, %2, %3")
                              .arg(entry.revision)
                              .arg(ToQt(WhoText(entry)), ToQt(store::LocalTimeText(entry.changedAt))),
                          static_cast<int>(i));
      }
      for (std::size_t before = selected; before-- > 0;) {
        const int item = compare_->findData(static_cast<int>(before));
        if (item < 0) continue;
        compare_->setCurrentIndex(item);
        break;
      }
    }
    const bool deleted = Selected().entry.event == store::StudyEvent::Deleted;
    const bool isNewest = selected + 1 == steps_.size();
    restore_->setEnabled(!deleted && !isNewest);
    LockWhenReadOnly(program_, *restore_);
    ShowDifferences();
  }

  std::string ContentOf(std::size_t step) const {
    return program_.Store().History().Content(study_, steps_[step].entry.revision);
  }

  void ShowDifferences() {
    differences_->setRowCount(0);
    const QVariant other = compare_->currentData();
    if (!other.isValid() || Selected().entry.event == store::StudyEvent::Deleted) return;
    try {
      const auto before = static_cast<std::size_t>(other.toInt());
      const auto caption = [this](std::size_t step) {
        return QStringLiteral("Revision %1").arg(steps_[step].entry.revision);
      };
      differences_->horizontalHeaderItem(kBefore)->setText(caption(before));
      differences_->horizontalHeaderItem(kAfter)->setText(caption(SelectedIndex()));
      for (const store::StudyDifference& difference :
           store::DifferencesBetween(ContentOf(before), ContentOf(SelectedIndex()))) {
        differences_->AddRow({ToQt(difference.place), ToQt(ChangeWord(difference.kind)),
                              ToQt(difference.before), ToQt(difference.after)});
      }
    } catch (const std::exception& error) {
      TellFailure(error);
    }
  }

  static constexpr int kBefore = 2;  // columns of the differences
  static constexpr int kAfter = 3;

  Program& program_;
  std::int32_t study_;
  std::vector<HistoryStep> steps_;
  TextTable* revisions_;
  QComboBox* compare_;
  TextTable* differences_;
  QPushButton* restore_;
};

class DeletedStudiesDialog : public QDialog {
 public:
  DeletedStudiesDialog(Program& program, QWidget* parent)
      : QDialog(parent),
        program_(program),
        list_(new TextTable(
            {QStringLiteral("ID"), QStringLiteral("Kind"), QStringLiteral("Name"),
             QStringLiteral("Deleted by"), QStringLiteral("Deleted at")},
            {QStringLiteral("100000"), qt::ToQt(std::string(kRfcStudy)),
             QStringLiteral("A study of the handoffs downtown"), QStringLiteral("postgres_user")},
            this)),
        nothing_(new QLabel(QStringLiteral("No study was deleted since the history is kept."), this)),
        history_(new QPushButton(QStringLiteral("&History..."), this)),
        restore_(new QPushButton(QStringLiteral("&Restore"), this)) {
    setWindowTitle(QStringLiteral("Deleted Studies"));
    list_->setObjectName(QStringLiteral("deletedStudies"));
    list_->setAccessibleName(QStringLiteral("Deleted studies"));
    history_->setObjectName(QStringLiteral("deletedHistory"));
    restore_->setObjectName(QStringLiteral("restoreDeleted"));
    auto* buttons = new QDialogButtonBox(this);
    for (QPushButton* button : {restore_, history_}) {
      button->setAutoDefault(false);
      buttons->addButton(button, QDialogButtonBox::ActionRole);
    }
    buttons->addButton(QDialogButtonBox::Close)->setText(QStringLiteral("C&lose"));
    auto* all = new QVBoxLayout(this);
    all->addWidget(nothing_);
    all->addWidget(list_, 1);
    all->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(restore_, &QPushButton::clicked, this, [this] { Restore(); });
    connect(history_, &QPushButton::clicked, this, [this] { ShowHistoryOfSelected(); });
    Fill();
    resize(fontMetrics().averageCharWidth() * 130, fontMetrics().height() * 22);
  }

  const std::vector<std::int32_t>& RestoredStudies() const { return restored_; }

 private:
  void Fill() {
    studies_ = program_.Store().History().DeletedStudies();
    list_->setRowCount(0);
    for (const store::HistoryEntry& study : studies_) {
      list_->AddRow({QString::number(study.study), ToQt(study.kind), ToQt(study.name), ToQt(WhoText(study)),
                     ToQt(store::LocalTimeText(study.changedAt))});
    }
    nothing_->setVisible(studies_.empty());
    for (QPushButton* button : {history_, restore_}) button->setEnabled(!studies_.empty());
    LockWhenReadOnly(program_, *restore_);
    list_->selectRow(0);
    list_->setFocus();
  }

  const store::HistoryEntry& Selected() const {
    return studies_[static_cast<std::size_t>(std::max(list_->currentRow(), 0))];
  }

  void Take(std::int32_t study) {
    restored_.push_back(study);
    Fill();
  }

  void Restore() {
    const store::HistoryEntry& deleted = Selected();
    const std::int32_t study = deleted.study;
    if (Restored(program_, study, deleted.revision - 1)) Take(study);
  }

  void ShowHistoryOfSelected() {
    const std::int32_t study = Selected().study;
    try {
      if (ShowHistory(program_, study, this)) Take(study);
    } catch (const std::exception& error) {
      TellFailure(error);
    }
  }

  Program& program_;
  TextTable* list_;
  QLabel* nothing_;
  QPushButton* history_;
  QPushButton* restore_;
  std::vector<store::HistoryEntry> studies_;
  std::vector<std::int32_t> restored_;
};

}  // namespace

bool ShowHistory(Program& program, std::int32_t study, QWidget* parent) {
  return HistoryDialog(program, study, parent).exec() == QDialog::Accepted;
}

std::vector<std::int32_t> ShowDeletedStudies(Program& program, QWidget* parent) {
  DeletedStudiesDialog dialog(program, parent);
  dialog.exec();
  return dialog.RestoredStudies();
}

}  // namespace kiv::client
