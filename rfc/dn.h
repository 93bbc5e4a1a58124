#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <utility>

#include "core/fields.h"
#include "core/keyed_collection.h"

namespace kiv {

/// One directory number (DN) whose calls a study traces; one row of KIV_RfcDnList.
class CDn {
 public:
  /// Identifier of the owning study.
  std::int32_t ID() const { return id_; }
  void SetID(std::int32_t id) { id_ = id; }
  /// Digits only.
  const std::string& Dn() const { return dn_; }
  void SetDn(std::string dn) { dn_ = std::move(dn); }
  /// Name of the file that the trace of this DN goes into.
  const std::string& DataFile() const { return dataFile_; }
  void SetDataFile(std::string dataFile) { dataFile_ = std::move(dataFile); }
  /// Key in the study's collection, which is the DN itself.
  const std::string& Key() const { return key_; }
  void SetKey(std::string key) { key_ = std::move(key); }

  /// The columns of KIV_RfcDnList in the order of the insert.
  static std::span<const RecordField<CDn>> Fields() {
    static const RecordField<CDn> fields[] = {
        {"Id", &CDn::id_, FieldRole::Key}, {"Dn", &CDn::dn_}, {"DataFile", &CDn::dataFile_}};
    return fields;
  }

 private:
  std::int32_t id_ = 0;
  std::string dn_;
  std::string dataFile_;
  std::string key_;
};

using DnCollection = KeyedCollection<CDn>;

}  // namespace kiv
