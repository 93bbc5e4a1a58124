#include "client/window/editor_view.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QTabWidget>
#include <algorithm>
#include <exception>
#include <utility>

#include "client/window/dialogs.h"
#include "client/window/messages.h"
#include "client/window/question.h"
#include "editor/dd_list_view.h"
#include "qt/page_view.h"

namespace kiv::client {

namespace {

constexpr int kMarkDelayMs = 200;  // typing is not interrupted by checks that look at folders

void AddMarks(std::vector<ui::Mark>& marks, const std::vector<Problem>& problems) {
  for (const Problem& problem : problems) marks.push_back({problem.control, problem.message});
}

}  // namespace

EditorView::EditorView(Program& program, std::unique_ptr<session::StudySession> session, QWidget* parent)
    : QWidget(parent),
      program_(program),
      session_(std::move(session)),
      name_(new QLineEdit(QString::fromStdString(session_->Name()), this)),
      state_(new QLabel(this)),
      tabs_(new QTabWidget(this)) {
  auto* nameLabel = new QLabel(QStringLiteral("Stud&y name:"), this);
  nameLabel->setBuddy(name_);
  name_->setObjectName(QStringLiteral("studyName"));
  name_->setAccessibleName(QStringLiteral("Study name"));
  tabs_->setObjectName(QStringLiteral("tabs"));

  auto* check = new QPushButton(QStringLiteral("Chec&k"), this);
  auto* copy = new QPushButton(QStringLiteral("Save as Co&py..."), this);
  auto* save = new QPushButton(QStringLiteral("Sa&ve"), this);
  check->setObjectName(QStringLiteral("check"));
  copy->setObjectName(QStringLiteral("saveCopy"));
  save->setObjectName(QStringLiteral("save"));

  if (program_.IsReadOnly()) {
    for (QPushButton* button : {copy, save}) {
      button->setEnabled(false);
      button->setToolTip(QStringLiteral("The study database is read-only."));
    }
  }

  auto* top = new QHBoxLayout;
  top->addWidget(nameLabel);
  top->addWidget(name_, 1);
  auto* bottom = new QHBoxLayout;
  bottom->addWidget(state_, 1);
  bottom->addWidget(check);
  bottom->addWidget(copy);
  bottom->addWidget(save);
  auto* all = new QVBoxLayout(this);
  all->addLayout(top);
  if (Tab* header = session_->Header()) {
    header_ = new qt::PageView(*header, header->Layout(), this, qt::PageView::Shape::Strip);
    header_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    top->addWidget(header_, 1);
  }
  all->addWidget(tabs_, 1);
  all->addLayout(bottom);

  AddPages();
  markTimer_.setSingleShot(true);
  markTimer_.setInterval(kMarkDelayMs);
  connect(&markTimer_, &QTimer::timeout, this, [this] { ShowMarks(); });
  connect(name_, &QLineEdit::textEdited, this,
          [this](const QString& text) { session_->SetName(text.toStdString()); });
  connect(check, &QPushButton::clicked, this, [this] { Check(); });
  connect(copy, &QPushButton::clicked, this, [this] { SaveCopy(); });
  connect(save, &QPushButton::clicked, this, [this] { Save(); });

  session_->Changed.Connect([this] {
    StartMarking();
    ShowState();
  });
  session_->TabRequired.Connect([this](const std::string& name) { ShowTab(name); });
  session_->HourglassShown.Connect([](bool shown) {
    if (shown) {
      QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
      QApplication::restoreOverrideCursor();
    }
  });
  ShowState();
  if (!session_->IsNew()) ShowMarks();
}

EditorView::~EditorView() = default;

void EditorView::AddPages() {
  for (const auto& tab : session_->Tabs()) {
    auto* page = new qt::PageView(*tab, tab->Layout(), tabs_);
    pages_.push_back(page);
    tabs_->addTab(page, QString::fromStdString(tab->Title()));
  }
  connect(tabs_, &QTabWidget::currentChanged, this, [this](int index) {
    session_->NotifyTabShown(session_->Tabs()[static_cast<std::size_t>(index)]->Name());
  });
}

struct EditorView::DropTarget {
  Tab* tab = nullptr;
  XDDListView* list = nullptr;
};

EditorView::DropTarget EditorView::FindDropTarget() const {
  for (const auto& tab : session_->Tabs()) {
    if (const auto lists = DropListsOf(*tab); !lists.empty()) return {tab.get(), lists.front()};
  }
  return {};
}

bool EditorView::TakesEntities() const {
  return FindDropTarget().list != nullptr;
}

void EditorView::AddEntities(const std::vector<host::DraggedNode>& nodes) {
  const DropTarget target = FindDropTarget();
  if (!target.list) return;
  ShowTab(target.tab->Name());
  target.list->DropNodes(nodes);
}

void EditorView::ShowTab(const std::string& name) {
  const auto& tabs = session_->Tabs();
  const auto found =
      std::find_if(tabs.begin(), tabs.end(), [&](const auto& tab) { return tab->Name() == name; });
  if (found != tabs.end()) tabs_->setCurrentIndex(static_cast<int>(found - tabs.begin()));
}

void EditorView::ShowState() {
  const QString name = QString::fromStdString(session_->Name());
  if (name_->text() != name) name_->setText(name);
  QString state = session_->IsNew() ? QStringLiteral("New study, not saved yet")
                                    : QStringLiteral("Study %1").arg(session_->ID());
  if (session_->Data() == store::KindData::Missing) state += QStringLiteral(", its stored data are missing");
  if (session_->Modified() && !session_->IsNew()) state += QStringLiteral(", unsaved changes");
  if (program_.IsReadOnly()) state += QStringLiteral(" (read-only)");
  state_->setText(state);
  TitleChanged.Raise();
}

void EditorView::StartMarking() {
  marking_ = true;
  markTimer_.start();
}

std::vector<ui::Mark> EditorView::MarksOf(Tab& tab) const {
  std::vector<ui::Mark> marks;
  if (marking_) AddMarks(marks, tab.Problems());
  AddMarks(marks, tab.Findings());
  return marks;
}

void EditorView::ShowMarks() {
  std::vector<ui::Mark> headerMarks;
  if (header_) {
    headerMarks = MarksOf(*session_->Header());
    header_->ShowMarks(headerMarks);
  }
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    std::vector<ui::Mark> marks = MarksOf(*session_->Tabs()[i]);
    tabs_->setTabIcon(static_cast<int>(i),
                      marks.empty() ? QIcon() : style()->standardIcon(QStyle::SP_MessageBoxWarning));
    marks.insert(marks.begin(), headerMarks.begin(), headerMarks.end());
    pages_[i]->ShowMarks(marks);
  }
}

