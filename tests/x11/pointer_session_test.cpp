// A study made with a real pointer and a real keyboard: from the tree into the file, and opened again.

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPixmap>
#include <QScreen>
#include <map>
#include <memory>
#include <string>

#include "client/window/editor_view.h"
#include "client/window/entity_tree.h"
#include "client/window/main_window.h"
#include "client/window/window_program.h"
#include "client/window/window_settings.h"
#include "database/open.h"
#include "database/sql_connection.h"
#include "store/network/network_import.h"
#include "support/rows_text.h"
#include "support/temp_folder.h"
#include "x11/real_hand.h"

namespace kiv::test {
namespace {

std::string RowsOf(const QAbstractItemView& view) {
  const QAbstractItemModel& model = *view.model();
  QString text;
  for (int row = 0; row < model.rowCount(); ++row) {
    const QModelIndex first = model.index(row, 0);
    const QVariant box = first.data(Qt::CheckStateRole);
    if (box.isValid()) text += box.toInt() == Qt::Checked ? "[x] " : "[ ] ";
    for (int column = 0; column < model.columnCount(); ++column) {
      text += (column > 0 ? "|" : "") + first.siblingAtColumn(column).data().toString();
    }
    text += ';';
  }
  return text.toStdString();
}

/// What a field shows; nothing for a widget that is no field.
std::optional<std::string> Shown(const QWidget& widget) {
  if (const auto* box = qobject_cast<const QLineEdit*>(&widget)) return box->text().toStdString();
  if (const auto* list = qobject_cast<const QComboBox*>(&widget)) return list->currentText().toStdString();
  const auto* button = qobject_cast<const QAbstractButton*>(&widget);
  if (button && button->isCheckable()) return button->isChecked() ? "on" : "off";
  return {};
}

/// The program in its window on the X server, with the sample network in a new database file, and a hand that
/// works it. The case itself runs beside the thread of the windows.
class WindowSession : public ::testing::Test {
 protected:
  WindowSession();
  ~WindowSession() override;

  /// Begins a study from the empty list, of a scenario that is made for it.
  void BeginStudy(const QString& button, const QString& name);
  /// The row of an element in the tree.
  RealHand::Place Element(std::int32_t instance) const;
  std::vector<std::string> DragToList(std::int32_t instance, const QString& list);
  void Save();
  /// What a refused save says.
  std::string RefusalOfSave();

  /// The texts in a list, as "1|2|37;".
  std::string ListText(const QString& name) const;
  /// Every box and button of the open study and what it shows.
  std::map<std::string, std::string> ShownFields() const;
  /// Rows as another program finds them in the file.
  std::string Rows(const std::string& columns, const std::string& table);

  TempFolder folder_;
  RealHand user_;

