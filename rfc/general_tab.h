#pragma once

#include <array>
#include <memory>
#include <vector>

#include "editor/dd_list_view.h"
#include "editor/general_tab.h"
#include "rfc/rfc_data.h"
#include "ui/buttons.h"
#include "ui/label.h"
#include "ui/option_button.h"
#include "ui/text_box.h"

namespace kiv {

/// First tab of an RF call trace study: the ECP or the cells that it traces, how long it runs and its tag. An
/// ECP whose switch has not activated RF call trace is told to the user and does not get into the list.
///
/// The list has room for eight cells by its limit, of which seven are let in: as many as the limit are too
/// many already.
///
/// The records are written when the study is saved. A stored study's own entities are worked on at once, and
/// each change of the ECP takes the features of its switch into the record.
class XKivRfcGen : public GeneralTabOf<CKivRfcData> {
 public:
  static constexpr const char* kClassName = "XKivRfcGen";

  static constexpr std::size_t kEntityTypes = 2;  ///< an ECP, or cells

  XKivRfcGen();

  ui::LayoutItem Layout() override;

  ui::Frame fraEntities;
  ui::OptionGroup<kEntityTypes> optEntityType;
  XDDListView dlvwEntity;
  ui::TextBox txtDuration;  ///< minutes
  ui::TextBox txtTag;
  ui::CheckBox chkClearLog;

 private:
  void BindFields();
  void ShowNewStudy() override { SubRecord()->InitFaF(); }
  void ShowStoredStudy() override;
  void AddFindings(std::vector<Problem>& findings) override;
  /// What is wrong with the features of the ECP that was looked up last; empty when nothing is.
  std::string FeatureFault() const;
  /// What is not the ECP, no choice included, is cells.
  std::size_t ChosenType() const;
  CheckList EntityChecks();
  bool HasEntities() const { return Required(dlvwEntity.TheCollection()).Count() > 0; }
  void ShowEntities(std::size_t type, std::shared_ptr<EntityCollection> entities);
  void SetUpList();
  void ChooseEntityType();
  void FollowEntities();
  std::shared_ptr<CEcp> ChosenEcp() const;
  bool CheckFeature();
  void TakeOut(const std::vector<std::shared_ptr<CEntity>>& added);

  std::array<std::shared_ptr<EntityCollection>, kEntityTypes> entities_;  // of both types while one is chosen
  std::vector<std::shared_ptr<CEntity>> added_;                           // by the drop in progress
  std::shared_ptr<CEcp> ecp_;  // whose features were looked up last; null while nothing is chosen
};

}  // namespace kiv
