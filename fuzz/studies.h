#pragma once

#include <string>

#include "store/study.h"
#include "support/fake_host.h"

namespace kiv::fuzz {

/// The host of a target, current from the first call on.
test::FakeHost& TheHost();

/// Two studies have the same content.
void RequireSame(const store::NamedStudy& left, const store::NamedStudy& right);

/// What the history would keep of a study gives the study back, and differs from itself in nothing.
void RequireKept(const store::NamedStudy& named);

/// The text that the history would keep.
std::string KeptText(const store::NamedStudy& named);

}  // namespace kiv::fuzz
