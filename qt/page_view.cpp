#include "qt/page_view.h"

#include <QApplication>
#include <QFocusEvent>
#include <QLabel>
#include <QPointer>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "qt/control_view.h"
#include "qt/page_builder.h"
#include "qt/text.h"
#include "ui/control_traits.h"

namespace kiv::qt {

namespace {

ui::Container& OutermostOf(ui::Container& page) {
  ui::Container* container = &page;
  while (container->Parent()) container = container->Parent();
  return *container;
}

ui::FocusTo WhereTo(const QWidget& left, Qt::FocusReason reason) {
  const QWidget* now = QApplication::focusWidget();
  if (reason == Qt::MenuBarFocusReason) return ui::FocusTo::Menu;
  if (reason == Qt::PopupFocusReason) return ui::FocusTo::DropDownList;
  const bool toWindow = reason == Qt::ActiveWindowFocusReason || (now && now->window() != left.window());
  return toWindow ? ui::FocusTo::AnotherWindow : ui::FocusTo::AnotherControl;
}

}  // namespace

PageView::PageView(ui::Container& page, const ui::LayoutItem& layout, QWidget* parent, Shape shape)
    : QWidget(parent),
      plan_(layout),
      outermost_(&OutermostOf(page)),
      scroll_(new QScrollArea(this)),
      summary_(new QLabel(this)) {
  auto* content = new QWidget;
  PageBuilder builder;
  builder.Build(plan_.Root(), content);
  formLabels_ = builder.FormLabels();
  if (shape == Shape::Strip) {
    content->layout()->setContentsMargins({});
    summary_->hide();
  }
  AlignLabels();

  for (ControlView* view : builder.Views()) {
    views_.emplace(&view->Control(), view);
    if (view->Widget().focusPolicy() != Qt::NoFocus) view->Widget().installEventFilter(this);
    ShowNames({&view->Control()});
  }
  FollowCaptions();

  scroll_->setFrameShape(QFrame::NoFrame);
  scroll_->setWidgetResizable(true);
  scroll_->setWidget(content);
  // A short page is not taller than it is; a scroll area by itself would be.
  scroll_->setMinimumHeight(std::min(content->sizeHint().height(), scroll_->minimumSizeHint().height()));
  // The page shows the background of what it stands on, such as a tab.
  scroll_->viewport()->setAutoFillBackground(false);
  content->setAutoFillBackground(false);
  summary_->setTextFormat(Qt::PlainText);
  summary_->setWordWrap(true);
  QMargins margins = content->layout()->contentsMargins();
  margins.setTop(0);
  summary_->setContentsMargins(margins);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->setSpacing(0);
  column->addWidget(scroll_, 1);
  column->addWidget(summary_);

  focusChanged_ = outermost_->FocusChanged.Connect([this](ui::Control& control) { MoveFocusTo(control); });
  windowWanted_ =
      outermost_->WindowWanted.Connect([this](WindowHandle& wanted) { wanted = window()->winId(); });
}

QWidget* PageView::WidgetOf(const ui::Control& control) const {
  const ControlView* view = ViewOf(&control);
  return view ? &view->Widget() : nullptr;
}

ControlView* PageView::ViewOf(const ui::Control* control) const {
  const auto found = views_.find(control);
  return found == views_.end() ? nullptr : found->second;
}

void PageView::ShowMarks(const std::vector<ui::Mark>& marks) {
  const std::vector<ControlView*> before = std::exchange(marked_, {});
  for (const ui::Mark& mark : marks) {
    ControlView* view = ViewOf(mark.control);
    if (!view || std::find(marked_.begin(), marked_.end(), view) != marked_.end()) continue;
    view->ShowMark(ToQt(mark.message));
    marked_.push_back(view);
  }
  for (ControlView* view : before) {
    if (std::find(marked_.begin(), marked_.end(), view) == marked_.end()) view->ShowMark({});
  }
  summary_->setText(ToQt(ui::SummaryOf(marks)));
}

QSize PageView::sizeHint() const {
  // A scroll area by itself would be content with less than its whole content.
  const QSize content = scroll_->widget()->sizeHint();
  if (summary_->isHidden()) return content;
  const QSize summary = summary_->sizeHint().expandedTo(summary_->minimumSize());
  return {content.width(), content.height() + summary.height()};
}

bool PageView::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
    if (auto* view = dynamic_cast<ControlView*>(object)) {
      const QPointer<QObject> widget(object);
      if (event->type() == QEvent::FocusIn) {
        view->Enter();
      } else {
        view->Leave(WhereTo(view->Widget(), static_cast<QFocusEvent*>(event)->reason()));
      }
      return widget.isNull();  // an event for nobody goes no further
    }
  }
  return QWidget::eventFilter(object, event);
}

void PageView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    // The labels learn of it after this widget.
    QMetaObject::invokeMethod(
        this, [this] { AlignLabels(); }, Qt::QueuedConnection);
  }
}

void PageView::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!focusChanged_.Connected()) return;
  if (const ui::Control* focused = outermost_->FocusedControl()) MoveFocusTo(*focused);
}

void PageView::MoveFocusTo(const ui::Control& control) {
  const ControlView* view = ViewOf(&control);
  if (!view || view->Widget().focusPolicy() == Qt::NoFocus) return;
  QWidget& widget = view->Widget();
  const QPointer<PageView> page(this);  // who loses the focus may close it
  if (!widget.hasFocus()) widget.setFocus(Qt::OtherFocusReason);
  if (page) scroll_->ensureWidgetVisible(&widget);
}

void PageView::ShowNames(const std::vector<ui::Control*>& controls) {
  for (ui::Control* control : controls) {
    const QString name = ToQt(plan_.NameOf(*control));
    QWidget* widget = WidgetOf(*control);
    if (widget && widget->accessibleName() != name) widget->setAccessibleName(name);
  }
}

/// A changed caption may name other controls and widen the labels.
void PageView::FollowCaptions() {
  for (const auto& entry : views_) {
    ui::Control& control = entry.second->Control();
    if (!ui::TraitsOf(control).caption) continue;
    captionsChanged_.emplace_back(control.AppearanceChanged.Connect([this, &control] {
      ShowNames(plan_.NamedBy(control));
      if (qobject_cast<QLabel*>(WidgetOf(control))) AlignLabels();
    }));
  }
}

/// All forms of a page share one width of labels.
void PageView::AlignLabels() {
  int width = 0;
  for (const QLabel* label : formLabels_) width = std::max(width, label->sizeHint().width());
  for (QLabel* label : formLabels_) label->setMinimumWidth(width);
  // The line of the first problem has its room from the beginning.
  const QMargins margins = summary_->contentsMargins();
  summary_->setMinimumHeight(summary_->fontMetrics().height() + margins.top() + margins.bottom());
}

}  // namespace kiv::qt
