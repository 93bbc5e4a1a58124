#pragma once

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "support/engine.h"
#include "support/rich_studies.h"

namespace kiv::test {

/// What a suite is given that every kind of study has to pass on every engine.
using EngineAndKind = std::tuple<Engine, std::string>;

inline auto EveryEngineAndKind() {
  return ::testing::Combine(::testing::ValuesIn(Engines()), ::testing::ValuesIn(RichKinds()));
}

inline std::string NameOf(const ::testing::TestParamInfo<EngineAndKind>& parameter) {
  const auto& [engine, kind] = parameter.param;
  std::string name = engine.name + kind;
  std::erase(name, ' ');
  return name;
}

}  // namespace kiv::test
