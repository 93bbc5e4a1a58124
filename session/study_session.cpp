#include "session/study_session.h"

#include <algorithm>
#include <utility>

#include "core/numeric_text.h"
#include "editor/study_tabs.h"
#include "host/editor_context.h"
#include "session/scenario_strip.h"
#include "store/names.h"

namespace kiv::session {

namespace {

/// A study without a name, or with one that no list can show, would be hard to find again.
std::optional<std::string> ProblemOfName(const std::string& name) {
  if (Trimmed(name).empty()) return "Please give the study a name.";
  if (const std::string fault = store::NameFault(name); !fault.empty()) {
    return "The name of the study " + fault + ". Choose another name.";
  }
  return std::nullopt;
}

void RequireName(const std::string& name) {
  if (const auto problem = ProblemOfName(name)) throw store::StoreError(*problem);
}

}  // namespace

/// What the tabs see of the session. Tabs share it, so it may outlive the session and then does nothing.
class StudySession::Context : public host::EditorContext {
 public:
  explicit Context(StudySession& session) : session_(&session) {}

  void Detach() { session_ = nullptr; }

  void DataChanged(const std::string&) override {
    if (session_) session_->SetModified(true);
  }
  void BringTabForward(const std::string& tabName) override {
    if (session_) session_->TabRequired.Raise(tabName);
  }
  void ShowHourglass(bool shown) override {
    if (session_) session_->HourglassShown.Raise(shown);
  }

 private:
  StudySession* session_;
};

StudySession::StudySession(store::StudyStore& store, store::Study study)
    : store_(store), study_(std::move(study)), context_(std::make_shared<Context>(*this)) {
  const StudyKind* kind = FindStudyKind(Kind());
  if (!kind) throw store::UnknownKind(Kind());
  if (IsNew() && study_.name.empty()) study_.name = "New " + Kind();
  if (kind->scenarioChoice == ScenarioChoice::ByHost) header_ = std::make_unique<ScenarioStrip>();
  tabs_ = CreateTabs(*kind);
  for (Tab* tab : HeaderAndTabs()) tab->LoadState();
  LoadTabs();
}

StudySession::~StudySession() {
  context_->Detach();
}

std::vector<Tab*> StudySession::HeaderAndTabs() const {
  std::vector<Tab*> all;
  if (header_) all.push_back(header_.get());
  for (const auto& tab : tabs_) all.push_back(tab.get());
  return all;
}

void StudySession::LoadTabs() {
  for (Tab* tab : HeaderAndTabs()) tab->LoadData(Variant(study_.record), {}, context_);
}

void StudySession::SetName(const std::string& name) {
  if (name == study_.name) return;
  study_.name = name;
  SetModified(true);
}

void StudySession::SetModified(bool modified) {
  modified_ = modified;
  Changed.Raise();
}

std::optional<std::string> StudySession::NameProblem() const {
  return ProblemOfName(study_.name);
}

bool StudySession::IsValid() {
  const std::vector<Tab*> all = HeaderAndTabs();
  return std::all_of(all.begin(), all.end(), [](Tab* tab) { return tab->IsTabValid({}); });
}

bool StudySession::Save(const std::string& user) {
  RequireName(study_.name);
  if (!IsValid()) return false;
  SaveTabs();
  store_.Save(study_, user);
  TakeAsStored();
  return true;
}

bool StudySession::SaveCopy(const std::string& name, const std::string& user) {
  RequireName(name);
  if (!IsValid()) return false;
  SaveTabs();
  const std::string nameBefore = std::exchange(study_.name, name);
  try {
    store_.SaveCopy(study_, user);
  } catch (...) {
    study_.name = nameBefore;
    throw;
  }
  TakeAsStored();
  return true;
}

store::Study StudySession::Draft() {
  for (Tab* tab : HeaderAndTabs()) {
    try {
      tab->SaveData();
    } catch (const Error&) {
      // What no record can hold stays in the texts of the page.
    }
  }
  return study_;
}

void StudySession::SaveTabs() {
  for (Tab* tab : HeaderAndTabs()) tab->SaveData();
}

void StudySession::TakeAsStored() {
  for (Tab* tab : HeaderAndTabs()) {
    tab->ShowIdentifier();
    tab->SaveState();
  }
  SetModified(false);
}

void StudySession::NotifyTabShown(const std::string& tabName) const {
  context_->notifications.cdtnNotify_TabShow.Raise(tabName);
}

void StudySession::Reload() {
  study_ = store_.Load(ID());
  LoadTabs();
  SetModified(false);
}

}  // namespace kiv::session
