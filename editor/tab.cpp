#include "editor/tab.h"

#include <algorithm>
#include <utility>

#include "editor/dn_box.h"
#include "editor/document_chooser.h"
#include "editor/entity_list_view.h"
#include "editor/kiv_study_ctls.h"
#include "host/constants.h"
#include "host/services.h"
#include "ui/buttons.h"
#include "ui/text_box.h"

namespace kiv {

Tab::Tab(std::string name, std::string title)
    : Container(nullptr, std::move(name)), title_(std::move(title)) {}

Tab::~Tab() = default;

bool Tab::HandleTabProcess(const std::string&) {
  return false;
}

bool Tab::IsTabValid(const std::string&) {
  Required(study_);
  return Validate();
}

bool Tab::Validate() {
  const std::optional<Problem> problem = FirstProblem();
  if (problem) Refuse(*problem);
  return !problem;
}

std::optional<Problem> Tab::FirstProblem() const {
  for (const PageField* field : checked_) {
    if (auto problem = field->Rules().FirstProblem()) return problem;
  }
  return checks_.FirstProblem();
}

std::vector<Problem> Tab::Problems() const {
  std::vector<Problem> problems;
  if (!study_) return problems;
  for (const PageField* field : checked_) field->Rules().AddProblems(problems);
  checks_.AddProblems(problems);
  AddProblems(problems);
  return problems;
}

std::vector<Problem> Tab::Findings() {
  std::vector<Problem> findings;
  if (!study_ || !study_->SubRecord()) return findings;
  for (const RecordFault& fault : study_->SubRecord()->Faults()) {
    if (auto finding = FindingOf(fault)) findings.push_back(std::move(*finding));
  }
  AddFindings(findings);
  return findings;
}

const PageField* Tab::FieldOf(std::string_view name) const {
  const auto found = std::find_if(fields_.begin(), fields_.end(),
                                  [name](const auto& field) { return field->Field() == name; });
  return found == fields_.end() ? nullptr : found->get();
}

bool Tab::Represents(std::string_view field) const {
  return FieldOf(field) != nullptr;
}

std::optional<Problem> Tab::FindingOf(const RecordFault& fault) const {
  const auto isTouched = [this](std::string_view name) {
    const PageField* field = FieldOf(name);
    return field && field->Touched();
  };
  if (isTouched(fault.field) || std::ranges::any_of(fault.others, isTouched)) return std::nullopt;
  const PageField* field = FieldOf(fault.field);
  if (!field) return std::nullopt;
  return Problem{field->Control(), fault.text};
}

void Tab::Represent(PageField& field, std::string_view storedField, ui::Control& control, Signal<>& changed) {
  if (storedField.empty()) return;
  field.Represent(storedField, control);
  changed.Connect([this, shown = &field] { shown->SetTouched(!loading_); });
}

void Tab::CheckInOrder(std::initializer_list<const PageField*> fields) {
  std::vector<const PageField*> order(fields);
  for (const PageField* field : checked_) {
    if (std::find(order.begin(), order.end(), field) == order.end()) order.push_back(field);
  }
  checked_ = std::move(order);
}

void Tab::Refuse(const Problem& problem) {
  if (editor_) editor_->BringTabForward(Name());
  Tell(problem);
}

void Tab::LoadState() {
  const FlagGuard filling = HoldReports();
  for (const auto& field : fields_) field->Prepare();
  PrepareControls();
}

void Tab::LoadData(const Variant& study, const std::string&, std::shared_ptr<host::EditorContext> editor) {
  const FlagGuard filling = HoldReports();
  const auto* object = std::get_if<std::shared_ptr<Object>>(&study.Value());
  auto record = object ? std::dynamic_pointer_cast<CKivStudyData>(*object) : nullptr;
  if (!record) throw Error(ErrorNumber::TypeMismatch, "Type mismatch: the tab was given no study record.");
  TakeSubRecord(*record);
  editor_ = std::move(editor);
  study_ = std::move(record);
  tabShow_ = {};
  if (editor_) {
    tabShow_ = editor_->notifications.cdtnNotify_TabShow.Connect([this](const std::string& tabName) {
      const FlagGuard showing = HoldReports();
      if (tabName == Name()) TabShown();
    });
  }
  const FlagGuard loading(loading_);
  for (const auto& field : fields_) field->SetTouched(false);
  if (study_->IsNew()) {
    for (const auto& field : fields_) field->ShowNew();
    ShowRememberedValues();
    ShowNewStudy();
  } else {
    for (const auto& field : fields_) field->ShowStored();
    ShowStoredStudy();
  }
}

void Tab::SaveData() {
  Required(study_);
  const FlagGuard saving = HoldReports();
  for (const auto& field : fields_) field->Save();
  SaveRest();
}

void Tab::ShowIdentifier() {
  for (const auto& field : fields_) field->ShowIdentifier();
}

void Tab::ReportChange() {
  if (!filling_ && editor_) editor_->DataChanged(Name());
}

void Tab::ShowRememberedValues() {
  const host::Settings& settings = host::TheSettings();
  for (const auto& field : fields_) {
    for (const RememberedValue& value : field->RememberedValues()) {
      const auto text = settings.Remembered(host::kKivStateRoot, value.name);
      if (text && (!text->empty() || value.whenEmpty == WhenEmpty::Show)) value.show(*text);
    }
  }
}

void Tab::RememberValues() const {
  host::Settings& settings = host::TheSettings();
  for (const auto& field : fields_) {
    for (const RememberedValue& value : field->RememberedValues()) {
      settings.Remember(host::kKivStateRoot, value.name, value.read());
    }
  }
}

ValueField<std::string>& Tab::Bind(ui::TextBox& box, Place<std::string> text) {
  Face<std::string> face = {[&box](std::string shown) { box.SetText(std::move(shown)); },
                            [&box] { return box.Text(); }};
  auto& field =
      Adopt(std::make_unique<ValueField<std::string>>(std::move(face), std::move(text)), box.Changed);
  Represent(field, field.StoredField(), box, box.Changed);
  return field;
}

ValueField<std::string>& Tab::Bind(ui::TextBox& box, const Place<std::int32_t>& number) {
  box.SetKeyFilter(MKivStudyCtls::NumericKeyFilter);
  return Bind(box, AsText(number));
}

ValueField<bool>& Tab::Bind(ui::CheckBox& box, const Place<std::string>& choice) {
  Face<bool> face = {[&box](bool checked) { box.SetChecked(checked); }, [&box] { return box.Checked(); }};
  auto& field = Adopt(std::make_unique<ValueField<bool>>(std::move(face), AsYes(choice)), box.Changed);
  Represent(field, field.StoredField(), box, box.Changed);
  return field;
}

ValueField<std::string>& Tab::Bind(XDnBox& box, Place<std::string> dn) {
  Face<std::string> face = {[&box](const std::string& shown) { box.SetText(shown); },
                            [&box] { return box.Text(); }};
  return Adopt(std::make_unique<ValueField<std::string>>(std::move(face), std::move(dn)), box.Changed)
      .Checked(box.Checks());
}

CustomField& Tab::Bind(EntityListView& list, const Place<std::shared_ptr<EntityCollection>>& entities) {
  const auto show = [&list, entities] {
    list.SetTheCollection(entities.read());
    list.Display();
  };
  auto field = std::make_unique<CustomField>(
      CustomField::Actions{show, show, [&list, entities] { entities.write(list.TheCollection()); }});
  return Adopt(std::move(field), list.CollectionChanged);
}

CustomField& Tab::BindScenario(DocumentChooser& list, ui::Button& makeNew) {
  list.OfferNew(makeNew);
  const auto showNone = [this, &list] { list.SetDocumentType(study_->ScenarioType()); };
  auto field = std::make_unique<CustomField>(
      CustomField::Actions{showNone,
                           [this, &list, showNone] {
                             showNone();
                             list.SelectID(study_->ScenarioID());
                           },
                           [this, &list] { study_->SetScenarioID(list.SelectedID()); }});
  return Adopt(std::move(field), list.Changed).Checked(list.Checks());
}

ui::LayoutItem Tab::ScenarioRow(DocumentChooser& list, ui::Button& makeNew) {
  return ui::Form({ui::Field("S&cenario:", {ui::Single(list), ui::Single(makeNew)})});
}

CustomField& Tab::Bind(CustomField::Actions actions) {
  return Adopt(std::make_unique<CustomField>(std::move(actions)));
}

}  // namespace kiv
