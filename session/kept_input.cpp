#include "session/kept_input.h"

#include <cstdint>
#include <utility>

#include "editor/document_chooser.h"
#include "store/exchange/json.h"
#include "store/exchange/study_json.h"
#include "ui/masked_edit.h"
#include "ui/text_box.h"

namespace kiv::session {

namespace {

using store::Json;

constexpr const char* kDatabase = "database";
constexpr const char* kId = "id";
constexpr const char* kRevision = "revision";
constexpr const char* kModifiedAt = "modifiedAt";
constexpr const char* kContent = "content";
constexpr const char* kTexts = "texts";

constexpr std::int32_t kOfNoStudy = -1;  // a revision that no study has

/// Visits the boxes of a page that hold a text, each with its place on the page.
template <class Visit>
void ForEachText(ui::Container& page, const std::string& place, const Visit& visit) {
  for (std::size_t i = 0; i < page.Children().size(); ++i) {
    ui::Control* const control = page.Children()[i];
    const std::string own = place + "/" + std::to_string(i) + control->Name();
    if (auto* box = dynamic_cast<ui::EditableText*>(control)) visit(own, *box);
    if (auto* box = dynamic_cast<ui::MaskedEdit*>(control)) visit(own, *box);
    if (auto* inner = dynamic_cast<ui::Container*>(control)) ForEachText(*inner, own, visit);
  }
}

Json TextsOf(const StudySession& session) {
  Json texts = Json::object();
  for (Tab* tab : session.HeaderAndTabs()) {
    ForEachText(*tab, tab->Name(),
                [&texts](const std::string& place, const auto& box) { texts[place] = box.Text(); });
  }
  return texts;
}

void ShowTexts(const StudySession& session, const Json& texts) {
  for (Tab* tab : session.HeaderAndTabs()) {
    ForEachText(*tab, tab->Name(), [&texts](const std::string& place, auto& box) {
      const auto found = texts.find(place);
      if (found == texts.end() || !found->is_string()) return;
      if (const auto text = found->template get<std::string>(); text != box.Text()) box.SetText(text);
    });
  }
}

/// The name of the chosen scenario, as the list of the page has it; the database may be gone.
std::string ScenarioOf(const StudySession& session) {
  for (Tab* tab : session.HeaderAndTabs()) {
    const auto* list = dynamic_cast<DocumentChooser*>(tab->FindControl("fdocCBScenario"));
    if (!list || list->SelectedID() == DocumentChooser::kNoDocument) continue;
    return list->Items()[static_cast<std::size_t>(list->ListIndex())].text;
  }
  return {};
}

Json ReadKeptText(const std::string& kept) {
  Json json = Json::parse(kept, nullptr, false);
  if (json.is_object() && json.contains(kContent) && json[kContent].is_object() && json.contains(kTexts) &&
      json[kTexts].is_object() && json.contains(kId) && json[kId].is_number_integer() &&
      json.contains(kRevision) && json[kRevision].is_number_integer()) {
    return json;
  }
  throw store::StoreError("The kept input is damaged; nothing can be brought back from it.");
}

std::string TextAt(const Json& json, const char* key) {
  const auto found = json.find(key);
  return found != json.end() && found->is_string() ? found->get<std::string>() : std::string();
}

/// Lets a study that was stored be that study again.
void TakeIdentity(const store::StudyStore& store, const Json& kept, store::Study& study) {
  const auto id = kept[kId].get<std::int32_t>();
  if (id == 0) return;
  const auto present = store.Summary(id);
  const bool isSame =
      present && present->kind == study.record->AppName() && present->modifiedAt == TextAt(kept, kModifiedAt);
  if (!isSame && store.Database().Name() != TextAt(kept, kDatabase)) return;
  study.record->SetID(id);
  study.record->SetIsNew(false);
  study.revision = isSame ? kept[kRevision].get<std::int32_t>() : kOfNoStudy;
  study.modifiedAt = TextAt(kept, kModifiedAt);
}

}  // namespace

std::string KeptInput(StudySession& session) {
  store::Study study = session.Draft();
  study.kindData = store::KindData::Complete;
  Json kept = {{kDatabase, session.Store().Database().Name()},
               {kId, session.IsNew() ? 0 : session.ID()},
               {kRevision, study.revision},
               {kModifiedAt, study.modifiedAt},
               {kContent, store::ContentOf(study, ScenarioOf(session))},
               {kTexts, TextsOf(session)}};
  return store::ShownJson(kept);
}

std::string NameOfKept(const std::string& kept) {
  return TextAt(ReadKeptText(kept)[kContent], store::key::kName);
}

std::string DatabaseOfKept(const std::string& kept) {
  return TextAt(ReadKeptText(kept), kDatabase);
}

std::unique_ptr<StudySession> SessionOfKept(store::StudyStore& store, const std::string& kept) {
  const Json json = ReadKeptText(kept);
  store::NamedStudy named = store::ReadKept(json[kContent].dump());
  if (const auto scenario = store.Scenarios().Find(named.scenario)) {
    named.study.record->SetScenarioID(*scenario);
  }
  TakeIdentity(store, json, named.study);
  const auto record = named.study.record;
  const bool isNew = record->IsNew();
  record->SetIsNew(false);  // the pages of a new study would show first values instead
  auto session = std::make_unique<StudySession>(store, std::move(named.study));
  record->SetIsNew(isNew);
  ShowTexts(*session, json[kTexts]);
  session->NoteInput();
  return session;
}

}  // namespace kiv::session
