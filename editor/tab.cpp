#include "editor/tab.h"

#include <utility>

#include "editor/data_file_destination.h"
#include "host/constants.h"
#include "host/services.h"
#include "ui/text_box.h"

namespace kiv {

Tab::Tab(std::string name, std::string title)
    : Container(nullptr, std::move(name)), title_(std::move(title)) {}

Tab::~Tab() = default;

bool Tab::HandleTabProcess(const std::string&) {
  return false;
}

bool Tab::IsTabValid(const std::string&) {
  const std::optional<Problem> problem = checks_.FirstProblem();
  if (problem) Refuse(*problem);
  return !problem;
}

void Tab::Refuse(const Problem& problem) {
  if (editor_) editor_->BringTabForward(Name());
  Tell(problem);
}

void Tab::LoadData(const Variant& study, const std::string&, std::shared_ptr<host::EditorContext> editor) {
  const FlagGuard loading(loading_);
  const auto* object = std::get_if<std::shared_ptr<Object>>(&study.Value());
  auto record = object ? std::dynamic_pointer_cast<CKivStudyData>(*object) : nullptr;
  if (!record) throw Error(ErrorNumber::TypeMismatch, "Type mismatch: the tab was given no study record.");
  TakeSubRecord(*record);
  editor_ = std::move(editor);
  study_ = std::move(record);
  tabShow_ = {};
  if (editor_) {
    tabShow_ = editor_->notifications.cdtnNotify_TabShow.Connect([this](const std::string& tabName) {
      const FlagGuard showing(loading_);
      if (tabName == Name()) TabShown();
    });
  }
  if (study_->IsNew()) {
    ShowNewStudy();
  } else {
    ShowStoredStudy();
  }
}

void Tab::ReportChangesOf(Signal<>& event) {
  event.Connect([this] { ReportChange(); });
}

void Tab::ReportChange() {
  if (!loading_ && editor_) editor_->DataChanged(Name());
}

void Tab::Remember(const char* valueName, std::function<std::string()> read,
                   std::function<void(const std::string&)> show, WhenEmpty whenEmpty) {
  remembered_.push_back({valueName, std::move(read), std::move(show), whenEmpty});
}

void Tab::Remember(const char* valueName, ui::TextBox& box, WhenEmpty whenEmpty) {
  Remember(
      valueName, [&box] { return box.Text(); }, [&box](const std::string& text) { box.SetText(text); },
      whenEmpty);
}

void Tab::RememberDestination(XKivDataFileDestination& destination, const char* nameOfPattern,
                              WhenEmpty whenEmpty) {
  Remember(host::remembered::kDatafilePath, destination.txtPath);
  Remember(
      nameOfPattern, [&destination] { return destination.txtFilename.Text(); },
      [&destination](const std::string& name) { destination.SetFilename(name); }, whenEmpty);
}

void Tab::ShowRememberedValues() {
  const host::Settings& settings = host::TheSettings();
  for (const RememberedValue& value : remembered_) {
    const auto text = settings.Remembered(host::kKivStateRoot, value.name);
    if (text && (!text->empty() || value.whenEmpty == WhenEmpty::Show)) value.show(*text);
  }
}

void Tab::RememberValues() const {
  host::Settings& settings = host::TheSettings();
  for (const RememberedValue& value : remembered_) {
    settings.Remember(host::kKivStateRoot, value.name, value.read());
  }
}

}  // namespace kiv
