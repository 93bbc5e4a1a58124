// A list of studies that is read page by page while the user is at work already.

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include "client/window/editor_view.h"
#include "client/window/study_list.h"
#include "support/window_fixture.h"

namespace kiv::client {
namespace {

using State = StudyReader::State;

constexpr std::size_t kPage = 100;

class StudyList : public Window {
 protected:
  static constexpr int kStudies = 2000;

  StudyList() {
    program_->OpenDatabase(database_, Program::WhenMissing::Create);
    Execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
            std::to_string(kStudies) +
            ") INSERT INTO kiv_study (kind, name, modified_by, modified_at) "
            "SELECT 'HOM Study', 'Study ' || i, 'test', 'now' FROM n");
    Execute("INSERT INTO KIV_HomStudy (Id, HomMode) SELECT id, 1 FROM kiv_study");
    Reader().SetPageSize(kPage);
    Open();
  }

  void Execute(const std::string& sql) { program_->Store().Database().ExecuteSql(sql); }
  StudyReader& Reader() { return window_->List().Reader(); }
  void ReadOnePage() {
    const std::size_t before = Reader().ReadCount();
    while (Reader().CurrentState() == State::Reading && Reader().ReadCount() == before) {
      QApplication::processEvents();
    }
  }
  void ReadToTheEnd() {
    while (Reader().CurrentState() == State::Reading) ReadOnePage();
  }
  const QAbstractItemModel& Shown() { return *window_->List().View().model(); }
  QString Shown(int row, int column) { return Shown().index(row, column).data().toString(); }
  /// What the list shows, as the database has it.
  void ExpectAllShown() {
    const auto stored = Stored();
    ASSERT_EQ(Shown().rowCount(), static_cast<int>(stored.size()));
    for (int row = 0; row < Shown().rowCount(); ++row) {
      ASSERT_EQ(Shown(row, StudyTable::kId).toInt(), stored[std::size_t(row)].id);
      ASSERT_EQ(Shown(row, StudyTable::kName).toStdString(), stored[std::size_t(row)].name);
    }
  }
};

TEST_F(StudyList, IsStoppedWorkedWithAndReadAgain) {
  ReadOnePage();
  const std::size_t read = window_->List().StudyCount();
  EXPECT_GT(read, kPage);
  ASSERT_LT(read, std::size_t{kStudies});
  Reader().Stop();
  QApplication::processEvents();
  EXPECT_EQ(window_->List().StudyCount(), read);
  EXPECT_EQ(TextOf("studiesRead"),
            "Stopped at " + std::to_string(read) + " of 2,000 studies; Refresh reads all.");

  // One that was not read, one that was, and one that is gone.
  for (const std::int32_t id : {1900, 50}) {
    EditorView& editor = *window_->OpenStudy(id);
    store::Study changed = program_->Store().Load(id);
    changed.name = "Changed";
    program_->Store().Save(changed, "test");
    editor.Stored.Raise();
    EXPECT_EQ(window_->List().SelectedStudy(), id);
    CloseStudy();
  }
  EXPECT_EQ(window_->List().StudyCount(), read + 1);
  Execute("DELETE FROM kiv_study WHERE id IN (7, 1500)");

  window_->List().View().sortByColumn(StudyTable::kName, Qt::DescendingOrder);
  window_->List().findChild<QLineEdit*>()->setText("changed");
  Reader().SetPageSize(kPage);
  The<QPushButton>("studiesStop").click();
  ASSERT_EQ(Reader().CurrentState(), State::Reading);
  EXPECT_EQ(window_->List().SelectedStudy(), 50);
  ReadToTheEnd();
  EXPECT_EQ(window_->List().SelectedStudy(), 50);
  EXPECT_EQ(Shown().rowCount(), 2);
  EXPECT_FALSE(window_->findChild<QLabel*>("studiesRead")->isVisible());
  window_->List().View().selectAll();
  window_->List().findChild<QLineEdit*>()->clear();
  EXPECT_EQ(window_->List().View().selectionModel()->selectedRows().size(), 2);
  EXPECT_EQ(Shown(kStudies - 3, StudyTable::kName), "Changed");
  window_->List().View().sortByColumn(StudyTable::kId, Qt::AscendingOrder);
  ExpectAllShown();
}

TEST_F(StudyList, TellsOnceWhatFailsInTheMiddle) {
  Execute("ALTER TABLE kiv_study RENAME TO away");
  const QString message = user_.MessageDuring([this] { ReadToTheEnd(); });
  EXPECT_TRUE(message.contains("kiv_study")) << message.toStdString();
  EXPECT_EQ(TextOf("studiesRead"), "Stopped at 100 of 2,000 studies; Refresh reads all.");
  const QString again = user_.MessageDuring([this] { user_.Click("studiesStop"); });
  EXPECT_EQ(again, message);
  EXPECT_EQ(window_->List().StudyCount(), kPage);
  Execute("ALTER TABLE away RENAME TO kiv_study");
  user_.Click("studiesStop");
  ReadToTheEnd();
  ExpectAllShown();
}

TEST_F(StudyList, MayBeLeftWhileItIsRead) {
  ReadOnePage();
  window_->OpenDatabase(folder_.File("other.db"), Program::WhenMissing::Create);
  EXPECT_EQ(Reader().CurrentState(), State::Complete);
  EXPECT_EQ(window_->List().StudyCount(), 0U);
  Reader().SetPageSize(kPage);
  window_->OpenDatabase(database_, Program::WhenMissing::Refuse);
  ReadOnePage();
  ASSERT_EQ(Reader().CurrentState(), State::Reading);
  window_->close();
  window_.reset();
  QApplication::processEvents();
  EXPECT_EQ(program_->Store().Count(), std::size_t{kStudies});
}

}  // namespace
}  // namespace kiv::client
