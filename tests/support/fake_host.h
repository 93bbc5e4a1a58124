#pragma once

#include <algorithm>
#include <exception>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/constants.h"
#include "host/editor_context.h"
#include "host/scope.h"
#include "support/fake_database.h"

namespace kiv::test {

struct FakeErrorReporter : host::ErrorReporter {
  std::vector<std::string> reports;  // "caption|module|routine|message", or the handled exception's text

  void ReportError(const std::string& caption, const std::string& module, const std::string& routine,
                   const std::string& message) override {
    reports.push_back(caption + "|" + module + "|" + routine + "|" + message);
  }
  void ReportError() override {
    try {
      throw;
    } catch (const std::exception& error) {
      reports.emplace_back(error.what());
    }
  }
};

struct FakeMessageBox : host::MessageBoxes {
  struct Shown {
    std::string text;
    host::MessageStyle style;
    std::string title;
  };
  std::vector<Shown> shown;

  void Show(const std::string& text, host::MessageStyle style, const std::string& title) override {
    shown.push_back({text, style, title});
  }
  std::string ApplicationTitle() const override { return "Test Host"; }
};

struct FakeSettings : host::Settings {
  std::map<std::string, std::string> remembered;  // under the library's root
  std::map<std::string, std::string> general;

  std::optional<std::string> Remembered(const std::string& root, const std::string& name) const override {
    const auto found = remembered.find(name);
    if (root != host::kKivStateRoot || found == remembered.end()) return std::nullopt;
    return found->second;
  }
  void Remember(const std::string& root, const std::string& name, const std::string& value) override {
    if (root == host::kKivStateRoot) remembered[name] = value;
  }
  std::string General(const std::string& name) const override {
    const auto found = general.find(name);
    return found == general.end() ? std::string() : found->second;
  }
};

struct FakeSession : host::Session {
  std::string user = "ops";
  std::tm now = [] {  // 9 March 2026, 13:05
    std::tm time{};
    time.tm_year = 126;
    time.tm_mon = 2;
    time.tm_mday = 9;
    time.tm_hour = 13;
    time.tm_min = 5;
    return time;
  }();

  std::string UserName() const override { return user; }
  std::tm LocalTime() const override { return now; }
};

struct FakeDocuments : host::DocumentLibrary {
  std::vector<host::Document> documents = {{7, "Downtown"}, {9, "Harbour"}};
  std::optional<host::Document> nextNew;

  struct Type : host::DocumentType {};

  std::shared_ptr<host::DocumentType> NewDocumentType() const override { return std::make_shared<Type>(); }
  static bool Made(const host::DocumentType& type) { return dynamic_cast<const Type*>(&type); }
  std::vector<host::Document> Documents(const host::DocumentType&) const override { return documents; }
  std::optional<host::Document> AskForNewDocument(const host::DocumentType&) override {
    if (nextNew) documents.push_back(*nextNew);
    return nextNew;
  }
  std::string MissingDocumentText(const host::DocumentType&) const override {
    return "Please select a scenario.";
  }
};

struct FakeFileNameRules : host::FileNameRules {
  bool HasOnlyPermittedCharacters(const std::string& name) const override {
    return name.find_first_of("\\/:*?\"<>|") == std::string::npos;
  }
  std::string ForbiddenCharacters() const override { return "\\ / : * ? \" < > |"; }
};

struct FakeFolderChooser : host::FolderChooser {
  std::optional<std::string> answer;
  bool fails = false;
  WindowHandle owner = kNoWindow;

  std::optional<std::string> ChooseFolder(const std::string&, WindowHandle window) override {
    owner = window;
    if (fails) throw Error(ErrorNumber::ObjectNotSet, "no shell");
    return answer;
  }
};

struct FakeBeeper : host::Beeper {
  int beeps = 0;
  void Beep() override { ++beeps; }
};

struct FakeDragSource : host::DragSource {
  std::vector<host::DraggedNode> nodes;
  std::vector<std::string> formats;  // as registered

  std::vector<host::DraggedNode> DraggedNodes() const override { return nodes; }
  std::uint16_t RegisterFormat(const std::string& name) override {
    if (!FindFormat(name)) formats.push_back(name);
    return *FindFormat(name);
  }
  std::optional<std::uint16_t> FindFormat(const std::string& name) const override {
    constexpr std::ptrdiff_t kFirst = 49161;
    const auto found = std::ranges::find(formats, name);
    if (found == formats.end()) return std::nullopt;
    return static_cast<std::uint16_t>(kFirst + (found - formats.begin()));
  }
};

struct FakeImages : host::Images {
  std::map<std::int32_t, std::shared_ptr<const Image>> images;

  std::shared_ptr<const Image> Find(std::int32_t number) const override {
    const auto found = images.find(number);
    return found == images.end() ? nullptr : found->second;
  }
};

struct FakeEditor : host::EditorContext {
  std::vector<std::string> changes;
  std::vector<std::string> broughtForward;
  std::string hourglass;  // '+' for each time it was shown, '-' for each time it was taken away

  void DataChanged(const std::string& tabName) override { changes.push_back(tabName); }
  void BringTabForward(const std::string& tabName) override { broughtForward.push_back(tabName); }
  void ShowHourglass(bool shown) override { hourglass += shown ? '+' : '-'; }
};

/// A whole host for one test, current while it lives.
struct FakeHost {
  std::shared_ptr<FakeDatabase> database = std::make_shared<FakeDatabase>();
  std::shared_ptr<FakeErrorReporter> errors = std::make_shared<FakeErrorReporter>();
  std::shared_ptr<FakeMessageBox> messages = std::make_shared<FakeMessageBox>();
  std::shared_ptr<FakeSettings> settings = std::make_shared<FakeSettings>();
  std::shared_ptr<FakeSession> session = std::make_shared<FakeSession>();
  std::shared_ptr<FakeDocuments> documents = std::make_shared<FakeDocuments>();
  std::shared_ptr<FakeFolderChooser> folders = std::make_shared<FakeFolderChooser>();
  std::shared_ptr<FakeBeeper> beeper = std::make_shared<FakeBeeper>();
  std::shared_ptr<FakeDragSource> dragSource = std::make_shared<FakeDragSource>();
  std::shared_ptr<FakeImages> images = std::make_shared<FakeImages>();
  std::shared_ptr<FakeEditor> editor = std::make_shared<FakeEditor>();

  host::Scope scope{{.openDatabase = [opened = database] { return opened; },
                     .errorReporter = errors,
                     .messageBoxes = messages,
                     .settings = settings,
                     .session = session,
                     .documents = documents,
                     .fileNameRules = std::make_shared<FakeFileNameRules>(),
                     .folderChooser = folders,
                     .beeper = beeper,
                     .dragSource = dragSource,
                     .images = images}};

  /// The text of the only message shown so far; the messages are forgotten.
  std::string TakeMessage() {
    std::string text;
    for (const auto& message : messages->shown) text += message.text;
    messages->shown.clear();
    return text;
  }
};

}  // namespace kiv::test
