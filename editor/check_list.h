#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/message_box.h"
#include "ui/control.h"

namespace kiv {

/// One failing check: what is wrong, and where.
struct Problem {
  ui::Control* control = nullptr;
  std::string message;
  host::MessageStyle style = host::MessageStyle::Critical;
  bool needsNetwork = false;  ///< nobody can tell while the host's network is unknown
};

/// Shows a problem in the host's message box and moves the focus there.
void Tell(const Problem& problem);

/// The rules of a page, in the order in which they are checked.
class CheckList {
 public:
  using Condition = std::function<bool()>;
  using Message = std::function<std::string()>;

  /// A rule about a control. `passes` may rely on the control's earlier rules.
  void Add(ui::Control& control, Condition passes, Message message,
           host::MessageStyle style = host::MessageStyle::Critical);
  void Add(ui::Control& control, Condition passes, std::string message,
           host::MessageStyle style = host::MessageStyle::Critical);
  /// Appends the rules of an embedded control, which apply while `applies` holds (always when it is empty).
  void Append(const CheckList& rules, const Condition& applies = {});

  std::optional<Problem> FirstProblem() const;
  /// Every failing check, the first one of each control.
  std::vector<Problem> Problems() const;
  /// Adds them to those of other lists; a control that has one already gets no other.
  void AddProblems(std::vector<Problem>& problems) const;

  /// Tells the first failure. True when all is well.
  bool Enforce() const;

 private:
  struct Check {
    ui::Control* control;
    Condition passes;
    Message message;
    host::MessageStyle style;
  };

  std::vector<Check> checks_;
};

}  // namespace kiv
