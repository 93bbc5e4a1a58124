#pragma once

#include <functional>

#include "editor/check_list.h"
#include "host/message_box.h"
#include "ui/buttons.h"
#include "ui/text_box.h"

/// What boxes for the folder of a study's data files have in common.
namespace kiv {

/// The rules of such a box: required, on a hard disk or a network drive, and existing. The style is that of
/// the message about the drive.
CheckList FolderChecks(ui::TextBox& box, host::MessageStyle driveStyle = host::MessageStyle::Critical);

/// Makes a button beside the box let the user pick a folder. The box tells of another folder; that the user
/// picked the same one is told by `chosenAgain`, because it is a change as well.
void OfferFolders(ui::Button& button, ui::TextBox& box, std::function<void()> chosenAgain);

}  // namespace kiv
