#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTest>
#include <QTextDocumentFragment>
#include <QTreeView>
#include <QWheelEvent>
#include <stdexcept>

#include "qt/page_view.h"
#include "qt/text.h"
#include "support/user_hand.h"
#include "ui/caption.h"
#include "views/view_driver.h"

namespace kiv::test {

namespace {

using qt::FromQt;
using qt::ToQt;

ui::CheckState CheckOf(const QWidget& widget) {
  const auto* box = qobject_cast<const QCheckBox*>(&widget);
  if (box && box->checkState() == Qt::PartiallyChecked) return ui::CheckState::Grayed;
  return widget.property("checked").toBool() ? ui::CheckState::Checked : ui::CheckState::Unchecked;
}

std::string TextOf(const QWidget& widget) {
  for (const char* name : {"currentText", "plainText", "title", "text"}) {
    const QVariant text = widget.property(name);
    if (text.isValid()) return FromQt(text.toString());
  }
  return {};
}

int CaretOf(const QWidget& widget) {
  const auto* area = qobject_cast<const QPlainTextEdit*>(&widget);
  return area ? area->textCursor().position() : widget.property("cursorPosition").toInt();
}

bool IsCutOff(const QWidget& widget) {
  const QSize least = widget.minimumSizeHint();
  return widget.width() < least.width() || widget.height() < least.height() ||
         !widget.parentWidget()->rect().contains(widget.geometry());
}

std::string PlainText(const QString& text) {
  return FromQt(Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text);
}

class QtDriver final : public ViewDriver {
 public:
  QtDriver() { pages_.addWidget(otherPage_); }

  void Open(ui::Container& page, const ui::LayoutItem& layout) override {
    view_ = new qt::PageView(page, layout);
    pages_.addWidget(view_);
    ShowAgain();
    ComeBack();
    Resize(0, 0);
  }
  void Close() override { delete view_; }
  bool IsOpen() const override { return !view_.isNull(); }
  void Hide() override { pages_.setCurrentWidget(otherPage_); }
  void ShowAgain() override { pages_.setCurrentWidget(view_); }
  void Resize(int width, int height) override {
    pages_.resize(width ? QSize(width, height) : view_->sizeHint());
    Settle();
  }
  void UseLargeFont() override {
    QFont font = view_->font();
    font.setPointSize(14);
    view_->setFont(font);
    Settle();
    Resize(0, 0);
  }
  void SetEnabled(bool enabled) override { view_->setEnabled(enabled); }
  void ShowMarks(const std::vector<ui::Mark>& marks) override { view_->ShowMarks(marks); }

  void Focus(const Control& control) override { WidgetOf(control).setFocus(); }
  void Press(const char* keys) override {
    QTest::keySequence(KeyTarget(), QKeySequence(QLatin1String(keys)));
  }
  void Type(const std::string& text) override { QTest::keyClicks(KeyTarget(), ToQt(text)); }
  void Commit(const std::string& text) override {
    QInputMethodEvent commit;
    commit.setCommitString(ToQt(text));
    QApplication::sendEvent(KeyTarget(), &commit);
  }
  void TypeAtOnce(const std::string& text) override {
    QKeyEvent several(QEvent::KeyPress, 0, Qt::NoModifier, ToQt(text));
    QApplication::sendEvent(KeyTarget(), &several);
  }
  void PasteByMenu(const std::string& text) override {
    QApplication::clipboard()->setText(ToQt(text));
    QMetaObject::invokeMethod(KeyTarget(), "paste");
  }
  void PutCaret(std::size_t position) override {
    KeyTarget()->setProperty("cursorPosition", static_cast<int>(position));
  }
  void Undo() override { QMetaObject::invokeMethod(KeyTarget(), "undo"); }
  void Click(const Control& control) override {
    QWidget& widget = WidgetOf(control);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, client::UserHand::EdgeOf(widget));
  }
  void TurnWheel(const Control& control) override {
    QWidget& widget = WidgetOf(control);
    const QPointF middle = QRectF(widget.rect()).center();
    QWheelEvent turn(middle, widget.mapToGlobal(middle), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &turn);
  }
  void ShowDropDown(const Control& list, bool shown) override {
    shown ? The<QComboBox>(list).showPopup() : The<QComboBox>(list).hidePopup();
    Settle();
  }
  void ClickHeader(const Control& list, int column) override {
    const QHeaderView& header = *The<QTreeView>(list).header();
    const QPoint where(header.sectionViewportPosition(column) + 10, header.height() / 2);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, where);
  }
  void GoToRow(const Control& list, int position) override {
    auto& tree = The<QTreeView>(list);
    tree.setFocus();
    tree.setCurrentIndex(tree.model()->index(position, 0));
  }
  bool Drop(const Control& list, const char* format) override {
    return client::UserHand::Drop(*The<QTreeView>(list).viewport(), format);
  }
  void GoToOtherWindow() override { Activate(other_); }
  void ComeBack() override { Activate(pages_); }
  bool WaitFor(const std::function<bool()>& condition) override {
    QApplication::processEvents();
    return QTest::qWaitFor(condition);
  }

