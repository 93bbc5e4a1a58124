#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "core/sub_record.h"
#include "store/study.h"

/// Records as JSON values, whose keys keep their order.
namespace kiv::store {

using Json = nlohmann::ordered_json;

/// What a study has beside its numbers.
namespace key {
inline constexpr const char* kKind = "kind";
inline constexpr const char* kName = "name";
inline constexpr const char* kScenario = "scenario";
inline constexpr const char* kData = "data";
}  // namespace key

/// Whether a text that is no UTF-8 is an error, Json::type_error, or a bad byte does not keep the rest from
/// being shown.
enum class BadText { Raises, IsReplaced };

/// JSON for people and programs that look at it. Texts of a database may be anything: what a terminal would
/// obey stands as its number.
std::string ShownJson(const Json& json, BadText badText = BadText::IsReplaced);

/// Null for a number that was not given.
Json NumberOrNull(std::int32_t number);

/// Whether the entries of a list are a number or a text each, such as channels.
bool IsPlain(const StoredList& list);

/// What of a study does not depend on the database that has it. `data` is null unless its kind's data are
/// complete.
Json ContentOf(const Study& study, const std::string& scenario);

/// The same as a short text; made without the values in between, because a study may have ten thousand lists.
std::string ContentText(const Study& study, const std::string& scenario,
                        const std::vector<StoredList>& lists);

/// Fields and lists of an object; what stands in it beside them is true or a fraction, which no record has.
StoredEntry EntryOf(const Json& object);

}  // namespace kiv::store
