// The whole program through its window, with a user's keys and clicks, on real database files.

#include <QClipboard>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <array>
#include <filesystem>
#include <fstream>

#include "client/window/kept_file.h"
#include "client/window/study_list.h"
#include "database/sqlite/sqlite_database.h"
#include "host/constants.h"
#include "session/study_session.h"
#include "support/ordinary_user.h"
#include "support/window_fixture.h"

namespace kiv::client {
namespace {

TEST_F(Window, ARefusalIsShownAndLeadsToItsFieldOnWhateverPage) {
  Open();
  program_->Store().Scenarios().Add("Downtown");
  window_->NewStudy("HOM Study");
  const auto refused = [this](const char* message, const char* field) {
    EXPECT_EQ(RefusalOfSave(), message);
    EXPECT_EQ(FocusName(), field);
  };
  refused("Please select a scenario.", "fdocCBScenario");
  const auto name = [this](QWidget&) {
    user_.Type("downtown");
    user_.Press(Qt::Key_Return);
  };
  const auto told = [](QWidget& message) {
    EXPECT_EQ(qobject_cast<QMessageBox*>(&message)->text(),
              "There is already a scenario named \"downtown\". Choose another name.");
    message.close();
  };
  user_.During([&] { user_.Click("cmdNewScenario"); }, {name, told});
  user_.Choose("fdocCBScenario", "Downtown");
  user_.Fill("txtPath", QString::fromStdString(folder_.Path()));
  user_.Fill("txtFilename", "ni. ght");  // neither the dot nor the blank arrives
  user_.Fill("txtDuration", "1439");
  user_.ClickTab("tabs", 1);
  user_.Click("chkAMPS");
  user_.ClickTab("tabs", 2);
  refused("You must select at least one Handoff Type.", "chkAMPS");
  EXPECT_EQ(window_->findChild<QTabWidget*>("tabs")->currentIndex(), 1);
  user_.Click("cmdTDMA");
  user_.Fill("studyName", " ");
  EXPECT_THAT(RefusalOfSave(), HasSubstr("Please give the study a name."));
  user_.Fill("studyName", "Nights");
  Save();
  ASSERT_EQ(Stored().size(), 1U);
  EXPECT_EQ(Stored()[0].name, "Nights");
}

TEST_F(Window, AStoredValueThatNoPageMakesIsMarkedAndToldByCheck) {
  Open();
  StoreStudy();
  program_->Store().Database().ExecuteSql("UPDATE KIV_HomStudy SET HomMode = 9");
  window_->OpenStudy(Stored()[0].id);
  const std::string fault = "HomMode must be between 0 and 2, not 9";
  user_.ClickTab("tabs", 1);
  EXPECT_EQ(The<QWidget>("cboModeSelection").toolTip().toStdString(), fault);
  const QString told = user_.MessageDuring([this] { user_.Press(Qt::Key_K, Qt::ControlModifier); });
  EXPECT_EQ(told.toStdString(), "This study can be saved, but it cannot be right:\nDetail: " + fault);
}

TEST_F(Window, UnsavedInputIsAskedAbout) {
  Open();
  StartStudy();
  const auto close = [this] { CloseStudy(); };
  Answer(close, "Cancel");
  ASSERT_NE(window_->CurrentEditor(), nullptr);
  Answer([this] { window_->close(); }, "Cancel");
  EXPECT_TRUE(window_->isVisible());
  Answer(close, "Save");
  EXPECT_EQ(window_->CurrentEditor(), nullptr);
  ASSERT_EQ(Stored().size(), 1U);

  window_->OpenStudy(Stored()[0].id);
  close();  // nothing changed, nothing asked
  EXPECT_EQ(window_->CurrentEditor(), nullptr);
  window_->OpenStudy(Stored()[0].id);
  user_.Fill("txtDuration", "99");
  Answer(close, "Discard");
  EXPECT_EQ(Stored()[0].duration, 30);
}

TEST_F(Window, UnsavedInputOutlastsTheProgramAndItsDatabase) {
  Open();
  StoreStudy("Day");
  StartStudy();
  user_.Fill("studyName", "Night");
  user_.Fill("txtDuration", "5");
  const QByteArray data = qgetenv("XDG_DATA_HOME");
  qputenv("XDG_DATA_HOME", database_.c_str());  // no folder
  window_->NewStudy("PLM Study");
  user_.Fill("studyName", "Given up");
  EXPECT_FALSE(window_->EndKeepingInput());
  EXPECT_TRUE(window_->isVisible()) << "what cannot be kept stays open";
  Answer([this] { CloseStudy(); }, "Discard");
  qputenv("XDG_DATA_HOME", data);
  ASSERT_TRUE(window_->EndKeepingInput());
  window_ = std::make_unique<MainWindow>(*program_);
  window_->show();
  EXPECT_THAT(user_.MessageDuring([this] { Open(); }).toStdString(),
              StartsWith("A study with unsaved changes"));
  EXPECT_EQ(TextOf("studyName") + TextOf("txtDuration"), "Night5");
  EXPECT_TRUE(KeptFile::Found().empty()) << "another window leaves it alone";
  user_.Fill("txtDuration", "45");
  Save();
  EXPECT_EQ(Stored().size(), 2U);

  window_->OpenStudy(Stored()[0].id);
  user_.Fill("studyName", "Taken");
  const std::string other = folder_.File("other.db");
  const auto change = [&] { window_->OpenDatabase(other, Program::WhenMissing::Create); };
  Answer(change, "Cancel");
  std::filesystem::remove(database_);
  Answer(change, "Take Along");
  EXPECT_EQ(TextOf("studyName"), "Taken");
  program_->Store().Scenarios().Add("Harbour");
  program_->AnnounceScenarios();
  user_.Choose("fdocCBScenario", "Harbour");
  Save();
  ASSERT_EQ(Stored().size(), 1U);
  EXPECT_EQ(Stored()[0].name, "Taken");
  window_.reset();
  EXPECT_TRUE(KeptFile::Found().empty()) << "what was saved is not kept";
}

TEST_F(Window, ADatabaseThatCannotBeOpenedIsExplainedAndLeavesTheOpenOne) {
  window_->OpenDatabase(database_, Program::WhenMissing::Refuse);
  EXPECT_THAT(TextOf("startText"), HasSubstr("does not exist"));
  EXPECT_TRUE(user_.Find("networkEmpty")->isVisible());
  EXPECT_FALSE(window_->findChild<QWidget*>("networkImport")->isVisible());
  PressButton(*window_, "Create It");
  EXPECT_THAT(TextOf("startText"), HasSubstr(database_));
  StartStudy();
  const std::string foreign = folder_.File("letter.txt");
  std::ofstream(foreign) << "Dear Sir";
  for (const auto& refused :
       {std::pair{foreign, "not a study database"}, {folder_.File("none.db"), "does not exist"}}) {
    const QString message =
        user_.MessageDuring([&] { window_->OpenDatabase(refused.first, Program::WhenMissing::Refuse); });
    EXPECT_TRUE(message.contains(refused.second) && !message.contains("kivstudy init"))
        << message.toStdString();
  }
  ASSERT_NE(window_->CurrentEditor(), nullptr);
  Save();
  EXPECT_EQ(Stored().size(), 1U);
  EXPECT_EQ(program_->Store().Database().Name(), database_);
}

TEST_F(Window, WithoutADisplayTheCommandsAreNamed) {
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  const std::array names = {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"};
  for (const char* name : names) qunsetenv(name);
  testing::internal::CaptureStderr();
  const int exitCode = RunWindow(0, nullptr, {});
  const std::string message = testing::internal::GetCapturedStderr();
  qputenv("QT_QPA_PLATFORM", platform);
  EXPECT_EQ(exitCode, kRefused);
  EXPECT_THAT(message, HasSubstr("kivstudy --help"));
}

TEST_F(Window, NamesAreShownAsTheyAre) {
  Open();
  StartStudy();
  const QString name = "R&D <b>downtown</b> in the early hours of the day";
  user_.Fill("studyName", name);
  const QString tab = Editors().tabText(1);
  EXPECT_TRUE(tab.startsWith("R&&D <b>") && tab.endsWith(" *")) << tab.toStdString();
  EXPECT_LT(tab.size(), name.size());
  user_.During([this] { CloseStudy(); },
               [&](QWidget& question) {
                 EXPECT_EQ(qobject_cast<QMessageBox*>(&question)->textFormat(), Qt::PlainText);
                 PressButton(question, "Cancel");
               });
}

TEST_F(Window, AStudyWithoutDataIsTold) {
  Open();
  StoreStudy();
  program_->Store().Database().ExecuteSql("DELETE FROM KIV_HomStudy");
  EXPECT_TRUE(user_.MessageDuring([this] { window_->OpenStudy(1); }).contains("are missing"));
  EXPECT_NE(window_->CurrentEditor(), nullptr);
}

TEST_F(Window, ADeletedScenarioLeavesTheChooser) {
  Open();
  StartStudy();
  program_->Store().Scenarios().Add("Harbour");
  program_->Store().Scenarios().Remove(program_->Store().Scenarios().List()[0].id);
  EXPECT_THAT(RefusalOfSave(), HasSubstr("Choose another one"));
  user_.Choose("fdocCBScenario", "Harbour");
  user_.Fill("txtFilename", "a$ID");
  EXPECT_THAT(TextOf("lblPreview"), HasSubstr("a0000000.hom"));
  Save();
  EXPECT_EQ(Stored().size(), 1U);
  EXPECT_THAT(TextOf("lblPreview"), HasSubstr("a0000001.hom"));
}

/// Presses Cancel as soon as the window shows that it waits, which it does with its timers at rest.
class WaitCanceller : public QObject {
 public:
  WaitCanceller() { qApp->installEventFilter(this); }

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override {
    auto* button = qobject_cast<QPushButton*>(receiver);
    if (button && event->type() == QEvent::Paint && button->window()->objectName() == "wait") {
      QMetaObject::invokeMethod(button, &QPushButton::click, Qt::QueuedConnection);
    }
    return false;
  }
};

TEST_F(Window, ALockedDatabaseCostsNoInput) {
  Open();
  StartStudy();
  const auto other = database::SqliteDatabase::Open(database_, database::OpenMode::MustExist);
  other->ExecuteSql("BEGIN EXCLUSIVE");
  EXPECT_THAT(RefusalOfSave(), HasSubstr("in use by another program"));
  const WaitCanceller canceller;
  QElapsedTimer wait;
  wait.start();
  EXPECT_THAT(RefusalOfSave(), HasSubstr("was cancelled"));
  EXPECT_LT(wait.elapsed(), 4000);
  EXPECT_EQ(TextOf("txtPath"), folder_.Path());
  other->ExecuteSql("COMMIT");
  Save();
  EXPECT_EQ(Stored().size(), 1U);
}

TEST_F(Window, AReadOnlyDatabaseCanBeReadAndSaysWhyNotWritten) {
  const test::OpenFolder open;
  database_ = open.File("studies.db");
  Open();
  StoreStudy();
  using std::filesystem::perms;
  std::filesystem::permissions(database_, perms::owner_read | perms::group_read | perms::others_read);
  const test::AsOrdinaryUser user;
  Open();
  ASSERT_NE(window_->OpenStudy(1), nullptr);
  user_.Fill("txtDuration", "77");
  for (const char* button : {"save", "saveCopy"}) {
    EXPECT_FALSE(user_.Find(button)->isEnabled());
    EXPECT_TRUE(user_.Find(button)->toolTip().contains("read-only"));
  }
  Answer([this] { CloseStudy(); }, "Discard");
  for (const auto* action : window_->findChildren<QAction*>()) {
    EXPECT_FALSE(action->text().startsWith("New &") && action->isEnabled()) << action->text().toStdString();
  }
}

TEST_F(Window, TheLaterOfTwoEditorsMaySaveACopy) {
  Open();
  StartStudy();
  Save();
  session::StudySession elsewhere(program_->Store(), program_->Store().Load(1));
  elsewhere.SetName("Changed elsewhere");
  ASSERT_TRUE(elsewhere.Save("bob"));
  user_.Fill("txtDuration", "55");
  user_.During([this] { Save(); }, {[](QWidget& conflict) { PressButton(conflict, "Save as Copy..."); },
                                    [this](QWidget&) { user_.Press(Qt::Key_Return); }});
  const auto studies = Stored();
  ASSERT_EQ(studies.size(), 2U);
  EXPECT_EQ(studies[0].name, "Changed elsewhere");
  EXPECT_EQ(studies[1].duration, 55);
}

TEST_F(Window, StudiesAreFoundSortedAndDeleted) {
  Open();
  for (const char* name : {"Bravo", "alpha", "Charlie"}) StoreStudy(name);
  const QAbstractItemModel& shown = *window_->List().View().model();
  const auto name = [&](int row) { return shown.index(row, StudyTable::kName).data().toString(); };
  window_->List().View().sortByColumn(StudyTable::kName, Qt::AscendingOrder);
  EXPECT_EQ(name(0) + name(1) + name(2), "alphaBravoCharlie");
  user_.Press(Qt::Key_F, Qt::ControlModifier);
  user_.Type("downtown CHAR");
  ASSERT_EQ(shown.rowCount(), 1);
  EXPECT_EQ(name(0), "Charlie");
  window_->List().SelectStudy(3);
  user_.Press(Qt::Key_Delete, Qt::ControlModifier);  // in the box it deletes words
  EXPECT_EQ(Stored().size(), 3U);
  window_->OpenStudy(3);
  Editors().setCurrentIndex(0);
  window_->List().View().setFocus();
  user_.During([this] { user_.Press(Qt::Key_Delete, Qt::ControlModifier); },
               [](QWidget& question) {
                 const QString text = qobject_cast<QMessageBox*>(&question)->text();
                 EXPECT_TRUE(text.contains("\"Charlie\"") && text.contains("open in an editor"));
                 PressButton(question, "Delete");
               });
  EXPECT_EQ(Stored().size(), 2U);
  EXPECT_EQ(Editors().count(), 1);

  // Now no row is shown: no key finds one, and least of all one that is hidden.
  QApplication::clipboard()->clear();
  for (const Qt::Key key : {Qt::Key_C, Qt::Key_A, Qt::Key_Delete}) user_.Press(key, Qt::ControlModifier);
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Down, Qt::Key_Home}) user_.Press(key);
  EXPECT_EQ(QApplication::clipboard()->text(), "");
  EXPECT_EQ(Stored().size(), 2U);
}

TEST_F(Window, SettingsAndScenariosAreChangedInTheirDialogs) {
  Open();
  user_.During([&] { Trigger("Settings..."); },
               [&](QWidget&) {
                 user_.Fill("applicationTitle", "Network Studies");
                 user_.Fill("phoneNumberMask", "###-####");
                 user_.Press(Qt::Key_Return);
               });
  EXPECT_EQ(window_->windowTitle(), "Network Studies");
  EXPECT_EQ(program_->Settings().General(host::kPhoneNumberMask), "###-####");

  program_->Store().Scenarios().Add("Downtown");
  window_->NewStudy("HOM Study");
  user_.Choose("fdocCBScenario", "Downtown");
  user_.During([&] { Trigger("Scenarios..."); },
               [&](QWidget& dialog) {
                 user_.During([&] { PressButton(dialog, "Rename..."); },
                              [&](QWidget&) {
                                user_.Press(Qt::Key_A, Qt::ControlModifier);
                                user_.Type("Harbour");
                                user_.Press(Qt::Key_Return);
                              });
                 PressButton(dialog, "Close");
               });
  EXPECT_EQ(program_->Store().Scenarios().List()[0].name, "Harbour");
  EXPECT_EQ(TextOf("fdocCBScenario"), "Harbour");
}

}  // namespace
}  // namespace kiv::client

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  const kiv::test::WindowApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
