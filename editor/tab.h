#pragma once

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "base/error.h"
#include "base/flag_guard.h"
#include "core/entities.h"
#include "core/fields.h"
#include "core/study_data.h"
#include "editor/check_list.h"
#include "editor/dyna_tab_control.h"
#include "editor/page_field.h"
#include "ui/control.h"
#include "ui/layout.h"

namespace kiv {

namespace ui {
class Button;
class CheckBox;
class TextBox;
}  // namespace ui
class DocumentChooser;
class EntityListView;
class XDnBox;

/// Records that tell their stored fields in a table.
template <class Record>
concept HasFields = requires {
  Record::Fields();
};

/// What every tab of a study editor has in common: its study, its fields with their rules and remembered
/// values, its change reports.
///
/// A tab declares its fields with `Bind` in its constructor. Loading, saving, checking and remembering walk
/// them in the order of declaration; what is special about a page it adds in the functions named below.
class Tab : public ui::Container, public IDynaTabControl {
 public:
  ~Tab() override;

  /// What the editor writes on the tab.
  const std::string& Title() const { return title_; }
  /// How the page is arranged.
  virtual ui::LayoutItem Layout() = 0;
  /// Every failing check, the first one of each control, told without a message box; none before LoadData.
  std::vector<Problem> Problems() const;
  /// What cannot be right although the checks let it pass, such as a stored value that the page cannot make.
  /// What the user changed since the study was shown is right.
  std::vector<Problem> Findings();
  /// Whether faults of this field of the record are told by Findings.
  virtual bool Represents(std::string_view field) const;
  /// Shows the identifier that a new study got; the host calls it after a study was stored.
  void ShowIdentifier();

  bool HandleTabProcess(const std::string& processName) override;
  /// Raises error 91 before LoadData; so does SaveData.
  bool IsTabValid(const std::string& hostText) final;
  void LoadData(const Variant& study, const std::string& hostText,
                std::shared_ptr<host::EditorContext> editor) final;
  void LoadState() final;
  void SaveData() final;
  void SaveState() override { RememberValues(); }
  void Accept(ui::ControlVisitor&) override {}  // a page is shown by its layout

 protected:
  Tab(std::string name, std::string title);

  /// The study of this editor; null before LoadData.
  const std::shared_ptr<CKivStudyData>& Study() const { return study_; }

  /// A place in the study record, by the getter and the setter of a property.
  template <class Got, class Taken>
  auto At(Got (CKivStudyData::*get)() const, void (CKivStudyData::*set)(Taken)) const {
    return PlaceIn(study_, get, set);
  }

  // The fields, each with its control. Every change of the control is reported to the editor.
  ValueField<std::string>& Bind(ui::TextBox& box, Place<std::string> text);
  /// The box takes digits only.
  ValueField<std::string>& Bind(ui::TextBox& box, const Place<std::int32_t>& number);
  ValueField<bool>& Bind(ui::CheckBox& box, const Place<std::string>& choice);
  /// Checks the DN as well.
  ValueField<std::string>& Bind(XDnBox& box, Place<std::string> dn);
  /// The list works on the record's own collection, in a new study as in a stored one.
  CustomField& Bind(EntityListView& list, const Place<std::shared_ptr<EntityCollection>>& entities);
  /// The scenario of the study, which must be chosen, and the button that makes a new one.
  CustomField& BindScenario(DocumentChooser& list, ui::Button& makeNew);
  static ui::LayoutItem ScenarioRow(DocumentChooser& list, ui::Button& makeNew);
  /// What is no single control; its changes are reported by the tab.
  CustomField& Bind(CustomField::Actions actions);
  template <class Kind>
  Kind& Adopt(std::unique_ptr<Kind> field);
  template <class Kind>
  Kind& Adopt(std::unique_ptr<Kind> field, Signal<>& changed);
  /// What is wrong with this field of the record is told at this control, until the control changes.
  void Represent(PageField& field, std::string_view storedField, ui::Control& control, Signal<>& changed);

  /// Checks these fields first, in this order; without it fields are checked as they are declared.
  void CheckInOrder(std::initializer_list<const PageField*> fields);

