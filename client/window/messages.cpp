#include "client/window/messages.h"

#include "host/services.h"
#include "store/store_error.h"

namespace kiv::client {

void Tell(const std::string& text) {
  host::MessageBox& messages = host::TheMessageBox();
  messages.Show(text, host::MessageStyle::Critical, messages.ApplicationTitle());
}

void TellFailure(const std::exception& failure) {
  Tell(FailureText(failure));
}

}  // namespace kiv::client
