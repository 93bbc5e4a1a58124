#include "editor/document_chooser.h"

#include <utility>

#include "core/keyed_collection.h"
#include "editor/kiv_study_ctls.h"
#include "host/services.h"

namespace kiv {

DocumentChooser::DocumentChooser(ui::Container* parent, std::string name)
    : ComboBox(parent, std::move(name)) {}

void DocumentChooser::SetDocumentType(std::shared_ptr<host::DocumentType> type) {
  type_ = std::move(type);
  List(kNoDocument);
  following_ = host::TheEvents().DocumentsChanged.Connect([this] { Refresh(); });
}

void DocumentChooser::Refresh() {
  List(SelectedID());
}

void DocumentChooser::List(std::int32_t selected) {
  ui::ItemList items;
  for (host::Document& document : host::TheDocuments().Documents(Required(type_))) {
    items.push_back({std::move(document.name), document.id});
  }
  const std::int32_t index = MKivStudyCtls::FindItemDataIndex(items, selected);
  SetItems(std::move(items), index);
}

std::int32_t DocumentChooser::SelectedID() const {
  return ListIndex() == ui::kNoSelection ? kNoDocument : Items()[static_cast<std::size_t>(ListIndex())].data;
}

void DocumentChooser::SelectID(std::int32_t id) {
  SetListIndex(MKivStudyCtls::FindItemDataIndex(Items(), id));
}

void DocumentChooser::OfferNew(ui::Button& button) {
  button.SetCaption("&New...");
  button.Clicked.Connect([this] { AskForNew(); });
}

void DocumentChooser::AskForNew() {
  const auto document = host::TheDocuments().AskForNewDocument(Required(type_));
  if (!document) return;
  Refresh();
  SelectID(document->id);
}

CheckList DocumentChooser::Checks() {
  CheckList checks;
  checks.Add(
      *this, [this] { return SelectedID() != kNoDocument; },
      [this] { return host::TheDocuments().MissingDocumentText(Required(type_)); });
  return checks;
}

}  // namespace kiv
