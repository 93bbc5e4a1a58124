#include "host/services.h"

#include <string>

namespace kiv::host {

namespace {

template <class Service>
Service& Required(const std::shared_ptr<Service>& service, const char* name) {
  if (!service) throw Error(ErrorNumber::ObjectNotSet, std::string("The host has given no ") + name + ".");
  return *service;
}

}  // namespace

void ShowMessage(const std::string& text, MessageStyle style) {
  MessageBoxes& messages = TheMessageBoxes();
  messages.Show(text, style, messages.ApplicationTitle());
}

ErrorReporter& TheErrorReporter() {
  return Required(CurrentServices().errorReporter, "error reporter");
}
MessageBoxes& TheMessageBoxes() {
  return Required(CurrentServices().messageBoxes, "message box");
}
Settings& TheSettings() {
  return Required(CurrentServices().settings, "settings");
}
Session& TheSession() {
  return Required(CurrentServices().session, "session");
}
DocumentLibrary& TheDocuments() {
  return Required(CurrentServices().documents, "document library");
}
FileNameRules& TheFileNameRules() {
  return Required(CurrentServices().fileNameRules, "file name rules");
}
FolderChooser& TheFolderChooser() {
  return Required(CurrentServices().folderChooser, "folder chooser");
}
Beeper& TheBeeper() {
  return Required(CurrentServices().beeper, "beeper");
}
DragSource& TheDragSource() {
  return Required(CurrentServices().dragSource, "drag source");
}

}  // namespace kiv::host
