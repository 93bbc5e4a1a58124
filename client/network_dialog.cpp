#include "client/network_dialog.h"

#include <QAbstractTableModel>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <exception>
#include <functional>
#include <utility>

#include "client/messages.h"
#include "client/network_import.h"
#include "client/network_printer.h"
#include "client/store_error.h"
#include "host/services.h"

namespace kiv::client {

namespace {

constexpr const char* kFolderKey = "Network/ImportFolder";

QString ToQt(const std::string& text) {
  return QString::fromStdString(text);
}

/// Every bad line as a row.
class BadLineTable : public QAbstractTableModel {
 public:
  enum Column { kFile, kLine, kReason, kColumnCount };

  using QAbstractTableModel::QAbstractTableModel;

  void SetBadLines(std::vector<BadLine> badLines) {
    beginResetModel();
    badLines_ = std::move(badLines);
    endResetModel();
  }
  const BadLine& At(int row) const { return badLines_[static_cast<std::size_t>(row)]; }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(badLines_.size());
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : kColumnCount;
  }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role == Qt::TextAlignmentRole && index.column() == kLine) {
      return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
    const BadLine& bad = At(index.row());
    switch (index.column()) {
      case kFile: return ToQt(bad.file);
      case kLine: return bad.line == 0 ? QString() : QString::number(bad.line);
      default: return ToQt(bad.reason);
    }
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    static const std::array<QString, kColumnCount> captions = {QStringLiteral("File"), QStringLiteral("Line"),
                                                               QStringLiteral("What is wrong")};
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return captions[static_cast<std::size_t>(section)];
  }

 private:
  std::vector<BadLine> badLines_;
};

/// Shows the bad lines. It answers the keys for copying itself: the view's own way copies a single cell.
class BadLineList : public QTableView {
 public:
  BadLineList(std::function<void()> copy, QWidget* parent) : QTableView(parent), copy_(std::move(copy)) {}

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (!event->matches(QKeySequence::Copy)) return QTableView::keyPressEvent(event);
    copy_();
    event->accept();
  }

 private:
  std::function<void()> copy_;
};

class NetworkDialog : public QDialog {
 public:
  NetworkDialog(Program& program, QWidget* parent)
      : QDialog(parent),
        program_(program),
        all_(new QVBoxLayout(this)),
        folder_(new QLineEdit(this)),
        tryFirst_(new QCheckBox(QStringLiteral("&Try first: check every line, write nothing"), this)),
        result_(new QLabel(this)),
        list_(new BadLineList([this] { CopySelected(); }, this)),
        copy_(new QPushButton(QStringLiteral("&Copy All"), this)),
        run_(nullptr) {
    setWindowTitle(QStringLiteral("Import Network"));
    AddFolderRow();
    AddResult();
    AddButtons();
    ShowChoices();
    resize(fontMetrics().averageCharWidth() * 100, sizeHint().height());
  }

  bool Imported() const { return imported_; }

 private:
  void AddFolderRow() {
    auto* text = new QLabel(
        QStringLiteral(
            "The folder has one CSV file for each table of the network. They replace the network that "
            "is stored now, all of them or nothing; studies stay as they are."),
        this);
    text->setWordWrap(true);
    folder_->setObjectName(QStringLiteral("networkFolder"));
    folder_->setText(program_.Settings().File().value(QLatin1String(kFolderKey)).toString());
    tryFirst_->setObjectName(QStringLiteral("networkTryFirst"));
    auto* label = new QLabel(QStringLiteral("&Folder:"), this);
    label->setBuddy(folder_);
    auto* browse = new QPushButton(QStringLiteral("&Browse..."), this);
    browse->setAutoDefault(false);
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(folder_, 1);
    row->addWidget(browse);
    all_->addWidget(text);
    all_->addLayout(row);
    all_->addWidget(tryFirst_);
    connect(browse, &QPushButton::clicked, this, [this] { Browse(); });
    connect(folder_, &QLineEdit::textChanged, this, [this] { ShowChoices(); });
    connect(tryFirst_, &QCheckBox::toggled, this, [this] { ShowChoices(); });
  }

  void AddResult() {
    result_->setObjectName(QStringLiteral("networkResult"));
    result_->setWordWrap(true);
    result_->setTextFormat(Qt::PlainText);
    result_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    list_->setObjectName(QStringLiteral("networkBadLines"));
    list_->setAccessibleName(QStringLiteral("Bad lines"));
    list_->setModel(&badLines_);
    list_->setSelectionBehavior(QAbstractItemView::SelectRows);
    list_->setTabKeyNavigation(false);
    list_->setShowGrid(false);
    list_->setAlternatingRowColors(true);
    list_->setContextMenuPolicy(Qt::ActionsContextMenu);
    list_->verticalHeader()->hide();
    list_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    list_->horizontalHeader()->setHighlightSections(false);
    list_->horizontalHeader()->setStretchLastSection(true);
    list_->setColumnWidth(BadLineTable::kFile,
                          fontMetrics().horizontalAdvance("luc_cfg_cdma_car_chans.csv") + 24);
    list_->setColumnWidth(BadLineTable::kLine, fontMetrics().horizontalAdvance("1000000") + 24);
    list_->setMinimumHeight(fontMetrics().height() * 14);
    auto* copyRows = new QAction(QStringLiteral("Copy"), list_);
    copyRows->setShortcut(QKeySequence::Copy);
    copyRows->setShortcutContext(Qt::WidgetShortcut);
    list_->addAction(copyRows);
    copy_->setObjectName(QStringLiteral("networkCopy"));
    copy_->setAutoDefault(false);
    all_->addWidget(result_);
    all_->addWidget(list_, kListStretch);
    all_->addStretch(1);
    connect(copyRows, &QAction::triggered, this, [this] { CopySelected(); });
    connect(copy_, &QPushButton::clicked, this, [this] { CopyAll(); });
    result_->hide();
    ShowBadLines({});
  }

