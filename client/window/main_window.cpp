#include "client/window/main_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFileDialog>
#include <QLabel>
#include <QMenuBar>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTextDocument>
#include <exception>
#include <utility>

#include "client/window/dialogs.h"
#include "client/window/editor_view.h"
#include "client/window/entity_tree.h"
#include "client/window/kept_file.h"
#include "client/window/kind_icon.h"
#include "client/window/messages.h"
#include "client/window/network_dialog.h"
#include "client/window/question.h"
#include "client/window/start_page.h"
#include "client/window/study_list.h"
#include "client/window/window_settings.h"
#include "core/study_kinds.h"
#include "database/open_error.h"
#include "session/study_session.h"

namespace kiv::client {

namespace {

constexpr const char* kGeometryKey = "Window/Geometry";
constexpr const char* kStateKey = "Window/State";
constexpr const char* kFileFilter = "Study databases (*.db);;All files (*)";

constexpr const char* kReadOnlyHint = "The study database is read-only.";
constexpr int kTabCharacters = 32;  // longer names are cut on the tab of their editor

/// Each kind has its initial as the mnemonic.
QString NewCaption(const std::string& kind) {
  return QStringLiteral("New &") + QString::fromStdString(kind);
}

}  // namespace

MainWindow::MainWindow(Program& program)
    : program_(program),
      tabs_(new QTabWidget(this)),
      home_(new QStackedWidget(tabs_)),
      startPage_(new StartPage(home_)),
      list_(new StudyListPage(program, home_)),
      networkDock_(new QDockWidget(QStringLiteral("Network"), this)),
      network_(new EntityTree(program.Drag(), networkDock_)),
      databaseLabel_(new QLabel(this)),
      userLabel_(new QLabel(this)) {
  home_->addWidget(startPage_);
  home_->addWidget(list_);
  tabs_->addTab(home_, QStringLiteral("Studies"));
  tabs_->setTabsClosable(true);
  tabs_->setDocumentMode(true);
  tabs_->setMovable(false);
  for (const auto side : {QTabBar::LeftSide, QTabBar::RightSide})
    tabs_->tabBar()->setTabButton(0, side, nullptr);
  setCentralWidget(tabs_);
  statusBar()->addWidget(databaseLabel_, 1);
  statusBar()->addPermanentWidget(userLabel_);
  for (QLabel* label : {databaseLabel_, userLabel_}) label->setTextFormat(Qt::PlainText);
  userLabel_->setText(QStringLiteral("User: ") + QString::fromStdString(program_.UserName()));
  AddNetwork();
  AddMenus();

  list_->View().setSelectionMode(QAbstractItemView::ExtendedSelection);
  list_->StudyActivated.Connect([this](std::int32_t id) { OpenStudy(id); });
  list_->SelectionChanged.Connect([this] { ShowState(); });
  list_->Reader().Failed.Connect(TellFailure);
  connect(tabs_, &QTabWidget::tabCloseRequested, this, [this](int index) { CloseEditor(index); });
  connect(tabs_, &QTabWidget::currentChanged, this, [this] { ShowState(); });
  settingsChanged_ = host::TheEvents().appGeneralState_StateChange.Connect([this] { ShowState(); });

  resize(fontMetrics().averageCharWidth() * 226, fontMetrics().height() * 48);
  const QSettings settings = WindowSettings(program_.Settings());
  restoreGeometry(settings.value(QLatin1String(kGeometryKey)).toByteArray());
  restoreState(settings.value(QLatin1String(kStateKey)).toByteArray());
  list_->RestoreColumns(settings);
  ShowNoDatabase({}, {}, false);
}

MainWindow::~MainWindow() = default;

QAction* MainWindow::AddAction(QMenu& menu, const QString& text, const QKeySequence& keys,
                               std::function<void()> run) {
  QAction* action = menu.addAction(text);
  action->setShortcut(keys);
  connect(action, &QAction::triggered, this, [this, run = std::move(run)] { Guarded(run); });
  return action;
}

void MainWindow::AddMenus() {
  QMenu& file = *menuBar()->addMenu(QStringLiteral("&File"));
  AddAction(file, QStringLiteral("&Open Database..."), {}, [this] { ChooseDatabase(false); });
  AddAction(file, QStringLiteral("&New Database..."), {}, [this] { ChooseDatabase(true); });
  file.addSeparator();
  AddAction(file, QStringLiteral("&Quit"), QKeySequence::Quit, [this] { close(); });

  QMenu& study = *menuBar()->addMenu(QStringLiteral("&Study"));
  study.setToolTipsVisible(true);
  for (const StudyKind& known : StudyKinds()) {
    const std::string kind = known.name;
    const bool first = databaseActions_.empty();
    QAction* action =
        AddAction(study, NewCaption(kind), first ? QKeySequence(QKeySequence::New) : QKeySequence(),
                  [this, kind] { NewStudy(kind); });
    action->setIcon(KindIcon(kind));
    databaseActions_.push_back(action);
    writingActions_.push_back(action);
  }
  AddEditorActions(study);
  AddFileActions(study);
  AddToolsMenu();
}

void MainWindow::AddToolsMenu() {
  QMenu& tools = *menuBar()->addMenu(QStringLiteral("&Tools"));
  tools.setToolTipsVisible(true);
  databaseActions_.push_back(AddAction(tools, QStringLiteral("&Scenarios..."), {}, [this] {
    EditScenarios(program_, this);
    RefreshStudies();
  }));
  writingActions_.push_back(databaseActions_.back());
  databaseActions_.push_back(
      AddAction(tools, QStringLiteral("&Import Network..."), {}, [this] { ImportNetwork(); }));
  tools.addSeparator();
  AddAction(tools, QStringLiteral("&Find in Network"), QKeySequence(QStringLiteral("Ctrl+Shift+F")), [this] {
    networkDock_->show();
    network_->FocusSearch();
  });
  QAction* showNetwork = networkDock_->toggleViewAction();
  showNetwork->setText(QStringLiteral("Show &Network"));
  tools.addAction(showNetwork);
  tools.addSeparator();
  AddAction(tools, QStringLiteral("Se&ttings..."), QKeySequence::Preferences,
            [this] { EditSettings(program_, this); });
}

void MainWindow::AddNetwork() {
  networkDock_->setObjectName(QStringLiteral("networkDock"));
  networkDock_->setWidget(network_);
  addDockWidget(Qt::LeftDockWidgetArea, networkDock_);
  resizeDocks({networkDock_}, {fontMetrics().averageCharWidth() * 56}, Qt::Horizontal);
  network_->ImportWanted.Connect([this] { Guarded([this] { ImportNetwork(); }); });
}

void MainWindow::ImportNetwork() {
  if (ImportNetworkByDialog(program_, this)) RefreshNetwork();
}

void MainWindow::RefreshNetwork() {
  network_->SetEntities(store::NetworkEntities::Load(program_.Store().Database()));
}

void MainWindow::AddEditorActions(QMenu& study) {
  study.addSeparator();
  listActions_.push_back(
      AddAction(study, QStringLiteral("&Open"), QKeySequence(QStringLiteral("Ctrl+O")), [this] {
        if (const auto id = list_->SelectedStudy()) OpenStudy(*id);
      }));
  listActions_.push_back(AddAction(study, QStringLiteral("&Delete..."),
                                   QKeySequence(QStringLiteral("Ctrl+Del")),
                                   [this] { DeleteSelectedStudy(); }));
  writingActions_.push_back(listActions_.back());
  // In a text box these keys delete a word.
  listActions_.back()->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  databaseActions_.push_back(AddAction(study, QStringLiteral("&Find"), QKeySequence::Find, [this] {
    tabs_->setCurrentIndex(0);
    list_->FocusFilter();
  }));
  databaseActions_.push_back(AddAction(study, QStringLiteral("R&efresh"), QKeySequence::Refresh, [this] {
    RefreshStudies();
    RefreshNetwork();
  }));
  for (QAction* action : listActions_) list_->View().addAction(action);
  study.addSeparator();
  editorActions_ = {
      AddAction(study, QStringLiteral("&Save"), QKeySequence::Save, [this] { CurrentEditor()->Save(); }),
      AddAction(study, QStringLiteral("Save as &Copy..."), QKeySequence(QStringLiteral("Ctrl+Shift+S")),
                [this] { CurrentEditor()->SaveCopy(); }),
      AddAction(study, QStringLiteral("Chec&k"), QKeySequence(QStringLiteral("Ctrl+K")),
                [this] { CurrentEditor()->Check(); }),
      AddAction(study, QStringLiteral("C&lose"), QKeySequence(QStringLiteral("Ctrl+W")),
                [this] { CloseEditor(tabs_->currentIndex()); }),
  };
  writingActions_.insert(writingActions_.end(), editorActions_.begin(), editorActions_.begin() + 2);
}

/// What a command raises is told to the user in one message.
template <class Action>
void MainWindow::Guarded(Action action) {
  try {
    action();
  } catch (const std::exception& error) {
    TellFailure(error);
  }
}

void MainWindow::OpenDatabase(const std::string& path, Program::WhenMissing whenMissing) {
  std::shared_ptr<database::SqlConnection> connection;
  try {
    connection = program_.Connect(path, whenMissing);
  } catch (const database::OpenError& error) {
    if (program_.HasDatabase()) {
      TellFailure(error);  // and the one that is open stays so, with its editors
    } else {
      ShowNoDatabase(path, error.what(), error.CanBeCreated());
    }
    return;
  }
  const auto along = LeaveEditors();
  if (!along) return;
  program_.Use(std::move(connection));
  list_->ForgetStudies();
  home_->setCurrentWidget(list_);
  Guarded([this] {
    RefreshStudies();
    RefreshNetwork();
  });
  Guarded([this, &along] {
    TakeAlong(*along);
    BringBackKeptInput();
  });
}

void MainWindow::ChooseDatabase(bool create) {
  const QString title = create ? QStringLiteral("New Study Database") : QStringLiteral("Open Study Database");
  const QString filter = QLatin1String(kFileFilter);
  const QString path = create
                           ? QFileDialog::getSaveFileName(this, title, QStringLiteral("studies.db"), filter)
                           : QFileDialog::getOpenFileName(this, title, {}, filter);
  if (path.isEmpty()) return;
  OpenDatabase(path.toStdString(), create ? Program::WhenMissing::Create : Program::WhenMissing::Refuse);
}

void MainWindow::ShowNoDatabase(const std::string& path, const std::string& problem, bool canCreate) {
  std::vector<StartPage::Choice> choices;
  if (canCreate) {
    choices.push_back(
        {QStringLiteral("&Create It"), [this, path] { OpenDatabase(path, Program::WhenMissing::Create); }});
  } else if (!path.empty()) {
    choices.push_back(
        {QStringLiteral("Try &Again"), [this, path] { OpenDatabase(path, Program::WhenMissing::Refuse); }});
  }
  choices.push_back({QStringLiteral("&Open Another Database..."), [this] { ChooseDatabase(false); }});
  startPage_->Show(QStringLiteral("No study database is open"), QString::fromStdString(problem), choices);
  home_->setCurrentWidget(startPage_);
  if (!program_.HasDatabase()) network_->ShowNoDatabase();
  ShowState();
}

void MainWindow::ShowEmptyPage() {
  home_->setCurrentWidget(startPage_);
  if (program_.IsReadOnly()) {
    startPage_->Show(
        QStringLiteral("No studies"),
        QStringLiteral("%1 has no studies, and none can be stored in it: it is read-only. Ask for "
                       "permission to write it, or use another database.")
            .arg(QString::fromStdString(program_.Store().Database().Name())),
        {{QStringLiteral("&Open Another Database..."), [this] { ChooseDatabase(false); }}});
    return;
  }
  const QString text =
      QStringLiteral(
          "A KIV study tells the switch what to record, for how long, and into which data file.\n\n"
          "Start with a new study: choose its scenario (make one right there), the folder of its data "
          "file and what it records. Then save it; it is listed here from then on.\n\n"
          "Studies on ECPs or cells, that is RF call trace and VCSA, also need a network: import it once on "
          "the "
          "left, then drag its elements into the study.\n\n"
          "The studies are kept in %1.")
          .arg(databaseLabel_->text());
  std::vector<StartPage::Choice> choices;
  for (const StudyKind& known : StudyKinds()) {
    const std::string kind = known.name;
    choices.push_back({NewCaption(kind), [this, kind] { Guarded([&] { NewStudy(kind); }); }});
  }
  startPage_->Show(QStringLiteral("No studies yet"), text, choices);
}

void MainWindow::RefreshStudies() {
  list_->Reader().Start();
  ShowStudies();
}

void MainWindow::RefreshStudy(std::int32_t id) {
  list_->Update(id, program_.Store().Summary(id));
  ShowStudies();
}

void MainWindow::ShowStudies() {
  ShowState();
  if (list_->StudyCount() == 0) {
    ShowEmptyPage();
  } else {
    home_->setCurrentWidget(list_);
  }
}

EditorView* MainWindow::NewStudy(const std::string& kind) {
  store::StudyStore& store = program_.Store();
  return AddEditor(std::make_unique<session::StudySession>(store, store.New(kind)));
}

EditorView* MainWindow::FindEditor(std::int32_t id) const {
  for (int i = 1; i < tabs_->count(); ++i) {
    auto* editor = static_cast<EditorView*>(tabs_->widget(i));
    if (editor->Session().ID() == id) return editor;
  }
  return nullptr;
}

EditorView* MainWindow::OpenStudy(std::int32_t id) {
  EditorView* editor = FindEditor(id);
  if (editor) {
    tabs_->setCurrentWidget(editor);
    return editor;
  }
  Guarded([&] {
    store::StudyStore& store = program_.Store();
    editor = AddEditor(std::make_unique<session::StudySession>(store, store.Load(id)));
    if (editor->Session().Data() == store::KindData::Missing) Tell(store::MissingDataText(id));
  });
  return editor;
}

EditorView* MainWindow::AddEditor(std::unique_ptr<session::StudySession> session) {
  const QIcon icon = KindIcon(session->Kind());
  auto* editor = new EditorView(program_, std::move(session), tabs_);
  editor->TitleChanged.Connect([this, editor] { ShowTitle(*editor); });
  editor->Stored.Connect([this, editor] {
    ForgetKept(*editor);
    RefreshStudy(editor->Session().ID());
    list_->SelectStudy(editor->Session().ID());
  });
  const int index = tabs_->addTab(editor, icon, {});
  ShowTitle(*editor);
  tabs_->setCurrentIndex(index);
  return editor;
}

void MainWindow::ShowTitle(const EditorView& editor) {
  const int index = tabs_->indexOf(const_cast<EditorView*>(&editor));
  if (index < 0) return;
  const QString name = QString::fromStdString(editor.Session().Name());
  const QString cut = name.size() > kTabCharacters ? name.left(kTabCharacters) + QChar(0x2026) : name;
  // On a tab an ampersand would name the next letter as the mnemonic.
  tabs_->setTabText(index, QString(cut).replace(QLatin1Char('&'), QLatin1String("&&")) +
                               (editor.Session().Modified() ? QStringLiteral(" *") : QString()));
  tabs_->setTabToolTip(index, Qt::convertFromPlainText(name));
}

EditorView* MainWindow::CurrentEditor() const {
  return tabs_->currentIndex() > 0 ? static_cast<EditorView*>(tabs_->currentWidget()) : nullptr;
}

bool MainWindow::CloseEditor(int index) {
  auto* editor = static_cast<EditorView*>(tabs_->widget(index));
  tabs_->setCurrentIndex(index);
  if (!editor->MayClose()) return false;
  DropEditor(*editor);
  return true;
}

void MainWindow::DropEditor(EditorView& editor) {
  ForgetKept(editor);
  tabs_->removeTab(tabs_->indexOf(&editor));
  editor.deleteLater();
}

bool MainWindow::CloseAllEditors() {
  while (tabs_->count() > 1) {
    if (!CloseEditor(tabs_->count() - 1)) return false;
  }
  return true;
}

void MainWindow::DeleteSelectedStudy() {
  const auto id = list_->SelectedStudy();
  if (!id) return;
  EditorView* editor = FindEditor(*id);
  QString text = QStringLiteral("Delete study %1 \"%2\"? Study > Deleted Studies... can bring it back.")
                     .arg(*id)
                     .arg(list_->SelectedName());
  if (editor) {
    text += editor->Session().Modified()
                ? QStringLiteral("\n\nIt is open in an editor, whose unsaved changes are lost too.")
                : QStringLiteral("\n\nIt is open in an editor, which is closed then.");
  }
  Question question(program_, QMessageBox::Warning, text, QMessageBox::Cancel, this);
  const QPushButton* remove = question.addButton(QStringLiteral("&Delete"), QMessageBox::DestructiveRole);
  question.setDefaultButton(QMessageBox::Cancel);
  question.exec();
  if (question.clickedButton() != reinterpret_cast<const QAbstractButton*>(remove)) return;
  program_.Store().Remove(*id, program_.UserName());
  if (editor) DropEditor(*editor);
  RefreshStudy(*id);
}

void MainWindow::ShowState() {
  const bool hasDatabase = program_.HasDatabase();
  if (hasDatabase) {
    const database::Connection& database = program_.Store().Database();
    databaseLabel_->setText(QString::fromStdString(database.Name()) +
                            (database.ReadOnly() ? QStringLiteral(" (read-only)") : QString()));
  } else {
    databaseLabel_->setText(QStringLiteral("No database"));
  }
  const auto enable = [](const std::vector<QAction*>& actions, bool enabled) {
    for (QAction* action : actions) action->setEnabled(enabled);
  };
  enable(databaseActions_, hasDatabase);
  enable(editorActions_, CurrentEditor() != nullptr);
  enable(listActions_, hasDatabase && tabs_->currentIndex() == 0 && SelectedStudies().size() == 1);
  historyAction_->setEnabled(hasDatabase && StudyAtHand().has_value());
  EditorView* editor = CurrentEditor();
  if (editor && editor->TakesEntities()) {
    network_->SetAddToStudy(
        [this, editor](const EntityTree::Nodes& nodes) { Guarded([&] { editor->AddEntities(nodes); }); });
  } else {
    network_->SetAddToStudy(nullptr);
  }
  const bool readOnly = program_.IsReadOnly();
  for (QAction* action : writingActions_) {
    if (readOnly) action->setEnabled(false);
    action->setToolTip(readOnly ? QLatin1String(kReadOnlyHint) : QString());
  }
  setWindowTitle(QString::fromStdString(program_.Settings().ApplicationTitle()));
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (endsByItself_ ? !KeepUnsaved() : !CloseAllEditors()) {
    event->ignore();
    return;
  }
  QSettings settings = WindowSettings(program_.Settings());
  settings.setValue(QLatin1String(kGeometryKey), saveGeometry());
  settings.setValue(QLatin1String(kStateKey), saveState());
  list_->SaveColumns(settings);
  event->accept();
}

}  // namespace kiv::client
