#pragma once

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace kiv {

/// Entries found by their `name`, in the order of registration.
template <class Entry>
class NamedRegistry {
 public:
  /// A second registration of a name replaces the first.
  void Register(Entry entry) {
    const auto position = Position(entry.name);
    if (position == entries_.end()) {
      entries_.push_back(std::move(entry));
    } else {
      *position = std::move(entry);
    }
  }

  /// Null when no entry has exactly this name.
  const Entry* Find(std::string_view name) {
    const auto position = Position(name);
    return position == entries_.end() ? nullptr : &*position;
  }

  const std::vector<Entry>& All() const { return entries_; }

 private:
  auto Position(std::string_view name) {
    return std::find_if(entries_.begin(), entries_.end(),
                        [name](const Entry& entry) { return entry.name == name; });
  }

  std::vector<Entry> entries_;
};

}  // namespace kiv