  void AddButtons() {
    auto* buttons = new QDialogButtonBox(this);
    run_ = buttons->addButton(QStringLiteral("&Import"), QDialogButtonBox::ActionRole);
    run_->setObjectName(QStringLiteral("networkRun"));
    run_->setDefault(true);
    buttons->addButton(copy_, QDialogButtonBox::ActionRole);
    buttons->addButton(QDialogButtonBox::Close)->setText(QStringLiteral("C&lose"));
    all_->addWidget(buttons);
    connect(run_, &QPushButton::clicked, this, [this] { Run(); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  }

  void ShowChoices() {
    run_->setText(tryFirst_->isChecked() ? QStringLiteral("Chec&k") : QStringLiteral("&Import"));
    run_->setEnabled(!folder_->text().trimmed().isEmpty());
  }

  void Browse() {
    if (const auto folder = host::TheFolderChooser().ChooseFolder(folder_->text().toStdString())) {
      folder_->setText(ToQt(*folder));
    }
  }

  void Run() {
    const std::string folder = folder_->text().trimmed().toStdString();
    ShowBadLines({});
    result_->hide();
    try {
      Show(RunWithProgress([&](const ImportProgress& progress) {
        return tryFirst_->isChecked() ? CheckNetwork(folder, progress)
                                      : ImportNetwork(program_.Store().Database(), folder, progress);
      }));
    } catch (const std::exception& error) {
      TellFailure(error);
    }
  }

  template <class Action>
  NetworkReport RunWithProgress(Action action) {
    constexpr int kSteps = 1000;
    QProgressDialog progress(QStringLiteral("Reading the files"), QStringLiteral("&Cancel"), 0, kSteps, this);
    progress.setObjectName(QStringLiteral("networkProgress"));
    progress.setWindowTitle(windowTitle());
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(300);
    progress.setMinimumWidth(progress.fontMetrics().averageCharWidth() * 50);
    progress.setAutoReset(false);
    progress.setValue(0);
    return action([&](std::string_view step, double done) {
      progress.setLabelText(QString::fromUtf8(step.data(), static_cast<qsizetype>(step.size())));
      progress.setValue(static_cast<int>(done * kSteps));
      return progress.wasCanceled() ? ImportChoice::Cancel : ImportChoice::GoOn;
    });
  }

  void Show(const NetworkReport& report) {
    imported_ = imported_ || report.outcome == NetworkReport::Outcome::Imported;
    if (report.badLines.empty()) {
      program_.Settings().File().setValue(QLatin1String(kFolderKey), folder_->text().trimmed());
    }
    QString text = ToQt(OutcomeText(report));
    if (report.badLines.empty()) {
      for (const NetworkReport::Table& table : report.tables) {
        text += QStringLiteral("\n%1: %L2").arg(ToQt(table.name)).arg(table.rows);
      }
    }
    for (const std::string& file : report.unknownFiles) {
      text += QStringLiteral("\nIgnored, not one of the files of a network: ") + ToQt(file);
    }
    result_->setText(text);
    result_->show();
    ShowBadLines(report.badLines);
    // After a good try the next thing to do is the import itself.
    if (report.outcome == NetworkReport::Outcome::Good) tryFirst_->setChecked(false);
  }

  void ShowBadLines(std::vector<BadLine> badLines) {
    list_->setVisible(!badLines.empty());
    copy_->setVisible(!badLines.empty());
    badLines_.SetBadLines(std::move(badLines));
    if (list_->isVisibleTo(this)) resize(size().expandedTo(sizeHint()));
  }

  void CopySelected() {
    QModelIndexList rows = list_->selectionModel()->selectedRows();
    std::ranges::sort(rows, {}, [](const QModelIndex& row) { return row.row(); });
    QString text;
    for (const QModelIndex& row : rows)
      text += ToQt(BadLineText(badLines_.At(row.row()))) + QLatin1Char('\n');
    QApplication::clipboard()->setText(text);
  }

  void CopyAll() {
    QString text;
    for (int row = 0; row < badLines_.rowCount(); ++row) {
      text += ToQt(BadLineText(badLines_.At(row))) + QLatin1Char('\n');
    }
    QApplication::clipboard()->setText(text);
  }

  static constexpr int kListStretch = 1000;  // the list takes all room there is, when it is there

  Program& program_;
  QVBoxLayout* all_;
  QLineEdit* folder_;
  QCheckBox* tryFirst_;
  QLabel* result_;
  BadLineList* list_;
  QPushButton* copy_;
  QPushButton* run_;
  BadLineTable badLines_;
  bool imported_ = false;
};

}  // namespace

bool ImportNetworkByDialog(Program& program, QWidget* parent) {
  NetworkDialog dialog(program, parent);
  dialog.exec();
  return dialog.Imported();
}

}  // namespace kiv::client