/// Runs a save; whatever goes wrong is told once.
template <class Action>
bool EditorView::Attempt(Action action) {
  marking_ = true;
  bool stored = false;
  try {
    stored = action();
  } catch (const store::StudyConflict& conflict) {
    ResolveConflict(conflict);
  } catch (const store::ScenarioDeleted& error) {
    Tell(error.what());
    program_.AnnounceScenarios();
  } catch (const std::exception& error) {
    Tell(std::string("The study was not saved: ") + store::FailureText(error) +
         "\r\n\r\nYour input is still here.");
    if (session_->NameProblem()) name_->setFocus();
  }
  ShowMarks();
  if (stored) Stored.Raise();
  return stored;
}

bool EditorView::Save() {
  return Attempt([this] { return session_->Save(program_.UserName()); });
}

bool EditorView::SaveCopy() {
  return Attempt([this] { return StoreCopy(); });
}

bool EditorView::StoreCopy() {
  const QString proposal = QStringLiteral("Copy of ") + QString::fromStdString(session_->Name());
  const auto name =
      AskForName(this, QStringLiteral("Save as Copy"), QStringLiteral("&Name of the copy:"), proposal);
  return name && session_->SaveCopy(*name, program_.UserName());
}

void EditorView::ResolveConflict(const store::StudyConflict& conflict) {
  Question question(program_, QMessageBox::Warning, QString::fromStdString(conflict.what()),
                    QMessageBox::Cancel, this);
  const QPushButton* reload = nullptr;
  if (conflict.Why() == store::StudyConflict::Reason::Changed) {
    reload = question.addButton(QStringLiteral("&Reload"), QMessageBox::DestructiveRole);
  }
  const QPushButton* copy = question.addButton(QStringLiteral("Save as Co&py..."), QMessageBox::AcceptRole);
  question.setDefaultButton(QMessageBox::Cancel);
  question.exec();
  try {
    if (reload && question.clickedButton() == reload) session_->Reload();
  } catch (const std::exception& error) {
    TellFailure(error);
  }
  if (question.clickedButton() == copy) SaveCopy();
}

void EditorView::Check() {
  marking_ = true;
  ShowMarks();
  if (const auto problem = session_->NameProblem()) {
    Tell(*problem);
    name_->setFocus();
    return;
  }
  if (!session_->IsValid()) return;
  try {
    TellFindings(session::ProblemsOf(*session_));
  } catch (const std::exception& error) {
    TellFailure(error);
  }
}

/// What can be saved and yet cannot be right, as much of it as a person reads.
void EditorView::TellFindings(const std::vector<session::StudyProblem>& problems) {
  constexpr std::size_t kShown = 12;
  QString text = session::HasErrors(problems)
                     ? QStringLiteral("This study can be saved, but it cannot be right:")
                     : QStringLiteral("Everything on the pages of this study is valid.");
  for (std::size_t i = 0; i < problems.size() && i < kShown; ++i) {
    text += QLatin1Char('\n') + QString::fromStdString(session::ProblemText(problems[i]));
  }
  if (problems.size() > kShown) text += QStringLiteral("\nand %L1 more").arg(problems.size() - kShown);
  const auto icon = session::HasErrors(problems) ? QMessageBox::Warning : QMessageBox::Information;
  Question(program_, icon, text, QMessageBox::Ok, this).exec();
}

bool EditorView::MayClose() {
  if (!session_->Modified()) return true;
  const QString name = QString::fromStdString(session_->Name());
  const bool canSave = !program_.IsReadOnly();
  const auto ways = QMessageBox::Discard | QMessageBox::Cancel;
  Question question(
      program_, QMessageBox::Question,
      (canSave ? QStringLiteral("Save the changes to \"%1\"?")
               : QStringLiteral("Discard the changes to \"%1\"? The study database is read-only."))
          .arg(name),
      canSave ? ways | QMessageBox::Save : ways, this);
  question.setInformativeText(QStringLiteral("Changes that are not saved are lost."));
  question.setDefaultButton(canSave ? QMessageBox::Save : QMessageBox::Cancel);
  switch (question.exec()) {
    case QMessageBox::Save: return Save();
    case QMessageBox::Discard: return true;
    default: return false;
  }
}

}  // namespace kiv::client
