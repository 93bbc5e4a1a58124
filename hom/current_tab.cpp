#include "hom/current_tab.h"

#include <string>

#include "editor/file_name_checks.h"
#include "editor/kiv_study_ctls.h"
#include "hom/data_files.h"
#include "host/constants.h"

namespace kiv {

namespace {

using namespace MKivStudyCtls;

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
  lblExtension.SetCaption(std::string(kHomExtension));

  const auto collects = [this] { return chkCollectData.Checked(); };
  Bind(chkCollectData, At(&CKivHomData::CollectData, &CKivHomData::SetCollectData));
  Bind(chkStartOnFail, At(&CKivHomData::StartOnFail, &CKivHomData::SetStartOnFail))
      .Default(true)
      .Remembered(host::remembered::kStartOnFail);
  const PageField& name =
      Bind(txtCurStdDatafile, ShownName())
          .Remembered(host::remembered::kCurStdDatafile)
          .Checked(FileNameChecks(
                       txtCurStdDatafile, [] { return kMaxDataFileName; },
                       {.required = "OMP-FX Filename is a required field.",
                        .noBlanks = "OMP-FX Filename cannot contain spaces.",
                        .firstCharacter = "The first character of the OMP-FX Filename must be AlphaNumeric. ",
                        .lengthStart = "OMP-FX Filename must have at least 1 but no more than "}),
                   collects);
  const PageField& directory = Bind(txtCurStdPath, At(&CKivHomData::CurStdPath, &CKivHomData::SetCurStdPath))
                                   .Remembered(host::remembered::kCurStdPath)
                                   .Checked(DirectoryChecks(txtCurStdPath), collects);
  CheckInOrder({&directory, &name});

  chkCollectData.Changed.Connect([this] { fraCurrentStudy.SetEnabled(chkCollectData.Checked()); });
  fraCurrentStudy.SetEnabled(false);
}

CheckList XKivHomCurrent::DirectoryChecks(ui::TextBox& box) {
  CheckList checks;
  checks.Add(
      box, [&box] { return !box.Text().empty(); }, "OMP-FX Directory is a required field.");
  checks.Add(
      box, [&box] { return !box.Text().starts_with('-'); }, "OMP-FX Directory cannot begin with '-'.");
  checks.Add(
      box,
      [&box] {
        return FindCharInSet(1, box.Text(), kForbiddenInDirectory, CharSearch::InSet, Comparison::Exact) == 0;
      },
      std::string("OMP-FX Directory cannot include any of the following characters: ") +
          kForbiddenInDirectory + " <blank>");
  return checks;
}

/// The name is shown without its extension. An emptied box leaves the record as it is.
Place<std::string> XKivHomCurrent::ShownName() const {
  const auto stored = At(&CKivHomData::CurStdDatafile, &CKivHomData::SetCurStdDatafile);
  return {[stored] { return WithoutExtension(stored.read(), kHomExtension); },
          [stored](const std::string& name) {
            if (!name.empty()) stored.write(name + std::string(kHomExtension));
          }};
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
