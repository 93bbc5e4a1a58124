#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/variant.h"

namespace kiv::host {

/// Tells the host which kind of document to list. The library only stores it and passes it on.
class DocumentType : public Object {};

struct Document {
  std::int32_t id = 0;
  std::string name;
};

/// The host's documents, of which a study's scenario is one. A host that makes, renames or removes one raises
/// the event DocumentsChanged.
class DocumentLibrary {
 public:
  virtual ~DocumentLibrary() = default;

  virtual std::shared_ptr<DocumentType> NewDocumentType() const = 0;
  /// The documents of a type in the order in which a chooser shows them.
  virtual std::vector<Document> Documents(const DocumentType& type) const = 0;
  /// Lets the user make a new document; nothing when the user changed his mind.
  virtual std::optional<Document> AskForNewDocument(const DocumentType& type) = 0;
  /// What a chooser says when no document is selected although one is needed.
  virtual std::string MissingDocumentText(const DocumentType& type) const = 0;
};

}  // namespace kiv::host
