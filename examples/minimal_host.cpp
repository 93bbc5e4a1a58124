// The smallest host of the library: no window, no database. It makes a HOM study, fills its tabs as a user
// would, checks them, and prints the statement that a real host would run.

#include <ctime>
#include <filesystem>
#include <iostream>
#include <memory>

#include "editor/study_tabs.h"
#include "host/services.h"
#include "host/sql_rendering.h"
#include "ui/combo_box.h"
#include "ui/text_box.h"

using namespace kiv;

namespace {

struct PrintingDatabase : host::Database {
  std::shared_ptr<host::Recordset> OpenQuery(const std::string&, int) override { return nullptr; }
  void ExecuteSql(const std::string& sql) override { std::cout << sql << '\n'; }
  std::string FormatValueList(std::span<const Variant> values) const override {
    return host::RenderValueList(values);
  }
  std::string FormatAssignmentList(std::span<const host::Assignment> assignments) const override {
    return host::RenderAssignmentList(assignments);
  }
  bool ColumnExists(const std::string&, const std::string&) override { return true; }
  std::string CallStoredFunction(const std::string&, const std::string&) override { return {}; }
  bool FieldToBoolean(const Variant& field) const override { return host::RenderedAsTrue(field); }
};

struct ConsoleMessages : host::MessageBoxes, host::ErrorReporter {
  void Show(const std::string& text, host::MessageStyle, const std::string&) override {
    std::cout << text << '\n';
  }
  std::string ApplicationTitle() const override { return "Minimal host"; }
  void ReportError(const std::string&, const std::string&, const std::string& routine,
                   const std::string& message) override {
    std::cerr << routine << ": " << message << '\n';
  }
  void ReportError() override { std::cerr << "a row was not written\n"; }
};

struct NothingRemembered : host::Settings {
  std::optional<std::string> Remembered(const std::string&, const std::string&) const override { return {}; }
  void Remember(const std::string&, const std::string&, const std::string&) override {}
  std::string General(const std::string&) const override { return {}; }
};

struct Operator : host::Session {
  std::string UserName() const override { return "operator"; }
  std::tm LocalTime() const override { return {}; }
};

struct OneScenario : host::DocumentLibrary {
  std::shared_ptr<host::DocumentType> NewDocumentType() const override {
    return std::make_shared<host::DocumentType>();
  }
  std::vector<host::Document> Documents(const host::DocumentType&) const override {
    return {{1, "Downtown"}};
  }
  std::optional<host::Document> AskForNewDocument(const host::DocumentType&) override { return {}; }
  std::string MissingDocumentText(const host::DocumentType&) const override {
    return "Please select a scenario.";
  }
};

struct AnyFileName : host::FileNameRules {
  bool HasOnlyPermittedCharacters(const std::string&) const override { return true; }
  std::string ForbiddenCharacters() const override { return {}; }
};

struct Editor : host::EditorContext {
  void DataChanged(const std::string&) override {}
  void BringTabForward(const std::string&) override {}
  void ShowHourglass(bool) override {}
};

/// What a view does when the user leaves a box with a text, or picks an entry.
void Enter(const Tab& tab, const char* box, const std::string& text) {
  dynamic_cast<ui::TextBox&>(*tab.FindControl(box)).Edit(text);
}
void Pick(const Tab& tab, const char* list, int index) {
  dynamic_cast<ui::ComboBox&>(*tab.FindControl(list)).Select(index);
}

}  // namespace

int main() {
  const auto messages = std::make_shared<ConsoleMessages>();
  host::InstallServices({.openDatabase = [] { return std::make_shared<PrintingDatabase>(); },
                         .errorReporter = messages,
                         .messageBoxes = messages,
                         .settings = std::make_shared<NothingRemembered>(),
                         .session = std::make_shared<Operator>(),
                         .documents = std::make_shared<OneScenario>(),
                         .fileNameRules = std::make_shared<AnyFileName>()});

  const auto study = std::make_shared<CKivStudyData>();
  const StudyKind& kind = *FindStudyKind(kHomStudy);
  study->InitNew(kind.name, kind.editorName, study->StudyType(), study->ScenarioType(), 0);
  const auto tabs = CreateTabs(kind);
  const auto editor = std::make_shared<Editor>();
  for (const auto& tab : tabs) {
    tab->LoadState();
    tab->LoadData(Variant(study), {}, editor);
  }

  const Tab& general = *tabs.front();
  Pick(general, "fdocCBScenario", 0);
  Enter(general, "txtPath", std::filesystem::current_path().string());
  Enter(general, "txtDuration", "5");
  if (!tabs.front()->IsTabValid({}))
    Enter(general, "txtDuration", "45");  // says what is wrong with 5 minutes

  for (const auto& tab : tabs) {
    if (!tab->IsTabValid({})) return 1;
  }
  for (const auto& tab : tabs) tab->SaveData();
  study->SetID(1);  // a real host stores its own row first and takes the identifier from it
  study->SaveSubTableData();
  return 0;
}
