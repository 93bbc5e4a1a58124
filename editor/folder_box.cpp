#include "editor/folder_box.h"

#include <exception>
#include <filesystem>
#include <string>

#include "core/drive_type.h"
#include "core/kiv_study_ctls.h"
#include "core/numeric_text.h"
#include "host/services.h"

namespace kiv {

namespace {

bool IsOnHardDiskOrNetwork(const std::string& path) {
  std::string description;
  const std::int32_t type = MKivStudyCtls::GetDriveTypeName(path, description);
  return type == host::drive::kFixed || type == host::drive::kRemote;
}

bool IsExistingFolder(std::string_view path) {
  std::error_code error;
  const std::u8string utf8(path.begin(), path.end());
  return std::filesystem::is_directory(std::filesystem::path(utf8), error);
}

void Browse(ui::TextBox& box) {
  try {
    if (const auto folder = host::TheFolderChooser().ChooseFolder(box.Text())) box.SetText(*folder);
  } catch (const std::exception&) {
    // A folder chooser that fails chooses nothing; the box stays as it is and can be typed into.
  }
}

}  // namespace

CheckList FolderChecks(ui::TextBox& box, host::MessageStyle driveStyle) {
  CheckList checks;
  checks.Add(
      box, [&box] { return !Trimmed(box.Text()).empty(); },
      "Data File Destination Path is a required field.");
  checks.Add(
      box, [&box] { return IsOnHardDiskOrNetwork(box.Text()); },
      "Only hard disks and network drives are valid data file destination.", driveStyle);
  checks.Add(
      box, [&box] { return IsExistingFolder(Trimmed(box.Text())); },
      "Data File Destination Path does not exist.");
  return checks;
}

void OfferFolders(ui::Button& button, ui::TextBox& box) {
  button.SetCaption("&Browse...");
  button.Clicked.Connect([&box] { Browse(box); });
}

}  // namespace kiv
