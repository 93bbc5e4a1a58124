#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

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
  bool Contains(std::string_view key) const { return index_.contains(key); }

  /// Raises error 457 when the key is taken.
  void Add(std::shared_ptr<T> item, std::string key) {
    if (Contains(key)) {
      throw Error(ErrorNumber::DuplicateKey, "The key '" + key + "' is already in the collection.");
    }
    entries_.push_back({std::move(key), std::move(item)});
    const auto last = std::prev(entries_.end());
    index_.emplace(last->key, last);
  }

  /// Adds under the item's own key.
  void Add(std::shared_ptr<T> item) {
    std::string key = item->Key();
    Add(std::move(item), std::move(key));
  }

  /// Raises error 5 when no entry has the key.
  const std::shared_ptr<T>& Item(std::string_view key) const { return Find(key)->second->item; }

  /// Raises error 5 when no entry has the key.
  void Remove(std::string_view key) {
    const auto found = Find(key);
    const auto entry = found->second;
    index_.erase(found);
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
  using Index =
      std::unordered_map<std::string_view, typename Entries::iterator>;  // views of the entries' keys

  typename Index::const_iterator Find(std::string_view key) const {
    const auto found = index_.find(key);
    if (found == index_.end()) {
      throw Error(ErrorNumber::InvalidArgument,
                  "The key '" + std::string(key) + "' is not in the collection.");
    }
    return found;
  }

  Entries entries_;
  Index index_;
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
