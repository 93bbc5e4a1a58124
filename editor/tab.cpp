#include "editor/tab.h"

#include <utility>

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
  return checks_.Enforce([this] {
    if (editor_) editor_->BringTabForward(Name());
  });
}

void Tab::LoadData(const Variant& study, const std::string&, std::shared_ptr<host::EditorContext> editor) {
  const FlagGuard loading(loading_);
  const auto* object = std::get_if<std::shared_ptr<Object>>(&study.Value());
  auto record = object ? std::dynamic_pointer_cast<CKivStudyData>(*object) : nullptr;
  if (!record) throw Error(ErrorNumber::TypeMismatch, "Type mismatch: the tab was given no study record.");
  TakeSubRecord(*record);
  editor_ = std::move(editor);
  study_ = std::move(record);
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
                   std::function<void(const std::string&)> show) {
  remembered_.push_back({valueName, std::move(read), std::move(show)});
}

void Tab::Remember(const char* valueName, ui::TextBox& box) {
  Remember(
      valueName, [&box] { return box.Text(); }, [&box](const std::string& text) { box.SetText(text); });
}

void Tab::ShowRememberedValues() {
  const host::Settings& settings = host::TheSettings();
  for (const RememberedValue& value : remembered_) {
    if (const auto text = settings.Remembered(host::kKivStateRoot, value.name)) value.show(*text);
  }
}

void Tab::RememberValues() const {
  host::Settings& settings = host::TheSettings();
  for (const RememberedValue& value : remembered_) {
    settings.Remember(host::kKivStateRoot, value.name, value.read());
  }
}

}  // namespace kiv