 private:
  const std::string file_ = folder_.File("studies.db");
  std::shared_ptr<database::SqlConnection> other_;  // than the program's own connection
  std::unique_ptr<client::Program> program_;
  std::unique_ptr<client::MainWindow> window_;
};

WindowSession::WindowSession() {
  other_ = database::OpenStudyDatabase(file_, database::OpenMode::CreateIfMissing);
  const auto report = store::ImportNetwork(*other_, KIV_SAMPLE_NETWORK);
  EXPECT_EQ(report.outcome, store::NetworkReport::Outcome::Imported);
  InWindows([this] {
    program_ = std::make_unique<client::Program>();
    client::StartWithWindow(*program_);
    client::WindowSettings(program_->Settings()).clear();
    window_ = std::make_unique<client::MainWindow>(*program_);
    window_->setGeometry(0, 0, 1500, 1150);  // every row of an ECP in sight
    window_->show();
    window_->activateWindow();
    window_->OpenDatabase(file_, client::Program::WhenMissing::Refuse);
  });
  user_.isDragging = [this] { return !program_->Drag().DraggedNodes().empty(); };
  WaitUntil("the window is active", [this] { return QApplication::activeWindow() == window_.get(); });
}

WindowSession::~WindowSession() {
  if (HasFailure()) {
    InWindows([] { QGuiApplication::primaryScreen()->grabWindow(0).save("x11_test-failure.png"); });
  }
  try {
    user_.LetGo();
  } catch (const std::exception& error) {
    ADD_FAILURE() << error.what();
  }
  InWindows([this] {
    window_.reset();
    program_.reset();
  });
}

void WindowSession::BeginStudy(const QString& button, const QString& name) {
  user_.Click(RealHand::Button(button));
  user_.Fill("studyName", name);
  user_.Click(RealHand::Widget("cmdNewScenario"));
  WaitUntil("the dialog asks for a name", [] { return QApplication::activeModalWidget() != nullptr; });
  InWindows(
      [] { QApplication::activeModalWidget()->findChild<QLineEdit*>()->setObjectName("scenarioName"); });
  user_.Fill("scenarioName", "Downtown");
  user_.Press("Return");
  WaitUntil("the scenario is chosen", [] {
    const auto* scenarios = qobject_cast<QComboBox*>(RealHand::Find("fdocCBScenario"));
    return scenarios && scenarios->currentText() == "Downtown";
  });
}

RealHand::Place WindowSession::Element(std::int32_t instance) const {
  return RealHand::Row("network", [=, this]() -> QModelIndex {
    const QItemSelection row = window_->Network().Model().RowsOf({instance});
    if (row.isEmpty()) return {};
    return row.front().topLeft();
  });
}

std::vector<std::string> WindowSession::DragToList(std::int32_t instance, const QString& list) {
  return user_.Drag(Element(instance), RealHand::Widget(list));
}

void WindowSession::Save() {
  user_.Click(RealHand::Widget("save"));
  WaitUntil("the study is stored", [this] { return !window_->CurrentEditor()->Session().Modified(); });
}

std::string WindowSession::RefusalOfSave() {
  user_.Click(RealHand::Widget("save"));
  const std::string message = user_.AnswerMessage();
  EXPECT_TRUE(InWindows([this] { return window_->CurrentEditor()->Session().Modified(); }));
  return message;
}

std::string WindowSession::ListText(const QString& name) const {
  return InWindows([&] {
    const auto* view = qobject_cast<QAbstractItemView*>(RealHand::Find(name));
    return view ? RowsOf(*view) : "no list " + name.toStdString();
  });
}

std::map<std::string, std::string> WindowSession::ShownFields() const {
  return InWindows([this] {
    std::map<std::string, std::string> fields;
    for (const QWidget* widget : window_->CurrentEditor()->findChildren<QWidget*>()) {
      const auto shown = Shown(*widget);
      if (!shown || widget->objectName().isEmpty() || widget->objectName().startsWith("qt_")) continue;
      fields[widget->objectName().toStdString()] = *shown;
    }
    return fields;
  });
}

std::string WindowSession::Rows(const std::string& columns, const std::string& table) {
  return RowsText(*other_, columns, table);
}

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Cells of ECP 1-1 in the sample network, by instance; they stand in the tree in this order.
constexpr std::int32_t kCell1 = 1003;
constexpr std::int32_t kCell2 = 1004;
constexpr std::int32_t kCell4 = 1005;
constexpr std::int32_t kCell5 = 1006;
constexpr std::int32_t kCell12 = 1013;

TEST_F(WindowSession, AVcsaStudyOfDraggedCellsIsStoredAndItsLimitsHold) {
  BeginStudy("New &VCSA Study", "Events at the harbour");
  user_.Fill("networkSearch", "1-1-");
  for (const std::int32_t cell : {kCell4, kCell1, kCell2}) {
    EXPECT_THAT(DragToList(cell, "dlvwCell"), IsEmpty());
  }
  EXPECT_EQ(ListText("dlvwCell"), "1|1|4|AMPS/CDMA;1|1|1|CDMA;1|1|2|AMPS;");

  user_.Fill("txtPath", QString::fromStdString(folder_.Path()));
  user_.Fill("txtDuration", "100");
  user_.Fill("txtRetrieveDelay", "20");
  EXPECT_EQ(RefusalOfSave(),
            "Study Duration must be between 15 and 480 minutes inclusive and \r\n"
            "expressed in increments of quarter hours (15, 30, 45,etc).");
  user_.Fill("txtDuration", "105");

  user_.Click(RealHand::Page("tabs", 1));
  user_.Choose("cboEvent", "All Events AMPS/TDMA (A-F)");
  user_.Click(RealHand::Widget("chkEvent(12)"));
  user_.Click(RealHand::Widget("chkEvent(1)"));
  user_.Click(RealHand::RowBox("dlvwAntenna", 1));  // 2 of cell 4
  user_.Click(RealHand::RowBox("dlvwCarrier", 0));  // 1 of cell 4, which the next one takes back
  user_.Click(RealHand::RowBox("dlvwCarrier", 2));
  user_.Click(RealHand::RowBox("dlvwCarrier", 4));  // 2 of cell 1
  user_.Fill("txtSingleDn.edit", "5551234");
  user_.Fill("txtPollingInterval", "300");
  user_.Click(RealHand::Widget("chkCarrierData"));
  Save();

  EXPECT_EQ(Rows("kind, name, duration, polling_interval, retrieve_delay", "kiv_study"),
            "VCSA Study|Events at the harbour|105|300|20;");
  EXPECT_EQ(Rows("Path, DataFile, SingleDn, DirectionalSetup, CarrierData", "KIV_VcsStudy"),
            folder_.Path() + "|v$YY$MM$DD$HH$MI.vcs|5551234|N|Y;");
  EXPECT_EQ(Rows("EventA, EventB, EventC, EventD, EventE, EventF, EventG, EventH, EventI, EventJ, EventK, "
                 "EventL, EventM",
                 "KIV_VcsStudy"),
            "Y|N|Y|Y|Y|Y|N|N|N|N|N|N|Y;");
  EXPECT_EQ(Rows("InstanceId, SystemId, EcpId, CellId", "KIV_Cell_List"),
            "1003|1|1|1;1004|1|1|2;1005|1|1|4;");
  EXPECT_EQ(Rows("InstanceId, SystemId, EcpId, CellId, AntennaId, Selected", "KIV_Antenna_List"),
            "1376|1|1|1|1|N;1377|1|1|1|2|N;1378|1|1|1|3|N;"
            "1379|1|1|2|1|N;1380|1|1|2|2|N;1381|1|1|2|3|N;"
            "1382|1|1|4|1|N;1383|1|1|4|2|Y;1384|1|1|4|3|N;");
  EXPECT_EQ(Rows("InstanceId, SystemId, EcpId, CellId, CarrierId, Selected", "KIV_Carrier_List"),
            "0|1|1|1|1|N;0|1|1|1|2|Y;0|1|1|4|1|N;0|1|1|4|2|N;0|1|1|4|3|Y;");

  const auto saved = ShownFields();
  EXPECT_EQ(saved.at("txtSingleDn.edit"), "5551234");
  user_.Press("ctrl+w");
  user_.DoubleClick(RealHand::Row("studies", 0));
  WaitUntil("the study is open again", [] { return RealHand::Find("dlvwCell") != nullptr; });
  EXPECT_EQ(ShownFields(), saved);
  const std::string threeCells = "1|1|1|CDMA;1|1|2|AMPS;1|1|4|AMPS/CDMA;";  // as they are stored
  EXPECT_EQ(ListText("dlvwCell"), threeCells);

  user_.Click(RealHand::Page("tabs", 0));
  EXPECT_THAT(DragToList(kCell1, "dlvwCell"),
              ElementsAre("Cell 1-1-1 is already in the list and will not be added."));
  EXPECT_EQ(ListText("dlvwCell"), threeCells);
  // Eight more, of which there is room for seven.
  user_.Click(Element(kCell5));
  user_.ClickWith("shift", Element(kCell12));
  EXPECT_THAT(DragToList(kCell5, "dlvwCell"),
              ElementsAre("You have attempted to drop more than 10 cells from ECP 1\r\n"
                          "VCSA engineering guide lines recommend that no more than 10 cells \r\n"
                          "from the same ECP be studied at the same time. The cells \r\n"
                          "have not been added to the list."));
  EXPECT_EQ(ListText("dlvwCell"), threeCells +
                                      "1|1|5|TDMA;1|1|6|CDMA;1|1|7|AMPS/TDMA;1|1|8|TDMA;1|1|9|AMPS/CDMA;"
                                      "1|1|10|TDMA;1|1|11|TDMA;");
}

}  // namespace
}  // namespace kiv::test
