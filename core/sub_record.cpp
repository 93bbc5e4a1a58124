#include "core/sub_record.h"

namespace kiv {

bool operator==(const StoredList& left, const StoredList& right) {
  return left.name == right.name && left.entries == right.entries;
}

bool operator==(const StoredEntry& left, const StoredEntry& right) {
  return left.name == right.name && left.fields == right.fields && left.lists == right.lists;
}

bool operator==(const ISubRecord& left, const ISubRecord& right) {
  return left.KindName() == right.KindName() && left.StoredFields() == right.StoredFields() &&
         left.StoredLists() == right.StoredLists();
}

}  // namespace kiv
