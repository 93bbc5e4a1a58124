#pragma once

#include <QWidget>
#include <unordered_map>
#include <vector>

#include "base/signal.h"
#include "ui/control.h"
#include "ui/page_plan.h"

class QLabel;
class QScrollArea;

namespace kiv::qt {

class ControlView;

/// A page of controls as Qt widgets. The page and its view may go away in either order. What a user does may
/// close the view; from the event of a text or a drop-down list with deleteLater only, because Qt's own
/// widgets still look at themselves after they told of an edit.
class PageView : public QWidget {
 public:
  enum class Shape {
    Page,
    Strip  ///< stands among other widgets: without margins and without a line for the first message
  };

  /// `layout` arranges controls of `page`, also those of containers inside it.
  PageView(ui::Container& page, const ui::LayoutItem& layout, QWidget* parent = nullptr,
           Shape shape = Shape::Page);

  /// The widget that shows a control; null when the layout does not hold it.
  QWidget* WidgetOf(const ui::Control& control) const;

  /// Marks these controls and no others, and tells the first message below the page, also when its control is
  /// on another page.
  void ShowMarks(const std::vector<ui::Mark>& marks);

  QSize sizeHint() const override;
  bool eventFilter(QObject* object, QEvent* event) override;

 protected:
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  ControlView* ViewOf(const ui::Control* control) const;
  void MoveFocusTo(const ui::Control& control);
  void ShowNames(const std::vector<ui::Control*>& controls);
  void FollowCaptions();
  void AlignLabels();

  ui::PagePlan plan_;
  ui::Container* outermost_;
  QScrollArea* scroll_;
  QLabel* summary_;
  std::unordered_map<const ui::Control*, ControlView*> views_;
  std::vector<QLabel*> formLabels_;
  std::vector<ControlView*> marked_;
  ScopedConnection focusChanged_;
  ScopedConnection windowWanted_;
  std::vector<ScopedConnection> captionsChanged_;
};

}  // namespace kiv::qt
