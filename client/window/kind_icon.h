#pragma once

#include <QIcon>
#include <string_view>

namespace kiv::client {

/// A small badge with the initial letters of a study kind, in the kind's colour.
QIcon KindIcon(std::string_view kind);

}  // namespace kiv::client
