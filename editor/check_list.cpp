#include "editor/check_list.h"

#include <algorithm>
#include <utility>

#include "host/services.h"

namespace kiv {

void CheckList::Add(ui::Control& control, Condition passes, Message message, host::MessageStyle style) {
  checks_.push_back({&control, std::move(passes), std::move(message), style});
}

void CheckList::Add(ui::Control& control, Condition passes, std::string message, host::MessageStyle style) {
  Add(
      control, std::move(passes), [text = std::move(message)] { return text; }, style);
}

void CheckList::Append(const CheckList& rules, const Condition& applies) {
  for (Check check : rules.checks_) {
    if (applies) {
      check.passes = [applies, passes = std::move(check.passes)] { return !applies() || passes(); };
    }
    checks_.push_back(std::move(check));
  }
}

std::optional<Problem> CheckList::FirstProblem() const {
  const auto failing =
      std::find_if(checks_.begin(), checks_.end(), [](const Check& check) { return !check.passes(); });
  if (failing == checks_.end()) return std::nullopt;
  return Problem{failing->control, failing->message(), failing->style};
}

std::vector<Problem> CheckList::Problems() const {
  std::vector<Problem> problems;
  AddProblems(problems);
  return problems;
}

void CheckList::AddProblems(std::vector<Problem>& problems) const {
  for (const Check& check : checks_) {
    const bool known = std::any_of(problems.begin(), problems.end(), [&check](const Problem& problem) {
      return problem.control == check.control;
    });
    if (!known && !check.passes()) problems.push_back({check.control, check.message(), check.style});
  }
}

bool CheckList::Enforce() const {
  const std::optional<Problem> problem = FirstProblem();
  if (problem) Tell(*problem);
  return !problem;
}

void Tell(const Problem& problem) {
  host::ShowMessage(problem.message, problem.style);
  if (problem.control) problem.control->SetFocus();
}

}  // namespace kiv
