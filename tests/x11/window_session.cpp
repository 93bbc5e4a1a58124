#include "x11/window_session.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPixmap>
#include <QScreen>

#include "client/window/editor_view.h"
#include "client/window/entity_tree.h"
#include "client/window/window_program.h"
#include "client/window/window_settings.h"
#include "database/open.h"
#include "store/network/network_import.h"
#include "support/rows_text.h"

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
  if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget)) return RowsOf(*view);
  const auto* button = qobject_cast<const QAbstractButton*>(&widget);
  if (button && button->isCheckable()) return button->isChecked() ? "on" : "off";
  return {};
}

}  // namespace

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

void WindowSession::SearchNetwork(const QString& text) {
  user_.Fill("networkSearch", text);
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

}  // namespace kiv::test
