#pragma once

#include <QString>
#include <vector>

#include "ui/layout.h"

class QBoxLayout;
class QGridLayout;
class QLabel;
class QWidget;

namespace kiv::qt {

class ControlView;
enum class BoxWidth;

/// Makes the widgets of a layout tree and arranges them.
class PageBuilder {
 public:
  /// Fills a widget that has no layout yet.
  void Build(const ui::LayoutItem& page, QWidget* content);

  /// Every view made, in the order of the layout.
  const std::vector<ControlView*>& Views() const { return views_; }
  /// The labels in front of the fields of all forms.
  const std::vector<QLabel*>& FormLabels() const { return formLabels_; }

 private:
  struct Row;

  void AddToColumn(QBoxLayout& column, const ui::LayoutItem& item, QWidget* parent);
  void AddArea(QBoxLayout& box, const ui::LayoutItem& area, QWidget* parent);
  void AddGrid(QBoxLayout& box, const ui::LayoutItem& grid, QWidget* parent);
  void AddToForm(QGridLayout& form, const ui::LayoutItem& item, QWidget* parent);
  QLabel* MakeFieldLabel(const ui::LayoutItem& field, QWidget* parent);
  void FillField(QBoxLayout& box, const ui::LayoutItem& field, QLabel* label, QWidget* parent);
  void FillRow(QBoxLayout& box, const std::vector<ui::LayoutItem>& items, QWidget* parent,
               const QString& fieldName);
  void AddControl(Row& row, ui::Control& control, BoxWidth width);
  ControlView* Make(ui::Control& control, QWidget* parent, BoxWidth width);

  std::vector<ControlView*> views_;
  std::vector<QLabel*> formLabels_;
};

}  // namespace kiv::qt
