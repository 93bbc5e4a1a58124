// Files with networks and with studies, and the history of studies, through the window.

#include <QClipboard>
#include <QFile>
#include <QProgressDialog>
#include <QPushButton>
#include <QTableView>
#include <QTableWidget>
#include <QTimer>
#include <filesystem>
#include <fstream>

#include "client/window/editor_view.h"
#include "client/window/entity_tree.h"
#include "client/window/study_list.h"
#include "host/services.h"
#include "samples/network_maker.h"
#include "support/window_fixture.h"

namespace kiv::client {
namespace {

class NetworkWindow : public Window {
 protected:
  NetworkWindow() {
    std::filesystem::copy(KIV_SAMPLE_NETWORK, network_);
    Open();
  }

  /// Works in the import dialog, to which the empty tree leads, then closes it.
  void InDialog(const std::function<void()>& work) {
    user_.During([this] { user_.Click("networkImport"); },
                 [&](QWidget& dialog) {
                   work();
                   dialog.close();
                 });
  }
  std::size_t CellsShown() { return window_->Network().Model().ShownCount(store::EntityKind::Cell); }

  std::string network_ = folder_.File("network");
};

TEST_F(NetworkWindow, IsTriedCorrectedAndImported) {
  EXPECT_EQ(&host::TheDragSource(), &program_->Drag());
  EXPECT_TRUE(user_.Find("networkEmpty")->isVisible());
  std::ofstream(network_ + "/KIV_FAF.csv", std::ios::app) << "7,,,,,,,,,,\n1,2\n";
  InDialog([this] {
    EXPECT_FALSE(user_.Find("networkRun")->isEnabled());
    user_.Fill("networkFolder", QString::fromStdString(network_));
    user_.Click("networkRun");
    EXPECT_THAT(TextOf("networkResult"), StartsWith("2 faults found."));
    user_.Click("networkCopy");
    EXPECT_EQ(QApplication::clipboard()->text(),
              "KIV_FAF.csv:11: an ECP with InstanceId 7 is not in kiv_network.csv\n"
              "KIV_FAF.csv:12: 2 values where the header names 11 columns\n");

    std::filesystem::copy(std::string(KIV_SAMPLE_NETWORK) + "/KIV_FAF.csv", network_ + "/KIV_FAF.csv",
                          std::filesystem::copy_options::overwrite_existing);
    user_.Click("networkTryFirst");
    user_.Click("networkRun");
    EXPECT_THAT(TextOf("networkResult"), StartsWith("Every line is good. Nothing was written."));
  });
  EXPECT_EQ(CellsShown(), 0U);
  InDialog([this] {
    EXPECT_EQ(TextOf("networkFolder"), network_);
    user_.Click("networkRun");
    EXPECT_THAT(TextOf("networkResult"), StartsWith("The network is imported."));
  });
  EXPECT_EQ(CellsShown(), 360U);
  user_.Press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  user_.Type("1-2-4");
  user_.Press(Qt::Key_Return);
  ASSERT_EQ(window_->Network().SelectedNodes().size(), 1U);
  EXPECT_EQ(window_->Network().SelectedNodes()[0].cellId, 4);

  // Another database has another network.
  window_->OpenDatabase(folder_.File("other.db"), Program::WhenMissing::Create);
  EXPECT_EQ(CellsShown(), 0U);
  EXPECT_TRUE(user_.Find("networkEmpty")->isVisible());
}

TEST_F(NetworkWindow, AnImportCanBeCancelled) {
  samples::WriteNetwork({.systems = 4, .ecps = 20, .cells = 20000}, folder_.File("large"));
  InDialog([this] {
    user_.Fill("networkFolder", QString::fromStdString(folder_.File("large")));
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&look] {
      auto* progress = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
      if (!progress) return;
      look.stop();
      progress->findChild<QPushButton*>()->click();
    });
    look.start(1);
    user_.Click("networkRun");
    EXPECT_FALSE(look.isActive()) << "no progress was shown";
    EXPECT_THAT(TextOf("networkResult"), StartsWith("Cancelled."));
  });
  EXPECT_EQ(CellsShown(), 0U);
}

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
                 EXPECT_THAT(TextOf("importResult"), StartsWith("1 problem found."));
                 auto& problems = The<QTableView>("importProblems");
                 problems.selectRow(0);
                 problems.setFocus();
                 user_.Press(Qt::Key_C, Qt::ControlModifier);
                 EXPECT_THAT(QApplication::clipboard()->text().toStdString(),
                             HasSubstr("studies.json: study 1 \"Second\": General: Study Duration"));
                 write(QString(good).replace("Downtown", "Harbour"));
                 user_.Click("importCheck");
                 EXPECT_THAT(TextOf("importResult"), HasSubstr("makes the scenario \"Harbour\""));
                 user_.Click("importRun");
               });
  const auto studies = Stored();
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
    auto& revisions = The<QTableWidget>("revisions");
    EXPECT_FALSE(user_.Find("restore")->isEnabled()) << "the newest is there already";
    EXPECT_EQ(revisions.item(0, 4)->text(), "name");
    const auto& differences = The<QTableWidget>("differences");
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
  user_.During([&] { Trigger("History..."); }, {[&](QWidget&) {
                                                  The<QTableWidget>("revisions").selectRow(1);
                                                  user_.Click("restore");
                                                },
                                                [](QWidget& told) { told.close(); }});
  EXPECT_EQ(editor->Session().Name(), "Typed");
  EXPECT_EQ(store.Load(1).name, "First, renamed");

  store.Remove(2, "eve");
  user_.During([&] { Trigger("Deleted Studies..."); },
               [&](QWidget& dialog) {
                 EXPECT_EQ(The<QTableWidget>("deletedStudies").item(0, 2)->text(), "Second");
                 user_.Click("restoreDeleted");
                 EXPECT_FALSE(user_.Find("restoreDeleted")->isEnabled());
                 dialog.close();
               });
  EXPECT_EQ(store.Load(2).name, "Second");
  EXPECT_EQ(window_->List().View().model()->rowCount(), 2);
}

}  // namespace
}  // namespace kiv::client
