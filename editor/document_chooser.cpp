#include "editor/document_chooser.h"

#include <utility>

#include "core/keyed_collection.h"
#include "core/kiv_study_ctls.h"
#include "host/services.h"

namespace kiv {

void DocumentChooser::SetDocumentType(std::shared_ptr<host::DocumentType> type) {
  type_ = std::move(type);
  ui::ItemList items;
  for (host::Document& document : host::TheDocuments().Documents(Required(type_))) {
    items.push_back({std::move(document.name), document.id});
  }
  SetItems(std::move(items));
}

void DocumentChooser::Refresh() {
  const std::int32_t selected = SelectedID();
  SetDocumentType(type_);
  SelectID(selected);
}

std::int32_t DocumentChooser::SelectedID() const {
  return ListIndex() == ui::kNoSelection ? kNoDocument : Items()[static_cast<std::size_t>(ListIndex())].data;
}

void DocumentChooser::SelectID(std::int32_t id) {
  SetListIndex(MKivStudyCtls::FindItemDataIndex(Items(), id));
}

void DocumentChooser::AskForNew() {
  const auto document = host::TheDocuments().AskForNewDocument(Required(type_));
  if (!document) return;
  Refresh();
  SelectID(document->id);
}

std::string DocumentChooser::MissingText() const {
  return host::TheDocuments().MissingDocumentText(Required(type_));
}

}  // namespace kiv
