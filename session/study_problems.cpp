#include "session/study_problems.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "editor/dd_list_view.h"
#include "host/scope.h"
#include "store/network/network_lookup.h"

namespace kiv::session {

namespace {

constexpr const char* kWholeStudy = "Study";

/// The messages are written for message boxes.
std::string OneLine(std::string text) {
  std::erase(text, '\r');
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

class NoMessages : public host::MessageBoxes {
 public:
  explicit NoMessages(std::string title) : title_(std::move(title)) {}
  void Show(const std::string&, host::MessageStyle, const std::string&) override {}
  std::string ApplicationTitle() const override { return title_; }

 private:
  std::string title_;
};

/// Collects the problems of the tabs one after the other.
class Collector {
 public:
  explicit Collector(host::Database& database) : network_(database) {}

  void Add(Tab& tab) {
    for (const std::vector<Problem>& found : {tab.Problems(), tab.Findings()}) {
      for (const Problem& problem : found) {
        const bool unknown = problem.needsNetwork && !network_.KnowsNetwork();
        Add(tab, problem.control, problem.message, unknown ? Severity::Warning : Severity::Error);
      }
    }
    for (const XDDListView* list : DropListsOf(tab)) AddEntities(tab, *list);
  }
  void Add(StudyProblem problem) { problems_.push_back(std::move(problem)); }

  std::vector<StudyProblem> Take() { return std::move(problems_); }

 private:
  void Add(const Tab& tab, const ui::Control* control, std::string message, Severity severity) {
    Add({tab.Title(), control->Name(), OneLine(std::move(message)), severity});
  }

  void AddEntities(const Tab& tab, const XDDListView& list) {
    const EntityCollection& entities = Required(list.TheCollection());
    if (std::string fault = list.LimitFault(); !fault.empty()) {
      Add(tab, &list, std::move(fault), Severity::Error);
    }
    if (entities.Count() == 0) return;
    if (!network_.KnowsNetwork()) {
      return Add(tab, &list, "The network is not known, so that its part in the study was not checked",
                 Severity::Warning);
    }
    for (std::string& text : network_.ProblemsOf(entities)) {
      Add(tab, &list, std::move(text), Severity::Error);
    }
  }

  store::NetworkLookup network_;
  std::vector<StudyProblem> problems_;
};

}  // namespace

std::vector<StudyProblem> ProblemsOf(StudySession& session) {
  Collector collector(session.Store().Database());
  if (session.Data() == store::KindData::Missing) {
    collector.Add({kWholeStudy, {}, store::MissingDataText(session.ID())});
  }
  if (const auto problem = session.NameProblem()) collector.Add({kWholeStudy, "studyName", *problem});
  const std::vector<Tab*> tabs = session.HeaderAndTabs();
  for (Tab* tab : tabs) collector.Add(*tab);
  if (const auto& record = session.Record().SubRecord()) {
    for (const RecordFault& fault : record->Faults()) {
      if (std::ranges::none_of(tabs, [&fault](const Tab* tab) { return tab->Represents(fault.field); })) {
        collector.Add({kWholeStudy, {}, fault.text});
      }
    }
  }
  return collector.Take();
}

std::vector<StudyProblem> CheckStudy(store::StudyStore& store, store::Study study) {
  const auto quiet = std::make_shared<NoMessages>(host::TheMessageBoxes().ApplicationTitle());
  const host::Scope scope({.messageBoxes = quiet}, host::Rest::AsBefore);
  StudySession session(store, std::move(study));
  return ProblemsOf(session);
}

std::string ProblemText(const StudyProblem& problem) {
  return (problem.severity == Severity::Warning ? "Warning: " : "") + problem.tab + ": " + problem.message;
}

bool HasErrors(const std::vector<StudyProblem>& problems) {
  return std::ranges::find(problems, Severity::Error, &StudyProblem::severity) != problems.end();
}

}  // namespace kiv::session
