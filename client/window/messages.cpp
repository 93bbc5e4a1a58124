#include "client/window/messages.h"

#include "host/services.h"
#include "store/store_error.h"

namespace kiv::client {

void Tell(const std::string& text) {
  host::ShowMessage(text);
}

void TellFailure(const std::exception& failure) {
  Tell(store::FailureText(failure));
}

}  // namespace kiv::client
