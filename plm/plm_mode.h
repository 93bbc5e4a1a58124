#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "core/fields.h"
#include "core/keyed_collection.h"

namespace kiv {

/// One channel of a mode's channel list; one row of KIV_PlmChannelList.
class CChannel : public Object {
 public:
  CChannel() = default;
  CChannel(std::int32_t id, std::int32_t plmMode, std::int32_t channel, std::string key)
      : id_(id), plmMode_(plmMode), channel_(channel), key_(std::move(key)) {}

  std::int32_t ID() const { return id_; }
  void SetID(std::int32_t id) { id_ = id; }
  std::int32_t PlmMode() const { return plmMode_; }
  void SetPlmMode(std::int32_t plmMode) { plmMode_ = plmMode; }
  std::int32_t Channel() const { return channel_; }
  void SetChannel(std::int32_t channel) { channel_ = channel; }
  /// "Channel:" and the channel number.
  const std::string& Key() const { return key_; }
  void SetKey(std::string key) { key_ = std::move(key); }

 private:
  std::int32_t id_ = 0;
  std::int32_t plmMode_ = 0;
  std::int32_t channel_ = 0;
  std::string key_;
};

/// One measurement mode of a PLM study; one row of KIV_PlmMode. Numbers that are not set read kUnsetNumber.
class CKivPlmMode : public Object {
 public:
  /// The mode's name, which is its key among the modes of its study.
  const std::string& Key() const { return key_; }
  void SetKey(std::string key) { key_ = std::move(key); }
  std::int32_t ID() const { return id_; }
  void SetID(std::int32_t id) { id_ = id; }
  std::int32_t PlmMode() const { return plmMode_; }
  void SetPlmMode(std::int32_t plmMode) { plmMode_ = plmMode; }

  // CDMA modes.
  std::int32_t Carrier() const { return carrier_; }
  void SetCarrier(std::int32_t carrier) { carrier_ = carrier; }
  std::int32_t ServiceOption() const { return serviceOption_; }
  void SetServiceOption(std::int32_t serviceOption) { serviceOption_ = serviceOption; }
  std::int32_t GenerationType() const { return generationType_; }
  void SetGenerationType(std::int32_t generationType) { generationType_ = generationType; }

  // TDMA/AMPS modes: how channels are selected, and how many.
  const std::string& SelectionMethod() const { return selectionMethod_; }
  void SetSelectionMethod(std::string word) { selectionMethod_ = std::move(word); }
  std::int32_t AmpsDistribution() const { return ampsDistribution_; }
  void SetAmpsDistribution(std::int32_t count) { ampsDistribution_ = count; }
  std::int32_t TdmaDistribution() const { return tdmaDistribution_; }
  void SetTdmaDistribution(std::int32_t count) { tdmaDistribution_ = count; }
  std::int32_t TotalDistribution() const { return totalDistribution_; }
  void SetTotalDistribution(std::int32_t count) { totalDistribution_ = count; }
  const std::string& DistributionMethod() const { return distributionMethod_; }
  void SetDistributionMethod(std::string word) { distributionMethod_ = std::move(word); }
  const std::string& SortBy() const { return sortBy_; }
  void SetSortBy(std::string word) { sortBy_ = std::move(word); }
  const std::string& SelectFromList() const { return selectFromList_; }
  void SetSelectFromList(std::string word) { selectFromList_ = std::move(word); }
  std::int32_t RangeFrom() const { return rangeFrom_; }
  void SetRangeFrom(std::int32_t channel) { rangeFrom_ = channel; }
  std::int32_t RangeTo() const { return rangeTo_; }
  void SetRangeTo(std::int32_t channel) { rangeTo_ = channel; }
  /// "Y" or "N".
  const std::string& ExcludeAce() const { return excludeAce_; }
  void SetExcludeAce(std::string word) { excludeAce_ = std::move(word); }

  /// Whether the study runs the mode; only checked modes are stored and counted.
  bool Checked() const { return checked_; }
  void SetChecked(bool checked) { checked_ = checked; }

  /// Sets everything but the key and the channels.
  void Initialize(std::int32_t id, std::int32_t plmMode, std::int32_t carrier, std::int32_t serviceOption,
                  std::int32_t generationType, std::string selectionMethod, std::int32_t ampsDistribution,
                  std::int32_t tdmaDistribution, std::int32_t totalDistribution,
                  std::string distributionMethod, std::string sortBy, std::string selectFromList,
                  std::int32_t rangeFrom, std::int32_t rangeTo, std::string excludeAce, bool checked);

  /// A key that is taken already is ignored.
  void AddChannel(std::int32_t id, std::int32_t plmMode, std::int32_t channel, const std::string& key);
  std::int32_t ChannelCount() const { return channels_->Count(); }
  const std::shared_ptr<KeyedCollection<CChannel>>& ChannelList() const { return channels_; }
  /// Goes on with a new, empty list; whoever holds the old one keeps it.
  void ClearChannelList();
  /// The channel numbers in the order of adding, such as 312;313;400.
  std::string GetChannelList() const;
  /// Adds the stored channels of this mode. A database failure is raised.
  void LoadChannelList();
  /// Stores every channel under this mode. A database failure is raised.
  bool InsertChannelList() const;

  /// The mode's fields and channels for listing.
  StoredEntry Stored() const;
  /// What of it the mode's page cannot make.
  std::vector<std::string> Faults() const;
  /// Takes such an entry back as a mode that the study runs.
  void ReadStored(StoredReader& reader);

  /// The columns of KIV_PlmMode in the order of the insert.
  static std::span<const RecordField<CKivPlmMode>> Fields();

 private:
  std::string key_;
  std::int32_t id_ = kUnsetNumber;
  std::int32_t plmMode_ = kUnsetNumber;
  std::int32_t carrier_ = kUnsetNumber;
  std::int32_t serviceOption_ = kUnsetNumber;
  std::int32_t generationType_ = kUnsetNumber;
  std::string selectionMethod_;
  std::int32_t ampsDistribution_ = kUnsetNumber;
  std::int32_t tdmaDistribution_ = kUnsetNumber;
  std::int32_t totalDistribution_ = kUnsetNumber;
  std::string distributionMethod_;
  std::string sortBy_;
  std::string selectFromList_;
  std::int32_t rangeFrom_ = kUnsetNumber;
  std::int32_t rangeTo_ = kUnsetNumber;
  std::string excludeAce_;
  bool checked_ = false;
  std::shared_ptr<KeyedCollection<CChannel>> channels_ = std::make_shared<KeyedCollection<CChannel>>();
};

/// The key of a channel in its mode's list, from the number's text.
std::string ChannelKey(const std::string& number);

}  // namespace kiv
