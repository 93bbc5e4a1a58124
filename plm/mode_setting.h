#pragma once

#include <functional>

#include "base/signal.h"
#include "plm/plm_mode.h"

namespace kiv {

/// One thing that a user sets of a mode: the event of its control, and how it gets from one record to
/// another.
struct ModeSetting {
  Signal<>* changed;
  std::function<void(const CKivPlmMode& from, CKivPlmMode& to)> copy;
};

/// The setting behind a property of the mode.
template <class Got, class Taken>
ModeSetting SettingOf(Signal<>& changed, Got (CKivPlmMode::*get)() const, void (CKivPlmMode::*set)(Taken)) {
  return {&changed, [get, set](const CKivPlmMode& from, CKivPlmMode& to) { (to.*set)((from.*get)()); }};
}

/// The channel list of the mode.
inline ModeSetting ChannelsOf(Signal<>& changed) {
  return {&changed, [](const CKivPlmMode& from, CKivPlmMode& to) {
            to.ClearChannelList();
            for (const auto& channel : *from.ChannelList()) {
              to.AddChannel(channel->ID(), channel->PlmMode(), channel->Channel(), channel->Key());
            }
          }};
}

}  // namespace kiv
