#include "store/exchange/study_json.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "core/numeric_text.h"
#include "core/stored_reader.h"
#include "core/study_kinds.h"
#include "store/exchange/json.h"
#include "store/exchange/json_text.h"
#include "store/store_error.h"

namespace kiv::store {

namespace {

constexpr const char* kFormat = "kivstudy-studies";
constexpr int kVersion = 1;

// What a file has.
constexpr const char* kFormatKey = "format";
constexpr const char* kVersionKey = "version";
constexpr const char* kStudiesKey = "studies";

std::string KindNames() {
  std::string names;
  for (const StudyKind& kind : StudyKinds()) {
    names.append(names.empty() ? "" : ", ").append("\"").append(kind.name).append("\"");
  }
  return names;
}

Json ExportedContent(const NamedStudy& named) {
  const Study& study = named.study;
  const std::string who =
      "Study " + std::to_string(study.record->ID()) + " \"" + study.name + "\" was not exported: ";
  switch (study.kindData) {
    case KindData::Complete: break;
    case KindData::Missing: throw StoreError(who + MissingDataText(study.record->ID()));
    case KindData::Unknown:
      throw StoreError(who + "this version of the program does not know the kind \"" +
                       study.record->AppName() + "\". Export the others by their numbers.");
  }
  Json content = ContentOf(study, named.scenario);
  try {
    (void)content.dump();
  } catch (const Json::type_error&) {
    throw StoreError(who + "a stored text of it is no UTF-8 text. Open the study and correct the text.");
  }
  return content;
}

/// Reads one study of a file; everything that is wrong with it is noted.
class StudyReading {
 public:
  StudyReading(const Json& json, std::string place, std::vector<TextProblem>& problems)
      : json_(json), place_(std::move(place)), problems_(problems) {}

  std::optional<NamedStudy> Read() {
    if (!json_.is_object()) return Refuse("must be an object in braces");
    Json shared = json_;
    shared.erase(key::kData);
    const StoredEntry sharedEntry = EntryOf(shared);
    std::vector<StoredFault> faults;
    StoredReader reader(sharedEntry, {}, faults);
    NamedStudy named;
    if (ReadKind(reader, named.study, faults)) {
      ReadShared(reader, named);
      reader.NoteUnknown();
      ReadData(*named.study.record, faults);
    }
    for (const StoredFault& fault : faults) {
      problems_.push_back({place_, fault.place.empty() ? fault.reason : fault.place + " " + fault.reason});
    }
    if (!faults.empty()) return std::nullopt;
    return named;
  }

 private:
  std::nullopt_t Refuse(const std::string& reason) {
    problems_.push_back({place_, reason});
    return std::nullopt;
  }

  /// False with a fault.
  static bool ReadKind(StoredReader& reader, Study& study, const std::vector<StoredFault>& faults) {
    const std::string kind = reader.Text(key::kKind);
    if (FindStudyKind(kind)) {
      study = NewStudy(kind);
      return true;
    }
    if (faults.empty()) reader.Note(key::kKind, "\"" + kind + "\" is none of " + KindNames());
    return false;
  }

  static void ReadShared(StoredReader& reader, NamedStudy& named) {
    named.study.name = reader.Text(key::kName);
    named.scenario = std::string(Trimmed(reader.TextOrNull(key::kScenario)));
    for (const SharedNumber& number : kSharedNumbers) {
      const auto value = reader.NumberOrNull(number.name);
      (named.study.record.get()->*number.set)(value.value_or(CKivStudyData::kNotGiven));
    }
  }

  void ReadData(CKivStudyData& record, std::vector<StoredFault>& faults) {
    const auto data = json_.find(key::kData);
    if (data == json_.end() || !data->is_object()) {
      faults.push_back({key::kData, data == json_.end() ? "is missing" : "must be an object in braces"});
      return;
    }
    const StoredEntry entry = EntryOf(*data);
    StoredReader reader(entry, {}, faults);
    record.SubRecord()->ReadStored(reader);
    reader.NoteUnknown();
  }

  const Json& json_;
  std::string place_;
  std::vector<TextProblem>& problems_;
};

std::string PlaceOf(const Json& study, std::size_t number) {
  std::string place = "study " + std::to_string(number);
  const auto name = study.is_object() ? study.find(key::kName) : study.end();
  if (study.is_object() && name != study.end() && name->is_string()) {
    place += " \"" + name->get<std::string>() + "\"";
  }
  return place;
}

/// The studies of a file of this version.
const Json& StudiesOf(const Json& file) {
  const auto at = [&file](const char* key) {
    const auto found = file.is_object() ? file.find(key) : file.end();
    return file.is_object() && found != file.end() ? *found : Json();
  };
  if (at(kFormatKey) != kFormat) {
    throw StoreError(std::string("this is no export of studies; one begins with \"format\": \"") + kFormat +
                     "\". Choose another file");
  }
  if (const Json version = at(kVersionKey); version != kVersion) {
    throw StoreError("the file has version " + version.dump() +
                     " of the format, this program reads version " + std::to_string(kVersion) +
                     ". Use the version of the program that wrote it, or a newer one");
  }
  if (!at(kStudiesKey).is_array()) throw StoreError("\"studies\" must be a list in square brackets");
  for (const auto& [name, value] : file.items()) {
    if (name != kFormatKey && name != kVersionKey && name != kStudiesKey) {
      throw StoreError("\"" + name + "\" is unknown here; remove it");
    }
  }
  return file[kStudiesKey];
}

}  // namespace

std::string ExportText(const std::vector<NamedStudy>& studies) {
  Json list = Json::array();
  for (const NamedStudy& study : studies) list.push_back(ExportedContent(study));
  const Json file = {{kFormatKey, kFormat}, {kVersionKey, kVersion}, {kStudiesKey, std::move(list)}};
  return ShownJson(file, BadText::Raises) + '\n';
}

NamedStudy ReadKept(const std::string& content) {
  std::vector<TextProblem> problems;
  const Json json = Json::parse(content, nullptr, false);
  auto named = StudyReading(json, {}, problems).Read();
  if (!named) {
    throw StoreError("This state of the study cannot be restored by this version of the program: " +
                     problems.front().reason + ". Choose another revision.");
  }
  return std::move(*named);
}

ExportContent ReadExport(std::string_view text) {
  ExportContent content;
  try {
    const Json file = ParseJson(text);
    const Json& studies = StudiesOf(file);
    for (std::size_t i = 0; i < studies.size(); ++i) {
      const std::string place = PlaceOf(studies[i], i + 1);
      auto study = StudyReading(studies[i], place, content.problems).Read();
      if (!study) continue;
      content.studies.push_back(std::move(*study));
      content.places.push_back(place);
    }
  } catch (const StoreError& error) {
    content.problems.push_back({{}, error.what()});
  }
  return content;
}

}  // namespace kiv::store
