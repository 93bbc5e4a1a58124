#include "rfc/general_tab.h"

#include <string>
#include <utility>

#include "core/entity_lists.h"
#include "editor/kiv_study_ctls.h"
#include "host/constants.h"
#include "host/services.h"

namespace kiv {

namespace {

using namespace MKivStudyCtls;

/// One of the things that a study can trace.
struct Choice {
  EntityType type;
  std::int32_t maxRows;
  const char* caption;
  const char* hint;
  const char* missing;
};

enum : std::size_t { kWholeEcp, kCells };

constexpr Choice kChoices[XKivRfcGen::kEntityTypes] = {
    {EntityType::Ecp, 1, "&ECP", "(Select ECP From Scenario)", "Please select an ECP for the study."},
    {EntityType::RfcCell, 8, "Ce&lls", "(Select a Maximum of Eight Cells From Scenario)", kNoCellText}};

constexpr MinutesField kMinutes = {15, 240, 30, host::remembered::kRfcDuration};

/// Lets letters, digits and a few other characters of tags pass.
void TagKeyFilter(std::int16_t& keyCode) {
  const auto key = static_cast<char16_t>(keyCode);
  if (keyCode == ui::kBackspaceKey || IsTagCharacter(key)) return;
  keyCode = 0;
  host::TheBeeper().Beep();
}

std::string NotOnRecord(const CEcp& ecp) {
  return "FAF information was not found for ECP:" + std::to_string(ecp.EcpID()) +
         "\r\nThis can be caused by the FAF information being updated or the 'add_omp' script has not be "
         "executed."
         "\r\nIf the the 'add_omp has not been executed, you will need to exit pellavo and run the script."
         "\r\nThe RF Call Trace study can be created once the FAF information is in the Pellavo database.";
}

std::string NotActive(const CEcp& ecp) {
  return "The FAF, RF Calltrace (RFCT), is not active on ECP " + std::to_string(ecp.EcpID()) +
         ". RF Call Trace studies cannot be started "
         "\r\non this ECP unless this FAF is active. Select another ECP to study or contact your ECP "
         "\r\nadministrator to enable RF Calltrace (RFCT) on this ECP.";
}

}  // namespace

XKivRfcGen::XKivRfcGen()
    : GeneralTabOf(kClassName, WhenEmpty::Show),
      fraEntities(this, "fraEntities"),
      optEntityType(&fraEntities, "optEntityType"),
      dlvwEntity(&fraEntities, "dlvwEntity"),
      txtDuration(this, "txtDuration"),
      txtTag(this, "txtTag"),
      chkClearLog(this, "chkClearLog") {
  fraEntities.SetCaption("Traced ECP or Cells (drag them here from the network tree)");
  for (std::size_t type = 0; type < kEntityTypes; ++type) {
    optEntityType[type].SetCaption(kChoices[type].caption);
  }
  dlvwEntity.SetMultiSelect(true);
  dlvwEntity.SetUsePopupMenu(true);
  txtTag.SetKeyFilter(TagKeyFilter);
  chkClearLog.SetCaption("Clear OMP log records with this tag before starting.");

  BindFields();
  ShowEntities(kWholeEcp, std::make_shared<EntityCollection>());
  optEntityType.Changed.Connect([this] { ChooseEntityType(); });
  dlvwEntity.EntityAdded.Connect([this](const std::shared_ptr<CEntity>& entity) {
    entity->SetID(Required(Study()).ID());
    added_.push_back(entity);
  });
  dlvwEntity.CollectionChanged.Connect([this] { FollowEntities(); });
}

void XKivRfcGen::BindFields() {
  CheckList tagChecks;
  tagChecks.Add(
      txtTag, [this] { return !txtTag.Text().empty(); }, "Tag is a required field.");
  tagChecks.Add(
      txtTag, [this] { return !txtTag.Text().starts_with('.'); }, "Tag cannot start with a '.'");

  const PageField& duration = BindDuration(txtDuration, kMinutes);
  const PageField& tag = BindTag(txtTag, host::remembered::kRfcTag).Checked(tagChecks);
  Bind(chkClearLog, At(&CKivRfcData::ClearLog, &CKivRfcData::SetClearLog)).Default(true);
  const PageField& entities =
      Bind({.showNew = [this] { ShowEntities(kWholeEcp, std::make_shared<EntityCollection>()); },
            .showStored =
                [this] {
                  const bool wholeEcp = YNToCheckValue(SubRecord()->UseEcp()) != 0;
                  ShowEntities(wholeEcp ? kWholeEcp : kCells, SubRecord()->Entities());
                },
            .save =
                [this] {
                  SubRecord()->SetUseEcp(ChosenType() == kWholeEcp ? "Y" : "");
                  SubRecord()->SetEntities(dlvwEntity.TheCollection());
                }})
          .Checked(EntityChecks());
  CheckInOrder({&entities, &duration, &tag});
}

CheckList XKivRfcGen::EntityChecks() {
  CheckList checks;
  checks.Add(
      dlvwEntity, [this] { return HasEntities(); }, [this] { return kChoices[ChosenType()].missing; });
  return checks;
}

/// A study whose features cannot be looked up can be opened all the same.
void XKivRfcGen::ShowStoredStudy() {
  try {
    CheckFeature();
  } catch (const Error&) {
    host::TheErrorReporter().ReportError();
  }
}

std::size_t XKivRfcGen::ChosenType() const {
  return optEntityType.Index() == static_cast<int>(kWholeEcp) ? kWholeEcp : kCells;
}

/// Shows the entities of one type; there are none of the other.
void XKivRfcGen::ShowEntities(std::size_t type, std::shared_ptr<EntityCollection> entities) {
  const FlagGuard filling = HoldReports();
  for (auto& collection : entities_) collection = std::make_shared<EntityCollection>();
  entities_.at(type) = std::move(entities);
  ecp_.reset();
  optEntityType.SetIndex(static_cast<int>(type));
  SetUpList();
}

/// Makes the list one for the chosen type, with the entities of this type.
void XKivRfcGen::SetUpList() {
  const Choice& choice = kChoices[ChosenType()];
  dlvwEntity.SetEntityType(choice.type);
  dlvwEntity.SetMaxRows(choice.maxRows);
  std::vector<EntityColumn> columns = {SystemColumn("SystemID"), EcpColumn("ECPID")};
  if (ChosenType() == kCells) columns.push_back(CellColumn("CellID"));
  dlvwEntity.AddColumns(std::move(columns));
  dlvwEntity.SetTheCollection(entities_[ChosenType()]);
  dlvwEntity.Display();
}

void XKivRfcGen::ChooseEntityType() {
  if (Filling()) return;
  SetUpList();
  if (!SubRecord()) return;
  ReportChange();
  CheckFeature();
}

/// Checks the ECP when a drop or a removal changed it. What a drop added does not stay when the check fails.
void XKivRfcGen::FollowEntities() {
  const auto added = std::exchange(added_, {});
  const bool sameEcp = ecp_ && HasEntities() && (*dlvwEntity.TheCollection()->begin())->SharesEcpWith(*ecp_);
  if (!sameEcp) {
    try {
      if (!CheckFeature() && !added.empty()) return TakeOut(added);
    } catch (...) {
      TakeOut(added);
      throw;
    }
  }
  ReportChange();
}

void XKivRfcGen::TakeOut(const std::vector<std::shared_ptr<CEntity>>& added) {
  EntityCollection& entities = *dlvwEntity.TheCollection();
  for (const auto& entity : added) {
    if (entities.Contains(entity->Key())) entities.Remove(entity->Key());
  }
  dlvwEntity.Display();
  ecp_.reset();
  SubRecord()->InitFaF();
}

/// The ECP of the study; that of cells is the one of the first cell. Null when nothing is chosen.
std::shared_ptr<CEcp> XKivRfcGen::ChosenEcp() const {
  if (!HasEntities()) return nullptr;
  const std::shared_ptr<CEntity> first = *dlvwEntity.TheCollection()->begin();
  std::int32_t instanceId = first->InstanceID();
  if (ChosenType() == kCells) {
    instanceId =
        MSQL::GetParentInstanceId(std::to_string(first->SystemID()) + "-" + std::to_string(first->EcpID()) +
                                  "-" + std::to_string(AsCell(first).CellID()));
  }
  return MakeEcp(Study()->ID(), instanceId, first->SystemID(), first->EcpID());
}

/// Whether RF call trace is active on the chosen ECP; tells the user when it is not. True when none is
/// chosen. After a failed look-up no ECP counts as checked.
bool XKivRfcGen::CheckFeature() {
  CKivRfcData& data = *SubRecord();
  data.InitFaF();
  ecp_.reset();
  const auto ecp = ChosenEcp();
  if (!ecp) return true;
  data.LookupFAF(ecp->InstanceID());
  ecp_ = ecp;
  const std::string fault = FeatureFault();
  if (!fault.empty()) Tell({nullptr, fault});
  return fault.empty();
}

std::string XKivRfcGen::FeatureFault() const {
  if (!ecp_) return {};
  const FafRow& features = SubRecord()->Faf();
  if (features.InstanceId == 0) return NotOnRecord(*ecp_);
  return features.F161 ? std::string() : NotActive(*ecp_);
}

void XKivRfcGen::AddFindings(std::vector<Problem>& findings) {
  if (std::string fault = FeatureFault(); !fault.empty()) {
    findings.push_back({&dlvwEntity, std::move(fault), host::MessageStyle::Critical, true});
  }
}

ui::LayoutItem XKivRfcGen::Layout() {
  using namespace ui;
  std::vector<LayoutItem> entities;
  for (std::size_t type = 0; type < kEntityTypes; ++type) {
    entities.push_back(Row({Single(optEntityType[type]), Text(kChoices[type].hint), Stretch()}));
  }
  entities.push_back(Single(dlvwEntity));
  return Column({Group(fraEntities, std::move(entities)),
                 Form({Field("Study &Duration:", {Single(txtDuration), Text("minutes")}),
                       Field("Ta&g:", {Single(txtTag), Stretch()})}),
                 Single(chkClearLog)});
}

}  // namespace kiv
