#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDropEvent>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTest>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTreeView>
#include <QWheelEvent>
#include <algorithm>
#include <stdexcept>

#include "qt/page_view.h"
#include "qt/text.h"
#include "ui/caption.h"
#include "views/view_driver.h"

namespace kiv::test {

namespace {

using qt::FromQt;
using qt::ToQt;

Qt::Key ToQtKey(Key key) {
  static constexpr Qt::Key kKeys[] = {Qt::Key_Tab,    Qt::Key_Return, Qt::Key_Space, Qt::Key_Backspace,
                                      Qt::Key_Delete, Qt::Key_Home,   Qt::Key_End,   Qt::Key_Up,
                                      Qt::Key_Down,   Qt::Key_Left,   Qt::Key_Right};
  static_assert(std::size(kKeys) == static_cast<std::size_t>(Key::Right) + 1);
  return kKeys[static_cast<std::size_t>(key)];
}

Qt::KeyboardModifiers ToQtModifiers(With with) {
  static constexpr Qt::KeyboardModifier kModifiers[] = {Qt::NoModifier, Qt::ShiftModifier,
                                                        Qt::ControlModifier, Qt::AltModifier};
  return kModifiers[static_cast<std::size_t>(with)];
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
  void Press(Key key, With with) override { QTest::keyClick(KeyTarget(), ToQtKey(key), ToQtModifiers(with)); }
  void Press(char key, With with) override { QTest::keyClick(KeyTarget(), key, ToQtModifiers(with)); }
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
    // The left edge: a click beside a caption would miss.
    const int fromLeft = std::min(widget.width(), widget.height()) / 2;
    QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(fromLeft, widget.height() / 2));
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
  bool Drop(const Control& list, const std::string& format) override {
    QMimeData data;
    data.setData(ToQt(format), "x");
    const QPoint where(20, 40);
    QWidget* target = The<QTreeView>(list).viewport();
    QDragEnterEvent enter(where, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(where, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &drop);
    return true;
  }
  void GoToOtherWindow() override { Activate(other_); }
  void ComeBack() override { Activate(pages_); }
  bool WaitFor(const std::function<bool()>& condition) override {
    QApplication::processEvents();
    return QTest::qWaitFor(condition);
  }

  bool Shows(const Control& control) const override { return view_->WidgetOf(control) != nullptr; }
  std::string TextOf(const Control& control) const override {
    for (const char* name : {"currentText", "plainText", "title", "text"}) {
      const QVariant text = WidgetOf(control).property(name);
      if (text.isValid()) return FromQt(text.toString());
    }
    throw std::runtime_error("a control is shown without a text");
  }
  std::size_t CaretOf(const Control& control) const override {
    const auto* box = qobject_cast<const QLineEdit*>(&WidgetOf(control));
    return static_cast<std::size_t>(box ? box->cursorPosition()
                                        : The<QPlainTextEdit>(control).textCursor().position());
  }
  ui::CheckState CheckOf(const Control& control) const override {
    const auto* box = qobject_cast<const QCheckBox*>(&WidgetOf(control));
    if (box && box->checkState() == Qt::PartiallyChecked) return ui::CheckState::Grayed;
    return The<QAbstractButton>(control).isChecked() ? ui::CheckState::Checked : ui::CheckState::Unchecked;
  }
  bool IsEnabled(const Control& control) const override { return WidgetOf(control).isEnabled(); }
  bool IsVisible(const Control& control) const override { return WidgetOf(control).isVisible(); }
  bool HasFocus(const Control& control) const override {
    return QApplication::focusWidget() == &WidgetOf(control);
  }
  bool IsInView(const Control& control) const override {
    const QWidget& widget = WidgetOf(control);
    return widget.visibleRegion().contains(QRect(0, 0, 10, widget.height() - 1));
  }
  bool IsCutOff(const Control& control) const override {
    const QWidget& widget = WidgetOf(control);
    const QSize least = widget.minimumSizeHint();
    return widget.width() < least.width() || widget.height() < least.height() ||
           !widget.parentWidget()->rect().contains(widget.geometry());
  }
  bool Scrolls() const override {
    const auto* area = view_->findChild<QScrollArea*>();
    return area->verticalScrollBar()->isVisible() || area->horizontalScrollBar()->isVisible();
  }
  ui::Rect PlaceOf(const Control& control) const override { return PlaceIn(WidgetOf(control)); }
  Look LookOfText(const std::string& text) const override {
    const QLabel* label = LabelOf(text);
    if (!label) return Look::Absent;
    return label->isEnabled() ? Look::Enabled : Look::Disabled;
  }
  ui::Rect PlaceOfText(const std::string& text) const override { return PlaceIn(*LabelOf(text)); }
  std::string NameOf(const Control& control) const override {
    return FromQt(WidgetOf(control).accessibleName());
  }
  std::string DescriptionOf(const Control& control) const override {
    return FromQt(WidgetOf(control).accessibleDescription());
  }
  std::string IdOf(const Control& control) const override { return FromQt(WidgetOf(control).objectName()); }
  std::string TipOf(const Control& control) const override {
    const QString tip = WidgetOf(control).toolTip();
    return FromQt(Qt::mightBeRichText(tip) ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip);
  }
  std::map<std::string, ui::Rect> MarkIcons() const override {
    std::map<std::string, ui::Rect> icons;
    for (const QLabel* label : view_->findChildren<QLabel*>()) {
      if (label->isVisible() && !label->pixmap(Qt::ReturnByValue).isNull()) {
        icons.emplace(FromQt(label->accessibleName()), PlaceIn(*label));
      }
    }
    return icons;
  }

  std::vector<std::string> CellsOf(const Control& list, int column) const override {
    const QAbstractItemModel& model = *The<QTreeView>(list).model();
    std::vector<std::string> cells;
    for (int row = 0; row < model.rowCount(); ++row) {
      cells.push_back(FromQt(model.index(row, column).data().toString()));
    }
    return cells;
  }
  std::vector<int> SelectedRowsOf(const Control& list) const override {
    std::vector<int> rows;
    for (const QModelIndex& row : The<QTreeView>(list).selectionModel()->selectedRows()) {
      rows.push_back(row.row());
    }
    std::sort(rows.begin(), rows.end());
    return rows;
  }
  std::vector<bool> ChecksOf(const Control& list) const override {
    const QAbstractItemModel& model = *The<QTreeView>(list).model();
    std::vector<bool> checks;
    for (int row = 0; row < model.rowCount(); ++row) {
      checks.push_back(model.index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked);
    }
    return checks;
  }
  Sorted SortOf(const Control& list, int column) const override {
    const QHeaderView& header = *The<QTreeView>(list).header();
    if (!header.isSortIndicatorShown() || header.sortIndicatorSection() != column) return Sorted::No;
    return header.sortIndicatorOrder() == Qt::AscendingOrder ? Sorted::Ascending : Sorted::Descending;
  }
  std::uint32_t PictureOf(const Control& list, int column) const override {
    const QAbstractItemModel& model = *The<QTreeView>(list).model();
    const auto picture = model.headerData(column, Qt::Horizontal, Qt::DecorationRole).value<QPixmap>();
    return picture.isNull() ? 0 : picture.toImage().pixel(0, 0);
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
