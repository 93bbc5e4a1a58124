#include "store/history/study_difference.h"

#include <algorithm>
#include <span>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "base/utf16.h"
#include "core/study_kinds.h"
#include "store/exchange/json.h"

namespace kiv::store {

namespace {

using Kind = StudyDifference::Kind;

std::string TextOf(const Json& value) {
  if (value.is_null()) return {};
  return value.is_string() ? value.get<std::string>() : value.dump();
}

/// The values of an entry's fields of these names; of its first field when there are no names.
std::vector<const Json*> ValuesOf(const Json& entry, std::span<const std::string_view> names) {
  std::vector<const Json*> values;
  for (const std::string_view name : names) {
    if (const auto found = entry.find(name); found != entry.end()) values.push_back(&*found);
  }
  if (values.empty() && !entry.empty()) values.push_back(&*entry.begin());
  return values;
}

/// How users call an entry, such as `1-2-37`. It begins each of the entry's differences, so it has to be
/// short.
std::string LabelOf(const Json& entry, const ListIdentity& identity) {
  std::string label;
  for (const Json* value : ValuesOf(entry, identity.label)) {
    label += (label.empty() ? "" : "-") + TextOf(*value);
  }
  constexpr std::size_t kLongest = 80;
  if (label.size() <= kLongest) return label;
  return ToUtf8(ToUtf16(label).substr(0, kLongest)) + "...";
}

std::string KeyOf(const Json& entry, const ListIdentity& identity) {
  std::string key;
  for (const Json* value : ValuesOf(entry, identity.fields)) key += value->dump() + ',';
  return key;
}

/// The lists of a content's kind; none of a kind that is not known here.
std::vector<ListIdentity> IdentitiesIn(const Json& content) {
  const auto kind = content.find(key::kKind);
  if (kind == content.end() || !kind->is_string()) return {};
  const StudyKind* known = FindStudyKind(kind->get_ref<const std::string&>());
  return known ? known->createRecord()->ListIdentities() : std::vector<ListIdentity>();
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
  explicit Comparison(std::vector<ListIdentity> identities) : identities_(std::move(identities)) {}

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
      CompareLists(field, IdentityOf(name), prefix + name, before.is_array() ? before : Json::array(),
                   after.is_array() ? after : Json::array());
    } else if (TextOf(before) != TextOf(after)) {
      Add(Kind::Changed, field, prefix + name, TextOf(before), TextOf(after));
    }
  }

  ListIdentity IdentityOf(std::string_view list) const {
    const auto found = std::ranges::find(identities_, list, &ListIdentity::list);
    return found == identities_.end() ? ListIdentity{} : *found;
  }

  void CompareLists(const std::string& field, const ListIdentity& identity, const std::string& place,
                    const Json& before, const Json& after) {
    const Json& example = before.empty() ? after : before;
    if (example.empty()) return;
    if (!example.front().is_object()) return ComparePlainLists(field, place, before, after);
    std::unordered_map<std::string, const Json*> left;
    for (const Json& entry : before) left.emplace(KeyOf(entry, identity), &entry);
    std::vector<const Json*> added;
    for (const Json& entry : after) {
      const auto old = left.find(KeyOf(entry, identity));
      if (old == left.end()) {
        added.push_back(&entry);
        continue;
      }
      if (*old->second != entry) {
        CompareObjects(field, place + " " + LabelOf(entry, identity) + ": ", *old->second, entry);
      }
      left.erase(old);
    }
    for (const Json& entry : before) {
      if (left.contains(KeyOf(entry, identity))) {
        Add(Kind::Removed, field, place + " " + LabelOf(entry, identity), ContentText(entry), {});
      }
    }
    for (const Json* entry : added) {
      Add(Kind::Added, field, place + " " + LabelOf(*entry, identity), {}, ContentText(*entry));
    }
  }

  void ComparePlainLists(const std::string& field, const std::string& place, const Json& before,
                         const Json& after) {
    const auto missing = [](const Json& from, const Json& in) {
      std::string text;
      std::unordered_set<std::string> present;
      for (const Json& value : in) present.insert(value.dump());
      for (const Json& value : from) {
        if (!present.contains(value.dump())) {
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

  std::vector<ListIdentity> identities_;
  std::vector<StudyDifference> differences_;
};

Json Parsed(const std::string& content) {
  Json json = Json::parse(content, nullptr, false);
  return json.is_object() ? json : Json::object();
}

}  // namespace

std::vector<StudyDifference> DifferencesBetween(const std::string& before, const std::string& after) {
  const Json left = Parsed(before);
  const Json right = Parsed(after);
  Comparison comparison(IdentitiesIn(right.empty() ? left : right));
  comparison.CompareObjects({}, {}, left, right);
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
