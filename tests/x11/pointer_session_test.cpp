// On an X server: what only a real pointer and a real keyboard show: drags that the X server carries, the
// lists that drop down, the boxes in rows, and messages while a drop is under way.

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QPixmap>
#include <QScreen>
#include <optional>
#include <string>
#include <thread>

#include "client/window/entity_tree.h"
#include "database/open.h"
#include "database/sql_connection.h"
#include "store/network/network_import.h"
#include "support/program_window.h"
#include "x11/real_hand.h"

namespace kiv::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A new VCSA study in the program's window on the X server, the sample network beside it, and a hand that
/// works them. The case itself runs beside the thread of the windows.
class WindowSession : public ::testing::Test {
 protected:
  WindowSession() {
    const std::string file = folder_.File("studies.db");
    const auto database = database::OpenStudyDatabase(file, database::OpenMode::CreateIfMissing);
    const auto report = store::ImportNetwork(*database, KIV_SAMPLE_NETWORK);
    EXPECT_EQ(report.outcome, store::NetworkReport::Outcome::Imported);
    InWindows([&] {
      client::MainWindow& window = *shown_.emplace().window;
      window.setGeometry(0, 0, 1500, 1150);  // every row of an ECP in sight
      window.activateWindow();
      window.OpenDatabase(file, client::Program::WhenMissing::Refuse);
      window.NewStudy("VCSA Study");
    });
    user_.isDragging = [this] { return !shown_->program.Drag().DraggedNodes().empty(); };
    WaitUntil("the window is active", [this] { return shown_->window->isActiveWindow(); });
  }
  ~WindowSession() override {
    if (HasFailure()) {
      InWindows([] { QGuiApplication::primaryScreen()->grabWindow(0).save("x11_test-failure.png"); });
    }
    EXPECT_NO_THROW(user_.LetGo());
    InWindows([this] { shown_.reset(); });
  }

  /// The row of an element in the tree.
  RealHand::Place Element(std::int32_t instance) const {
    return RealHand::Row("network", [=, this] {
      const QItemSelection row = shown_->window->Network().Model().RowsOf({instance});
      return row.isEmpty() ? QModelIndex() : QModelIndex(row.front().topLeft());
    });
  }
  std::vector<std::string> DragToList(std::int32_t instance) {
    return user_.Drag(Element(instance), RealHand::Widget("dlvwCell"));
  }

  /// The texts in a list, as "1|2|37;", behind the boxes that are checked.
  static std::string ListText(const QString& name) {
    return InWindows([&] {
      const QAbstractItemModel& model = *qobject_cast<QAbstractItemView*>(RealHand::Find(name))->model();
      QString text;
      for (int row = 0; row < model.rowCount(); ++row) {
        if (model.index(row, 0).data(Qt::CheckStateRole) == Qt::Checked) text += "[x] ";
        for (int column = 0; column < model.columnCount(); ++column) {
          text += (column > 0 ? "|" : "") + model.index(row, column).data().toString();
        }
        text += ';';
      }
      return text.toStdString();
    });
  }

  RealHand user_;

 private:
  TempFolder folder_;
  std::optional<ProgramWindow> shown_;
};

/// Cells of ECP 1-1 in the sample network, by instance: the first of the tree, one amid them, and the last.
constexpr std::int32_t kCell1 = 1003;
constexpr std::int32_t kCell4 = 1005;
constexpr std::int32_t kCell12 = 1013;

TEST_F(WindowSession, CellsAreDraggedFromTheTreeAndTheirPartsChosen) {
  user_.Fill("networkSearch", "1-1-");
  user_.DoubleClick(Element(kCell4));
  EXPECT_THAT(DragToList(kCell1), IsEmpty());
  const std::string twoCells = "1|1|4|AMPS/CDMA;1|1|1|CDMA;";
  EXPECT_EQ(ListText("dlvwCell"), twoCells);

  user_.Click(RealHand::Page("tabs", 1));
  user_.Choose("cboEvent", "All Events AMPS/TDMA (A-F)");
  user_.Click(RealHand::RowBox("dlvwAntenna", 1));
  user_.Click(RealHand::RowBox("dlvwCarrier", 0));  // 1 of cell 4, which the next one takes back
  user_.Click(RealHand::RowBox("dlvwCarrier", 2));
  user_.Click(RealHand::RowBox("dlvwCarrier", 4));
  user_.Fill("txtSingleDn.edit", "5551234");
  EXPECT_EQ(ListText("dlvwAntenna"), "1|1|4|1;[x] 1|1|4|2;1|1|4|3;1|1|1|1;1|1|1|2;1|1|1|3;");
  EXPECT_EQ(ListText("dlvwCarrier"), "1|1|4|1;1|1|4|2;[x] 1|1|4|3;1|1|1|1;[x] 1|1|1|2;");

  // All the eleven of the ECP: two are there, and of the nine others eight have room.
  user_.Click(RealHand::Page("tabs", 0));
  user_.Click(Element(kCell1));
  user_.ClickWith("shift", Element(kCell12));
  EXPECT_THAT(DragToList(kCell1),
              ElementsAre("Cell 1-1-1 is already in the list and will not be added.",
                          "Cell 1-1-4 is already in the list and will not be added.",
                          "You have attempted to drop more than 10 cells from ECP 1\r\n"
                          "VCSA engineering guide lines recommend that no more than 10 cells \r\n"
                          "from the same ECP be studied at the same time. The cells \r\n"
                          "have not been added to the list."));
  EXPECT_EQ(ListText("dlvwCell"), twoCells +
                                      "1|1|2|AMPS;1|1|5|TDMA;1|1|6|CDMA;1|1|7|AMPS/TDMA;1|1|8|TDMA;"
                                      "1|1|9|AMPS/CDMA;1|1|10|TDMA;1|1|11|TDMA;");
}

}  // namespace
}  // namespace kiv::test

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  const kiv::test::WindowApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  std::thread user([] {
    const int failed = RUN_ALL_TESTS();
    QMetaObject::invokeMethod(
        qApp, [failed] { QApplication::exit(failed); }, Qt::QueuedConnection);
  });
  const int result = QApplication::exec();
  user.join();
  return result;
}
