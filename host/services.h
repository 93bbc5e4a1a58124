#pragma once

#include <functional>
#include <memory>
#include <string>

#include "base/signal.h"
#include "host/beeper.h"
#include "host/database.h"
#include "host/documents.h"
#include "host/drag_source.h"
#include "host/error_reporter.h"
#include "host/file_names.h"
#include "host/images.h"
#include "host/message_box.h"
#include "host/session.h"
#include "host/settings.h"

namespace kiv::host {

/// Everything that a host gives to the library. What a host leaves unset raises error 91 when it is needed.
struct Services {
  std::function<std::shared_ptr<Database>()> openDatabase = {};  ///< called once, on first use
  std::shared_ptr<ErrorReporter> errorReporter = {};
  std::shared_ptr<MessageBoxes> messageBoxes = {};
  std::shared_ptr<Settings> settings = {};
  std::shared_ptr<Session> session = {};
  std::shared_ptr<DocumentLibrary> documents = {};
  std::shared_ptr<FileNameRules> fileNameRules = {};
  std::shared_ptr<FolderChooser> folderChooser = {};
  std::shared_ptr<Beeper> beeper = {};
  std::shared_ptr<DragSource> dragSource = {};
  std::shared_ptr<Images> images = {};  ///< without it views draw their own
};

/// What happens at a host. The host raises it; who listens need not know which service is behind it, and
/// hears it also after that service was replaced.
struct Events {
  Signal<> DocumentsChanged;             ///< documents were made, renamed or removed
  Signal<> appGeneralState_StateChange;  ///< a general setting changed
};

/// Installs the services of a process that has one host and no host::Scope. Those from before are let go of,
/// the database object too; who listens to the events stays.
void InstallServices(Services services);

/// What the current host has given.
const Services& CurrentServices();

/// The events of the current host; there also before it has given anything.
Events& TheEvents();

/// Shows a message with an OK button, under the host's application title.
void ShowMessage(const std::string& text, MessageStyle style = MessageStyle::Critical);

/// Access to one service. Each raises error 91 when the host has not given it.
ErrorReporter& TheErrorReporter();
MessageBoxes& TheMessageBoxes();
Settings& TheSettings();
Session& TheSession();
DocumentLibrary& TheDocuments();
FileNameRules& TheFileNameRules();
FolderChooser& TheFolderChooser();
Beeper& TheBeeper();
DragSource& TheDragSource();

}  // namespace kiv::host
