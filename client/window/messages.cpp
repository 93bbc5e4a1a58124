#include "client/window/messages.h"

#include "host/services.h"
#include "store/store_error.h"

namespace kiv::client {

void Tell(const std::string& text) {
  host::MessageBoxes& messages = host::TheMessageBoxes();
  messages.Show(text, host::MessageStyle::Critical, messages.ApplicationTitle());
}

void TellFailure(const std::exception& failure) {
  Tell(store::FailureText(failure));
}

}  // namespace kiv::client
