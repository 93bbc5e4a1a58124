#include "plm/general_tab.h"

namespace kiv {

namespace {

constexpr MinutesField kMinutes = {1, 1440, 30, host::remembered::kPlmDuration};
constexpr MinutesField kDelay = {1, 10, 1, host::remembered::kPlmRetrieveDelay};
constexpr DataFileNames kDataFiles = {".plm", "p$YY$MM$DD$HH$MI", host::remembered::kPlmFilename};

}  // namespace

XKivPlmGen::XKivPlmGen()
    : GeneralTabOf(kClassName, WhenEmpty::KeepDefault),
      fdocCBScenario(this, "fdocCBScenario"),
      cmdNewScenario(this, "cmdNewScenario"),
      XDest(this, "XDest"),
      Frame2(this, "Frame2"),
      txtDuration(&Frame2, "txtDuration"),
      txtRetrieveDelay(&Frame2, "txtRetrieveDelay"),
      txtTag(&Frame2, "txtTag") {
  Frame2.SetCaption("Measurement");
  const PageField& scenario = BindScenario(fdocCBScenario, cmdNewScenario);
  const PageField& duration = BindDuration(txtDuration, kMinutes);
  const PageField& delay = BindRetrieveDelay(txtRetrieveDelay, kDelay);
  const PageField& dataFile = BindDataFile(XDest, kDataFiles);
  BindTag(txtTag, host::remembered::kPlmTag);
  CheckInOrder({&scenario, &dataFile, &duration, &delay});
}

bool XKivPlmGen::Validate() {
  const auto firstProblem = [this] {
    const Hourglass hourglass(*this);  // gone before a message waits for the user
    return FirstProblem();
  };
  const auto problem = firstProblem();
  if (problem) Refuse(*problem);
  return !problem;
}

ui::LayoutItem XKivPlmGen::Layout() {
  using namespace ui;
  return Column({ScenarioRow(fdocCBScenario, cmdNewScenario), XDest.Layout(),
                 Group(Frame2, {Form({DurationRow(txtDuration), RetrieveDelayRow(txtRetrieveDelay),
                                      Field("Data ta&g:", {Single(txtTag)})})}),
                 Stretch()});
}

}  // namespace kiv