  bool Shows(const Control& control) const override { return view_->WidgetOf(control) != nullptr; }
  Seen See(const Control& control) const override {
    const QWidget& widget = WidgetOf(control);
    return {.text = TextOf(widget),
            .caret = CaretOf(widget),
            .check = CheckOf(widget),
            .enabled = widget.isEnabled(),
            .visible = widget.isVisible(),
            .focused = widget.hasFocus(),
            .inView = widget.visibleRegion().contains(QRect(0, 0, 10, widget.height() - 1)),
            .cutOff = IsCutOff(widget),
            .place = PlaceIn(widget),
            .name = FromQt(widget.accessibleName()),
            .description = FromQt(widget.accessibleDescription()),
            .id = FromQt(widget.objectName()),
            .tip = PlainText(widget.toolTip())};
  }
  SeenRows SeeRows(const Control& list) const override {
    const auto& tree = The<QTreeView>(list);
    const QAbstractItemModel& model = *tree.model();
    SeenRows seen;
    for (int column = 0; column < model.columnCount(); ++column) {
      const auto picture = model.headerData(column, Qt::Horizontal, Qt::DecorationRole).value<QPixmap>();
      seen.pictures.push_back(picture.isNull() ? 0 : picture.toImage().pixel(0, 0));
      seen.columns.emplace_back();
      for (int row = 0; row < model.rowCount(); ++row) {
        seen.columns.back().push_back(FromQt(model.index(row, column).data().toString()));
      }
    }
    for (int row = 0; row < model.rowCount(); ++row) {
      seen.checks.push_back(model.index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked);
      if (tree.selectionModel()->isRowSelected(row)) seen.selected.push_back(row);
    }
    const QHeaderView& header = *tree.header();
    const bool rises = header.sortIndicatorOrder() == Qt::AscendingOrder;
    if (header.isSortIndicatorShown()) {
      seen.sorted = {header.sortIndicatorSection(),
                     rises ? ui::SortDirection::Ascending : ui::SortDirection::Descending};
    }
    return seen;
  }
  bool Scrolls() const override {
    const auto* area = view_->findChild<QScrollArea*>();
    return area->verticalScrollBar()->isVisible() || area->horizontalScrollBar()->isVisible();
  }
  Look LookOfText(const std::string& text) const override {
    const QLabel* label = LabelOf(text);
    if (!label) return Look::Absent;
    return label->isEnabled() ? Look::Enabled : Look::Disabled;
  }
  ui::Rect PlaceOfText(const std::string& text) const override { return PlaceIn(*LabelOf(text)); }
  std::map<std::string, ui::Rect> MarkIcons() const override {
    std::map<std::string, ui::Rect> icons;
    for (const QLabel* label : view_->findChildren<QLabel*>()) {
      if (label->isVisible() && !label->pixmap(Qt::ReturnByValue).isNull()) {
        icons.emplace(FromQt(label->accessibleName()), PlaceIn(*label));
      }
    }
    return icons;
  }

 private:
  QWidget& WidgetOf(const Control& control) const {
    QWidget* widget = view_->WidgetOf(control);
    if (!widget) throw std::runtime_error("the page does not show this control");
    return *widget;
  }
  template <class Widget>
  Widget& The(const Control& control) const {
    auto* widget = qobject_cast<Widget*>(&WidgetOf(control));
    if (!widget) throw std::runtime_error("a control is shown as something else");
    return *widget;
  }
  QWidget* KeyTarget() const {
    QWidget* focused = QApplication::focusWidget();
    return focused ? focused : view_;
  }
  const QLabel* LabelOf(const std::string& text) const {
    for (const QLabel* label : view_->findChildren<QLabel*>()) {
      const std::string shown = FromQt(label->text());
      if (label->isVisible() && (label->buddy() ? ui::PlainCaption(shown) : shown) == text) return label;
    }
    return nullptr;
  }
  ui::Rect PlaceIn(const QWidget& widget) const {
    const QPoint corner = widget.mapTo(view_, QPoint(0, 0));
    return {corner.x(), corner.y(), widget.width(), widget.height()};
  }
  void Activate(QWidget& window) {
    window.show();
    window.activateWindow();
    if (!QTest::qWaitForWindowActive(window.window())) throw std::runtime_error("no window is active");
  }

  QWidget other_;
  QStackedWidget pages_;
  QLineEdit* otherPage_ = new QLineEdit;
  QPointer<qt::PageView> view_;
};

}  // namespace

std::unique_ptr<ViewDriver> MakeViewDriver() {
  return std::make_unique<QtDriver>();
}

}  // namespace kiv::test

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
