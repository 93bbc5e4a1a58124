// A user and a host at the tabs of an editor, in any order: nothing breaks, and what every tab calls valid is
// saved, read back as it was, and valid again.

#include <random>
#include <vector>

#include "editor/document_chooser.h"
#include "editor/study_tabs.h"
#include "fuzz/studies.h"
#include "fuzz/target.h"
#include "store/exchange/study_json.h"
#include "ui/control_visitor.h"

using namespace kiv;
using namespace kiv::fuzz;

namespace {

using Tabs = std::vector<std::unique_ptr<Tab>>;

/// Does something with a control that only a user does.
class User : public ui::ControlVisitor {
 public:
  User(Input& input, test::FakeHost& host) : input_(input), host_(host) {}

  void Visit(ui::TextBox& box) override { Edit(box); }
  void Visit(ui::TextArea& box) override { Edit(box); }
  void Visit(ui::MaskedEdit& box) override { Edit(box); }
  void Visit(ui::CheckBox& box) override { box.Click(); }
  void Visit(ui::OptionButton& option) override { option.Click(); }
  void Visit(ui::ComboBox& box) override {
    if (!box.Items().empty()) box.Select(static_cast<int>(input_.Below(box.Items().size())));
  }
  void Visit(ui::Button& button) override { button.Click(); }
  void Visit(ui::Label&) override {}
  void Visit(ui::Frame&) override {}
  void Visit(ui::ListView& list) override {
    switch (input_.Below(7)) {
      case 0: list.SelectPositions({input_.Below(4)}); break;
      case 1: list.ClickHeader(static_cast<int>(input_.Below(8))); break;
      case 2: list.PressDelete(); break;
      case 3: list.ChooseMenuItem(input_.Below(4)); break;
      case 4: list.Drop(Dragged(list)); break;
      default: list.ClickCheckBox(input_.Below(4));
    }
  }

 private:
  void Edit(auto& box) {
    switch (input_.Below(6)) {
      case 0: box.Backspace(); break;
      case 1: box.Paste(input_.Line()); break;
      case 2: box.Select(input_.Below(4), input_.Below(4)); break;
      case 3: box.LoseFocus(); break;
      default: box.Select(0, box.Text().size()); box.Type(input_.Line());
    }
  }
  ui::DragData Dragged(ui::ListView&) {
    host_.dragSource->nodes.clear();
    const bool cells = input_.Choice();
    for (std::size_t count = input_.Below(6); count > 0; --count) {
      const auto number = static_cast<std::int32_t>(input_.Below(8));
      host_.dragSource->nodes.push_back({cells ? "Cell:1" : "Ecp:1", 1, number % 2, number, number});
    }
    return {{host_.dragSource->RegisterFormat(host::kConfigEntityTreeFormat)}};
  }

  Input& input_;
  test::FakeHost& host_;
};

void Collect(const ui::Container& container, std::vector<ui::Control*>& controls) {
  for (ui::Control* child : container.Children()) {
    controls.push_back(child);
    if (const auto* inner = dynamic_cast<const ui::Container*>(child)) Collect(*inner, controls);
  }
}

bool AllValid(const Tabs& tabs) {
  return std::ranges::all_of(tabs, [](const auto& tab) { return tab->IsTabValid({}); });
}

void Load(const Tabs& tabs, const store::NamedStudy& named, test::FakeHost& host) {
  for (const auto& tab : tabs) tab->LoadData(Variant(named.study.record), {}, host.editor);
}

/// What makes a page valid sooner or later. One byte is the seed of all, so that inputs can be cut and
/// joined.
void AnswerProblems(Tab& tab, test::FakeHost& host, std::uint8_t seed) {
  static constexpr const char* kAnswers[] = {"30", "5", "/", "a1", "1", "5551234"};
  std::minstd_rand random(seed + 1U);
  std::vector<std::uint8_t> bytes(500);
  std::ranges::generate(bytes, [&random] { return static_cast<std::uint8_t>(random() >> 8); });
  Input input(bytes.data(), bytes.size());
  User user(input, host);
  for (int round = 0; round < 6; ++round) {
    for (const Problem& problem : tab.Problems()) {
      if (!problem.control || !problem.control->Usable()) continue;
      auto* box = dynamic_cast<ui::EditableText*>(problem.control);
      box ? box->Edit(kAnswers[input.Below(std::size(kAnswers))]) : problem.control->Accept(user);
    }
  }
}

/// What another editor makes of a saved study.
void CheckSaved(const store::NamedStudy& named, test::FakeHost& host) {
  const std::string text = KeptText(named);
  store::NamedStudy copy = store::ReadKept(text);
  RequireSame(named, copy);
  copy.study.record->SetScenarioID(named.study.record->ScenarioID());
  copy.study.record->SetIsNew(false);
  const Tabs tabs = CreateTabs(*FindStudyKind(copy.study.record->AppName()));
  for (const auto& tab : tabs) tab->LoadState();
  Load(tabs, copy, host);
  host.messages->shown.clear();
  Require(AllValid(tabs), "what was valid stays valid",
          text + "\n" + (host.messages->shown.empty() ? "" : host.messages->shown.back().text));
  for (const auto& tab : tabs) tab->SaveData();
  Require(KeptText(copy) == text, "what was saved is saved again", text + "\n" + KeptText(copy));
}

/// The host's calls, in any order.
void Drive(const Tabs& tabs, const store::NamedStudy& named, Input& input, test::FakeHost& host) {
  Tab& tab = *tabs[input.Below(tabs.size())];
  switch (input.Below(12)) {
    case 8:
    case 9: AnswerProblems(tab, host, input.Byte()); break;
    case 0: tab.LoadData(Variant(named.study.record), {}, host.editor); break;
    case 1: Load(tabs, named, host); break;
    case 2: tab.SaveData(); break;
    case 3: tab.LoadState(); break;
    case 4: tab.SaveState(); break;
    case 5: host.editor->notifications.cdtnNotify_TabShow.Raise(tab.Name()); break;
    case 6:
      tab.Problems();
      tab.Findings();
      break;
    default:
      if (!AllValid(tabs)) return Require(!host.messages->shown.empty(), "a refusal is told");
      for (const auto& each : tabs) each->SaveData();
      CheckSaved(named, host);
  }
}

void Work(const Tabs& tabs, const store::NamedStudy& named, Input& input, test::FakeHost& host) {
  User user(input, host);
  std::vector<ui::Control*> controls;
  for (const auto& tab : tabs) Collect(*tab, controls);
  host.messages->shown.clear();
  try {
    if (input.Below(4) == 0) return Drive(tabs, named, input, host);
    ui::Control& control = *controls[input.Byte() % controls.size()];
    if (control.Usable()) control.Accept(user);
  } catch (const Error& error) {
    // A tab that has no study yet says so.
    Require(error.Number() == ErrorNumber::ObjectNotSet, "only what was not loaded is missing", error.what());
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  test::FakeHost host;
  host.settings->general[host::kPhoneNumberMask] = "###-####";
  test::StoreFeatures(*host.database, 1, "Y", "Y");
  test::StoreFeatures(*host.database, 2, "Y", "N");
  Input input(data, size);
  const auto& kinds = StudyKinds();
  const StudyKind& kind = kinds[input.Below(kinds.size())];
  store::NamedStudy named{store::NewStudy(kind.name), {}};
  const Tabs tabs = CreateTabs(kind);
  for (const auto& tab : tabs) tab->LoadState();
  if (input.Choice()) Load(tabs, named, host);
  while (!input.Empty()) Work(tabs, named, input, host);
  return 0;
}
