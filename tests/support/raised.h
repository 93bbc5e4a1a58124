#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "base/error.h"

namespace kiv::test {

/// The number of the error that an action raises, which it must.
inline ErrorNumber NumberRaisedBy(const std::function<void()>& action) {
  try {
    action();
  } catch (const Error& error) {
    return error.Number();
  }
  ADD_FAILURE() << "nothing was raised";
  return {};
}

}  // namespace kiv::test
