#pragma once

#include <string>

namespace kiv::host {

/// Icon of a message; the values are the classic style codes.
enum class MessageStyle : int { Critical = 16, Warning = 48 };

/// Messages to the user, with an OK button.
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;

  /// Returns when the user has read the message.
  virtual void Show(const std::string& text, MessageStyle style, const std::string& title) = 0;
  /// The usual title of a message.
  virtual std::string ApplicationTitle() const = 0;
};

}  // namespace kiv::host
