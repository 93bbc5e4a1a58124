#pragma once

#include <functional>
#include <string>

#include "host/message_box.h"

namespace kiv::qt {

/// Messages as modal boxes over the active window.
class MessageBoxes : public host::MessageBoxes {
 public:
  /// `applicationTitle` is asked for each message.
  explicit MessageBoxes(std::function<std::string()> applicationTitle);

  void Show(const std::string& text, host::MessageStyle style, const std::string& title) override;
  std::string ApplicationTitle() const override { return applicationTitle_(); }

 private:
  std::function<std::string()> applicationTitle_;
};

}  // namespace kiv::qt
