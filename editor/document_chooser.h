#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "editor/check_list.h"
#include "host/documents.h"
#include "ui/buttons.h"
#include "ui/combo_box.h"

namespace kiv {

/// A drop-down list of the host's documents of one type, such as the scenarios.
class DocumentChooser : public ui::ComboBox {
 public:
  static constexpr std::int32_t kNoDocument = -1;

  DocumentChooser(ui::Container* parent, std::string name);

  /// Lists the documents of a type; none is selected. The list follows the host's documents from then on.
  void SetDocumentType(std::shared_ptr<host::DocumentType> type);
  /// Lists the documents anew and keeps the selected one if it still exists.
  void Refresh();

  /// Identifier of the selected document; kNoDocument when none is selected.
  std::int32_t SelectedID() const;
  /// Selects a document; one that does not exist selects none.
  void SelectID(std::int32_t id);

  /// Makes a button beside the list let the user make a new document, which is then selected.
  void OfferNew(ui::Button& button);

  /// A document must be selected; the host has the words for it.
  CheckList Checks();

 private:
  void AskForNew();
  void List(std::int32_t selected);

  ScopedConnection following_;
  std::shared_ptr<host::DocumentType> type_;
};

}  // namespace kiv
