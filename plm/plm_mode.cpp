#include "plm/plm_mode.h"

#include <array>

#include "core/stored_reader.h"
#include "plm/plm_msql.h"

namespace kiv {

namespace {

constexpr std::string_view kChannels = "Channels";

}  // namespace

std::string ChannelKey(const std::string& number) {
  return "Channel:" + number;
}

std::span<const RecordField<CKivPlmMode>> CKivPlmMode::Fields() {
  using enum FieldRole;
  using Mode = CKivPlmMode;
  static const RecordField<Mode> fields[] = {
      {"Id", &Mode::id_, Key},
      {"PlmMode", &Mode::plmMode_},
      {"Carrier", &Mode::carrier_, Nullable},
      {"ServiceOption", &Mode::serviceOption_, Nullable},
      {"GenerationType", &Mode::generationType_, Nullable},
      {"SelectionMethod", &Mode::selectionMethod_},
      {"AmpsDistribution", &Mode::ampsDistribution_, Nullable},
      {"TdmaDistribution", &Mode::tdmaDistribution_, Nullable},
      {"TotalDistribution", &Mode::totalDistribution_, Nullable},
      {"SortBy", &Mode::sortBy_},
      {"SelectFromList", &Mode::selectFromList_},
      {"RangeFrom", &Mode::rangeFrom_, Nullable},
      {"RangeTo", &Mode::rangeTo_, Nullable},
      {"ExcludeAce", &Mode::excludeAce_},
      {"DistributionMethod", &Mode::distributionMethod_},
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
  if (channels_->Contains(key)) return;
  channels_->Add(std::make_shared<CChannel>(id, plmMode, channel, key), key);
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

void CKivPlmMode::ReadStored(StoredReader& reader) {
  reader.Fields(*this, Fields());
  reader.Numbers(kChannels, [this](std::int32_t channel) {
    AddChannel(id_, plmMode_, channel, ChannelKey(std::to_string(channel)));
    return ChannelCount();
  });
  checked_ = true;
}

}  // namespace kiv
