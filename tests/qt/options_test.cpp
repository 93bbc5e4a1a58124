#include <QCheckBox>
#include <QRadioButton>

#include "qt/page_test.h"
#include "ui/control_visitor.h"

namespace kiv {
namespace {

/// Rows of a box and an option each, above a box for text.
struct OptionsPage : ui::Container {
  OptionsPage() : Container(nullptr, "page") {
    for (std::size_t i = 0; i < 3; ++i) {
      boxes[i].SetCaption("Row" + std::string(2 * i, ' ') + " &" + std::to_string(i));
      options[i].SetCaption("Details");
      notes[i].SetCaption("note");
    }
  }
  void Accept(ui::ControlVisitor&) override {}

  ui::LayoutItem Layout() {
    using namespace ui;
    std::vector<LayoutItem> rows;
    for (std::size_t i = 0; i < 3; ++i) {
      rows.push_back(Row({Single(boxes[i]), Single(options[i]), Single(notes[i])}));
    }
    return Column({Grid(std::move(rows)), Single(text)});
  }

  ui::ControlArray<ui::CheckBox, 3> boxes{this, "box"};
  ui::OptionGroup<3> options{this, "option"};
  ui::ControlArray<ui::Label, 3> notes{this, "note"};
  ui::TextBox text{this, "text"};
};

class Options : public test::PageTest<OptionsPage> {
 protected:
  QRadioButton& Radio(std::size_t index) { return The<QRadioButton>(page_->options[index]); }
  /// Which buttons are shown as chosen.
  std::string Shown() {
    std::string shown;
    for (std::size_t i = 0; i < 3; ++i) shown += Radio(i).isChecked() ? 'x' : '-';
    return shown;
  }
  void Press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
};

TEST_F(Options, ShowTheModelAndItsRefusals) {
  EXPECT_EQ(Shown(), "---");
  QTest::mouseClick(&Radio(1), Qt::LeftButton, {}, QPoint(8, 8));
  EXPECT_EQ(page_->options.Index(), 1);
  EXPECT_EQ(Shown(), "-x-");
  page_->options.SetIndex(2);
  EXPECT_EQ(Shown(), "--x");
  page_->options.Changed.Connect([this] { page_->options.SetIndex(2); });
  QTest::mouseClick(&Radio(0), Qt::LeftButton, {}, QPoint(8, 8));
  EXPECT_EQ(Shown(), "--x");
}

TEST_F(Options, TheArrowKeysMoveTheChoiceAndTheTabKeyStopsAtIt) {
  page_->options.SetIndex(1);
  The<QCheckBox>(page_->boxes[0]).setFocus();
  Press(Qt::Key_Tab);
  EXPECT_TRUE(The<QCheckBox>(page_->boxes[1]).hasFocus());  // past the option that is not chosen
  Press(Qt::Key_Tab);
  EXPECT_TRUE(Radio(1).hasFocus());
  Press(Qt::Key_Down);
  EXPECT_EQ(Shown(), "--x");
  Press(Qt::Key_Right);
  EXPECT_EQ(Shown(), "x--");
  Press(Qt::Key_Up);
  EXPECT_EQ(Shown(), "--x");
  EXPECT_TRUE(Radio(2).hasFocus());

  page_->options.Changed.Connect([this] {
    page_->options.SetIndex(2);
    page_->text.SetFocus();
  });
  Press(Qt::Key_Up);
  EXPECT_EQ(Shown(), "--x");
  EXPECT_TRUE(view_->WidgetOf(page_->text)->hasFocus());
}

TEST_F(Options, AGridAlignsAndNamesItsRows) {
  for (std::size_t i = 1; i < 3; ++i) {
    EXPECT_EQ(Radio(i).x(), Radio(0).x());
    EXPECT_EQ(view_->WidgetOf(page_->notes[i])->x(), view_->WidgetOf(page_->notes[0])->x());
    EXPECT_GT(Radio(i).y(), Radio(i - 1).y());
  }
  EXPECT_EQ(Radio(1).accessibleName(), "Row   1 Details");
}

TEST_F(Options, OutliveTheirModel) {
  QRadioButton& radio = Radio(1);
  page_.reset();
  QTest::mouseClick(&radio, Qt::LeftButton, {}, QPoint(8, 8));
  QTest::keyClick(&radio, Qt::Key_Down);
  EXPECT_FALSE(radio.isChecked());
}

}  // namespace
}  // namespace kiv
