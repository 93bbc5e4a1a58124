// Importing a network through the window.

#include <gmock/gmock.h>

#include <QClipboard>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>
#include <filesystem>
#include <fstream>

#include "client/window/entity_tree.h"
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
  QString Result() const { return qobject_cast<QLabel*>(user_.Find("networkResult"))->text(); }
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
    EXPECT_TRUE(Result().startsWith("2 faults found.")) << Result().toStdString();
    user_.Click("networkCopy");
    EXPECT_EQ(QApplication::clipboard()->text(),
              "KIV_FAF.csv:11: an ECP with InstanceId 7 is not in kiv_network.csv\n"
              "KIV_FAF.csv:12: 2 values where the header names 11 columns\n");

    std::filesystem::copy(std::string(KIV_SAMPLE_NETWORK) + "/KIV_FAF.csv", network_ + "/KIV_FAF.csv",
                          std::filesystem::copy_options::overwrite_existing);
    user_.Click("networkTryFirst");
    user_.Click("networkRun");
    EXPECT_TRUE(Result().startsWith("Every line is good. Nothing was written.")) << Result().toStdString();
  });
  EXPECT_EQ(CellsShown(), 0U);
  InDialog([this] {
    EXPECT_EQ(qobject_cast<QLineEdit*>(user_.Find("networkFolder"))->text().toStdString(), network_);
    user_.Click("networkRun");
    EXPECT_TRUE(Result().startsWith("The network is imported.")) << Result().toStdString();
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
    EXPECT_TRUE(Result().startsWith("Cancelled.")) << Result().toStdString();
  });
  EXPECT_EQ(CellsShown(), 0U);
}

}  // namespace
}  // namespace kiv::client
