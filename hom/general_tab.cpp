#include "hom/general_tab.h"

#include "hom/data_files.h"

namespace kiv {

namespace {

constexpr MinutesField kMinutes = {10, 1439, 30, host::remembered::kHomDuration};  // less than a day
constexpr DataFileNames kDataFiles = {kHomExtension, "h$YY$MM$DD$HH$MI", host::remembered::kHomFilename};

}  // namespace

XKivHomGen::XKivHomGen()
    : GeneralTabOf(kClassName, WhenEmpty::Show),
      fdocCBScenario(this, "fdocCBScenario"),
      cmdNewScenario(this, "cmdNewScenario"),
      XDest(this, "XDest"),
      txtDuration(this, "txtDuration") {
  const PageField& scenario = BindScenario(fdocCBScenario, cmdNewScenario);
  const PageField& duration = BindDuration(txtDuration, kMinutes);
  const PageField& dataFile = BindDataFile(XDest, kDataFiles);
  CheckInOrder({&scenario, &dataFile, &duration});
}

ui::LayoutItem XKivHomGen::Layout() {
  using namespace ui;
  return Column({ScenarioRow(fdocCBScenario, cmdNewScenario), XDest.Layout(),
                 Form({DurationRow(txtDuration)}), Stretch()});
}

}  // namespace kiv
