#include "client/window/network_dialog.h"

#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QVBoxLayout>
#include <exception>
#include <utility>

#include "client/texts/import_text.h"
#include "client/window/fault_list.h"
#include "client/window/messages.h"
#include "client/window/window_settings.h"
#include "host/services.h"
#include "qt/text.h"
#include "store/network/network_import.h"
#include "store/store_error.h"

namespace kiv::client {

namespace {

constexpr const char* kFolderKey = "Network/ImportFolder";

using qt::ToQt;

std::vector<FaultList::Fault> FaultsOf(const std::vector<store::BadLine>& badLines) {
  std::vector<FaultList::Fault> faults;
  faults.reserve(badLines.size());
  for (const store::BadLine& bad : badLines) {
    faults.push_back({ToQt(bad.file), bad.line == 0 ? QString() : QString::number(bad.line), ToQt(bad.reason),
                      ToQt(BadLineText(bad))});
  }
  return faults;
}

class NetworkDialog : public QDialog {
 public:
  NetworkDialog(Program& program, QWidget* parent)
      : QDialog(parent),
        program_(program),
        all_(new QVBoxLayout(this)),
        folder_(new QLineEdit(this)),
        tryFirst_(new QCheckBox(QStringLiteral("&Try first: check every line, write nothing"), this)),
        result_(new QLabel(this)),
        list_(new FaultList(QStringLiteral("Line"), Qt::AlignRight,
                            QStringLiteral("luc_cfg_cdma_car_chans.csv"), QStringLiteral("1000000"), this)),
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
    folder_->setText(WindowSettings(program_.Settings()).value(QLatin1String(kFolderKey)).toString());
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
    copy_->setObjectName(QStringLiteral("networkCopy"));
    copy_->setAutoDefault(false);
    all_->addWidget(result_);
    all_->addWidget(list_, kListStretch);
    all_->addStretch(1);
    connect(copy_, &QPushButton::clicked, list_, &FaultList::CopyAll);
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
    if (const auto folder = host::TheFolderChooser().ChooseFolder(folder_->text().toStdString(), winId())) {
      folder_->setText(ToQt(*folder));
    }
  }

  void Run() {
    const std::string folder = folder_->text().trimmed().toStdString();
    ShowBadLines({});
    result_->hide();
    try {
      Show(RunWithProgress([&](const store::ImportProgress& progress) {
        return tryFirst_->isChecked()
                   ? store::CheckNetwork(folder, progress)
                   : store::ImportNetwork(program_.Store().Database(), folder, progress, program_.UserName());
      }));
    } catch (const std::exception& error) {
      TellFailure(error);
    }
  }

  template <class Action>
  store::NetworkReport RunWithProgress(Action action) {
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
      return progress.wasCanceled() ? store::ImportChoice::Cancel : store::ImportChoice::GoOn;
    });
  }

  void Show(const store::NetworkReport& report) {
    imported_ = imported_ || report.outcome == store::NetworkReport::Outcome::Imported;
    if (report.badLines.empty()) {
      WindowSettings(program_.Settings()).setValue(QLatin1String(kFolderKey), folder_->text().trimmed());
    }
    QString text = ToQt(OutcomeText(report));
    if (report.badLines.empty()) {
      for (const store::NetworkReport::Table& table : report.tables) {
        text += QStringLiteral("\n%1: %L2").arg(ToQt(table.name)).arg(table.rows);
      }
    }
    for (const std::string& file : report.unknownFiles) {
      text += QStringLiteral("\nIgnored, not one of the files of a network: ") + ToQt(file);
    }
    result_->setText(text);
    result_->show();
    ShowBadLines(report.badLines);
    resize(width(), std::max(height(), all_->totalHeightForWidth(width())));  // every line of the text
    // After a good try the next thing to do is the import itself.
    if (report.outcome == store::NetworkReport::Outcome::Good) tryFirst_->setChecked(false);
  }

  void ShowBadLines(const std::vector<store::BadLine>& badLines) {
    list_->setVisible(!badLines.empty());
    copy_->setVisible(!badLines.empty());
    list_->SetFaults(FaultsOf(badLines));
    if (list_->isVisibleTo(this)) resize(size().expandedTo(sizeHint()));
  }

  static constexpr int kListStretch = 1000;  // the list takes all room there is, when it is there

  Program& program_;
  QVBoxLayout* all_;
  QLineEdit* folder_;
  QCheckBox* tryFirst_;
  QLabel* result_;
  FaultList* list_;
  QPushButton* copy_;
  QPushButton* run_;
  bool imported_ = false;
};

}  // namespace

bool ImportNetworkByDialog(Program& program, QWidget* parent) {
  NetworkDialog dialog(program, parent);
  dialog.exec();
  return dialog.Imported();
}

}  // namespace kiv::client