  // What a page adds to the walk over its fields.
  /// Takes the sub-record of the tab's kind from the study.
  virtual void TakeSubRecord(const CKivStudyData& study) = 0;
  /// Fills fixed lists; comes after the fields were prepared.
  virtual void PrepareControls() {}
  /// Come after the fields and the remembered values were shown.
  virtual void ShowNewStudy() {}
  virtual void ShowStoredStudy() {}
  /// Comes after the fields were saved.
  virtual void SaveRest() {}
  /// The user came to this tab; what another tab changed can be shown now.
  virtual void TabShown() {}
  /// Tells the first problem; true when there is none.
  virtual bool Validate();
  /// Adds what is wrong beside the rules of the page.
  virtual void AddProblems(std::vector<Problem>& /*problems*/) const {}
  /// Where a fault of the record shows; nothing when it shows elsewhere or is mended on the page.
  virtual std::optional<Problem> FindingOf(const RecordFault& fault) const;
  /// Adds what cannot be right beside the faults of the record.
  virtual void AddFindings(std::vector<Problem>& /*findings*/) {}

  /// Writes the tab's values to the user's remembered ones.
  void RememberValues() const;
  std::optional<Problem> FirstProblem() const;
  /// Brings the tab forward and tells the problem.
  void Refuse(const Problem& problem);

  /// While it lives, nothing is reported as a change: the tab fills its controls.
  FlagGuard HoldReports() { return FlagGuard(filling_); }
  /// Whether a control changes because the tab fills it, not because the user touched it.
  bool Filling() const { return filling_; }
  /// The host shows a wait cursor while it lives.
  class Hourglass;

  /// Reports a change, except while the tab fills its controls.
  void ReportChange();

  /// Rules of the page as a whole, checked after those of its fields.
  CheckList checks_;

  template <class Record, class Got, class Taken>
  static auto PlaceIn(const std::shared_ptr<Record>& record, Got (Record::*get)() const,
                      void (Record::*set)(Taken)) {
    using Value = std::remove_cvref_t<Got>;
    Place<Value> place = {[&record, get] { return Value((Required(record).*get)()); },
                          [&record, set](Value value) { (Required(record).*set)(std::move(value)); }};
    if constexpr (HasFields<Record> && (std::is_same_v<Value, std::string> || std::is_integral_v<Value>)) {
      place.field = FieldSetBy<Record>(set);
    }
    return place;
  }

 private:
  void ShowRememberedValues();
  /// Null when the page has none of the name.
  const PageField* FieldOf(std::string_view name) const;

  std::string title_;
  std::vector<std::unique_ptr<PageField>> fields_;
  std::vector<const PageField*> checked_;  // the fields in the order of their checks
  std::shared_ptr<host::EditorContext> editor_;
  std::shared_ptr<CKivStudyData> study_;
  ScopedConnection tabShow_;
  bool filling_ = false;
  bool loading_ = false;
};

template <class Kind>
Kind& Tab::Adopt(std::unique_ptr<Kind> field) {
  Kind& adopted = *field;
  fields_.push_back(std::move(field));
  checked_.push_back(&adopted);
  return adopted;
}

template <class Kind>
Kind& Tab::Adopt(std::unique_ptr<Kind> field, Signal<>& changed) {
  changed.Connect([this, declared = field.get()] {
    if (declared->ReportsChanges()) ReportChange();
  });
  return Adopt(std::move(field));
}

class Tab::Hourglass {
 public:
  explicit Hourglass(const Tab& tab) : editor_(tab.editor_) {
    if (editor_) editor_->ShowHourglass(true);
  }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;
  ~Hourglass() {
    if (editor_) editor_->ShowHourglass(false);
  }

 private:
  std::shared_ptr<host::EditorContext> editor_;
};

/// A tab of the study kind whose sub-record is `Data`.
template <class Data>
class TabOf : public Tab {
 protected:
  using Tab::Tab;

  /// The study's sub-record; null before LoadData.
  const std::shared_ptr<Data>& SubRecord() const { return data_; }

  using Tab::At;
  /// A place in the sub-record.
  template <class Got, class Taken>
  auto At(Got (Data::*get)() const, void (Data::*set)(Taken)) const {
    return PlaceIn(data_, get, set);
  }

 private:
  void TakeSubRecord(const CKivStudyData& study) override {
    auto data = study.SubRecordAs<Data>();
    if (!data) throw Error(ErrorNumber::ObjectNotSet, "The study is not of the kind that this tab edits.");
    data_ = std::move(data);
  }

  std::shared_ptr<Data> data_;
};

}  // namespace kiv
