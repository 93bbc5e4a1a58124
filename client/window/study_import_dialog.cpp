#include "client/window/study_import_dialog.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <exception>
#include <utility>

#include "client/texts/import_text.h"
#include "client/window/fault_list.h"
#include "client/window/messages.h"

namespace kiv::client {

namespace {

using Outcome = session::StudyImportReport::Outcome;

std::vector<FaultList::Fault> FaultsOf(const session::StudyImportReport& report) {
  std::vector<FaultList::Fault> faults;
  faults.reserve(report.problems.size() + report.warnings.size());
  for (const auto* list : {&report.problems, &report.warnings}) {
    for (const session::ImportProblem& problem : *list) {
      const QString file = QString::fromStdString(problem.file);
      faults.push_back({QFileInfo(file).fileName(), QString::fromStdString(problem.study),
                        QString::fromStdString(problem.reason),
                        QString::fromStdString(ImportProblemText(problem))});
    }
  }
  return faults;
}

/// The studies that wait for the import, as many as a person reads.
QString NamesOf(const session::StudyImportReport& report) {
  constexpr std::size_t kShown = 12;
  QString text;
  for (std::size_t i = 0; i < report.studies.size() && i < kShown; ++i) {
    const session::StudyImportReport::Entry& study = report.studies[i];
    text += QStringLiteral("\n%1 \"%2\"")
                .arg(QString::fromStdString(study.kind), QString::fromStdString(study.name));
  }
  if (report.studies.size() > kShown) {
    text += QStringLiteral("\nand %L1 more").arg(report.studies.size() - kShown);
  }
  return text;
}

class StudyImportDialog : public QDialog {
 public:
  StudyImportDialog(Program& program, const QStringList& files, QWidget* parent)
      : QDialog(parent),
        program_(program),
        result_(new QLabel(this)),
        list_(new FaultList(QStringLiteral("Study"), Qt::AlignLeft,
                            QStringLiteral("studies of the week.json"),
                            QStringLiteral("study 10 \"Handoffs downtown\""), this)),
        copy_(new QPushButton(QStringLiteral("&Copy All"), this)) {
    for (const QString& file : files) files_.push_back(file.toStdString());
    setWindowTitle(QStringLiteral("Import Studies"));
    result_->setObjectName(QStringLiteral("importResult"));
    result_->setWordWrap(true);
    result_->setTextFormat(Qt::PlainText);
    list_->setObjectName(QStringLiteral("importProblems"));
    list_->setAccessibleName(QStringLiteral("Problems"));
    copy_->setAutoDefault(false);
    auto* all = new QVBoxLayout(this);
    all->addWidget(result_);
    all->addWidget(list_, 1);
    all->addWidget(MakeButtons());
    connect(copy_, &QPushButton::clicked, list_, &FaultList::CopyAll);
    Show(session::CheckStudies(program_.Store(), files_));
  }

  bool Imported() const { return imported_; }

 private:
  QDialogButtonBox* MakeButtons() {
    auto* buttons = new QDialogButtonBox(this);
    import_ = buttons->addButton(QStringLiteral("&Import"), QDialogButtonBox::ActionRole);
    import_->setObjectName(QStringLiteral("importRun"));
    check_ = buttons->addButton(QStringLiteral("Chec&k Again"), QDialogButtonBox::ActionRole);
    check_->setObjectName(QStringLiteral("importCheck"));
    buttons->addButton(copy_, QDialogButtonBox::ActionRole);
    buttons->addButton(QDialogButtonBox::Cancel);
    connect(import_, &QPushButton::clicked, this, [this] { Import(); });
    connect(check_, &QPushButton::clicked, this, [this] { Check(); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
  }

  void Check() {
    try {
      Show(session::CheckStudies(program_.Store(), files_));
    } catch (const std::exception& error) {
      TellFailure(error);
    }
  }

  void Import() {
    try {
      const session::StudyImportReport report =
          session::ImportStudies(program_.Store(), files_, program_.UserName());
      imported_ = report.outcome == Outcome::Imported;
      if (imported_) {
        program_.AnnounceScenarios();
        accept();
      } else {
        Show(report);  // a file was changed since it was checked
      }
    } catch (const std::exception& error) {
      TellFailure(error);
    }
  }

  void Show(const session::StudyImportReport& report) {
    const bool good = report.outcome == Outcome::Good;
    QString text = QString::fromStdString(OutcomeText(report));
    if (good) {
      text += QLatin1Char('\n') + NamesOf(report);
    }
    result_->setText(text);
    const std::vector<FaultList::Fault> faults = FaultsOf(report);
    list_->SetFaults(faults);
    list_->setVisible(!faults.empty());
    copy_->setVisible(!faults.empty());
    check_->setVisible(!good);
    import_->setVisible(good);
    (good ? import_ : check_)->setDefault(true);
    (good ? import_ : check_)->setFocus();
    adjustSize();
    resize(fontMetrics().averageCharWidth() * (faults.empty() ? 70 : 150), sizeHint().height());
  }

  Program& program_;
  std::vector<std::string> files_;
  QLabel* result_;
  FaultList* list_;
  QPushButton* copy_;
  QPushButton* import_ = nullptr;
  QPushButton* check_ = nullptr;
  bool imported_ = false;
};

}  // namespace

bool ImportStudiesByDialog(Program& program, const QStringList& files, QWidget* parent) {
  StudyImportDialog dialog(program, files, parent);
  dialog.exec();
  return dialog.Imported();
}

}  // namespace kiv::client
