#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ui/arranger.h"
#include "ui/control_visitor.h"

namespace kiv::test {

/// What is to be seen of a control.
struct Seen {
  std::string text;
  int caret = 0;
  ui::CheckState check = ui::CheckState::Unchecked;
  bool enabled = false;
  bool visible = false;
  bool focused = false;
  bool inView = false;
  bool cutOff = false;
  ui::Rect place;  ///< in the page's coordinates
  // What a screen reader says, and what a script finds the control by.
  std::string name;
  std::string description;
  std::string id;
  std::string tip;
};

/// What is to be seen of the rows of a list.
struct SeenRows {
  std::vector<std::vector<std::string>> columns;
  std::vector<bool> checks;
  std::vector<int> selected;
  std::vector<std::uint32_t> pictures;  ///< by their first pixels, 0 where the head of a column has none
  /// By the view's own arrow.
  std::pair<int, ui::SortDirection> sorted = {ui::ListView::kUnsorted, ui::SortDirection::Ascending};
};

/// A page that some toolkit shows, the hand of a user who works it, and the eye that looks at it. One suite
/// of tests is run with each toolkit's driver. Only the address of a control counts, so that what shows a
/// control can still be looked at when the control is gone.
class ViewDriver {
 public:
  using Control = ui::Control;

  virtual ~ViewDriver() = default;

  /// Shows a page in an active window, as large as it wants to be.
  virtual void Open(ui::Container& page, const ui::LayoutItem& layout) = 0;
  virtual void Close() = 0;
  virtual bool IsOpen() const = 0;
  virtual void Hide() = 0;
  virtual void ShowAgain() = 0;
  virtual void Resize(int width, int height) = 0;
  virtual void UseLargeFont() = 0;
  virtual void SetEnabled(bool enabled) = 0;  ///< the whole page, as a host that is busy
  virtual void ShowMarks(const std::vector<ui::Mark>& marks) = 0;

  // The hand. Keys go to whatever has the focus.
  virtual void Focus(const Control& control) = 0;
  virtual void Press(const char* keys) = 0;  ///< such as "Shift+Down"
  virtual void Type(const std::string& text) = 0;
  /// Several characters at once, as an input method or a macro sends them.
  virtual void Commit(const std::string& text) = 0;
  virtual void TypeAtOnce(const std::string& text) = 0;
  virtual void PasteByMenu(const std::string& text) = 0;
  virtual void PutCaret(std::size_t position) = 0;
  virtual void Undo() = 0;
  virtual void Click(const Control& control) = 0;
  virtual void TurnWheel(const Control& control) = 0;
  virtual void ShowDropDown(const Control& list, bool shown) = 0;
  virtual void ClickHeader(const Control& list, int column) = 0;
  virtual void GoToRow(const Control& list, int position) = 0;
  /// Whether the list took a drop in this format.
  virtual bool Drop(const Control& list, const char* format) = 0;
  virtual void GoToOtherWindow() = 0;
  virtual void ComeBack() = 0;
  /// Lets the toolkit do what it has put off.
  virtual bool WaitFor(const std::function<bool()>& condition) = 0;
  void Settle() {
    WaitFor([] { return true; });
  }

  // The eye.
  virtual bool Shows(const Control& control) const = 0;  ///< whether the page holds it at all
  virtual Seen See(const Control& control) const = 0;
  virtual SeenRows SeeRows(const Control& list) const = 0;
  virtual bool Scrolls() const = 0;
  /// A text as it reads, without the mark of its mnemonic.
  enum class Look { Absent, Disabled, Enabled };
  virtual Look LookOfText(const std::string& text) const = 0;
  virtual ui::Rect PlaceOfText(const std::string& text) const = 0;
  /// The visible icons of marks by their messages.
  virtual std::map<std::string, ui::Rect> MarkIcons() const = 0;
};

/// The driver of the toolkit that the suite is linked with.
std::unique_ptr<ViewDriver> MakeViewDriver();

}  // namespace kiv::test
