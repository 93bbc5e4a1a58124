#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/error.h"
#include "base/variant.h"

namespace kiv {

/// Shared entries in the order of adding, each found by its exact key in constant time.
template <class T>
class KeyedCollection : public Object {
 public:
  KeyedCollection() = default;
  KeyedCollection(const KeyedCollection&) = delete;
  KeyedCollection& operator=(const KeyedCollection&) = delete;

  std::int32_t Count() const { return static_cast<std::int32_t>(entries_.size()); }
  bool Contains(std::string_view key) const { return Find(key) != entries_.end(); }

  /// Adds nothing and returns false when the key is taken.
  bool AddNew(std::shared_ptr<T> item, std::string key) {
    if (Contains(key)) return false;
    entries_.push_back({std::move(key), std::move(item)});
    if (2 * entries_.size() > slots_.size()) {
      MakeIndex();
    } else {
      PutIntoSlot(std::prev(entries_.end()));
    }
    return true;
  }

  /// Raises error 457 when the key is taken.
  void Add(std::shared_ptr<T> item, std::string key) {
    if (Contains(key)) {
      throw Error(ErrorNumber::DuplicateKey, "The key '" + key + "' is already in the collection.");
    }
    AddNew(std::move(item), std::move(key));
  }

  /// Adds under the item's own key.
  void Add(std::shared_ptr<T> item) {
    std::string key = item->Key();
    Add(std::move(item), std::move(key));
  }

  /// Raises error 5 when no entry has the key.
  const std::shared_ptr<T>& Item(std::string_view key) const { return Present(key)->item; }

  /// Raises error 5 when no entry has the key.
  void Remove(std::string_view key) {
    const Place entry = Present(key);
    LeaveSlot(entry);
    entries_.erase(entry);
  }

  /// Walks the items in the order of adding.
  class Iterator;
  Iterator begin() const { return Iterator(entries_.begin()); }
  Iterator end() const { return Iterator(entries_.end()); }

 private:
  struct Entry {
    std::string key;
    std::shared_ptr<T> item;
  };
  using Entries = std::list<Entry>;
  using Place = typename Entries::const_iterator;

  /// A study has thousands of collections of a few entries, where an index would be most of their size.
  static constexpr std::size_t kMostWithoutIndex = 8;

  /// The end when no entry has the key.
  Place Find(std::string_view key) const {
    if (slots_.empty()) return std::ranges::find(entries_, key, &Entry::key);
    std::size_t slot = FirstSlot(key);
    while (slots_[slot] != entries_.end() && slots_[slot]->key != key) slot = NextSlot(slot);
    return slots_[slot];
  }

  Place Present(std::string_view key) const {
    const Place found = Find(key);
    if (found == entries_.end()) {
      throw Error(ErrorNumber::InvalidArgument,
                  "The key '" + std::string(key) + "' is not in the collection.");
    }
    return found;
  }

  std::size_t FirstSlot(std::string_view key) const {
    return std::hash<std::string_view>()(key) & (slots_.size() - 1);
  }
  std::size_t NextSlot(std::size_t slot) const { return (slot + 1) & (slots_.size() - 1); }

  void MakeIndex() {
    if (entries_.size() <= kMostWithoutIndex) return;
    slots_.assign(std::bit_ceil(4 * entries_.size()), entries_.end());
    for (Place entry = entries_.begin(); entry != entries_.end(); ++entry) PutIntoSlot(entry);
  }

  void PutIntoSlot(Place entry) {
    if (slots_.empty()) return;
    std::size_t slot = FirstSlot(entry->key);
    while (slots_[slot] != entries_.end()) slot = NextSlot(slot);
    slots_[slot] = entry;
  }

  /// The entries behind it may have passed its slot on the way to theirs.
  void LeaveSlot(Place entry) {
    if (slots_.empty()) return;
    std::size_t slot = FirstSlot(entry->key);
    while (slots_[slot] != entry) slot = NextSlot(slot);
    slots_[slot] = entries_.end();
    for (slot = NextSlot(slot); slots_[slot] != entries_.end(); slot = NextSlot(slot)) {
      PutIntoSlot(std::exchange(slots_[slot], entries_.end()));
    }
  }

  Entries entries_;
  std::vector<Place> slots_;  ///< by hash, less than half of them taken; none for a few entries
};

template <class T>
class KeyedCollection<T>::Iterator {
 public:
  using value_type = std::shared_ptr<T>;
  using difference_type = std::ptrdiff_t;

  Iterator() = default;
  explicit Iterator(typename Entries::const_iterator position) : position_(position) {}

  const std::shared_ptr<T>& operator*() const { return position_->item; }
  Iterator& operator++() {
    ++position_;
    return *this;
  }
  Iterator operator++(int) { return Iterator(position_++); }
  bool operator==(const Iterator&) const = default;

 private:
  typename Entries::const_iterator position_;
};

/// The object behind a reference that an owner may have released. Raises error 91 when it is unset.
template <class T>
T& Required(const std::shared_ptr<T>& object) {
  if (!object) throw Error(ErrorNumber::ObjectNotSet, "Object not set.");
  return *object;
}

}  // namespace kiv
