#pragma once

#include <utility>
#include <vector>

#include "ui/page_plan.h"

class QBoxLayout;
class QGridLayout;
class QLabel;
class QWidget;

namespace kiv::qt {

class ControlView;

/// Makes the widgets of a page plan and arranges them in Qt's layouts.
class PageBuilder {
 public:
  /// Fills a widget that has no layout yet.
  void Build(const ui::PlanItem& root, QWidget* content);

  /// Every view made, in the order of the plan.
  const std::vector<ControlView*>& Views() const { return views_; }
  /// The labels in front of the fields of all forms.
  const std::vector<QLabel*>& FormLabels() const { return formLabels_; }

 private:
  void Fill(QBoxLayout& box, const ui::PlanItem& whole, QWidget* parent);
  void Add(QBoxLayout& box, const ui::PlanItem& item, QWidget* parent);
  void AddGroup(QBoxLayout& box, const ui::PlanItem& group, QWidget* parent);
  void FillGrid(QGridLayout& grid, const ui::PlanItem& item, QWidget* parent);
  QWidget* MakeText(const ui::PlanItem& text, QWidget* parent);
  QWidget* MakeControl(const ui::PlanItem& item, QWidget* parent);
  void AddFormLabel(QGridLayout& form, const ui::PlanItem& label, QWidget* parent);
  void TieTexts();
  ControlView* ViewOf(const ui::Control* control) const;

  std::vector<ControlView*> views_;
  std::vector<QLabel*> formLabels_;
  std::vector<std::pair<QLabel*, const ui::PlanItem*>> texts_;  // fixed ones and Labels
};

}  // namespace kiv::qt
