#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/variant.h"

namespace kiv {

/// One stored field of a record.
struct NamedValue {
  std::string_view name;
  Variant value;

  friend bool operator==(const NamedValue&, const NamedValue&) = default;
};

struct StoredEntry;

/// A list that belongs to a record, in the order of storing.
struct StoredList {
  std::string_view name;
  std::vector<StoredEntry> entries;
};

/// The fields that together tell an entry of a list from all others, and those of them by which users call
/// it.
struct ListIdentity {
  std::string_view list;
  std::span<const std::string_view> fields;
  std::span<const std::string_view> label = fields;
};

/// One entry of a list: its own fields, and the lists that belong to it in turn.
struct StoredEntry {
  std::string name;  ///< what users call it; empty when its fields say it all
  std::vector<NamedValue> fields;
  std::vector<StoredList> lists;
};

/// Lists are the same when they have the same entries in the same order.
bool operator==(const StoredList& left, const StoredList& right);
bool operator==(const StoredEntry& left, const StoredEntry& right);

class StoredReader;

/// A value of a record that no page of an editor can make.
struct RecordFault {
  std::string_view field;                     ///< the field of the record, or its list
  std::string text;                           ///< which value, and what it must be
  std::int32_t number = 0;                    ///< that tells the entry of a list
  std::vector<std::string_view> others = {};  ///< further fields that it depends on
};

/// The part of a study that belongs to its kind: what the study record asks of it.
class ISubRecord : public Object {
 public:
  /// The study kind that this record belongs to.
  virtual std::string_view KindName() const = 0;
  /// Name of the study kind as the study record gave it.
  virtual const std::string& AppName() const = 0;
  virtual void SetAppName(std::string appName) = 0;

  /// Identifier of the study; key of the record's row.
  virtual std::int32_t ID() const = 0;
  virtual void SetID(std::int32_t id) = 0;
  virtual bool IsNew() const = 0;
  virtual void SetIsNew(bool isNew) = 0;

  /// Loads the stored record of a study.
  virtual void GetData(std::int32_t id) = 0;
  /// Writes a new record; false when something could not be written, which has been reported.
  virtual bool InsertNew() = 0;
  /// Rewrites the stored record.
  virtual void Update() = 0;

  /// What studies can differ in of the record's own row, in the order of storing.
  virtual std::vector<NamedValue> StoredFields() const = 0;
  /// The lists that are stored with the record.
  virtual std::vector<StoredList> StoredLists() const { return {}; }
  /// Those of them that InsertNew and Update write: a record under work may hold more.
  virtual std::vector<StoredList> WrittenLists() const { return StoredLists(); }
  /// How the entries of each list are told apart, also of the lists inside entries.
  virtual std::vector<ListIdentity> ListIdentities() const { return {}; }
  /// What of all this no page can make, in the order of storing.
  virtual std::vector<RecordFault> Faults() const { return {}; }
  /// Takes over what both gave of another record of the kind.
  virtual void ReadStored(StoredReader& reader) = 0;
};

/// Whether two records are of one kind and have the same content, whatever study they belong to.
bool operator==(const ISubRecord& left, const ISubRecord& right);

/// What the records of all kinds keep beside their own fields.
class SubRecord : public ISubRecord {
 public:
  const std::string& AppName() const override { return appName_; }
  void SetAppName(std::string appName) override { appName_ = std::move(appName); }

  std::int32_t ID() const override { return id_; }
  void SetID(std::int32_t id) override { id_ = id; }
  bool IsNew() const override { return isNew_; }
  void SetIsNew(bool isNew) override { isNew_ = isNew; }

 protected:
  std::int32_t id_ = 0;

 private:
  std::string appName_;
  bool isNew_ = false;
};

}  // namespace kiv
