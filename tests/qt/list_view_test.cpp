#include <gtest/gtest.h>

#include <QDropEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>
#include <QTreeView>

#include "editor/dd_list_view.h"
#include "editor/dn_box.h"
#include "qt/page_view.h"
#include "support/fake_host.h"
#include "ui/layout.h"

namespace kiv::qt {
namespace {

struct ListPage : ui::Container {
  ListPage() : Container(nullptr, "page") {
    list.SetEntityType(EntityType::VcsCell);
    list.SetMultiSelect(true);
    list.SetUsePopupMenu(true);
    list.AddColumns({SystemColumn("System"), EcpColumn("ECP"), CellColumn("Cell")});
    list.Display();
  }
  void Accept(ui::ControlVisitor&) override {}

  XDDListView list{this, "list"};
  XDnBox dn{this, "dn"};
};

class Lists : public ::testing::Test {
 protected:
  Lists() {
    host_.settings->general[host::kPhoneNumberMask] = "###-####";
    page_.dn.SetText("5551234");
    view_ = std::make_unique<PageView>(
        page_,
        ui::Column({ui::Single(page_.list), ui::Form({ui::Field("&DN:", {ui::Single(page_.dn.edit)})})}));
    tree_ = qobject_cast<QTreeView*>(view_->WidgetOf(page_.list));
    view_->resize(500, 400);
    view_->show();
  }

  void Drop(const QString& format) {
    QMimeData data;
    data.setData(format, "x");
    const QPoint where(20, 40);
    QDragEnterEvent enter(where, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(tree_->viewport(), &enter);
    accepted_ = enter.isAccepted();
    if (!accepted_) return;
    QDropEvent drop(where, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(tree_->viewport(), &drop);
  }
  QString Cells() const {
    QString text;
    for (int row = 0; row < tree_->model()->rowCount(); ++row) {
      text += tree_->model()->index(row, 2).data().toString() + ' ';
    }
    return text;
  }
  void ClickHeader(int column) {
    QHeaderView* header = tree_->header();
    const QPoint where(header->sectionViewportPosition(column) + 10, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, where);
  }

  test::FakeHost host_;
  ListPage page_;
  std::unique_ptr<PageView> view_;
  QTreeView* tree_ = nullptr;
  bool accepted_ = false;
};

TEST_F(Lists, TakeDropsOfTheRegisteredFormatOnly) {
  host_.dragSource->nodes = {{"Cell:1", 1, 2, 30, 1}, {"Cell:2", 1, 2, 4, 2}, {"Cell:3", 1, 2, 100, 3}};
  Drop("text/plain");
  EXPECT_FALSE(accepted_);
  EXPECT_EQ(host_.dragSource->formats.size(), 1U);  // a foreign format is not registered by asking
  Drop(host::kConfigEntityTreeFormat);
  EXPECT_TRUE(accepted_);
  EXPECT_EQ(Cells(), "30 4 100 ");
  Drop(host::kConfigEntityTreeFormat);
  EXPECT_EQ(host_.messages->shown.size(), 3U);  // each is there already
  page_.list.SetEnabled(false);
  Drop(host::kConfigEntityTreeFormat);
  EXPECT_FALSE(accepted_);
}

TEST_F(Lists, SortAndSelectWithMouseAndKeys) {
  page_.list.DropNodes({{"Cell:1", 1, 2, 30, 1}, {"Cell:2", 1, 2, 4, 2}, {"Cell:3", 1, 2, 100, 3}});
  ClickHeader(2);
  EXPECT_EQ(Cells(), "4 30 100 ");
  EXPECT_EQ(tree_->header()->sortIndicatorSection(), 2);
  ClickHeader(2);
  EXPECT_EQ(Cells(), "100 30 4 ");
  EXPECT_EQ(tree_->header()->sortIndicatorOrder(), Qt::DescendingOrder);
  tree_->setFocus();
  tree_->setCurrentIndex(tree_->model()->index(0, 0));
  QTest::keyClick(tree_, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(page_.list.SelectedRows(), (std::vector<std::size_t>{0, 2}));
  ClickHeader(2);  // the selection stays with its rows
  EXPECT_EQ(tree_->selectionModel()->selectedRows().size(), 2);
  QTest::keyClick(tree_, Qt::Key_Delete);
  EXPECT_EQ(Cells(), "4 ");
  QTest::keyClick(tree_, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(page_.list.SelectedRows().size(), 1U);
}

TEST_F(Lists, CheckBoxesShowTheChoiceOfTheModel) {
  const auto cell = MakeCell(0, 1, 1, 2, 3);
  auto antennas = std::make_shared<EntityCollection>();
  for (const int number : {1, 2}) cell->AddAntenna(0, 1, 2, 3, number, number == 1);
  for (const auto& antenna : *cell->Antennas()) antennas->Add(antenna, antenna->Key());
  page_.list.SetCheckboxes(true);
  page_.list.AddColumns({SystemColumn("System"), EcpColumn("ECP")});
  page_.list.SetTheCollection(antennas);
  page_.list.Display();
  tree_->setFocus();
  tree_->setCurrentIndex(tree_->model()->index(1, 0));
  QTest::keyClick(tree_, Qt::Key_Space);
  const auto state = [this](int row) {
    return tree_->model()->index(row, 0).data(Qt::CheckStateRole).toInt();
  };
  EXPECT_EQ(state(0), Qt::Unchecked);  // the choice moved
  EXPECT_EQ(state(1), Qt::Checked);
}

TEST_F(Lists, AMaskedBoxIsEditedAroundItsLiterals) {
  auto* box = qobject_cast<QLineEdit*>(view_->WidgetOf(page_.dn.edit));
  EXPECT_EQ(box->text(), "555-1234");
  box->setFocus();
  box->setCursorPosition(4);
  QTest::keyClick(box, Qt::Key_Backspace);  // behind the hyphen: the digit before it goes
  EXPECT_EQ(box->text(), "551-234");
  QTest::keyClicks(box, "9a8");
  EXPECT_EQ(box->text(), "559-81234");
  box->selectAll();
  QTest::keyClick(box, Qt::Key_Delete);
  EXPECT_EQ(page_.dn.Text(), "");
  QTest::keyClicks(box, "5551234567");
  page_.dn.edit.SetFocus();
  page_.dn.edit.LoseFocus();
  EXPECT_EQ(box->text(), "5551234567");
}

}  // namespace
}  // namespace kiv::qt
