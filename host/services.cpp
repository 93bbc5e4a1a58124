#include "host/services.h"

#include <string>
#include <utility>

namespace kiv::host {

namespace {

Services& Slot() {
  static Services services;
  return services;
}

template <class Service>
Service& Required(const std::shared_ptr<Service>& service, const char* name) {
  if (!service) throw Error(ErrorNumber::ObjectNotSet, std::string("The host has given no ") + name + ".");
  return *service;
}

}  // namespace

void InstallServices(Services services) {
  Slot() = std::move(services);
}

const Services& InstalledServices() {
  return Slot();
}

ErrorReporter& TheErrorReporter() {
  return Required(Slot().errorReporter, "error reporter");
}
MessageBoxes& TheMessageBoxes() {
  return Required(Slot().messageBoxes, "message box");
}
Settings& TheSettings() {
  return Required(Slot().settings, "settings");
}
Session& TheSession() {
  return Required(Slot().session, "session");
}
DocumentLibrary& TheDocuments() {
  return Required(Slot().documents, "document library");
}
FileNameRules& TheFileNameRules() {
  return Required(Slot().fileNameRules, "file name rules");
}
FolderChooser& TheFolderChooser() {
  return Required(Slot().folderChooser, "folder chooser");
}
Beeper& TheBeeper() {
  return Required(Slot().beeper, "beeper");
}
DragSource& TheDragSource() {
  return Required(Slot().dragSource, "drag source");
}

}  // namespace kiv::host
