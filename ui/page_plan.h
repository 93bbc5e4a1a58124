#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "ui/layout.h"

namespace kiv::ui {

/// How wide a box wants to be: as wide as there is room, or as a few digits need.
enum class BoxWidth { Full, Short };

/// A part of a page, with everything resolved that its place in the layout tree means. A view walks the parts
/// and makes a widget for each; see PagePlan.
struct PlanItem {
  enum class Kind {
    Column,    ///< items below each other
    Row,       ///< items beside each other
    Grid,      ///< items in lines and columns, which are aligned
    Group,     ///< a frame around a column of items
    Control,   ///< a control, also a Label
    Text,      ///< a fixed text
    MarkRoom,  ///< where the mark of the control before it stands; always there, so that nothing moves
    Stretch    ///< takes the room that the others leave
  };

  Kind kind = Kind::Column;
  std::vector<PlanItem> items = {};

  /// The control, the group's frame, or the control that the room for a mark belongs to.
  Control* control = nullptr;
  BoxWidth width = BoxWidth::Full;
  /// Of a fixed text, or a label: with marks for mnemonics where it names a control, as it reads otherwise.
  std::string text = {};
  /// The control that a text or Label names: its mnemonic moves the focus there.
  Control* names = nullptr;
  /// The control that a fixed text belongs to: it is enabled and visible together with that.
  Control* partOf = nullptr;
  bool wraps = false;      ///< the text may take several lines
  bool formLabel = false;  ///< all labels of the forms of a page share one width
  bool alignTop = false;   ///< a label beside something tall

  bool growsAcross = false;
  bool growsDown = false;

  // In a grid: the place, and the number of columns that the item covers.
  int line = 0;
  int column = 0;
  int columns = 1;
  /// Of a grid: the column that grows.
  int growingColumn = 0;
};

/// What a layout tree means: which boxes are short, which text is a unit, names a control or wraps, where
/// marks have their room, what grows, and what a screen reader calls each control. It is made once for a page
/// and stays true while captions change; it must not be used after its controls.
class PagePlan {
 public:
  explicit PagePlan(const LayoutItem& layout);

  /// A column.
  const PlanItem& Root() const { return root_; }

  /// What a screen reader calls a control now; empty for one that nothing names.
  std::string NameOf(Control& control) const;
  /// The controls whose names follow from the caption of this one, itself included.
  std::vector<Control*> NamedBy(const Control& control) const;

 private:
  friend class PagePlanner;

  /// What stands in front of a control.
  struct Naming {
    Control* rowName = nullptr;    ///< the control that names the row of a grid
    const Label* label = nullptr;  ///< the label of the field
    std::string fixedLabel = {};   ///< the same when it never changes
    std::string textBefore = {};   ///< the fixed text between this control and the one before it
  };

  PlanItem root_;
  std::vector<Control*> controls_;  // in the order of the layout
  std::unordered_map<const Control*, Naming> namings_;
};

/// Something that is wrong with a control, in words for the user.
struct Mark {
  const Control* control = nullptr;
  std::string message;
};

/// All marks in one line: the first message, and how many more there are.
std::string SummaryOf(const std::vector<Mark>& marks);

}  // namespace kiv::ui
