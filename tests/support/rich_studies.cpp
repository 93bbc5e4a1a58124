#include "support/rich_studies.h"

#include <map>
#include <memory>

#include "core/conversions.h"
#include "core/study_kinds.h"
#include "hom/hom_data.h"
#include "plm/mode_names.h"
#include "plm/plm_data.h"
#include "rfc/rfc_data.h"
#include "vcsa/vcs_data.h"

namespace kiv::test {

namespace {

void FillHom(CKivStudyData& study, const std::string& text, int variant) {
  const std::string yes = variant % 2 == 0 ? "Y" : "N";
  const auto data = std::make_shared<CKivHomData>();
  data->Initialize(study.ID(), text, text, variant, yes, yes, yes, yes, yes, yes, yes, yes, yes, yes, yes,
                   yes, yes, text, Variant(text));
  study.SetHomData(data);
}

void FillPlm(CKivStudyData& study, const std::string& text, int variant) {
  constexpr int kModes = 15;
  const auto data = std::make_shared<CKivPlmData>();
  data->Initialize(study.ID(), text, text, text);
  for (int number = 1; number <= kModes; ++number) {
    const auto mode = std::make_shared<CKivPlmMode>();
    mode->Initialize(study.ID(), number, variant, variant, variant, text, variant, variant, variant, text,
                     text, text, variant, variant, text, true);
    for (int channel = 1; channel <= 8 + variant; ++channel) {
      mode->AddChannel(study.ID(), number, channel, ChannelKey(std::to_string(channel)));
    }
    data->AddMode(MKivStudyCtls::ModeName(number), mode);
  }
  study.SetPlmData(data);
}

void FillRfc(CKivStudyData& study, const std::string& text, int variant) {
  constexpr int kRows = 50;
  const auto data = std::make_shared<CKivRfcData>();
  const auto rate = static_cast<std::int16_t>(variant + 1);  // without one an update leaves the stored ones
  data->Initialize(study.ID(), text, text, text, "N", text, rate, rate);
  for (int number = 1; number <= kRows + variant; ++number) {
    data->AddCell(1000 + number, 1, 2, number);
    data->AddDn(std::to_string(5550000 + number), text);
  }
  study.SetRfcData(data);
}

void FillVcs(CKivStudyData& study, const std::string& text, int variant) {
  const auto data = std::make_shared<CKivVcsData>();
  std::array<std::string, CKivVcsData::kTexts> texts;
  texts.fill(text);
  data->Initialize(study.ID(), texts);
  for (int number = 1; number <= 8 + variant; ++number) {
    data->AddCell(1000 + number, 1, 2, number);
    CCell& cell = AsCell(data->Cells()->Item("Cell:" + std::to_string(1000 + number)));
    for (int part = 1; part <= 4 + variant; ++part) {
      cell.AddAntenna(0, 1, 2, number, part, variant % 2 == 0);
      cell.AddCarrier(0, "1", "2", std::to_string(number), std::to_string(part), variant % 2 == 0);
    }
  }
  study.SetVcsData(data);
}

void Append(std::string& text, const std::vector<NamedValue>& fields, const std::vector<StoredList>& lists) {
  for (const NamedValue& field : fields) {
    text.append(field.name).append("=").append(field.value.IsNull() ? "NULL" : ToText(field.value)) += ';';
  }
  for (const StoredList& list : lists) {
    text.append(list.name) += '[';
    for (const StoredEntry& entry : list.entries) {
      text += entry.name + '{';
      Append(text, entry.fields, entry.lists);
      text += '}';
    }
    text += ']';
  }
}

const std::map<std::string_view, void (*)(CKivStudyData&, const std::string&, int)> kFills = {
    {kHomStudy, FillHom}, {kPlmStudy, FillPlm}, {kRfcStudy, FillRfc}, {kVcsStudy, FillVcs}};

}  // namespace

std::vector<std::string> RichKinds() {
  std::vector<std::string> kinds;
  kinds.reserve(kFills.size());
  for (const auto& [kind, fill] : kFills) kinds.emplace_back(kind);
  return kinds;
}

void Fill(store::Study& study, int variant) {
  const std::string text = "it's variant " + std::to_string(variant);
  CKivStudyData& record = *study.record;
  study.name = text;
  record.SetDuration(variant);
  record.SetPollingInterval(variant);
  record.SetRetrieveDelay(variant);
  kFills.at(record.AppName())(record, text, variant);
}

std::string Content(const store::Study& study) {
  const CKivStudyData& record = *study.record;
  std::string text = study.name + ';' + std::to_string(record.Duration()) + ';' +
                     std::to_string(record.PollingInterval()) + ';' + std::to_string(record.RetrieveDelay()) +
                     ';';
  const auto data = record.SubRecordAs<ISubRecord>();
  Append(text, data->StoredFields(), data->StoredLists());
  return text;
}

}  // namespace kiv::test
