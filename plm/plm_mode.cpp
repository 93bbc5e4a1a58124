#include "plm/plm_mode.h"

#include <array>

#include "core/stored_reader.h"
#include "plm/limits.h"
#include "plm/mode_choices.h"
#include "plm/mode_names.h"
#include "plm/plm_msql.h"

namespace kiv {

namespace {

constexpr std::string_view kChannels = "Channels";
constexpr std::string_view kServiceOption = "ServiceOption";
constexpr std::string_view kGenerationType = "GenerationType";
constexpr std::string_view kSelectionMethod = "SelectionMethod";

/// A number that must be chosen from a list, where the mode has one.
FieldRule Offered(std::span<const NumberChoice> choices) {
  if (!choices.empty()) return NullOr(NumberOf(choices));
  return {[](const Variant& value) { return value.IsNull(); }, "empty in this mode"};
}

/// The method of a mode that has a choice of them.
FieldRule OfferedMethod(std::int32_t mode) {
  std::vector<WordChoice> methods(SelectionMethods(mode).begin(), SelectionMethods(mode).end());
  if (methods.empty()) return {};
  if (mode == kModeWithoutMethod) methods.push_back({{}, selection::kNoMethodWord});
  return WordOf(methods);
}

}  // namespace

std::string ChannelKey(const std::string& number) {
  return "Channel:" + number;
}

std::span<const RecordField<CKivPlmMode>> CKivPlmMode::Fields() {
  using enum FieldRole;
  using Mode = CKivPlmMode;
  using Field = RecordField<Mode>;
  const FieldRule selected = NullOr(Between(kSelectedChannels.low, kSelectedChannels.high));
  const FieldRule inRange = NullOr(Between(0, kChannelNumbers.high));  // 0 for an empty box
  const WordChoice distributions[] = {{{}, kExpand}, {{}, kRestrict}};
  static const Field fields[] = {
      {"Id", &Mode::id_, Key},
      Field{"PlmMode", &Mode::plmMode_}.Allowing(Between(1, MKivStudyCtls::kModeCount)),
      Field{"Carrier", &Mode::carrier_, Nullable}.Allowing(NullOr(Between(kCarriers.low, kCarriers.high))),
      {kServiceOption, &Mode::serviceOption_, Nullable},
      {kGenerationType, &Mode::generationType_, Nullable},
      {kSelectionMethod, &Mode::selectionMethod_},
      Field{"AmpsDistribution", &Mode::ampsDistribution_, Nullable}.Allowing(selected),
      Field{"TdmaDistribution", &Mode::tdmaDistribution_, Nullable}.Allowing(selected),
      Field{"TotalDistribution", &Mode::totalDistribution_, Nullable}.Allowing(selected),
      Field{"SortBy", &Mode::sortBy_}.Allowing(WordOf(kSortings)),
      Field{"SelectFromList", &Mode::selectFromList_}.Allowing(WordOf(kListEnds)),
      Field{"RangeFrom", &Mode::rangeFrom_, Nullable}.Allowing(inRange),
      Field{"RangeTo", &Mode::rangeTo_, Nullable}.Allowing(inRange),
      Field{"ExcludeAce", &Mode::excludeAce_}.Allowing(YesOrNo()),
      Field{"DistributionMethod", &Mode::distributionMethod_}.Allowing(WordOf(distributions)),
  };
  return fields;
}

void CKivPlmMode::Initialize(std::int32_t id, std::int32_t plmMode, std::int32_t carrier,
                             std::int32_t serviceOption, std::int32_t generationType,
                             std::string selectionMethod, std::int32_t ampsDistribution,
                             std::int32_t tdmaDistribution, std::int32_t totalDistribution,
                             std::string distributionMethod, std::string sortBy, std::string selectFromList,
                             std::int32_t rangeFrom, std::int32_t rangeTo, std::string excludeAce,
                             bool checked) {
  SetFields(
      *this, Fields(),
      std::array<Variant, 15>{id, plmMode, carrier, serviceOption, generationType, std::move(selectionMethod),
                              ampsDistribution, tdmaDistribution, totalDistribution, std::move(sortBy),
                              std::move(selectFromList), rangeFrom, rangeTo, std::move(excludeAce),
                              std::move(distributionMethod)});
  checked_ = checked;
}

void CKivPlmMode::AddChannel(std::int32_t id, std::int32_t plmMode, std::int32_t channel,
                             const std::string& key) {
  channels_->AddNew(std::make_shared<CChannel>(id, plmMode, channel, key), key);
}

void CKivPlmMode::ClearChannelList() {
  channels_ = std::make_shared<KeyedCollection<CChannel>>();
}

std::string CKivPlmMode::GetChannelList() const {
  std::string list;
  for (const auto& channel : *channels_) {
    if (!list.empty()) list += ';';
    list += std::to_string(channel->Channel());
  }
  return list;
}

void CKivPlmMode::LoadChannelList() {
  MSQL::LoadPlmChannels(*this);
}

bool CKivPlmMode::InsertChannelList() const {
  MSQL::InsertPlmChannels(*this);
  return true;
}

StoredEntry CKivPlmMode::Stored() const {
  StoredList channels{kChannels, {}};
  channels.entries.reserve(static_cast<std::size_t>(ChannelCount()));
  for (const auto& channel : *channels_) {
    channels.entries.push_back({{}, {{"Channel", Variant(channel->Channel())}}, {}});
  }
  return {key_, ListFields(*this, Fields()), {std::move(channels)}};
}

/// The lists of a page differ from mode to mode.
std::vector<std::string> CKivPlmMode::Faults() const {
  std::vector<RecordFault> faults;
  AddFaults(faults, *this, Fields());
  const auto generationTypes = HasGenerationType(plmMode_) ? std::span<const NumberChoice>(kGenerationTypes)
                                                           : std::span<const NumberChoice>();
  const std::pair<std::string_view, FieldRule> ofThisMode[] = {
      {kServiceOption, Offered(ServiceOptions(plmMode_))},
      {kGenerationType, Offered(generationTypes)},
      {kSelectionMethod, OfferedMethod(plmMode_)}};
  for (const RecordField<CKivPlmMode>& field : Fields()) {
    for (const auto& [name, rule] : ofThisMode) {
      if (name != field.name || rule.Holds(field.Get(*this))) continue;
      faults.push_back({name, rule.FaultText(name, field.Get(*this))});
    }
  }
  std::vector<std::string> texts;
  texts.reserve(faults.size());
  for (RecordFault& fault : faults) texts.push_back(std::move(fault.text));
  const FieldRule number = Between(kChannelNumbers.low, kChannelNumbers.high);
  for (const auto& channel : *channels_) {
    if (!number.Holds(channel->Channel())) texts.push_back(number.FaultText("Channel", channel->Channel()));
  }
  return texts;
}

void CKivPlmMode::ReadStored(StoredReader& reader) {
  reader.Fields(*this, Fields());
  reader.Numbers(kChannels, [this](std::int32_t channel) {
    AddChannel(id_, plmMode_, channel, ChannelKey(std::to_string(channel)));
    return ChannelCount();
  });
  checked_ = true;
}

}  // namespace kiv
