#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/error.h"
#include "base/flag_guard.h"
#include "core/study_data.h"
#include "editor/check_list.h"
#include "editor/dyna_tab_control.h"
#include "ui/control.h"
#include "ui/layout.h"

namespace kiv {

namespace ui {
class TextBox;
}
class XKivDataFileDestination;

/// What every tab of a study editor has in common: its study, its loading flag, change reports, its list of
/// checks and the values that it remembers for the next new study.
class Tab : public ui::Container, public IDynaTabControl {
 public:
  ~Tab() override;

  /// What the editor writes on the tab.
  const std::string& Title() const { return title_; }
  /// How the page is arranged.
  virtual ui::LayoutItem Layout() = 0;
  /// Every failing check, the first one of each control, told without a message box.
  virtual std::vector<Problem> Problems() const { return checks_.Problems(); }
  /// Writes the tab's values to the user's remembered ones; the host calls it after a study was stored.
  void RememberValues() const;

  /// Shows the identifier that a new study got; the host calls it after a study was stored.
  virtual void ShowIdentifier() {}

  bool HandleTabProcess(const std::string& processName) override;
  bool IsTabValid(const std::string& hostText) override;
  void LoadData(const Variant& study, const std::string& hostText,
                std::shared_ptr<host::EditorContext> editor) final;
  void LoadState() override {}
  void SaveState() override {}
  void Accept(ui::ControlVisitor&) override {}  // a page is shown by its layout

 protected:
  Tab(std::string name, std::string title);

  /// The study of this editor; null before LoadData.
  const std::shared_ptr<CKivStudyData>& Study() const { return study_; }

  /// Takes the sub-record of the tab's kind from the study.
  virtual void TakeSubRecord(const CKivStudyData& study) = 0;
  virtual void ShowNewStudy() = 0;
  virtual void ShowStoredStudy() = 0;
  /// The user came to this tab; what another tab changed can be shown now.
  virtual void TabShown() {}

  /// While it lives, nothing is reported as a change: the tab fills its controls.
  FlagGuard HoldReports() { return FlagGuard(loading_); }
  /// The host shows a wait cursor while it lives.
  class Hourglass;

  /// Reports a change whenever the event is raised, except while the tab fills its controls.
  void ReportChangesOf(Signal<>& event);
  void ReportChange();

  /// Brings the tab forward and tells the problem.
  void Refuse(const Problem& problem);

  /// A text that the user need not enter again for the next new study. One that was emptied may be shown as
  /// such or leave the tab's default in place.
  enum class WhenEmpty { Show, KeepDefault };
  void Remember(const char* valueName, std::function<std::string()> read,
                std::function<void(const std::string&)> show, WhenEmpty whenEmpty = WhenEmpty::Show);
  void Remember(const char* valueName, ui::TextBox& box, WhenEmpty whenEmpty = WhenEmpty::Show);
  /// Folder and name pattern of the data file. All kinds share the folder.
  void RememberDestination(XKivDataFileDestination& destination, const char* nameOfPattern,
                           WhenEmpty whenEmpty = WhenEmpty::Show);
  /// Shows the remembered values that exist.
  void ShowRememberedValues();

  CheckList checks_;

 private:
  struct RememberedValue {
    const char* name;
    std::function<std::string()> read;
    std::function<void(const std::string&)> show;
    WhenEmpty whenEmpty;
  };

  std::string title_;
  std::vector<RememberedValue> remembered_;
  std::shared_ptr<host::EditorContext> editor_;
  std::shared_ptr<CKivStudyData> study_;
  ScopedConnection tabShow_;
  bool loading_ = false;
};

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

 private:
  void TakeSubRecord(const CKivStudyData& study) override {
    data_ = study.SubRecordAs<Data>();
    if (!data_) throw Error(ErrorNumber::ObjectNotSet, "The study is not of the kind that this tab edits.");
  }

  std::shared_ptr<Data> data_;
};

}  // namespace kiv
