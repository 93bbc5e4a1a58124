#include "editor/folder_box.h"

#include <exception>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include "core/drive_type.h"
#include "core/kiv_study_ctls.h"
#include "core/numeric_text.h"
#include "host/services.h"

namespace kiv {

namespace {

bool IsOnHardDiskOrNetwork(std::string_view path) {
  std::string description;
  const std::int32_t type = MKivStudyCtls::GetDriveTypeName(std::string(path), description);
  return type == host::drive::kFixed || type == host::drive::kRemote;
}

bool IsExistingFolder(std::string_view path) {
  std::error_code error;
  const std::u8string utf8(path.begin(), path.end());
  return std::filesystem::is_directory(std::filesystem::path(utf8), error);
}

/// The folder that the user picks; nothing when the chooser fails, for the box can be typed into as well.
std::optional<std::string> ChosenFolder(ui::TextBox& box) {
  try {
    return host::TheFolderChooser().ChooseFolder(box.Text(), box.Window());
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

}  // namespace

CheckList FolderChecks(ui::TextBox& box, host::MessageStyle driveStyle) {
  CheckList checks;
  checks.Add(
      box, [&box] { return !Trimmed(box.Text()).empty(); },
      "Data File Destination Path is a required field.");
  checks.Add(
      box, [&box] { return IsOnHardDiskOrNetwork(Trimmed(box.Text())); },
      "Only hard disks and network drives are valid data file destination.", driveStyle);
  checks.Add(
      box, [&box] { return IsExistingFolder(Trimmed(box.Text())); },
      "Data File Destination Path does not exist.");
  return checks;
}

void OfferFolders(ui::Button& button, ui::TextBox& box, std::function<void()> chosenAgain) {
  button.SetCaption("&Browse...");
  button.Clicked.Connect([&box, chosenAgain = std::move(chosenAgain)] {
    const auto folder = ChosenFolder(box);
    if (!folder) return;
    if (*folder == box.Text()) return chosenAgain();
    box.SetText(*folder);
  });
}

}  // namespace kiv
