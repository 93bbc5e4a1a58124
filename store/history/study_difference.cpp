#include "store/history/study_difference.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "store/exchange/json.h"

namespace kiv::store {

namespace {

using Kind = StudyDifference::Kind;

std::string TextOf(const Json& value) {
  if (value.is_null()) return {};
  return value.is_string() ? value.get<std::string>() : value.dump();
}

/// The fields that tell an entry of a list from the others: all up to the last number of its kind of thing,
/// else the first.
std::size_t IdentityOf(const Json& entry) {
  std::size_t identity = 1;
  std::size_t place = 0;
  for (const auto& [name, value] : entry.items()) {
    ++place;
    if (name.ends_with("Id")) identity = place;
  }
  return identity;
}

/// How users call an entry, such as `1-2-37`: the number of its instance says nothing to them.
std::string LabelOf(const Json& entry) {
  const std::size_t identity = IdentityOf(entry);
  std::string label;
  std::size_t place = 0;
  for (const auto& [name, value] : entry.items()) {
    if (place++ == identity) break;
    if (name == "InstanceId" && identity > 1) continue;
    label += (label.empty() ? "" : "-") + TextOf(value);
  }
  return label;
}

std::string KeyOf(const Json& entry) {
  const std::size_t identity = IdentityOf(entry);
  std::string text;
  std::size_t place = 0;
  for (const auto& [name, value] : entry.items()) {
    if (place++ == identity) break;
    text += value.dump() + ',';
  }
  return text;
}

/// What an entry that came or went has, without what is not set.
std::string ContentText(const Json& entry) {
  std::string text;
  for (const auto& [name, value] : entry.items()) {
    std::string shown = value.is_array() ? std::to_string(value.size()) : TextOf(value);
    if (shown.empty() || (value.is_array() && value.empty())) continue;
    text += (text.empty() ? "" : ", ") + name + " " + shown;
  }
  return text;
}

class Comparison {
 public:
  std::vector<StudyDifference> Take() { return std::move(differences_); }

  void CompareObjects(const std::string& field, const std::string& prefix, const Json& before,
                      const Json& after) {
    static const Json kNothing;
    for (const auto& [name, value] : after.items()) {
      const auto old = before.is_object() ? before.find(name) : before.end();
      const bool wasThere = before.is_object() && old != before.end();
      CompareValues(field.empty() ? name : field, prefix, name, wasThere ? *old : kNothing, value);
    }
    for (const auto& [name, value] : before.items()) {
      if (after.is_object() && after.contains(name)) continue;
      CompareValues(field.empty() ? name : field, prefix, name, value, kNothing);
    }
  }

 private:
  void CompareValues(const std::string& field, const std::string& prefix, const std::string& name,
                     const Json& before, const Json& after) {
    if (before == after) return;
    if (before.is_object() || after.is_object()) {
      // The data of the kind are fields of the study to whoever reads this.
      CompareObjects({}, {}, before.is_object() ? before : Json::object(),
                     after.is_object() ? after : Json::object());
    } else if (before.is_array() || after.is_array()) {
      CompareLists(field, prefix + name, before.is_array() ? before : Json::array(),
                   after.is_array() ? after : Json::array());
    } else if (TextOf(before) != TextOf(after)) {
      Add(Kind::Changed, field, prefix + name, TextOf(before), TextOf(after));
    }
  }

  void CompareLists(const std::string& field, const std::string& place, const Json& before,
                    const Json& after) {
    const Json& example = before.empty() ? after : before;
    if (example.empty()) return;
    if (!example.front().is_object()) return ComparePlainLists(field, place, before, after);
    std::unordered_map<std::string, const Json*> left;
    for (const Json& entry : before) left.emplace(KeyOf(entry), &entry);
    std::vector<const Json*> added;
    for (const Json& entry : after) {
      const auto old = left.find(KeyOf(entry));
      if (old == left.end()) {
        added.push_back(&entry);
        continue;
      }
      if (*old->second != entry) {
        CompareObjects(field, place + " " + LabelOf(entry) + ": ", *old->second, entry);
      }
      left.erase(old);
    }
    for (const Json& entry : before) {
      if (left.contains(KeyOf(entry))) {
        Add(Kind::Removed, field, place + " " + LabelOf(entry), ContentText(entry), {});
      }
    }
    for (const Json* entry : added) {
      Add(Kind::Added, field, place + " " + LabelOf(*entry), {}, ContentText(*entry));
    }
  }

  void ComparePlainLists(const std::string& field, const std::string& place, const Json& before,
                         const Json& after) {
    const auto missing = [](const Json& from, const Json& in) {
      std::string text;
      for (const Json& value : from) {
        if (std::find(in.begin(), in.end(), value) == in.end()) {
          text += (text.empty() ? "" : ", ") + TextOf(value);
        }
      }
      return text;
    };
    if (std::string gone = missing(before, after); !gone.empty()) {
      Add(Kind::Removed, field, place, std::move(gone), {});
    }
    if (std::string come = missing(after, before); !come.empty()) {
      Add(Kind::Added, field, place, {}, std::move(come));
    }
  }

  void Add(Kind kind, const std::string& field, std::string place, std::string before, std::string after) {
    differences_.push_back({kind, field, std::move(place), std::move(before), std::move(after)});
  }

  std::vector<StudyDifference> differences_;
};

Json Parsed(const std::string& content) {
  Json json = Json::parse(content, nullptr, false);
  return json.is_object() ? json : Json::object();
}

}  // namespace

std::vector<StudyDifference> DifferencesBetween(const std::string& before, const std::string& after) {
  Comparison comparison;
  comparison.CompareObjects({}, {}, Parsed(before), Parsed(after));
  return comparison.Take();
}

std::string SummaryOf(const std::vector<StudyDifference>& differences) {
  std::string text;
  for (auto first = differences.begin(); first != differences.end();) {
    const auto last = std::find_if(first, differences.end(), [first](const StudyDifference& difference) {
      return difference.field != first->field;
    });
    text += (text.empty() ? "" : ", ") + first->field;
    if (first->place != first->field) text += " (" + std::to_string(last - first) + ")";
    first = last;
  }
  return text;
}

}  // namespace kiv::store
