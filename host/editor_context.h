#pragma once

#include <string>

#include "base/signal.h"

namespace kiv::host {

/// What a study editor tells its tabs. Each carries the name of the tab concerned.
struct EditorNotifications {
  Signal<const std::string&> cdtnNotify_DtabStateChange;
  Signal<const std::string&> cdtnNotify_EntityTemplateChange;
  Signal<const std::string&> cdtnNotify_TabChange;
  Signal<const std::string&> cdtnNotify_TabOverride;
  Signal<const std::string&> cdtnNotify_TabShow;
};

/// The study editor around the tabs, as the tabs see it.
class EditorContext {
 public:
  virtual ~EditorContext() = default;

  /// The user changed something on the tab of this name.
  virtual void DataChanged(const std::string& tabName) = 0;
  virtual void BringTabForward(const std::string& tabName) = 0;
  virtual void ShowHourglass(bool shown) = 0;

  EditorNotifications notifications;
};

}  // namespace kiv::host
