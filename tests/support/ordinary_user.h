#pragma once

#include <sys/types.h>
#include <unistd.h>

#include <stdexcept>

namespace kiv::test {

/// Permissions do not bind root: while this lives, root works as somebody else. Others stay who they are.
/// What is worked on must stand in an OpenFolder, for nobody may enter root's own.
class AsOrdinaryUser {
 public:
  AsOrdinaryUser() { Become(before_ == 0 ? kNobody : before_); }
  AsOrdinaryUser(const AsOrdinaryUser&) = delete;
  AsOrdinaryUser& operator=(const AsOrdinaryUser&) = delete;
  ~AsOrdinaryUser() { static_cast<void>(seteuid(before_)); }

 private:
  static void Become(uid_t user) {
    if (seteuid(user) != 0) throw std::runtime_error("cannot work as another user");
  }

  static constexpr uid_t kNobody = 65534;
  const uid_t before_ = geteuid();
};

}  // namespace kiv::test
