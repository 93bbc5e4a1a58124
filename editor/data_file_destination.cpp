#include "editor/data_file_destination.h"

#include <utility>

#include "base/utf16.h"
#include "core/kiv_study_ctls.h"
#include "editor/file_name_checks.h"
#include "editor/folder_box.h"
#include "editor/name_preview.h"
#include "host/services.h"

namespace kiv {

namespace {

using namespace MKivStudyCtls;

constexpr std::size_t kExtensionLimit = 5;
constexpr char kExtensionDot = '.';

/// The extension is not typed, and a name has no blanks.
void FileNameKeyFilter(std::int16_t& keyCode) {
  if (keyCode == kExtensionDot || keyCode == ' ') keyCode = 0;
}

}  // namespace

XKivDataFileDestination::XKivDataFileDestination(Container* parent, std::string name)
    : Container(parent, std::move(name)),
      Frame1(this, "Frame1"),
      txtPath(&Frame1, "txtPath"),
      cmdBrowse(&Frame1, "cmdBrowse"),
      Label1(&Frame1, "Label1"),
      txtFilename(&Frame1, "txtFilename"),
      lblExtension(&Frame1, "lblExtension"),
      lblPreview(&Frame1, "lblPreview") {
  Frame1.SetCaption("Data File Destination");
  Label1.SetCaption("File n&ame:");
  txtFilename.SetKeyFilter(FileNameKeyFilter);

  pathChecks_ = FolderChecks(txtPath);
  filenameChecks_ = FileNameChecks(
      txtFilename, [this] { return maxLength_; }, DataFileNameTexts());
  OfferFolders(cmdBrowse, txtPath, [this] { Changed.Raise(); });

  txtPath.Changed.Connect([this] { Changed.Raise(); });
  txtFilename.Changed.Connect([this] {
    if (TakeOutDots()) return;  // the name without them was told
    ShowPreview();
    Changed.Raise();
  });
}

void XKivDataFileDestination::Init(std::int32_t maxLength, const std::string& extension,
                                   const std::string& path, const std::string& filename) {
  SetMaxLength(maxLength);
  SetExtension(extension);
  SetPath(path);
  SetFilename(filename);
}

void XKivDataFileDestination::SetFilename(const std::string& filename) {
  txtFilename.SetText(filename.substr(0, filename.find(kExtensionDot)));
}

void XKivDataFileDestination::SetExtension(const std::string& extension) {
  if (CharacterCount(extension) >= kExtensionLimit) return;
  lblExtension.SetCaption(extension.starts_with(kExtensionDot) ? extension : kExtensionDot + extension);
  ShowPreview();
}

void XKivDataFileDestination::SetMaxLength(std::int32_t maxLength) {
  maxLength_ = maxLength;
  ShowPreview();
}

void XKivDataFileDestination::SetStudyID(std::int32_t id) {
  studyId_ = id;
  ShowPreview();
}

bool XKivDataFileDestination::IsValidPath(const std::string&) const {
  return pathChecks_.Enforce();
}

bool XKivDataFileDestination::IsValidFilename(const std::string&) const {
  return filenameChecks_.Enforce();
}

/// What comes past the keys brings no extension either; a name is read back up to its first dot only.
bool XKivDataFileDestination::TakeOutDots() {
  std::string name = txtFilename.Text();
  if (std::erase(name, kExtensionDot) == 0) return false;
  txtFilename.SetText(std::move(name));
  return true;
}

void XKivDataFileDestination::ShowPreview() {
  if (txtFilename.Text().empty()) {
    lblPreview.SetCaption({});
    return;
  }
  const host::Session& session = host::TheSession();
  const std::string name =
      ExpandNamePattern(txtFilename.Text(), {session.LocalTime(), session.UserName(), studyId_});
  // What counts for the limit may differ from what the pattern gives now, as with $HH12.
  const auto counted = static_cast<std::size_t>(PatternNameLength(txtFilename.Text()));
  lblPreview.SetCaption("Now: " + name + lblExtension.Caption() +
                        (counted == CharacterCount(name) ? "  (" : "  (counts as ") +
                        std::to_string(counted) + " of " + std::to_string(maxLength_) + " characters)");
}

ui::LayoutItem XKivDataFileDestination::Layout() {
  return ui::Group(Frame1, {ui::Form({ui::Field("F&older:", {ui::Single(txtPath), ui::Single(cmdBrowse)}),
                                      ui::Field(Label1, {ui::Single(txtFilename), ui::Single(lblExtension)}),
                                      ui::Field("", {ui::Single(lblPreview)})})});
}

}  // namespace kiv
