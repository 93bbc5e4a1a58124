#include "hom/current_tab.h"

#include <string_view>

#include "core/kiv_study_ctls.h"
#include "editor/file_name_checks.h"
#include "host/constants.h"

namespace kiv {

namespace {

using namespace MKivStudyCtls;

constexpr std::string_view kExtension = ".hom";
constexpr std::int32_t kMaxNameLength = 11;
constexpr const char* kForbiddenInDirectory = " *!~?+;\"'${}<>[]()^&|\\#";

}  // namespace

XKivHomCurrent::XKivHomCurrent()
    : TabOf(kClassName, "Current Study"),
      chkCollectData(this, "chkCollectData"),
      fraCurrentStudy(this, "fraCurrentStudy"),
      chkStartOnFail(&fraCurrentStudy, "chkStartOnFail"),
      txtCurStdPath(&fraCurrentStudy, "txtCurStdPath"),
      txtCurStdDatafile(&fraCurrentStudy, "txtCurStdDatafile"),
      lblExtension(&fraCurrentStudy, "lblExtension") {
  chkCollectData.SetCaption("Also &collect data for the current standard");
  fraCurrentStudy.SetCaption("Data File on the OMP-FX");
  chkStartOnFail.SetCaption("Start on fail&ure");
  lblExtension.SetCaption(std::string(kExtension));

  CheckList directory;
  directory.Add(
      txtCurStdPath, [this] { return !txtCurStdPath.Text().empty(); },
      "OMP-FX Directory is a required field.");
  directory.Add(
      txtCurStdPath, [this] { return !txtCurStdPath.Text().starts_with('-'); },
      "OMP-FX Directory cannot begin with '-'.");
  directory.Add(
      txtCurStdPath,
      [this] {
        return FindCharInSet(1, txtCurStdPath.Text(), kForbiddenInDirectory, CharSearch::InSet,
                             Comparison::Exact) == 0;
      },
      std::string("OMP-FX Directory cannot include any of the following characters: ") +
          kForbiddenInDirectory + " <blank>");
  const auto collects = [this] { return chkCollectData.Checked(); };
  checks_.Append(directory, collects);
  checks_.Append(
      FileNameChecks(txtCurStdDatafile, [] { return kMaxNameLength; },
                     {.required = "OMP-FX Filename is a required field.",
                      .noBlanks = "OMP-FX Filename cannot contain spaces.",
                      .firstCharacter = "The first character of the OMP-FX Filename must be AlphaNumeric. ",
                      .lengthStart = "OMP-FX Filename must have at least 1 but no more than "}),
      collects);

  Remember(host::remembered::kCurStdPath, txtCurStdPath);
  Remember(host::remembered::kCurStdDatafile, txtCurStdDatafile);
  Remember(
      host::remembered::kStartOnFail, [this] { return CheckValueToYN(chkStartOnFail.Value()); },
      [this](const std::string& text) { chkStartOnFail.SetChecked(YNToCheckValue(text) != 0); });

  chkCollectData.Changed.Connect([this] { fraCurrentStudy.SetEnabled(chkCollectData.Checked()); });
  fraCurrentStudy.SetEnabled(false);
  ReportChangesOf(chkCollectData.Changed);
  ReportChangesOf(chkStartOnFail.Changed);
  ReportChangesOf(txtCurStdPath.Changed);
  ReportChangesOf(txtCurStdDatafile.Changed);
}

void XKivHomCurrent::ShowNewStudy() {
  chkCollectData.SetChecked(false);
  chkStartOnFail.SetChecked(true);
  txtCurStdPath.SetText({});
  txtCurStdDatafile.SetText({});
  ShowRememberedValues();
}

void XKivHomCurrent::ShowStoredStudy() {
  const CKivHomData& data = *SubRecord();
  chkCollectData.SetChecked(YNToCheckValue(data.CollectData()) != 0);
  chkStartOnFail.SetChecked(YNToCheckValue(data.StartOnFail()) != 0);
  std::string name = data.CurStdDatafile();
  if (name.ends_with(kExtension)) name.resize(name.size() - kExtension.size());
  txtCurStdDatafile.SetText(std::move(name));
  txtCurStdPath.SetText(data.CurStdPath());
}

void XKivHomCurrent::SaveData() {
  CKivHomData& data = *SubRecord();
  data.SetCollectData(CheckValueToYN(chkCollectData.Value()));
  data.SetStartOnFail(CheckValueToYN(chkStartOnFail.Value()));
  if (!txtCurStdDatafile.Text().empty()) {
    data.SetCurStdDatafile(txtCurStdDatafile.Text() + std::string(kExtension));
  }
  data.SetCurStdPath(txtCurStdPath.Text());
}

ui::LayoutItem XKivHomCurrent::Layout() {
  using namespace ui;
  return Column(
      {Single(chkCollectData),
       Group(fraCurrentStudy,
             {Single(chkStartOnFail),
              Form({Field("OMP-FX &directory:", {Single(txtCurStdPath)}),
                    Field("OMP-FX file &name:", {Single(txtCurStdDatafile), Single(lblExtension)})})}),
       Stretch()});
}

}  // namespace kiv
