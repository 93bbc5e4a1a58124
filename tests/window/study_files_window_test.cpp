// Files with studies, and the history of studies, through the window.

#include <gmock/gmock.h>

#include <QClipboard>
#include <QFile>
#include <QTableView>
#include <QTableWidget>
#include <fstream>

#include "client/window/editor_view.h"
#include "client/window/study_list.h"
#include "support/window_fixture.h"

namespace kiv::client {
namespace {

class StudyFilesWindow : public Window {
 protected:
  StudyFilesWindow() {
    Open();
    StoreStudy("First");
    StoreStudy("Second");
  }

  QString Text(const QString& file) const {
    QFile read(file);
    EXPECT_TRUE(read.open(QIODevice::ReadOnly));
    return QString::fromUtf8(read.readAll());
  }
  QString Result() const { return qobject_cast<QLabel*>(user_.Find("importResult"))->text(); }
};

TEST_F(StudyFilesWindow, SelectedStudiesAreExportedCorrectedAndImported) {
  const QString file = QString::fromStdString(folder_.File("studies.json"));
  const auto write = [&](const QString& text) {
    std::ofstream(folder_.File("studies.json")) << text.toStdString();
  };
  QTableView& list = window_->List().View();
  list.clearSelection();
  window_->ExportStudies(file);
  EXPECT_EQ(Text(file).count("\"name\""), 2);
  list.selectRow(1);
  window_->ExportStudies(file);
  EXPECT_EQ(Text(file).count("\"name\""), 1);
  const QString good = Text(file);
  EXPECT_TRUE(good.contains("\"name\": \"Second\""));

  write(QString(good).replace("Minutes\": 30", "Minutes\": 5").replace("Downtown", "Harbour"));
  user_.During([&] { window_->ImportStudies({file}); },
               [&](QWidget&) {
                 EXPECT_TRUE(Result().startsWith("1 problem found.")) << Result().toStdString();
                 auto& problems = *qobject_cast<QTableView*>(user_.Find("importProblems"));
                 problems.selectRow(0);
                 problems.setFocus();
                 user_.Press(Qt::Key_C, Qt::ControlModifier);
                 EXPECT_THAT(
                     QApplication::clipboard()->text().toStdString(),
                     ::testing::HasSubstr("studies.json: study 1 \"Second\": General: Study Duration"));
                 write(QString(good).replace("Downtown", "Harbour"));
                 user_.Click("importCheck");
                 EXPECT_TRUE(Result().contains("makes the scenario \"Harbour\"")) << Result().toStdString();
                 user_.Click("importRun");
               });
  const auto studies = program_->Store().List();
  ASSERT_EQ(studies.size(), 3U);
  EXPECT_EQ(studies[2].name, "Second");
  EXPECT_EQ(studies[2].scenario, "Harbour");
  EXPECT_EQ(list.model()->rowCount(), 3);
}

TEST_F(StudyFilesWindow, AStateAndADeletedStudyComeBack) {
  store::StudyStore& store = program_->Store();
  EditorView* editor = window_->OpenStudy(1);
  ASSERT_NE(editor, nullptr);
  editor->Session().SetName("First, renamed");
  ASSERT_TRUE(editor->Save());
  const auto inHistory = [this](QWidget&) {
    auto& revisions = *qobject_cast<QTableWidget*>(user_.Find("revisions"));
    EXPECT_FALSE(user_.Find("restore")->isEnabled()) << "the newest is there already";
    EXPECT_EQ(revisions.item(0, 4)->text(), "name");
    const auto& differences = *qobject_cast<QTableWidget*>(user_.Find("differences"));
    EXPECT_EQ(differences.item(0, 2)->text(), "First");
    EXPECT_EQ(differences.item(0, 3)->text(), "First, renamed");
    revisions.selectRow(1);
    user_.Click("restore");
  };
  user_.During([this] { Trigger("History..."); }, inHistory);
  EXPECT_EQ(editor->Session().Name(), "First");
  EXPECT_FALSE(editor->Session().Modified());

  // What somebody has typed stays, and the restored state is not saved over.
  editor->Session().SetName("Typed");
  user_.During([&] { Trigger("History..."); },
               {[&](QWidget&) {
                  qobject_cast<QTableWidget*>(user_.Find("revisions"))->selectRow(1);
                  user_.Click("restore");
                },
                [](QWidget& told) { told.close(); }});
  EXPECT_EQ(editor->Session().Name(), "Typed");
  EXPECT_EQ(store.Load(1).name, "First, renamed");

  store.Remove(2, "eve");
  user_.During([&] { Trigger("Deleted Studies..."); },
               [&](QWidget& dialog) {
                 EXPECT_EQ(qobject_cast<QTableWidget*>(user_.Find("deletedStudies"))->item(0, 2)->text(),
                           "Second");
                 user_.Click("restoreDeleted");
                 EXPECT_FALSE(user_.Find("restoreDeleted")->isEnabled());
                 dialog.close();
               });
  EXPECT_EQ(store.Load(2).name, "Second");
  EXPECT_EQ(window_->List().View().model()->rowCount(), 2);
}

}  // namespace
}  // namespace kiv::client
