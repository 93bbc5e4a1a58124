#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QWheelEvent>

#include "host/scope.h"
#include "qt/sample_page.h"

namespace kiv {
namespace {

using test::SamplePage;
using Page = test::SampleView;

/// Number of times that an event was raised.
struct Count {
  explicit Count(Signal<>& event) : connection(event.Connect([this] { ++raised; })) {}
  int raised = 0;
  ScopedConnection connection;
};

TEST_F(Page, FollowsTheModel) {
  page_->txtName.SetText("Zürich");
  page_->cboKind.SetListIndex(1);
  page_->chkUse.SetState(ui::CheckState::Grayed);
  page_->fraInner.SetCaption("Nested");
  page_->cmdGo.SetCaption("S&top");
  page_->lblNote.SetCaption("R&&D &note");
  EXPECT_EQ(The<QLineEdit>(page_->txtName).text(), QStringLiteral("Zürich"));
  EXPECT_EQ(The<QLineEdit>(page_->txtArea).text(), "");
  EXPECT_EQ(The<QComboBox>(page_->cboKind).currentText(), "Large");
  EXPECT_EQ(The<QCheckBox>(page_->chkUse).checkState(), Qt::PartiallyChecked);
  EXPECT_EQ(The<QGroupBox>(page_->fraInner).title(), "Nested");
  EXPECT_EQ(The<QPushButton>(page_->cmdGo).accessibleName(), "Stop");
  EXPECT_EQ(The<QLabel>(page_->lblNote).text(), "R&D note");

  page_->cboKind.SetItems({{"A"}, {"B"}, {"C"}});
  EXPECT_EQ(The<QComboBox>(page_->cboKind).count(), 3);
  EXPECT_EQ(The<QComboBox>(page_->cboKind).currentIndex(), -1);
  page_->chkUse.SetChecked(true);
  EXPECT_FALSE(The<QCheckBox>(page_->chkUse).isTristate());
}

TEST_F(Page, EnabledAndVisibleAreInheritedAndTakeTheTextsAlong) {
  auto& box = The<QLineEdit>(page_->txtFrom);
  QLabel* label = nullptr;
  QLabel* unit = nullptr;
  for (QLabel* text : view_->findChildren<QLabel*>()) {
    if (text->text() == "&From:") label = text;
    if (text->text() == "to") unit = text;
  }
  ASSERT_TRUE(label && unit);
  page_->fraOuter.SetEnabled(false);
  page_->fraInner.SetEnabled(false);
  page_->fraOuter.SetEnabled(true);
  EXPECT_FALSE(box.isEnabled());
  EXPECT_TRUE(The<QComboBox>(page_->cboKind).isEnabled());
  page_->fraInner.SetEnabled(true);
  EXPECT_TRUE(box.isEnabled());

  page_->txtFrom.SetEnabled(false);
  EXPECT_FALSE(box.isEnabled() || label->isEnabled() || unit->isEnabled());
  EXPECT_TRUE(The<QLineEdit>(page_->txtTo).isEnabled());
  page_->txtFrom.SetVisible(false);
  EXPECT_FALSE(box.isVisible() || label->isVisible() || unit->isVisible());
  page_->fraOuter.SetVisible(false);
  page_->txtFrom.SetVisible(true);
  EXPECT_FALSE(The<QGroupBox>(page_->fraOuter).isVisible());
  page_->fraOuter.SetVisible(true);
  EXPECT_TRUE(box.isVisible() && label->isVisible() && unit->isVisible());

  view_->setEnabled(false);  // as a host that is busy
  page_->txtName.SetEnabled(false);
  page_->txtFrom.SetEnabled(true);
  view_->setEnabled(true);
  EXPECT_FALSE(The<QLineEdit>(page_->txtName).isEnabled());
  EXPECT_TRUE(box.isEnabled());
}

TEST_F(Page, TypedCharactersPassTheFilter) {
  auto& box = The<QLineEdit>(page_->txtCount);
  box.setFocus();
  QTest::keyClicks(&box, "1a2 b3");
  EXPECT_EQ(page_->txtCount.Text(), "123");
  EXPECT_EQ(box.text(), "123");
  QTest::keyClick(&box, Qt::Key_Backspace);
  EXPECT_EQ(page_->txtCount.Text(), "12");
  page_->filtered = 0;
  QTest::keyClick(&box, Qt::Key_Home);
  QTest::keyClick(&box, Qt::Key_9, Qt::AltModifier);
  QTest::keyClick(&box, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(page_->filtered, 0);
  EXPECT_NE(page_->txtCount.Text(), "912");
  EXPECT_EQ(box.text().toStdString(), page_->txtCount.Text());

  QInputMethodEvent commit;
  commit.setCommitString(QString::fromUtf8("7é8\xF0\x9F\x98\x80"));
  page_->txtCount.SetText("");
  QApplication::sendEvent(&box, &commit);
  EXPECT_EQ(page_->txtCount.Text(), "78");
  QKeyEvent several(QEvent::KeyPress, 0, Qt::NoModifier, "x4y5");
  QApplication::sendEvent(&box, &several);
  EXPECT_EQ(page_->txtCount.Text(), "7845");

  auto& plain = The<QLineEdit>(page_->txtName);
  QKeyEvent pair(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUtf8("\xF0\x9F\x98\x80"));
  QApplication::sendEvent(&plain, &pair);
  EXPECT_EQ(page_->txtName.Text(), "\xF0\x9F\x98\x80");
}

TEST_F(Page, PasteAndUndoPassTheFilterBy) {
  auto& box = The<QLineEdit>(page_->txtCount);
  page_->txtCount.SetText("12");
  box.setFocus();
  QTest::keyClick(&box, Qt::Key_End);
  page_->filtered = 0;
  QApplication::clipboard()->setText("x\ny\r\n");
  box.paste();
  EXPECT_EQ(page_->txtCount.Text(), "12x y");
  EXPECT_EQ(box.text(), "12x y");
  EXPECT_EQ(page_->filtered, 0);

  auto& plain = The<QLineEdit>(page_->txtName);
  QTest::keyClicks(&plain, "ab");
  plain.undo();
  EXPECT_EQ(plain.text(), "");
  EXPECT_EQ(page_->txtName.Text(), "");
}

TEST_F(Page, EachActRaisesOneEvent) {
  const Count text(page_->txtName.Changed);
  const Count box(page_->chkUse.Changed);
  const Count list(page_->cboKind.Changed);
  const Count button(page_->cmdGo.Clicked);
  QTest::keyClicks(&The<QLineEdit>(page_->txtName), "ab");
  QTest::mouseClick(&The<QCheckBox>(page_->chkUse), Qt::LeftButton, {}, QPoint(8, 8));
  QTest::keyClick(&The<QComboBox>(page_->cboKind), Qt::Key_Down);
  QTest::mouseClick(&The<QPushButton>(page_->cmdGo), Qt::LeftButton);
  EXPECT_EQ(text.raised, 2);
  EXPECT_EQ(box.raised, 1);
  EXPECT_EQ(list.raised, 1);
  EXPECT_EQ(button.raised, 1);
  EXPECT_TRUE(page_->chkUse.Checked());
  EXPECT_EQ(page_->cboKind.ListIndex(), 0);

  page_->txtName.SetText("changed");
  page_->cboKind.SetListIndex(1);
  page_->cboKind.SetItems({{"Only", 0}});
  EXPECT_EQ(text.raised, 3);
  EXPECT_EQ(list.raised, 3);
}

TEST_F(Page, ShowsWhatTheModelMadeOfAnAct) {
  page_->chkUse.Changed.Connect([this] { page_->chkUse.SetChecked(false); });
  page_->cboKind.Changed.Connect([this] { page_->cboKind.SetListIndex(1); });
  page_->txtName.Changed.Connect([this] {
    std::string upper = page_->txtName.Text();
    for (char& c : upper) c = static_cast<char>(std::toupper(c));
    page_->txtName.SetText(upper);
  });
  page_->chkUse.SetState(ui::CheckState::Grayed);
  auto& check = The<QCheckBox>(page_->chkUse);
  for (int i = 0; i < 2; ++i) {
    QTest::keyClick(&check, Qt::Key_Space);
    EXPECT_EQ(check.checkState(), Qt::Unchecked);
  }
  page_->cboKind.SetListIndex(1);
  QTest::keyClick(&The<QComboBox>(page_->cboKind), Qt::Key_Up);
  EXPECT_EQ(The<QComboBox>(page_->cboKind).currentIndex(), 1);

  auto& box = The<QLineEdit>(page_->txtName);
  page_->txtName.SetText("ABC");
  box.setCursorPosition(1);
  QTest::keyClicks(&box, "x");
  EXPECT_EQ(box.text(), "AXBC");
  EXPECT_EQ(box.cursorPosition(), 2);

  // A model that became unusable takes no text at all.
  page_->txtArea.SetText("kept");
  page_->txtArea.SetEnabled(false);
  auto& area = The<QLineEdit>(page_->txtArea);
  area.setEnabled(true);
  QTest::keyClicks(&area, "x");
  EXPECT_EQ(area.text(), "kept");
}

TEST_F(Page, ANumberIsNarrowAndTheWheelPassesAList) {
  EXPECT_LT(The<QLineEdit>(page_->txtCount).width() * 2, The<QLineEdit>(page_->txtName).width());
  EXPECT_LT(The<QComboBox>(page_->cboKind).width() * 2, The<QGroupBox>(page_->fraOuter).width());
  page_->cboKind.SetListIndex(0);
  auto& list = The<QComboBox>(page_->cboKind);
  The<QLineEdit>(page_->txtName).setFocus();
  const QPointF middle = QRectF(list.rect()).center();
  QWheelEvent turn(middle, list.mapToGlobal(middle), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&list, &turn);
  EXPECT_EQ(page_->cboKind.ListIndex(), 0);
}

TEST_F(Page, HasNamesForScreenReadersAndScripts) {
  const std::pair<const ui::Control*, const char*> names[] = {
      {&page_->txtName, "Name"},  {&page_->txtCount, "Number of counts"},
      {&page_->cmdGo, "Go..."},   {&page_->chkUse, "Use it"},
      {&page_->cboKind, "Kind"},  {&page_->txtArea, "Area code"},
      {&page_->txtFrom, "From"},  {&page_->txtTo, "From to"},
      {&page_->fraOuter, "Outer"}};
  for (const auto& [control, name] : names) {
    EXPECT_EQ(view_->WidgetOf(*control)->accessibleName(), name) << control->Name();
    EXPECT_EQ(view_->WidgetOf(*control)->objectName().toStdString(), control->Name());
  }
  page_->lblArea.SetCaption("&City:");
  EXPECT_EQ(The<QLineEdit>(page_->txtArea).accessibleName(), "City");
  EXPECT_NE(view_->WidgetOf(page_->txtName), view_->WidgetOf(page_->txtArea));
  EXPECT_EQ(view_->WidgetOf(*page_), nullptr);
}

TEST_F(Page, LabelsOfAllFormsShareOneWidth) {
  int width = 0;
  int labels = 0;
  for (const QLabel* label : view_->findChildren<QLabel*>()) {
    if (!label->buddy()) continue;
    if (!width) width = label->width();
    EXPECT_EQ(label->width(), width) << label->text().toStdString();
    ++labels;
  }
  EXPECT_EQ(labels, 5);
  page_->lblArea.SetCaption("A much longer caption for the &city:");
  QApplication::processEvents();
  EXPECT_GT(The<QLabel>(page_->lblArea).width(), width);
}

TEST_F(Page, NothingIsCutOffWithALargeFont) {
  QFont font = view_->font();
  font.setPointSize(14);
  view_->setFont(font);
  QApplication::processEvents();
  view_->resize(view_->sizeHint());
  QApplication::processEvents();
  for (const QWidget* widget : view_->findChildren<QWidget*>()) {
    if (widget->objectName().isEmpty() || widget->objectName().startsWith("qt_")) continue;
    const QSize least = widget->minimumSizeHint();
    EXPECT_GE(widget->width(), least.width()) << widget->objectName().toStdString();
    EXPECT_GE(widget->height(), least.height()) << widget->objectName().toStdString();
    EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry()))
        << widget->objectName().toStdString();
  }
  auto* scroll = view_->findChild<QScrollArea*>();
  EXPECT_FALSE(scroll->verticalScrollBar()->isVisible() || scroll->horizontalScrollBar()->isVisible());
  view_->resize(200, 120);
  QApplication::processEvents();
  EXPECT_TRUE(scroll->verticalScrollBar()->isVisible() && scroll->horizontalScrollBar()->isVisible());
}

TEST_F(Page, OutlivesItsModel) {
  auto& box = The<QLineEdit>(page_->txtCount);
  auto& check = The<QCheckBox>(page_->chkUse);
  auto& list = The<QComboBox>(page_->cboKind);
  auto& button = The<QPushButton>(page_->cmdGo);
  page_.reset();
  box.setFocus();
  QTest::keyClicks(&box, "1");
  QTest::mouseClick(&check, Qt::LeftButton, {}, QPoint(8, 8));
  QTest::keyClick(&list, Qt::Key_Down);
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_FALSE(check.isChecked());
  view_->ShowMarks({});
  view_->hide();
  view_->show();
}

TEST_F(Page, TheModelOutlivesThePage) {
  const Count lost(page_->txtName.FocusLost);
  The<QLineEdit>(page_->txtName).setFocus();
  view_.reset();
  EXPECT_EQ(lost.raised, 0);
  page_->txtName.SetText("x");
  page_->cboKind.SetItems({});
  page_->fraOuter.SetEnabled(false);
  page_->cmdGo.SetFocus();
  EXPECT_TRUE(page_->cmdGo.HasFocus());
}

TEST_F(Page, AButtonMayCloseThePage) {
  page_->cmdGo.Clicked.Connect([this] { view_.reset(); });
  QTest::mouseClick(&The<QPushButton>(page_->cmdGo), Qt::LeftButton);
  EXPECT_EQ(view_, nullptr);
  page_->cmdGo.SetCaption("Gone");
}

TEST_F(Page, AnErrorGoesToTheReporter) {
  struct Reporter : host::ErrorReporter {
    std::string text;
    void ReportError(const std::string&, const std::string&, const std::string&,
                     const std::string&) override {}
    void ReportError() override {
      try {
        throw;
      } catch (const std::exception& error) {
        text = error.what();
      }
    }
  };
  const auto reporter = std::make_shared<Reporter>();
  const host::Scope scope({.errorReporter = reporter});
  page_->chkUse.Changed.Connect([] { throw std::runtime_error("no luck"); });
  QTest::keyClick(&The<QCheckBox>(page_->chkUse), Qt::Key_Space);
  EXPECT_EQ(reporter->text, "no luck");
  EXPECT_TRUE(The<QCheckBox>(page_->chkUse).isChecked());
}

}  // namespace
}  // namespace kiv
