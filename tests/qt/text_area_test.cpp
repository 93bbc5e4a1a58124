#include <QApplication>
#include <QClipboard>
#include <QPlainTextEdit>

#include "qt/page_test.h"
#include "ui/control_visitor.h"

namespace kiv {
namespace {

struct AreaPage : ui::Container {
  AreaPage() : Container(nullptr, "page") {
    area.SetKeyFilter([](std::int16_t& key) { key = key == 'x' ? std::int16_t{0} : key; });
    area.SetPasteFilter([](std::string_view text) {
      std::string lines(text);
      for (char& c : lines) c = c == ',' ? '\n' : c;
      return lines;
    });
  }
  void Accept(ui::ControlVisitor&) override {}
  ui::LayoutItem Layout() {
    using namespace ui;
    return Column({Form({Field("&Lines:", {Single(area)})}), Single(next)});
  }

  ui::TextArea area{this, "area"};
  ui::TextBox next{this, "next"};
};

class Area : public test::PageTest<AreaPage> {
 protected:
  QPlainTextEdit& Edit() { return The<QPlainTextEdit>(page_->area); }
};

TEST_F(Area, TypingIsFilteredAndPastingIsSplit) {
  int changes = 0;
  page_->area.Changed.Connect([&] { ++changes; });
  Edit().setFocus();
  QTest::keyClicks(&Edit(), "1x2");
  QTest::keyClick(&Edit(), Qt::Key_Return);
  EXPECT_EQ(page_->area.Text(), "12\n");
  EXPECT_EQ(changes, 3);
  QApplication::clipboard()->setText("3,x");
  Edit().paste();
  EXPECT_EQ(page_->area.Text(), "12\n3\nx");
  EXPECT_EQ(Edit().accessibleName(), "Lines");

  page_->area.SetText("7\n8");
  EXPECT_EQ(Edit().toPlainText(), "7\n8");
  QTest::keyClick(&Edit(), Qt::Key_End, Qt::ControlModifier);
  page_->area.Changed.Connect([this] { page_->area.SetText("7\n8"); });  // takes nothing any more
  QTest::keyClicks(&Edit(), "9");
  EXPECT_EQ(Edit().toPlainText(), "7\n8");
  EXPECT_EQ(Edit().textCursor().position(), 3);
}

TEST_F(Area, TheTabKeyLeavesIt) {
  Edit().setFocus();
  QTest::keyClick(&Edit(), Qt::Key_Tab);
  EXPECT_TRUE(view_->WidgetOf(page_->next)->hasFocus());
  EXPECT_EQ(page_->area.Text(), "");
}

TEST_F(Area, OutlivesItsModel) {
  QPlainTextEdit& edit = Edit();
  page_.reset();
  QTest::keyClicks(&edit, "1");
  edit.paste();
}

}  // namespace
}  // namespace kiv
